// Whose words a client reads when a call fails because another object's call failed.
#include <gtest/gtest.h>

#include "tests/support/composites.h"
#include "tests/support/speaking_value.h"

namespace halyard::test {
namespace {

// An array with that value as its only element.
Ptr<IArray> ArrayOf(const Ptr<SpeakingValue>& value) {
  value->type.value = kStructure;
  const auto array = NewArray(ArrayDefinition(StructureDefinition({{OLESTR("s"), kString}})));
  Add(array, Object(value));
  EXPECT_TRUE(SameObject(At(array, 0).get(), static_cast<IValueBase*>(value.get())));
  return array;
}

TEST(ErrorWords, AreThoseOfTheElementThatFailed) {
  const auto array = NewArray(ArrayDefinition(EnumerationDefinition(kShort, {{OLESTR("Red"), 5}}), 1));
  EXPECT_EQ(TryPutItem(array, 0, Text(OLESTR("x"))), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(LeftWords().rfind("Halyard.Enumeration: Enumeration.Value: ", 0), 0u);
}

TEST(ErrorWords, AreThoseOfAClientsElement) {
  const auto array = ArrayOf(NewForeign<SpeakingValue>());
  EXPECT_EQ(TryPutItem(array, 0, I4(1)), E_ABORT);
  EXPECT_EQ(LeftWords(), "Client: the client's own words");
}

TEST(ErrorWords, AreNotThoseOfAnEarlierFailureWhereTheElementHasNone) {
  const auto silent = NewForeign<SpeakingValue>();
  silent->supports = false;
  const auto array = ArrayOf(silent);
  LeaveWords(OLESTR("Earlier"), OLESTR("another failure"));
  EXPECT_EQ(TryPutItem(array, 0, I4(1)), E_ABORT);
  EXPECT_EQ(LeftWords().rfind("Halyard.Array: Array.Item: ", 0), 0u);
}

// A simple value drops what does not convert: no failure, so no words of one.
TEST(ErrorWords, AreNoneWhereAFailureIsDropped) {
  const auto value = SimpleValue(kLong);
  const auto array = NewArray(SimpleArrayDefinition(kLong));
  LeaveWords(OLESTR("Earlier"), OLESTR("another failure"));
  PutValue(value, Object(array));
  EXPECT_EQ(LeftWords(), "");
  LeaveWords(OLESTR("Earlier"), OLESTR("another failure"));
  EXPECT_EQ(value->put_Info(nullptr), S_OK);
  EXPECT_EQ(LeftWords(), "");
}

}  // namespace
}  // namespace halyard::test
