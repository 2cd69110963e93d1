// Member paths that are not understood, and what a person is told about them.
#include <gtest/gtest.h>

#include "halyard/values/arrays/simple_array.h"
#include "tests/support/message_recorder.h"
#include "tests/values/arrays/stations.h"
#include "tests/values/arrays/transfer.h"

namespace halyard::test {
namespace {

// Both transfers refuse the path; only Build shows why.
void ExpectRefused(const Ptr<IArray>& array, const OLECHAR* path, const std::string& message) {
  MessageRecorder messages;
  const Transferred read = Read(array, path, I2(kLong), "01 00 00 00 02 00 00 00");
  EXPECT_EQ(read.status, S_OK) << Plain(WideView(path));
  EXPECT_EQ(read.result, VARIANT_FALSE) << Plain(WideView(path));
  EXPECT_EQ(messages.Shown(), "") << "reading must show nothing";
  const Transferred built = Build(array, path, I2(kLong), 8);
  EXPECT_EQ(built.status, S_OK) << Plain(WideView(path));
  EXPECT_EQ(built.result, VARIANT_FALSE) << Plain(WideView(path));
  EXPECT_EQ(built.bytes, Unwritten(8)) << Plain(WideView(path));
  EXPECT_EQ(messages.Shown(), ": " + message + "\n") << Plain(WideView(path));
}

TEST(NumericMessage, UnknownMember) {
  ExpectRefused(Stations(), OLESTR("Nope"), "Invalid index");
  ExpectRefused(Stations(), OLESTR("Position.Z"), "Invalid index");
  ExpectRefused(Stations(), OLESTR("Points[0].Z"), "Invalid index");
  ExpectRefused(Stations(), OLESTR("Dept"), "Invalid index");
  ExpectRefused(Stations(), OLESTR("Depth "), "Invalid index");
}

TEST(NumericMessage, NameWhereThereIsNoStructure) {
  ExpectRefused(Stations(), OLESTR("Depth.X"), "Invalid structure");
  ExpectRefused(Stations(), OLESTR("Colour.X"), "Invalid structure");
  ExpectRefused(Stations(), OLESTR("Samples[0].X"), "Invalid structure");
  ExpectRefused(NewArray(SimpleArrayDefinition(kShort)), OLESTR("X"), "Invalid structure");
  ExpectRefused(NewArray(SimpleArrayDefinition(kShort, 2)), OLESTR("X"), "Invalid structure");
  ExpectRefused(NewArray(ArrayDefinition(EnumerationDefinition(kShort, {}), 2)), OLESTR("X"),
                "Invalid structure");
}

TEST(NumericMessage, IndexBeyondAFixedArrayOrNegative) {
  ExpectRefused(Stations(2), OLESTR("[2].Depth"), "Invalid array index");
  ExpectRefused(Stations(2), OLESTR("[-1].Depth"), "Invalid array index");
  ExpectRefused(Stations(), OLESTR("[-1].Depth"), "Invalid array index");
  ExpectRefused(Stations(), OLESTR("Samples[4]"), "Invalid array index");
  ExpectRefused(Stations(), OLESTR("Samples[-1]"), "Invalid array index");
  ExpectRefused(Stations(), OLESTR("Samples[1,4]"), "Invalid array index");
  ExpectRefused(Stations(), OLESTR("Trace[-2]"), "Invalid array index");
  ExpectRefused(Stations(), OLESTR("Points[2].X"), "Invalid array index");
  ExpectRefused(Stations(), OLESTR("Grid[1][3]"), "Invalid array index");
  ExpectRefused(NewArray(SimpleArrayDefinition(kShort, 2)), OLESTR("[2]"), "Invalid array index");
}

TEST(NumericMessage, IndexOfAMemberThatIsNoArray) {
  ExpectRefused(Stations(), OLESTR("Depth[0]"), "Invalild array Depth(type ShortReal)");
  ExpectRefused(Stations(), OLESTR("Position[0]"), "Invalild array Position(type Structure)");
  ExpectRefused(Stations(), OLESTR("Colour[1]"), "Invalild array Colour(type Enumeration)");
  ExpectRefused(Stations(), OLESTR("dEPTH[0]"), "Invalild array Depth(type ShortReal)");
  ExpectRefused(Stations(), OLESTR("SAMPLES[dEPTH][0]"), "Invalild array Depth(type ShortReal)");
  ExpectRefused(Stations(), OLESTR("SAMPLES[1][0]"), "Invalild array Samples(type Short)");
}

TEST(NumericMessage, MemberOfABracketList) {
  ExpectRefused(Stations(), OLESTR("Depth[Nope]"), "Invalid structure member:Nope");
  ExpectRefused(Stations(), OLESTR("Depth[Level,Nope]"), "Invalid structure member:Nope");
}

TEST(NumericMessage, BracketListIsCheckedBeforeTheNameOfItsStep) {
  ExpectRefused(Stations(), OLESTR("Unknown[Nope]"), "Invalid structure member:Nope");
}

TEST(NumericMessage, IndexOfANestedStringArray) {
  ExpectRefused(Stations(), OLESTR("Names[0]"), "Can't iterate over strings");
}

TEST(NumericMessage, StringArrayAtTheTop) {
  const auto definition = SimpleArrayDefinition(kLong);
  const auto array = NewArray(definition);
  AddAll(array, {1, 2});
  EXPECT_EQ(definition->put_DataType(kString), S_OK);
  ExpectRefused(array, OLESTR(""), "Cannot iterate over string array");
  ExpectRefused(array, OLESTR("X"), "Cannot iterate over string array");
}

TEST(NumericMessage, FirstFaultIsTheOneThatIsShown) {
  ExpectRefused(Stations(), OLESTR("Nope.Depth.X"), "Invalid index");
  ExpectRefused(Stations(2), OLESTR("[9].Nope"), "Invalid array index");
}

TEST(NumericMessage, PathsThatAreTooLongAreRefused) {
  const auto stations = Stations();
  for (const std::size_t length :
       {std::size_t{511}, std::size_t{512}, std::size_t{600}, std::size_t{70000}}) {
    for (const OLECHAR letter : {OLESTR('x'), OLESTR('.'), OLESTR('['), OLESTR(']'), OLESTR('1')}) {
      const WideString path = WideString(length - 1, letter) + OLESTR("x");
      MessageRecorder messages;
      const Transferred built = Build(stations, path.c_str(), I2(kLong), 8);
      EXPECT_EQ(built.status, S_OK);
      EXPECT_EQ(built.result, VARIANT_FALSE) << length;
      EXPECT_EQ(built.bytes, Unwritten(8));
      EXPECT_EQ(Read(stations, path.c_str(), I2(kLong), "01 00 00 00 02 00 00 00").result, VARIANT_FALSE);
    }
  }
}

TEST(NumericMessage, LongestPathIsParsed) {
  const auto name = WideString(510, OLESTR('n'));
  ExpectRefused(Stations(), name.c_str(), "Invalid index");
  const auto definition = StructureDefinition({{name.c_str(), kLong}});
  EXPECT_EQ(Built(NewArray(ArrayDefinition(definition, 2)), name.c_str(), kLong, 8),
            "00 00 00 00 00 00 00 00");
}

TEST(NumericMessage, MalformedPathsEndCleanly) {
  for (const OLECHAR* path : {OLESTR("]"),
                              OLESTR("]Depth"),
                              OLESTR("]["),
                              OLESTR("[]"),
                              OLESTR("["),
                              OLESTR("[,]"),
                              OLESTR("."),
                              OLESTR(".."),
                              OLESTR("..Depth"),
                              OLESTR("Depth."),
                              OLESTR("Depth.."),
                              OLESTR("Depth["),
                              OLESTR("Depth[]"),
                              OLESTR("Depth]"),
                              OLESTR("Samples["),
                              OLESTR("Samples[]"),
                              OLESTR("Samples[1"),
                              OLESTR("Samples[[1]]"),
                              OLESTR("Samples[1]]"),
                              OLESTR("Samples[,1]"),
                              OLESTR("Samples[1.5]"),
                              OLESTR("Samples[ 1 ]"),
                              OLESTR("Samples[+1]"),
                              OLESTR("Samples[0x1]"),
                              OLESTR("Samples[1]Depth"),
                              OLESTR("Samples[1][1]"),
                              OLESTR("Samples[99999999999999999999]"),
                              OLESTR("Samples[-99999999999999999999]"),
                              OLESTR("Trace[2147483647]"),
                              OLESTR("Trace[2147483648]"),
                              OLESTR("Trace[-2147483648]"),
                              OLESTR("Trace[4294967296]"),
                              OLESTR("[99999999999].Depth"),
                              OLESTR("Position["),
                              OLESTR("Position[X"),
                              OLESTR("\u4E2D\u6587"),
                              OLESTR("%s%n[0]"),
                              OLESTR("Depth[%s%n]")}) {
    MessageRecorder messages;
    const auto stations = Stations();
    const Transferred built = Build(stations, path, I2(kByte), 8);
    EXPECT_TRUE(FAILED(built.status) || built.result == VARIANT_TRUE || built.result == VARIANT_FALSE);
    const Transferred read = Read(stations, path, I2(kByte), "01 02 03 04 05 06 07 08");
    EXPECT_EQ(read.status, built.status) << Plain(WideView(path));
    EXPECT_EQ(read.result, built.result) << Plain(WideView(path));
  }
}

TEST(NumericMessage, PathThatStartsWithAClosingBracketIsRefused) {
  ExpectRefused(Stations(), OLESTR("]"), "Invalid index");
  ExpectRefused(Stations(), OLESTR("]Depth"), "Invalid index");
}

}  // namespace
}  // namespace halyard::test
