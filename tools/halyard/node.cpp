#include "tools/halyard/node.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <vector>

#include "tools/halyard/client.h"
#include "tools/halyard/scalar_text.h"
#include "tools/halyard/text.h"

namespace halyard::tool {
namespace {

bool IsComposed(const DefinitionView& definition) {
  return definition.type == kStructure || definition.type == kArray;
}

// The content of a value; composed ones are their own.
Variant ContentOf(const Ptr<IValueBase>& value, const DefinitionView& definition) {
  Variant content;
  if (IsComposed(definition)) return content;
  Check(value->get_Value(content.Out()), value);
  return content;
}

// The bytes that a member takes in the encoding of its structure.
ULONG EncodedSize(const Ptr<IValueBase>& structure, const MemberView& member, LONG index) {
  if (member.is_field()) return member.size;
  const ULONG flag = member.can_be_null ? 1 : 0;
  Ptr<IValueBase> object;
  Check(structure->get_At(Variant(index).get(), object.Out()), structure);
  return object ? flag + Get<ULONG>(object, &IValueBase::get_PacketSize) : flag;
}

// The bytes of a field that no call hands out: they are cut out of the structure's
// encoding.
std::vector<unsigned char> FieldBytes(const Ptr<IValueBase>& structure, const DefinitionView& definition,
                                      LONG index) {
  std::vector<unsigned char> encoding(Get<ULONG>(structure, &IValueBase::get_PacketSize));
  ULONG written = 0;
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(structure->WriteToBuffer(encoding.data(), static_cast<ULONG>(encoding.size()), &written, &done),
        structure);
  std::size_t start = 0;
  for (LONG i = 0; i < index; ++i) {
    start += EncodedSize(structure, definition.members[static_cast<std::size_t>(i)], i);
  }
  const std::size_t size = definition.members[static_cast<std::size_t>(index)].size;
  start = std::min(start, encoding.size());
  const std::size_t end = std::min(start + size, encoding.size());
  return {encoding.begin() + static_cast<std::ptrdiff_t>(start),
          encoding.begin() + static_cast<std::ptrdiff_t>(end)};
}

}  // namespace

Node::Node(const Ptr<IValueBase>& value, const DefinitionView& definition)
    : Node(ContentOf(value, definition), definition) {
  if (IsComposed(definition)) object_ = value;
}

Node::Node(Variant content, const DefinitionView& definition)
    : content_(std::move(content)), object_(ObjectIn(content_)), definition_(&definition) {}

Node::Node(const Node& other)
    : content_(Variant::CopyOf(other.content_.get())),
      object_(other.object_),
      bytes_(other.bytes_),
      definition_(other.definition_) {}

Node Node::Null(const DefinitionView& definition) { return {Variant::Null(), definition}; }

bool Node::HasChildren() const noexcept { return !IsNull() && IsComposed(*definition_); }

LONG Node::Count() const { return object_ ? Get<LONG>(object_, &IValueBase::get_Count) : 0; }

Node Node::Child(LONG index) const {
  if (definition_->type == kStructure) return Member(index);
  if (definition_->element->IsElementary()) return {Item(object_, index), *definition_->element};
  Ptr<IValueBase> element;
  Check(object_->get_At(Variant(index).get(), element.Out()), object_);
  return {Require(element, "an element of an array is missing"), *definition_->element};
}

Node Node::Member(LONG index) const {
  const MemberView& member = definition_->members[static_cast<std::size_t>(index)];
  if (member.definition->type == kByteArray && member.is_field()) {
    Node node(Variant(), *member.definition);
    const auto bytes = FieldBytes(object_, *definition_, index);
    node.bytes_ = fmt::format("{:02X}", fmt::join(bytes, ""));
    return node;
  }
  if (member.definition->type == kArray) {
    Ptr<IValueBase> array;
    Check(object_->get_At(Variant(index).get(), array.Out()), object_);
    return array ? Node(array, *member.definition) : Null(*member.definition);
  }
  return {Item(object_, index), *member.definition};
}

std::string Node::Text() const {
  if (definition_->type == kByteArray) return bytes_;
  if (definition_->type == kEnumeration && content_.type() == VT_I4) {
    const std::string* name = definition_->ElementName(content_->lVal);
    if (name != nullptr && !name->empty()) return *name;
  }
  if (definition_->type == kFixedString && content_.type() == VT_BSTR) {
    // A text that fills its field is followed by whatever follows the field.
    const WideView text = ViewOf(content_->bstrVal);
    return FromLibrary(text.substr(0, std::min<std::size_t>(text.size(), definition_->data_size)));
  }
  return ScalarText(content_);
}

bool Node::IsNumber() const noexcept {
  switch (content_.type()) {
    case VT_UI1:
    case VT_I2:
    case VT_I4:
      return definition_->type != kEnumeration || definition_->ElementName(content_->lVal) == nullptr;
    case VT_R4:
    case VT_R8:
      return true;
    default:
      return false;
  }
}

}  // namespace halyard::tool
