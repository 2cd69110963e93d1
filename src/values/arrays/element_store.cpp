#include "values/arrays/element_store.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace halyard {

Ptr<IValueBase> ElementStore::ObjectAt(std::uint32_t position) const noexcept {
  const Ptr<IValueBase>* slot = slots_.Find(position);
  return slot != nullptr ? *slot : Ptr<IValueBase>();
}

bool ElementStore::IsFresh(std::uint32_t position) const noexcept {
  return position < fresh_end_ && slots_.Find(position) == nullptr;
}

std::uint32_t ElementStore::EndOfFresh(std::uint32_t position) const noexcept {
  return IsFresh(position) ? std::min(slots_.NextMade(position), fresh_end_) : position;
}

void ElementStore::Put(std::uint32_t position, Ptr<IValueBase> object) {
  std::swap(slots_.Make(position), object);
}

void ElementStore::Append(Ptr<IValueBase> object) { slots_.Append(std::move(object)); }

void ElementStore::Erase(std::uint32_t position) {
  const Ptr<IValueBase> removed = ObjectAt(position);
  slots_.Erase(position);
  if (position < fresh_end_) --fresh_end_;
}

void ElementStore::Resize(std::uint32_t size) {
  std::vector<Ptr<IValueBase>> removed;
  for (std::uint32_t i = slots_.NextMade(size); i < slots_.size(); i = slots_.NextMade(i + 1))
    removed.push_back(ObjectAt(i));
  slots_.Resize(size);
  fresh_end_ = std::min(fresh_end_, size);
}

ElementStore ElementStore::Outline() const {
  ElementStore outline;
  outline.slots_.Resize(size());
  outline.fresh_end_ = fresh_end_;
  return outline;
}

}  // namespace halyard
