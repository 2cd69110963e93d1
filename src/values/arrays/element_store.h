// ElementStore: the element objects of an Array.
//
// A slot holds an object, or is empty, or is fresh: then it stands for an object just
// made by the element definition, which is made when somebody asks for it. A fixed array
// begins with fresh slots, so that arrays of large arrays cost nothing before use.
// Or its object is packed into a row (see row_slab.h) and unpacked when it is asked for.
//
// Objects that leave the store are released when it is whole again: their end may run
// code of the client's.
#pragma once

#include <cstdint>

#include "halyard/object/ptr.h"
#include "halyard/values/value_base.h"
#include "object/sparse_list.h"
#include "values/arrays/row_slab.h"

namespace halyard {

class ElementStore {
 public:
  [[nodiscard]] std::uint32_t size() const noexcept { return slots_.size(); }

  // The object in a slot below size(), unpacked where it is packed; none for an empty and
  // for a fresh slot. Throws std::bad_alloc.
  [[nodiscard]] Ptr<IValueBase> ObjectAt(std::uint32_t position);

  [[nodiscard]] bool IsFresh(std::uint32_t position) const noexcept;

  // The first position behind a fresh slot whose slot is not fresh; size() for none.
  [[nodiscard]] std::uint32_t EndOfFresh(std::uint32_t position) const noexcept;

  // Whether the object of a slot is packed, and the first position behind such a slot
  // that holds no further row.
  [[nodiscard]] bool IsPacked(std::uint32_t position) const noexcept {
    return rows_.Holds(position) && slots_.Find(position) == nullptr;
  }
  [[nodiscard]] std::uint32_t EndOfPacked(std::uint32_t position) const noexcept;

  // How many slots from a position on are neither filled nor packed and all fresh, or all
  // empty.
  [[nodiscard]] std::uint32_t CountOfOpen(std::uint32_t position) const noexcept;

  // The rows. Rows may be added where slots are open.
  [[nodiscard]] RowSlab& rows() noexcept { return rows_; }
  [[nodiscard]] const RowSlab& rows() const noexcept { return rows_; }

  // Leaves slots empty from a position on that are packed.
  void DropRowsFrom(std::uint32_t position) { const RowSlab dropped = rows_.CutFrom(position); }

  // Fills a slot below size(); without an object the slot is empty.
  void Put(std::uint32_t position, Ptr<IValueBase> object);

  // Adds a slot with an object. Throws std::bad_alloc where it cannot be counted.
  void Append(Ptr<IValueBase> object);

  // Takes a slot out; later ones move down by one.
  void Erase(std::uint32_t position);

  // Cuts the store, or adds empty slots.
  void Resize(std::uint32_t size);

  // Makes every slot fresh that never held an object.
  void FreshenUntouched() noexcept { fresh_end_ = slots_.size(); }

  // A store of as many slots with the same rows, in which those that hold objects here are
  // yet to be filled.
  [[nodiscard]] ElementStore Outline() const;

 private:
  SparseList<Ptr<IValueBase>> slots_;
  RowSlab rows_;  // a slot that holds an object has no use for its row

  // Slots that were never filled are fresh below this position and empty from it on.
  std::uint32_t fresh_end_ = 0;
};

}  // namespace halyard
