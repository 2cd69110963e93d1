// The numeric transfer apart from its paths, its pairs and its failures: how number types
// are named, and members that are objects.
#include <gtest/gtest.h>

#include "tests/support/message_recorder.h"
#include "tests/support/raised.h"
#include "tests/values/arrays/transfer.h"

namespace halyard::test {
namespace {

Ptr<IStructureDef> Point() { return StructureDefinition({{OLESTR("x"), kLong}, {OLESTR("y"), kReal}}); }

Ptr<IArray> Shorts() {
  const auto array = NewArray(SimpleArrayDefinition(kShort));
  AddAll(array, {1, -2});
  return array;
}

TEST(NumericTransfer, NumberTypeIsANameOrACode) {
  const auto array = Shorts();
  for (const Variant& type :
       {Text(OLESTR("Long")), Text(OLESTR("LONG")), Text(OLESTR("long")), I2(8), I4(8), R8(8.2), Ui1(8)}) {
    const Transferred built = Build(array, OLESTR(""), type, 8);
    EXPECT_EQ(built.result, VARIANT_TRUE);
    EXPECT_EQ(built.bytes, "01 00 00 00 FE FF FF FF");
  }
  EXPECT_EQ(Build(array, OLESTR(""), Text(OLESTR("SHORTREAL")), 8).bytes, "00 00 80 3F 00 00 00 C0");
}

TEST(NumericTransfer, OtherTypesMoveNothingAndStillSucceed) {
  const auto array = Shorts();
  for (const Variant& type : {I2(0), I2(1), I2(2), I2(3), I2(10), I2(13), I2(14), I2(15), I2(17), I2(18),
                              I2(-1), I2(99), Text(OLESTR("Int64")), Text(OLESTR("Date")),
                              Text(OLESTR("nonsense")), Text(OLESTR("8")), Text(OLESTR(""))}) {
    const Transferred built = Build(array, OLESTR(""), type, 16);
    EXPECT_EQ(built.status, S_OK);
    EXPECT_EQ(built.result, VARIANT_TRUE);
    EXPECT_EQ(built.bytes, Unwritten(16));
    const Transferred read = Read(array, OLESTR(""), type, "05 00 06 00 07 00 08 00 09 00 0A 00 0B 00 0C 00");
    EXPECT_EQ(read.result, VARIANT_TRUE);
    EXPECT_EQ(Items(array), "I2 1, I2 -2");
  }
}

TEST(NumericTransfer, NumberTypeThatDoesNotConvertIsRaised) {
  MessageRecorder messages;
  const auto array = Shorts();
  unsigned char buffer[8] = {};
  VARIANT_BOOL result = VARIANT_TRUE;
  const Bstr path(OLESTR("Nope"));
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] {
    return array->BuildNumericArray(path.get(), Variant::Null().get(), buffer, &result);
  }));
  EXPECT_TRUE(Raises(DISP_E_OVERFLOW,
                     [&] { return array->ReadNumericArray(path.get(), I4(70000).get(), buffer, &result); }));
  EXPECT_EQ(messages.Shown(), "");
}

TEST(NumericTransfer, ArraysOfOtherElementsMoveNothing) {
  for (const SHORT type : {kInt64, kDate}) {
    for (const LONG fixed : {0, 2}) {
      const auto array = NewArray(SimpleArrayDefinition(type, fixed));
      if (fixed == 0) AddAll(array, {1, 2});
      EXPECT_EQ(Built(array, OLESTR(""), kLong, 16), Unwritten(16));
    }
  }
}

TEST(NumericTransfer, EmptyArrayMovesNothing) {
  EXPECT_EQ(Built(NewArray(ArrayDefinition(Point())), OLESTR("x"), kReal, 8), Unwritten(8));
  EXPECT_EQ(Built(NewArray(SimpleArrayDefinition(kShort)), OLESTR(""), kReal, 8), Unwritten(8));
}

TEST(NumericTransfer, ReadStoresIntoMembersThatAreObjects) {
  for (const SHORT type : {kChar, kByte, kShort, kWord, kLong, kDWord, kShortReal, kReal}) {
    const auto array = Nullable(type, {1, 2});
    ReadNumbers(array, OLESTR("m"), kShort, "07 00 64 00");
    EXPECT_EQ(Built(array, OLESTR("m"), kShort, 4), "07 00 64 00") << type;
    ReadNumbers(array, OLESTR("m"), kReal, "00 00 00 00 00 00 1E 40 00 00 00 00 00 00 59 40");
    const bool real = type == kShortReal || type == kReal;
    EXPECT_EQ(Built(array, OLESTR("m"), kReal, 16), real ? "00 00 00 00 00 00 1E 40 00 00 00 00 00 00 59 40"
                                                         : "00 00 00 00 00 00 1C 40 00 00 00 00 00 00 59 40")
        << type;
  }
}

// Not a number, both infinities, 1e300, 2 to the 63rd, its negative and 2 to the 32nd plus 5.
constexpr const char* kOddReals =
    "07 00 00 00 00 00 00 00 00 00 F8 7F 00 00 00 00 00 00 F0 7F 00 00 00 00 00 00 F0 FF "
    "9C 75 00 88 3C E4 37 7E 00 00 00 00 00 00 E0 43 00 00 00 00 00 00 E0 C3 00 00 50 00 00 00 F0 41";

TEST(NumericTransfer, RealsBeyondSixtyFourBitsBecomeZero) {
  const auto array = NewArray(SimpleArrayDefinition(kReal));
  ASSERT_EQ(ReadFrom(array, kOddReals), Moved(60));
  EXPECT_EQ(Built(array, OLESTR(""), kLong, 28),
            "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 05 00 00 00");
  EXPECT_EQ(Built(array, OLESTR(""), kByte, 7), "00 00 00 00 00 00 05");
  EXPECT_EQ(Built(array, OLESTR(""), kShortReal, 28),
            "00 00 C0 7F 00 00 80 7F 00 00 80 FF 00 00 80 7F 00 00 00 5F 00 00 00 DF 00 00 80 4F");
}

TEST(NumericTransfer, Int64MembersMoveNothing) {
  const auto definition = StructureDefinition({{OLESTR("big"), kInt64}, {OLESTR("n"), kLong}});
  const auto array = NewArray(ArrayDefinition(definition, 2));
  ASSERT_EQ(ReadFrom(array, "01 00 00 00 02 00 00 00 03 00 00 00 04 00 00 00").result, VARIANT_TRUE);
  EXPECT_EQ(Built(array, OLESTR("big"), kLong, 8), Unwritten(8));
  ReadNumbers(array, OLESTR("big"), kLong, "0A 00 00 00 0B 00 00 00");
  EXPECT_EQ(Encoded(array), "01 00 00 00 02 00 00 00 03 00 00 00 04 00 00 00");
  EXPECT_EQ(Built(array, OLESTR("big[n]"), kLong, 8), "02 00 00 00 04 00 00 00");
}

// An Array may be given an elementary element definition: its elements are simple values.
TEST(NumericTransfer, ElementsThatAreSimpleValuesThemselves) {
  const auto array = CreateObject<IArray>(kArrayClass);
  ASSERT_EQ(array->put_Info(SimpleArrayDefinition(kLong).get()), S_OK);
  AddAll(array, {7, -1});
  EXPECT_EQ(Built(array, OLESTR(""), kShort, 4), "07 00 FF FF");
  ReadNumbers(array, OLESTR(""), kShort, "09 00 FE FF");
  EXPECT_EQ(Items(array), "I4 9, I4 -2");
}

// The content of an object becomes a Real, then a number of the member's type.
TEST(NumericTransfer, TextInAMemberObjectIsItsNumber) {
  const auto array = Nullable(kLong, {7});
  const auto text = SimpleValue(kString);
  PutValue(text, Text(OLESTR("12.7")));
  PutItem(At(array, 0), OLESTR("m"), Object(text));
  EXPECT_EQ(Built(array, OLESTR("m"), kReal, 8), "00 00 00 00 00 00 28 40");
  PutValue(text, Text(OLESTR("x")));
  Transferred built{};
  EXPECT_TRUE(
      Raises(DISP_E_TYPEMISMATCH, [&] { return (built = Build(array, OLESTR("m"), I2(kReal), 8)).status; }));
  EXPECT_EQ(built.result, VARIANT_TRUE);
  EXPECT_EQ(built.bytes, Unwritten(8));
  ReadNumbers(array, OLESTR("m"), kReal, "00 00 00 00 00 00 1E 40");
  EXPECT_EQ(ValueOf(text), "BSTR 7");
}

TEST(NumericTransfer, DefinitionChangedAfterwardsIsHarmless) {
  const auto definition = StructureDefinition({{OLESTR("x"), kByte}, {OLESTR("y"), kReal}});
  const auto array = NewArray(ArrayDefinition(definition, 2));
  const Variant x = Text(OLESTR("x"));
  EXPECT_EQ(definition->Remove(x.get()), S_OK);
  VARIANT_BOOL added = VARIANT_FALSE;
  EXPECT_EQ(definition->AddSimpleMember(Bstr(OLESTR("z")).get(), kReal, &added), S_OK);
  for (int round = 0; round < 2; ++round) {
    for (const OLECHAR* path : {OLESTR("y"), OLESTR("z")}) {
      static_cast<void>(Build(array, path, I2(kReal), 16));
      static_cast<void>(Read(array, path, I2(kByte), "01 02"));
    }
    Calculate(definition);
  }
}

}  // namespace
}  // namespace halyard::test
