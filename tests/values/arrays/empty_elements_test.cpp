// Arrays whose elements take no bytes when they are read: the first one stands for all
// that follow, which are made when somebody asks for them.
#include <gtest/gtest.h>

#include "tests/support/composites.h"
#include "tests/support/encoding.h"

namespace halyard::test {
namespace {

Ptr<IStructureDef> Nothing() { return StructureDefinition({}); }

Ptr<IStructureDef> Point() { return StructureDefinition({{OLESTR("x"), kLong}, {OLESTR("y"), kShort}}); }

void ExpectNoMembers(const Ptr<IArray>& array) {
  for (LONG i = 0; i < Count(array); ++i) EXPECT_EQ(Get(At(array, i), &IValueBase::get_Count), 0) << i;
}

TEST(EmptyElements, FixedElementsKeepTheDefinitionThatTheyBeganWith) {
  for (const bool asked : {false, true}) {
    const auto definition = ArrayDefinition(Nothing(), 4);
    const auto array = NewArray(definition);
    if (asked) ExpectNoMembers(array);
    EXPECT_EQ(definition->put_ValueType(Point().get()), S_OK);
    EXPECT_EQ(ReadFrom(array, ""), Moved(0));
    EXPECT_EQ(WriteTo(array, 64).outcome, Moved(0)) << asked;
    ExpectNoMembers(array);
  }
}

TEST(EmptyElements, ElementsThatWereReadKeepTheDefinitionThatTheyWereReadWith) {
  for (const bool asked : {false, true}) {
    const auto definition = ArrayDefinition(Nothing());
    const auto array = NewArray(definition);
    EXPECT_EQ(ReadFrom(array, "04 00 00 00"), Moved(4));
    if (asked) ExpectNoMembers(array);
    EXPECT_EQ(definition->put_ValueType(Point().get()), S_OK);
    EXPECT_EQ(ReadFrom(array, "04 00 00 00"), Moved(4));
    EXPECT_EQ(WriteTo(array, 64).outcome, Moved(4)) << asked;
    ExpectNoMembers(array);
  }
}

TEST(EmptyElements, ElementsThatAreReadLaterAreOfTheLaterDefinition) {
  const auto definition = ArrayDefinition(Nothing());
  const auto array = NewArray(definition);
  EXPECT_EQ(ReadFrom(array, "02 00 00 00"), Moved(4));
  EXPECT_EQ(array->RemoveAll(), S_OK);
  EXPECT_EQ(definition->put_ValueType(Point().get()), S_OK);
  EXPECT_EQ(ReadFrom(array, "01 00 00 00 07 00 00 00 08 00"), Moved(10));
  EXPECT_EQ(Item(At(array, 0), OLESTR("x")), "I4 7");
}

}  // namespace
}  // namespace halyard::test
