// Member paths of the numeric transfer that lead to numbers.
#include <gtest/gtest.h>

#include "tests/support/message_recorder.h"
#include "tests/values/arrays/stations.h"
#include "tests/values/arrays/transfer.h"

namespace halyard::test {
namespace {

// The column of two numbers as Long.
std::string Column(LONG first, LONG second) {
  return ToHex(
      Join({LittleEndian(static_cast<ULONG>(first), 4), LittleEndian(static_cast<ULONG>(second), 4)}));
}

struct PathRow {
  const OLECHAR* path;
  LONG first;
  LONG second;
};

constexpr PathRow kPaths[] = {
    {OLESTR("Depth"), 100, 200},      {OLESTR(".Depth"), 100, 200},      {OLESTR("dEPTH"), 100, 200},
    {OLESTR("Level"), 101, 201},      {OLESTR("Position.X"), 102, 202},  {OLESTR(".Position.Y"), 103, 203},
    {OLESTR("Samples[0]"), 110, 210}, {OLESTR("Samples[3]"), 113, 213},  {OLESTR(".Samples[1]"), 111, 211},
    {OLESTR("Trace[2]"), 122, 222},   {OLESTR("Points[1].X"), 131, 231}, {OLESTR("Points[0].Y"), 140, 240},
    {OLESTR("Grid[1][2]"), 12, 12},   {OLESTR("Grid[0][1]"), 1, 1},
};

TEST(NumericPath, BuildsTheColumnOfAMember) {
  for (const LONG fixed : {0, 2}) {
    const auto stations = Stations(fixed);
    for (const PathRow& row : kPaths) {
      EXPECT_EQ(Built(stations, row.path, kLong, 8), Column(row.first, row.second))
          << Plain(WideView(row.path));
    }
  }
}

TEST(NumericPath, ReadsTheColumnOfAMember) {
  for (const PathRow& row : kPaths) {
    const auto stations = Stations();
    ReadNumbers(stations, row.path, kLong, Column(77, 88));
    for (const PathRow& other : kPaths) {
      const bool same = Column(other.first, other.second) == Column(row.first, row.second);
      EXPECT_EQ(Built(stations, other.path, kLong, 8),
                same ? Column(77, 88) : Column(other.first, other.second))
          << Plain(WideView(row.path)) << " read, " << Plain(WideView(other.path)) << " built";
    }
  }
}

TEST(NumericPath, LeadingIndexIsCheckedAndEveryElementIsVisited) {
  for (const OLECHAR* path : {OLESTR("[0].Depth"), OLESTR("[1].Depth")}) {
    EXPECT_EQ(Built(Stations(2), path, kLong, 8), Column(100, 200));
    EXPECT_EQ(Built(Stations(), path, kLong, 8), Column(100, 200));
  }
  EXPECT_EQ(Built(Stations(), OLESTR("[3].Depth"), kLong, 8), Column(100, 200));
}

TEST(NumericPath, OfTwoIndicesInOneBracketTheFirstCounts) {
  EXPECT_EQ(Built(Stations(), OLESTR("Samples[1,2]"), kLong, 8), Column(111, 211));
}

TEST(NumericPath, EmptyPathIsTheElementItself) {
  const auto array = NewArray(SimpleArrayDefinition(kShort));
  AddAll(array, {1, -1, 300, -32768});
  EXPECT_EQ(Built(array, OLESTR(""), kLong, 16), "01 00 00 00 FF FF FF FF 2C 01 00 00 00 80 FF FF");
  const Transferred built = [&] {
    GuardedBuffer buffer(16);
    VARIANT_BOOL result = VARIANT_FALSE;
    const HRESULT status = array->BuildNumericArray(nullptr, I2(kLong).get(), buffer.data(), &result);
    return Transferred{status, result, ToHex(buffer.Contents())};
  }();
  EXPECT_EQ(built.status, S_OK);
  EXPECT_EQ(built.bytes, "01 00 00 00 FF FF FF FF 2C 01 00 00 00 80 FF FF");
}

TEST(NumericPath, ThreeShortRealsBecomeThreeReals) {
  const auto definition = StructureDefinition({{OLESTR("Depth"), kShortReal}});
  const auto array = NewArray(ArrayDefinition(definition, 3));
  for (LONG i = 0; i < 3; ++i) PutItem(At(array, i), OLESTR("Depth"), R8(i + 0.5));
  const Transferred built = Build(array, OLESTR("Depth"), Text(OLESTR("Real")), 24);
  EXPECT_EQ(built.result, VARIANT_TRUE);
  EXPECT_EQ(built.bytes, "00 00 00 00 00 00 E0 3F 00 00 00 00 00 00 F8 3F 00 00 00 00 00 00 04 40");
}

TEST(NumericPath, DeepPathsAreWalkedToTheirEnd) {
  Ptr<IStructureDef> level = StructureDefinition({{OLESTR("n"), kShort}});
  WideString path = OLESTR("n");
  for (int depth = 0; depth < 20; ++depth) {
    const auto outer = CreateObject<IStructureDef>(kStructureInfoClass);
    AddMember(outer, OLESTR("m"),
              depth % 2 == 0 ? Ptr<IValueDefBase>(ArrayDefinition(level, 2)).get()
                             : Ptr<IValueDefBase>(level).get());
    path = (depth % 2 == 0 ? OLESTR("m[1].") : OLESTR("m.")) + path;
    level = outer;
  }
  Calculate(level);
  const auto array = NewArray(ArrayDefinition(level, 2));
  ReadNumbers(array, path.c_str(), kLong, Column(7, -8));
  EXPECT_EQ(Built(array, path.c_str(), kLong, 8), Column(7, -8));
}

TEST(NumericPath, MembersThatAreNoNumbersMoveNothing) {
  MessageRecorder messages;
  const auto stations = Stations();
  for (const OLECHAR* path : {OLESTR("Name"), OLESTR("Colour"), OLESTR("When"), OLESTR("Tag"), OLESTR("Raw"),
                              OLESTR("Big"), OLESTR("Position"), OLESTR("Samples"), OLESTR("Names"),
                              OLESTR("Points"), OLESTR("Points[1]"), OLESTR("")}) {
    const Transferred built = Build(stations, path, I2(kLong), 8);
    EXPECT_EQ(built.status, S_OK) << Plain(WideView(path));
    EXPECT_EQ(built.result, VARIANT_TRUE) << Plain(WideView(path));
    EXPECT_EQ(built.bytes, Unwritten(8)) << Plain(WideView(path));
    ReadNumbers(stations, path, kLong, Column(77, 88));
  }
  EXPECT_EQ(messages.Shown(), "");
}

TEST(NumericPath, SeveralMembersFollowOneAnotherForEachElement) {
  const auto definition =
      StructureDefinition({{OLESTR("a"), kByte}, {OLESTR("b"), kShort}, {OLESTR("c"), kReal}});
  const auto array = NewArray(ArrayDefinition(definition, 2));
  for (LONG i = 0; i < 2; ++i) {
    PutItem(At(array, i), OLESTR("a"), I4(1 + 10 * i));
    PutItem(At(array, i), OLESTR("b"), I4(2 + 10 * i));
    PutItem(At(array, i), OLESTR("c"), I4(3 + 10 * i));
  }
  EXPECT_EQ(Built(array, OLESTR("a[b,c]"), kShort, 12), "01 00 02 00 03 00 0B 00 0C 00 0D 00");
  ReadNumbers(array, OLESTR("a[b,c]"), kShort, "15 00 16 00 17 00 1F 00 20 00 21 00");
  EXPECT_EQ(Item(At(array, 0), OLESTR("b")), "I2 22");
  EXPECT_EQ(Item(At(array, 1), OLESTR("c")), "R8 33");
}

}  // namespace
}  // namespace halyard::test
