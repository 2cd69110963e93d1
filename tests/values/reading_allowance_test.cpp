// Elements that become many objects for few bytes, as only a stranger makes them.
#include <gtest/gtest.h>

#include "tests/support/composites.h"
#include "tests/support/encoding.h"

namespace halyard::test {
namespace {

// Whatever is read may become 16,384 objects and 8 more for each byte.
constexpr std::size_t kFreeObjects = 16384;
constexpr std::size_t kObjectsPerByte = 8;

// A structure of a Byte and so many structures without members: a byte for 1 + `empty`
// objects.
Ptr<IStructureDef> Wide(std::size_t empty) {
  const auto nothing = StructureDefinition({});
  const auto definition = StructureDefinition({{OLESTR("b"), kByte}});
  for (std::size_t i = 0; i < empty; ++i) AddMember(definition, OLESTR("nothing"), nothing.get());
  Calculate(definition);
  return definition;
}

// A Byte inside so many structures.
Ptr<IStructureDef> Deep(int structures) {
  auto definition = StructureDefinition({{OLESTR("b"), kByte}});
  for (int i = 1; i < structures; ++i) {
    const auto outer = StructureDefinition({});
    AddMember(outer, OLESTR("inner"), definition.get());
    Calculate(outer);
    definition = outer;
  }
  return definition;
}

Bytes ArrayOfBytes(std::size_t elements) { return Join({LittleEndian(elements, 4), Bytes(elements, 1)}); }

Outcome Whole(const Bytes& bytes) { return Moved(static_cast<ULONG>(bytes.size())); }

// How many elements of so many objects and a byte each can be read.
constexpr std::size_t Readable(std::size_t objects) { return kFreeObjects / (objects - kObjectsPerByte); }

TEST(ReadingAllowance, EndsWhereElementsBecomeTooManyObjects) {
  const auto array = NewArray(ArrayDefinition(Wide(99)));
  constexpr std::size_t kMost = Readable(100);
  const Bytes fits = ArrayOfBytes(kMost);
  EXPECT_EQ(ReadFrom(array, fits), Whole(fits));
  EXPECT_EQ(Encoded(array), ToHex(fits));
  EXPECT_EQ(ReadFrom(array, ArrayOfBytes(kMost + 1)), TooShort());
  EXPECT_EQ(Count(array), static_cast<LONG>(kMost + 1));
}

TEST(ReadingAllowance, CountsStructuresInStructures) {
  const auto array = NewArray(ArrayDefinition(Deep(40)));
  EXPECT_EQ(ReadFrom(array, ArrayOfBytes(Readable(40))).result, VARIANT_TRUE);
  EXPECT_EQ(ReadFrom(array, ArrayOfBytes(Readable(40) + 1)), TooShort());
}

TEST(ReadingAllowance, IsSharedByTheArraysOfAValue) {
  const auto half = ArrayDefinition(Wide(99));
  const auto definition = StructureDefinition({});
  AddMember(definition, OLESTR("first"), half.get());
  AddMember(definition, OLESTR("second"), half.get());
  Calculate(definition);
  const auto value = NewValue(definition);
  const Bytes fits = ArrayOfBytes(80);
  EXPECT_EQ(ReadFrom(value, Join({fits, fits})), Whole(Join({fits, fits})));
  EXPECT_EQ(ReadFrom(value, Join({ArrayOfBytes(100), ArrayOfBytes(100)})), TooShort());
  // Each value begins anew.
  EXPECT_EQ(ReadFrom(value, Join({fits, fits})), Whole(Join({fits, fits})));
}

TEST(ReadingAllowance, LeavesUsualElementsAlone) {
  const auto array =
      NewArray(ArrayDefinition(StructureDefinition({{OLESTR("text"), kString}, {OLESTR("b"), kByte}})));
  constexpr std::size_t kElements = 100000;
  Bytes bytes = LittleEndian(kElements, 4);
  bytes.resize(bytes.size() + 3 * kElements);
  EXPECT_EQ(ReadFrom(array, bytes), Whole(bytes));
}

}  // namespace
}  // namespace halyard::test
