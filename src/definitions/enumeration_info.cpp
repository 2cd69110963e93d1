#include "definitions/enumeration_info.h"

#include <string>

#include "definitions/enumeration_number.h"
#include "definitions/value_creation.h"
#include "halyard/classes.h"

namespace halyard {
namespace {

constexpr ULONG kTypeAndCountBytes = 4;
constexpr ULONG kNameLengthBytes = 2;

}  // namespace

HRESULT EnumerationInfo::get_Count(LONG* pnCount) {
  return Call("Count", [&] { Out(pnCount) = static_cast<LONG>(elements_.size()); });
}

HRESULT EnumerationInfo::get_DataSize(ULONG* pdwSize) {
  return Call("DataSize", [&] { Out(pdwSize) = ElementarySize(data_type_); });
}

HRESULT EnumerationInfo::CalculateDataSize(ULONG* pdwSize) {
  return Call("CalculateDataSize", [&] { Out(pdwSize) = ElementarySize(data_type_); });
}

HRESULT EnumerationInfo::get_PacketSize(ULONG* pdwSize) {
  return Call("PacketSize", [&] {
    ULONG& result = Out(pdwSize);
    ULONG total = identity_.PacketSize() + kTypeAndCountBytes;
    for (std::uint32_t i = 0; i < elements_.size(); ++i)
      total += kNameLengthBytes + ElementAt(i).name.EncodedLength() + ElementarySize(data_type_);
    result = total;
  });
}

HRESULT EnumerationInfo::CreateDataObject(IValueBase** ppResult) {
  return Call("CreateDataObject",
              [&] { HandOut(ppResult, [&] { return CreateValueOf(this, *ValueClass()); }); });
}

const CLSID* EnumerationInfo::ValueClass() noexcept { return &kEnumerationClass; }

HRESULT EnumerationInfo::get_ElementCount(LONG* pnCount) {
  return Call("ElementCount", [&] { Out(pnCount) = static_cast<LONG>(elements_.size()); });
}

HRESULT EnumerationInfo::get_ElementName(LONG nIndex, BSTR* psName) {
  return Call("ElementName",
              [&] { HandOut(psName, [&] { return ElementAt(PositionOf(nIndex)).name.NewCopy(); }); });
}

HRESULT EnumerationInfo::put_ElementName(LONG nIndex, BSTR sName) {
  return Call("ElementName", [&] { elements_.Make(PositionOf(nIndex)).name.Set(sName); });
}

HRESULT EnumerationInfo::get_ElementValue(LONG nIndex, LONG* pnValue) {
  return Call("ElementValue", [&] { Out(pnValue) = ElementAt(PositionOf(nIndex)).value; });
}

HRESULT EnumerationInfo::put_ElementValue(LONG nIndex, LONG nValue) {
  return Call("ElementValue", [&] { elements_.Make(PositionOf(nIndex)).value = nValue; });
}

HRESULT EnumerationInfo::get_DataType(SHORT* pnType) {
  return Call("DataType", [&] { Out(pnType) = data_type_; });
}

HRESULT EnumerationInfo::put_DataType(SHORT nType) {
  if (EnumerationNumberWidth(nType) != 0) data_type_ = nType;
  return S_OK;
}

HRESULT EnumerationInfo::AddMember(BSTR sName, LONG nValue, VARIANT_BOOL* pbResult) {
  return Call("AddMember", [&] {
    VARIANT_BOOL& result = Out(pbResult);
    Element element;
    element.value = nValue;
    element.name.Set(sName);
    elements_.Append(std::move(element));
    result = VARIANT_TRUE;
  });
}

HRESULT EnumerationInfo::Remove(LONG nIndex) {
  return Call("Remove", [&] { elements_.Erase(PositionOf(nIndex)); });
}

HRESULT EnumerationInfo::RemoveAll() {
  elements_.Resize(0);
  return S_OK;
}

HRESULT EnumerationInfo::get_DataTypeString(BSTR* psType) {
  return Call("DataTypeString", [&] { HandOut(psType, [&] { return TypeCodeNameText(data_type_); }); });
}

bool EnumerationInfo::Decode(ReadCursor& cursor) {
  std::uint16_t count = 0;
  if (!identity_.Decode(cursor) || !cursor.Take(data_type_) || !cursor.Take(count)) return false;
  elements_.Resize(count);
  for (std::uint32_t i = 0; i < count; ++i) {
    if (!DecodeElement(cursor, elements_.Make(i))) return false;
  }
  return true;
}

bool EnumerationInfo::Encode(WriteCursor& cursor) const {
  if (!identity_.Encode(cursor) || !cursor.Put(data_type_) ||
      !cursor.Put(static_cast<std::uint16_t>(elements_.size()))) {
    return false;
  }
  for (std::uint32_t i = 0; i < elements_.size(); ++i) {
    if (!EncodeElement(cursor, ElementAt(i))) return false;
  }
  return true;
}

bool EnumerationInfo::DecodeElement(ReadCursor& cursor, Element& element) const {
  std::string narrow;
  if (!TakeEnumerationNumber(cursor, data_type_, element.value) || !cursor.TakeText(narrow)) return false;
  element.name.SetNarrow(narrow);
  return true;
}

bool EnumerationInfo::EncodeElement(WriteCursor& cursor, const Element& element) const {
  return PutEnumerationNumber(cursor, data_type_, element.value) &&
         cursor.PutText(element.name.NarrowForm(), element.name.EncodedLength());
}

std::uint32_t EnumerationInfo::PositionOf(LONG index) const {
  if (index < 0 || static_cast<std::uint32_t>(index) >= elements_.size()) {
    throw Error(E_INVALIDARG, "the enumeration has " + std::to_string(elements_.size()) +
                                  " elements and none at position " + std::to_string(index));
  }
  return static_cast<std::uint32_t>(index);
}

const EnumerationInfo::Element& EnumerationInfo::ElementAt(std::uint32_t position) const noexcept {
  static const Element kNeverMade;
  const Element* element = elements_.Find(position);
  return element != nullptr ? *element : kNeverMade;
}

}  // namespace halyard
