// A null buffer has no bytes, whatever size a client gives it: arrays of every class answer
// as in a buffer that is too short.
#include <gtest/gtest.h>

#include "tests/support/composites.h"
#include "tests/support/encoding.h"

namespace halyard::test {
namespace {

Ptr<IArray> Structures(LONG fixed) {
  const auto definition = StructureDefinition({{OLESTR("x"), kLong}});
  const auto array = NewArray(ArrayDefinition(definition, fixed));
  if (fixed == 0) Add(array, Object(NewValue(definition)));
  return array;
}

Ptr<IArray> Simple(SHORT type, LONG fixed) {
  const auto array = NewArray(SimpleArrayDefinition(type, fixed));
  if (fixed == 0) AddAll(array, {0});
  return array;
}

TEST(NullBuffer, IsEmptyForArraysOfEveryClass) {
  for (const LONG fixed : {0, 1}) {
    for (const auto& array : {Structures(fixed), Simple(kShort, fixed), Simple(kString, fixed)}) {
      ULONG count = kUntouched;
      VARIANT_BOOL result = VARIANT_TRUE;
      EXPECT_EQ(array->ReadFromBuffer(nullptr, 64, &count, &result), S_OK) << ClassOf(array.get());
      EXPECT_EQ(result, VARIANT_FALSE) << ClassOf(array.get());
      result = VARIANT_TRUE;
      EXPECT_EQ(array->WriteToBuffer(nullptr, 64, &count, &result), S_OK) << ClassOf(array.get());
      EXPECT_EQ(result, VARIANT_FALSE) << ClassOf(array.get());
      EXPECT_EQ(count, kUntouched) << ClassOf(array.get());
      EXPECT_EQ(Count(array), 1) << ClassOf(array.get());
    }
  }
}

}  // namespace
}  // namespace halyard::test
