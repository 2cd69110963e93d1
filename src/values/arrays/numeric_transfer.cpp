#include "values/arrays/numeric_transfer.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <utility>

#include "object/boundary.h"
#include "platform/message.h"
#include "platform/text.h"
#include "types/elementary.h"
#include "types/type_names.h"

namespace halyard {
namespace {

constexpr char kFaultCaption[] = "";

using Scratch = std::array<unsigned char, kWidestElementary>;

// The member or element object at a position; raises E_POINTER where it is null.
Ptr<IValueBase> ObjectAt(const Ptr<IValueBase>& owner, LONG position) {
  Ptr<IValueBase> object;
  Check(owner->get_At(Variant(position).get(), object.Out()), owner);
  return Require(object, "a member or element on the way is null");
}

Variant ContentOf(IValueBase& object) {
  Variant content;
  Check(object.get_Value(content.Out()), &object);
  return content;
}

}  // namespace

NumberColumn::NumberColumn(SelectedMember member, SHORT number_type, NumberRun<unsigned char> numbers,
                           Direction direction) noexcept
    : member_(std::move(member)),
      numbers_(numbers),
      direction_(direction),
      move_(direction == Direction::kBuild ? FindNumberMove(member_.type, number_type)
                                           : FindNumberMove(number_type, member_.type)),
      measure_(FindNumberMove(kReal, member_.type)) {}

void NumberColumn::BuildRun(std::size_t position, ElementaryField<const unsigned char> first,
                            std::size_t stride, std::size_t count) const {
  RequireType(first.type);
  move_({first.bytes, stride}, {NumberAt(position), numbers_.stride}, count);
}

void NumberColumn::ReadRun(std::size_t position, ElementaryField<unsigned char> first, std::size_t stride,
                           std::size_t count) const {
  RequireType(first.type);
  move_({NumberAt(position), numbers_.stride}, {first.bytes, stride}, count);
}

const MemberLayout* NumberColumn::FindField(const StructureLayout& layout,
                                            std::size_t block_size) const noexcept {
  if (member_.steps.size() != 1) return nullptr;
  const MemberLayout* member = layout.At(member_.steps.front().position);
  if (member == nullptr || member->size == 0 || static_cast<SHORT>(member->type) != member_.type)
    return nullptr;
  const std::size_t width = std::max<std::size_t>(member->size, NumberWidth(member_.type));
  return member->offset + width <= block_size ? member : nullptr;
}

void NumberColumn::MoveElement(std::size_t position, const Ptr<IValueBase>& element) const {
  unsigned char* number = NumberAt(position);
  Ptr<IValueBase> value = element;
  for (std::size_t i = 0; i < member_.steps.size(); ++i) {
    const LONG step = member_.steps[i].position;
    const bool last = i + 1 == member_.steps.size();
    if (last && MoveField(*value, step, number)) return;
    value = ObjectAt(value, step);
  }
  MoveObject(*value, number);
}

bool NumberColumn::MoveField(IValueBase& owner, LONG position, unsigned char* number) const {
  const Ptr<IElementaryMemory> memory = QueryFor<IElementaryMemory>(&owner);
  if (!memory) return false;
  if (direction_ == Direction::kBuild) {
    const auto field = memory->FieldForReading(position);
    if (!field) return false;
    RequireType(field.type);
    move_({field.bytes, 0}, {number, 0}, 1);
  } else {
    const auto field = memory->FieldForWriting(position);
    if (!field) return false;
    RequireType(field.type);
    move_({number, 0}, {field.bytes, 0}, 1);
  }
  return true;
}

void NumberColumn::MoveObject(IValueBase& object, unsigned char* number) const {
  Scratch scratch{};
  if (direction_ == Direction::kBuild) {
    const double content = Variant::Converted(ContentOf(object).get(), VT_R8)->dblVal;
    Scratch real{};
    std::memcpy(real.data(), &content, sizeof content);
    measure_({real.data(), 0}, {scratch.data(), 0}, 1);
    move_({scratch.data(), 0}, {number, 0}, 1);
  } else {
    move_({number, 0}, {scratch.data(), 0}, 1);
    // The variant that the type reads as, so that a Word of 65535 arrives as VT_I2 -1.
    Variant content;
    ReadElementary(scratch, member_.type, content.get());
    Check(object.put_Value(content.get()), &object);
  }
}

void NumberColumn::RequireType(SHORT type) const {
  if (type != member_.type)
    throw Error(E_INVALIDARG, "an element is of another type than the definition says");
}

NumberColumns SelectNumbers(const TransferCall& call, IArrayDef& definition,
                            const Ptr<IValueDefBase>& element, ULONG elements) {
  const SHORT type = TypeCodeFromVariant(call.number_type);
  std::optional<MemberPath> plain = FindPlainMember(ViewOf(call.path), element);
  MemberPath parsed =
      plain ? std::move(*plain) : ParseMemberPath(NarrowToZero(ViewOf(call.path)), definition);
  NumberColumns selected;
  selected.understood = parsed.fault.empty();
  if (!selected.understood && call.direction == Direction::kBuild)
    ShowMessage(parsed.fault.c_str(), kFaultCaption);
  const std::size_t width = NumberWidth(type);
  // Members that are no numbers are not moved and take no place in the buffer.
  std::erase_if(parsed.members, [](const SelectedMember& member) { return NumberWidth(member.type) == 0; });
  if (width == 0 || elements == 0 || parsed.members.empty()) return selected;
  unsigned char* place = &Out(call.buffer);
  const std::size_t stride = width * parsed.members.size();
  for (SelectedMember& member : parsed.members) {
    selected.columns.emplace_back(std::move(member), type, NumberRun<unsigned char>{place, stride},
                                  call.direction);
    place += width;
  }
  return selected;
}

}  // namespace halyard
