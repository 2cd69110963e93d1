#include "values/arrays/element_store.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "values/simple_fixed_structure.h"

namespace halyard {

Ptr<IValueBase> ElementStore::ObjectAt(std::uint32_t position) {
  if (IsPacked(position)) {
    Put(position,
        SimpleFixedStructure::NewOver(rows_.definition().get(), {rows_.Row(position), rows_.row_size()}));
  }
  const Ptr<IValueBase>* slot = slots_.Find(position);
  return slot != nullptr ? *slot : Ptr<IValueBase>();
}

bool ElementStore::IsFresh(std::uint32_t position) const noexcept {
  return position < fresh_end_ && !rows_.Holds(position) && slots_.Find(position) == nullptr;
}

std::uint32_t ElementStore::EndOfFresh(std::uint32_t position) const noexcept {
  if (!IsFresh(position)) return position;
  const std::uint32_t end = std::min(slots_.NextMade(position), fresh_end_);
  return position < rows_.first() && rows_.end() != rows_.first() ? std::min(end, rows_.first()) : end;
}

std::uint32_t ElementStore::EndOfPacked(std::uint32_t position) const noexcept {
  return std::min(slots_.NextMade(position), rows_.end());
}

std::uint32_t ElementStore::CountOfOpen(std::uint32_t position) const noexcept {
  if (position >= size() || rows_.Holds(position) || slots_.Find(position) != nullptr) return 0;
  if (IsFresh(position)) return EndOfFresh(position) - position;
  const std::uint32_t end = slots_.NextMade(position);
  return (position < rows_.first() ? std::min(end, rows_.first()) : end) - position;
}

void ElementStore::Put(std::uint32_t position, Ptr<IValueBase> object) {
  std::swap(slots_.Make(position), object);
}

void ElementStore::Append(Ptr<IValueBase> object) { slots_.Append(std::move(object)); }

void ElementStore::Erase(std::uint32_t position) {
  Ptr<IValueBase> removed;
  if (slots_.Find(position) != nullptr) std::swap(slots_.Make(position), removed);
  slots_.Erase(position);
  const RowSlab removed_rows = rows_.Erase(position);
  if (position < fresh_end_) --fresh_end_;
}

void ElementStore::Resize(std::uint32_t size) {
  std::size_t leaving = 0;
  for (std::uint32_t i = slots_.NextMade(size); i < slots_.size(); i = slots_.NextMade(i + 1)) ++leaving;
  std::vector<Ptr<IValueBase>> removed;
  removed.reserve(leaving);
  for (std::uint32_t i = slots_.NextMade(size); i < slots_.size(); i = slots_.NextMade(i + 1))
    std::swap(slots_.Make(i), removed.emplace_back());
  slots_.Resize(size);
  const RowSlab removed_rows = rows_.CutFrom(size);
  fresh_end_ = std::min(fresh_end_, size);
}

ElementStore ElementStore::Outline() const {
  ElementStore outline;
  outline.slots_.Resize(size());
  outline.fresh_end_ = fresh_end_;
  outline.rows_ = rows_;
  return outline;
}

}  // namespace halyard
