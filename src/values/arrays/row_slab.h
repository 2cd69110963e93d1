// RowSlab: elements of an array that are structures of fixed layout, as rows of bytes
// side by side instead of an object each.
//
// A row stands for a SimpleFixedStructure that its definition made when the row was
// added: its block has the size of the row. Whoever needs the object makes it from the
// row (see SimpleFixedStructure::NewOver); nobody can tell that it was not there before.
#pragma once

#include <cstdint>
#include <span>

#include "halyard/definitions/value_def_base.h"
#include "halyard/object/ptr.h"
#include "object/raw_memory.h"

namespace halyard {

struct StructureLayout;

class RowSlab {
 public:
  // The size of a row for a new value of that definition; 0 where it needs an object,
  // because the definition is not a structure definition of this library or makes values
  // of another class.
  static std::uint16_t RowSizeFor(const Ptr<IValueDefBase>& definition);

  // Turns rows off, or on again, for the whole process: for tests that compare both.
  static void Allow(bool allowed) noexcept;

  RowSlab() noexcept = default;
  RowSlab(RowSlab&& other) noexcept { Swap(other); }
  RowSlab& operator=(RowSlab other) noexcept {
    Swap(other);
    return *this;
  }
  RowSlab(const RowSlab& other);

  // The positions of the rows in the array.
  [[nodiscard]] std::uint32_t first() const noexcept { return first_; }
  [[nodiscard]] std::uint32_t end() const noexcept { return first_ + count_; }
  [[nodiscard]] bool Holds(std::uint32_t position) const noexcept { return position - first_ < count_; }

  [[nodiscard]] std::uint16_t row_size() const noexcept { return row_size_; }
  [[nodiscard]] const Ptr<IValueDefBase>& definition() const noexcept { return definition_; }

  // The member table of the definition of the rows, or of one that has a row size, as it
  // is now.
  [[nodiscard]] const StructureLayout& layout() const;
  [[nodiscard]] static const StructureLayout& LayoutOf(const Ptr<IValueDefBase>& definition);

  // The row at a position that the slab holds.
  [[nodiscard]] unsigned char* Row(std::uint32_t position) noexcept {
    return rows_ + std::size_t{row_size_} * (position - first_);
  }

  // Whether rows of that definition and size can be added at a position.
  [[nodiscard]] bool CanAdd(std::uint32_t position, const Ptr<IValueDefBase>& definition,
                            std::uint16_t row_size) const noexcept;

  // Adds rows at such a position; the caller fills them. Throws std::bad_alloc.
  unsigned char* Add(std::uint32_t position, const Ptr<IValueDefBase>& definition, std::uint16_t row_size,
                     std::uint32_t count);

  // The first rows of an empty slab, where they lie in memory that it takes over.
  void Adopt(std::uint32_t position, const Ptr<IValueDefBase>& definition, std::uint16_t row_size,
             RawMemory memory, std::span<unsigned char> rows);

  // Takes the place of a position out of the array: later ones move down by one. What the
  // slab lets go of, here and below, ends with the result.
  [[nodiscard]] RowSlab Erase(std::uint32_t position) noexcept;

  // Drops the rows from a position on.
  [[nodiscard]] RowSlab CutFrom(std::uint32_t position) noexcept;

 private:
  void Swap(RowSlab& other) noexcept;
  void Begin(std::uint32_t position, const Ptr<IValueDefBase>& definition, std::uint16_t row_size);

  Ptr<IValueDefBase> definition_;     // of all rows; none without rows
  StructureLayout* table_ = nullptr;  // of the definition
  std::uint32_t first_ = 0;
  std::uint32_t count_ = 0;
  std::uint16_t row_size_ = 0;
  RawMemory memory_;
  unsigned char* rows_ = nullptr;  // inside memory_
  std::size_t room_ = 0;           // bytes behind rows_
};

}  // namespace halyard
