// What an array does with packed elements, many at a time. Each of these functions does
// what a loop over the elements would do, as far as no element needs to be an object for
// it, and answers for how many elements it was done; the rest is up to that loop.
#include <algorithm>
#include <cstring>

#include "definitions/structure_layout.h"
#include "object/nesting.h"
#include "values/arrays/array.h"

namespace halyard {
namespace {

// Rows are added in steps of so many where only their number announces them.
constexpr ULONG kRowsOnPromise = 1u << 16;

}  // namespace

ULONG Array::DecodeRows(ReadCursor& cursor, ULONG position) {
  if (!WalkingLevel::HasRoom()) return 0;
  if (elements_.IsPacked(position)) {
    RowSlab& rows = elements_.rows();
    const std::size_t row_size = rows.row_size();
    if (rows.layout().data_size != row_size) return 0;
    const auto count = static_cast<ULONG>(
        std::min<std::size_t>(elements_.EndOfPacked(position) - position, cursor.room() / row_size));
    return cursor.TakeBytes(rows.Row(position), count * row_size) ? count : 0;
  }
  const ULONG open = elements_.CountOfOpen(position);
  return open != 0 ? DecodeNewRows(cursor, position, open) : 0;
}

ULONG Array::DecodeNewRows(ReadCursor& cursor, ULONG position, ULONG open) {
  const Ptr<IValueDefBase> definition = elements_.IsFresh(position) ? fresh_definition_ : ElementDefinition();
  const std::uint16_t row_size = RowSlab::RowSizeFor(definition);
  RowSlab& rows = elements_.rows();
  if (!rows.CanAdd(position, definition, row_size)) return 0;
  // Only elements that the buffer holds take memory.
  const auto count = static_cast<ULONG>(std::min<std::size_t>(open, cursor.room() / row_size));
  const std::size_t bytes = std::size_t{count} * row_size;
  if (count == 0) return 0;
  if (rows.end() == rows.first()) {
    if (OwnedBytes owned = cursor.TakeWithMemory(bytes)) {
      rows.Adopt(position, definition, row_size, std::move(owned.memory), owned.bytes);
      return count;
    }
  }
  return cursor.TakeBytes(rows.Add(position, definition, row_size, count), bytes) ? count : 0;
}

ULONG Array::EncodeRows(WriteCursor& cursor, ULONG position) {
  if (!elements_.IsPacked(position) || !WalkingLevel::HasRoom()) return 0;
  RowSlab& rows = elements_.rows();
  const std::size_t row_size = rows.row_size();
  if (rows.layout().data_size != row_size) return 0;
  const auto count = static_cast<ULONG>(
      std::min<std::size_t>(elements_.EndOfPacked(position) - position, cursor.room() / row_size));
  return cursor.PutBytes(rows.Row(position), count * row_size) ? count : 0;
}

bool Array::FindReadyBody(ReadyBody& body) {
  const ULONG count = ElementCount();
  if (!type_ || count == 0 || !elements_.IsPacked(0) || elements_.EndOfPacked(0) != count) return false;
  RowSlab& rows = elements_.rows();
  const ArrayLayout& layout = type_.layout();
  const bool is_true =
      layout.value_type.object == rows.definition() && rows.layout().data_size == rows.row_size();
  if (!is_true || !WalkingLevel::HasRoom() || !type_.FindId(body.id)) return false;
  body.type = kTypeCode;
  body.head_size = layout.element_count == 0 ? sizeof count : 0;
  std::memcpy(body.head.data(), &count, body.head_size);
  body.bytes = {rows.Row(0), std::size_t{rows.row_size()} * count};
  return true;
}

ULONG Array::MoveRows(const NumberColumn& column, ULONG position, ULONG end) {
  if (column.direction() == Direction::kRead) PackFresh(column, position, end);
  if (!elements_.IsPacked(position)) return 0;
  RowSlab& rows = elements_.rows();
  const MemberLayout* member = column.FindField(rows.layout(), rows.row_size());
  if (member == nullptr) return 0;
  const ULONG count = std::min<ULONG>(elements_.EndOfPacked(position), end) - position;
  unsigned char* field = rows.Row(position) + member->offset;
  const auto type = static_cast<SHORT>(member->type);
  if (column.direction() == Direction::kRead) {
    column.ReadRun(position, {field, type}, rows.row_size(), count);
  } else {
    column.BuildRun(position, {field, type}, rows.row_size(), count);
  }
  return count;
}

void Array::PackFresh(const NumberColumn& column, ULONG position, ULONG end) {
  if (!elements_.IsFresh(position)) return;
  const std::uint16_t row_size = RowSlab::RowSizeFor(fresh_definition_);
  RowSlab& rows = elements_.rows();
  if (!WalkingLevel::HasRoom() || !rows.CanAdd(position, fresh_definition_, row_size)) return;
  if (column.FindField(RowSlab::LayoutOf(fresh_definition_), row_size) == nullptr) return;
  const ULONG count = std::min<ULONG>({elements_.CountOfOpen(position), end - position, kRowsOnPromise});
  std::memset(rows.Add(position, fresh_definition_, row_size, count), 0, std::size_t{count} * row_size);
}

}  // namespace halyard
