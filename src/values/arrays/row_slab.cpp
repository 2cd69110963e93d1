#include "values/arrays/row_slab.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

#include "definitions/structure_layout.h"
#include "halyard/object/error.h"

namespace halyard {
namespace {

bool g_allowed = true;

Ptr<IStructureLayoutSource> SourceOf(const Ptr<IValueDefBase>& definition) {
  Ptr<IStructureLayoutSource> source = QueryFor<IStructureLayoutSource>(definition.get());
  // A definition that is part of another object may be asked for values in its stead.
  return source && source->Outside() == definition.get() ? source : nullptr;
}

std::size_t BytesOf(std::uint16_t row_size, std::uint64_t count) {
  const std::uint64_t bytes = row_size * count;
  if (bytes > std::numeric_limits<std::size_t>::max() / 2) throw std::bad_alloc();
  return static_cast<std::size_t>(bytes);
}

}  // namespace

void RowSlab::Allow(bool allowed) noexcept { g_allowed = allowed; }

std::uint16_t RowSlab::RowSizeFor(const Ptr<IValueDefBase>& definition) {
  const Ptr<IStructureLayoutSource> source = g_allowed ? SourceOf(definition) : nullptr;
  if (!source) return 0;
  const StructureLayout& layout = source->Layout().Whole();
  return layout.fixed ? layout.data_size : std::uint16_t{0};
}

RowSlab::RowSlab(const RowSlab& other) {
  if (other.count_ == 0) return;
  const unsigned char* rows = other.rows_;
  std::memcpy(Add(other.first_, other.definition_, other.row_size_, other.count_), rows,
              BytesOf(other.row_size_, other.count_));
}

const StructureLayout& RowSlab::layout() const { return table_->Whole(); }

const StructureLayout& RowSlab::LayoutOf(const Ptr<IValueDefBase>& definition) {
  return SourceOf(definition)->Layout().Whole();
}

bool RowSlab::CanAdd(std::uint32_t position, const Ptr<IValueDefBase>& definition,
                     std::uint16_t row_size) const noexcept {
  if (row_size == 0) return false;
  return count_ == 0 || (position == end() && row_size == row_size_ && definition == definition_);
}

unsigned char* RowSlab::Add(std::uint32_t position, const Ptr<IValueDefBase>& definition,
                            std::uint16_t row_size, std::uint32_t count) {
  const std::size_t used = BytesOf(row_size, count_);
  const std::size_t needed = BytesOf(row_size, std::uint64_t{count_} + count);
  if (needed > room_) {
    // The first rows get no more than they need; further ones grow the slab by half.
    const std::size_t room = std::max(needed, used + used / 2);
    if (rows_ == memory_.get()) {
      ResizeRawMemory(memory_, room);
    } else {
      RawMemory larger = NewRawMemory(room);
      std::memcpy(larger.get(), rows_, used);
      memory_ = std::move(larger);
    }
    rows_ = memory_.get();
    room_ = room;
  }
  if (count_ == 0) Begin(position, definition, row_size);
  count_ += count;
  return rows_ + used;
}

void RowSlab::Adopt(std::uint32_t position, const Ptr<IValueDefBase>& definition, std::uint16_t row_size,
                    RawMemory memory, std::span<unsigned char> rows) {
  Begin(position, definition, row_size);
  memory_ = std::move(memory);
  rows_ = rows.data();
  room_ = rows.size();
  count_ = static_cast<std::uint32_t>(rows.size() / row_size);
}

RowSlab RowSlab::Erase(std::uint32_t position) noexcept {
  if (position < first_) {
    --first_;
  } else if (Holds(position)) {
    unsigned char* row = Row(position);
    std::memmove(row, row + row_size_, std::size_t{row_size_} * (end() - position - 1));
    --count_;
    if (count_ == 0) return std::exchange(*this, RowSlab());
  }
  return {};
}

RowSlab RowSlab::CutFrom(std::uint32_t position) noexcept {
  if (position >= end()) return {};
  if (position <= first_) return std::exchange(*this, RowSlab());
  count_ = position - first_;
  return {};
}

void RowSlab::Swap(RowSlab& other) noexcept {
  std::swap(definition_, other.definition_);
  std::swap(table_, other.table_);
  std::swap(first_, other.first_);
  std::swap(count_, other.count_);
  std::swap(row_size_, other.row_size_);
  std::swap(memory_, other.memory_);
  std::swap(rows_, other.rows_);
  std::swap(room_, other.room_);
}

void RowSlab::Begin(std::uint32_t position, const Ptr<IValueDefBase>& definition, std::uint16_t row_size) {
  first_ = position;
  row_size_ = row_size;
  table_ = &SourceOf(definition)->Layout();
  definition_ = definition;
}

}  // namespace halyard
