// The bulk transfer of numbers between the elements of an array and a flat buffer.
//
// A call selects its columns once: one for each number that the member path selects,
// with the conversion between the member's type and the number type. The array then
// moves each column, as runs where its elements lie side by side, else element by
// element.
#pragma once

#include <vector>

#include "definitions/structure_layout.h"
#include "halyard/definitions/array_def.h"
#include "halyard/object/variant.h"
#include "halyard/values/value_base.h"
#include "values/arrays/member_path.h"
#include "values/arrays/number_moves.h"
#include "values/elementary_memory.h"

namespace halyard {

enum class Direction {
  kBuild,  // from the elements into the buffer
  kRead,   // from the buffer into the elements
};

// One selected number of every element, and its places in the buffer.
class NumberColumn {
 public:
  // The places begin at `numbers.first`, one element's `numbers.stride` bytes behind the
  // other's. Both types must be number types.
  NumberColumn(SelectedMember member, SHORT number_type, NumberRun<unsigned char> numbers,
               Direction direction) noexcept;

  [[nodiscard]] Direction direction() const noexcept { return direction_; }

  // Moves the numbers of `count` elements that lie side by side, from the one at
  // `position`, which is `first`, `stride` bytes apart. Raises E_INVALIDARG where they are
  // of another type than the definition says.
  void BuildRun(std::size_t position, ElementaryField<const unsigned char> first, std::size_t stride,
                std::size_t count) const;
  void ReadRun(std::size_t position, ElementaryField<unsigned char> first, std::size_t stride,
               std::size_t count) const;

  // The member that the column moves in structures of that layout with blocks of so many
  // bytes; null where it takes more than a step into the block, or would be refused.
  [[nodiscard]] const MemberLayout* FindField(const StructureLayout& layout,
                                              std::size_t block_size) const noexcept;

  // Moves the number of the element at `position`. Raises E_POINTER for an empty slot
  // or a null member on the way, E_INVALIDARG for a missing element or another type
  // than the definition says, and what values and conversions raise.
  void MoveElement(std::size_t position, const Ptr<IValueBase>& element) const;

 private:
  [[nodiscard]] unsigned char* NumberAt(std::size_t position) const noexcept {
    return numbers_.first + position * numbers_.stride;
  }

  // Moves a number between its place and memory inside `owner`; false where it has none.
  bool MoveField(IValueBase& owner, LONG position, unsigned char* number) const;

  // Moves a number between its place and a value object.
  void MoveObject(IValueBase& object, unsigned char* number) const;

  void RequireType(SHORT type) const;

  SelectedMember member_;
  NumberRun<unsigned char> numbers_;
  Direction direction_;
  NumberMove move_;     // from member to number, or the reverse
  NumberMove measure_;  // from Real to member, for values that are objects
};

struct NumberColumns {
  // False where the path has a fault; there are no columns then.
  bool understood = false;

  // The columns to move; none where a type is no number type, or there are no elements.
  std::vector<NumberColumn> columns;
};

// What a client's call names.
struct TransferCall {
  Direction direction;
  BSTR path;
  const VARIANT& number_type;
  unsigned char* buffer;
};

// Selects what a call moves in an array of so many elements. `element` is the element
// definition, or none, for the short way to a plain member. When building, the fault of
// a path is shown as a message. Raises E_POINTER for a null buffer that numbers would go
// to or come from, and what definitions and the conversion of the number type raise.
NumberColumns SelectNumbers(const TransferCall& call, IArrayDef& definition,
                            const Ptr<IValueDefBase>& element, ULONG elements);

}  // namespace halyard
