// The encoding of a structure definition: identity, member count (2 bytes), data size
// (2), then each member's name and caption, null flag (1), type code (2), data size (2)
// and definition.
#include <iterator>

#include "definitions/nested_definition.h"
#include "definitions/structure_info.h"
#include "object/nesting.h"

namespace halyard {
namespace {

constexpr ULONG kCountAndSizeBytes = 4;
constexpr ULONG kMemberBytes = 9;  // two lengths, flag, type code, data size
constexpr char kNoDefinition[] = "a member has no definition";

bool PutText(WriteCursor& cursor, const OptionalText& text) {
  return cursor.PutText(text.NarrowForm(), text.EncodedLength());
}

bool TakeText(ReadCursor& cursor, OptionalText& text) {
  std::string narrow;
  if (!cursor.TakeText(narrow)) return false;
  text.SetNarrow(narrow);
  return true;
}

ULONG MemberTextSize(const MemberLayout& member) noexcept {
  return ULONG{member.name.EncodedLength()} + member.caption.EncodedLength();
}

bool EncodeMember(WriteCursor& cursor, const MemberLayout& member) {
  const Ptr<IValueDefBase> definition = member.definition.object;
  if (!PutText(cursor, member.name) || !PutText(cursor, member.caption) ||
      !cursor.Put(static_cast<std::uint8_t>(member.can_be_null ? 1 : 0))) {
    return false;
  }
  Require(definition, kNoDefinition);
  SHORT type = 0;
  Check(definition->get_Type(&type), definition);
  if (!cursor.Put(type)) return false;
  ULONG size = 0;
  Check(definition->get_DataSize(&size), definition);
  return cursor.Put(static_cast<std::uint16_t>(size)) && EncodeDefinition(*definition, cursor);
}

}  // namespace

HRESULT StructureInfo::get_PacketSize(ULONG* pdwSize) {
  return Call("PacketSize", [&] {
    ULONG& result = Out(pdwSize);
    const WalkingLevel level;
    const StructureLayout& layout = layout_;
    ULONG total = identity_.PacketSize() + kCountAndSizeBytes;
    for (std::size_t i = 0; i < layout.members.size(); ++i) {
      total += MemberTextSize(layout.members[i]);
      const Ptr<IValueDefBase> definition = Require(layout.members[i].definition.object, kNoDefinition);
      ULONG size = 0;
      Check(definition->get_PacketSize(&size), definition);
      total += kMemberBytes + size;
    }
    if (layout.LacksMembers()) Require(Ptr<IValueDefBase>(), kNoDefinition);
    result = total;
  });
}

bool StructureInfo::Encode(WriteCursor& cursor) {
  const StructureLayout& layout = layout_;
  if (!identity_.Encode(cursor) || !cursor.Put(static_cast<std::uint16_t>(layout.WholeCount())) ||
      !cursor.Put(layout.data_size)) {
    return false;
  }
  for (std::size_t i = 0; i < layout.members.size(); ++i) {
    if (!EncodeMember(cursor, layout.members[i])) return false;
  }
  return !layout.LacksMembers() || EncodeMember(cursor, MemberLayout());
}

bool StructureInfo::Decode(ReadCursor& cursor) {
  const ReadingLevel level;
  std::uint16_t count = 0;
  if (level.TooDeep() || !identity_.Decode(cursor) || !cursor.Take(count)) return false;
  CutMembers(count);
  layout_.announced = count;
  if (!cursor.Take(layout_.data_size)) return false;
  for (std::size_t i = 0; i < count; ++i) {
    if (!DecodeMember(cursor, i)) return false;
  }
  CalculateLayout();
  return true;
}

bool StructureInfo::DecodeMember(ReadCursor& cursor, std::size_t position) {
  OptionalText name;
  OptionalText caption;
  std::uint8_t can_be_null = 0;
  std::uint16_t type = 0;
  std::uint16_t size = 0;  // follows from the definition; not looked at
  if (!TakeText(cursor, name)) return false;
  Reached(position).name = std::move(name);
  layout_.ForgetNames();
  if (!TakeText(cursor, caption)) return false;
  Reached(position).caption = std::move(caption);
  if (!cursor.Take(can_be_null)) return false;
  Reached(position).can_be_null = can_be_null != 0;
  if (!cursor.Take(type) || !cursor.Take(size)) return false;
  const Ptr<IValueDefBase> definition = DefinitionForReading(type, Reached(position).definition.object);
  Reached(position).definition = HeldDefinition(definition);
  return DecodeDefinition(*Require(definition, "a member's type has no definition class"), cursor);
}

// Members are looked up anew after each step that may run a client's code: the end of an
// old definition, a message, a foreign class. What that code did to the table is lost.
MemberLayout& StructureInfo::Reached(std::size_t position) {
  if (position >= layout_.members.size()) layout_.members.resize(position + 1);
  return layout_.members[position];
}

void StructureInfo::CutMembers(std::size_t count) {
  if (layout_.members.size() <= count) return;
  // Taken out before they end, so that their ends find a whole table.
  const auto first = layout_.members.begin() + static_cast<std::ptrdiff_t>(count);
  const std::vector<MemberLayout> surplus(std::make_move_iterator(first),
                                          std::make_move_iterator(layout_.members.end()));
  layout_.members.resize(count);
  layout_.ForgetNames();
}

}  // namespace halyard
