// The numeric transfer of elements that are not what the definition says, without a
// definition and without a buffer.
#include <gtest/gtest.h>

#include "tests/support/foreign_value.h"
#include "tests/support/message_recorder.h"
#include "tests/support/raised.h"
#include "tests/values/arrays/stations.h"
#include "tests/values/arrays/transfer.h"

namespace halyard::test {
namespace {

Ptr<IStructureDef> Point() { return StructureDefinition({{OLESTR("x"), kLong}, {OLESTR("y"), kReal}}); }

// Two points, of which the first has the x 7.
Ptr<IArray> PointsFromSeven() {
  const auto array = NewArray(ArrayDefinition(Point(), 2));
  PutItem(At(array, 0), OLESTR("x"), I4(7));
  return array;
}

// Puts an object into a position; an object that is no value empties it.
void PutObject(const Ptr<IArray>& array, LONG position, IDispatch* object) {
  PutItem(array, position, Variant(object));
}

// Both transfers of two numbers fail at the second one: the path was understood, and the
// first number has moved. The first element holds 7 before and 5 afterwards.
void ExpectFailureAtTheSecond(const Ptr<IArray>& array, const OLECHAR* path, HRESULT status) {
  Transferred built{};
  EXPECT_TRUE(Raises(status, [&] { return (built = Build(array, path, I2(kLong), 8)).status; }));
  EXPECT_EQ(built.result, VARIANT_TRUE);
  EXPECT_EQ(built.bytes, "07 00 00 00 EE EE EE EE");
  Transferred read{};
  EXPECT_TRUE(Raises(
      status, [&] { return (read = Read(array, path, I2(kLong), "05 00 00 00 06 00 00 00")).status; }));
  EXPECT_EQ(read.result, VARIANT_TRUE);
  EXPECT_EQ(Build(array, path, I2(kLong), 8).bytes, "05 00 00 00 EE EE EE EE");
}

TEST(NumericFailure, NullMemberFails) {
  const auto array = Nullable(kLong, {7, 2});
  PutItem(At(array, 1), OLESTR("m"), Variant::Null());
  ExpectFailureAtTheSecond(array, OLESTR("m"), E_POINTER);
}

TEST(NumericFailure, EmptySlotFails) {
  const auto array = PointsFromSeven();
  PutObject(array, 1, Point().get());
  ExpectFailureAtTheSecond(array, OLESTR("x"), E_POINTER);
}

TEST(NumericFailure, ElementOfAnotherTypeFails) {
  for (const auto& other : {StructureDefinition({{OLESTR("b"), kByte}}),
                            StructureDefinition({{OLESTR("x"), kDWord}, {OLESTR("s"), kString}}),
                            StructureDefinition({{OLESTR("x"), kReal}, {OLESTR("y"), kLong}})}) {
    const auto array = PointsFromSeven();
    PutItem(array, 1, Object(NewValue(other)));
    ExpectFailureAtTheSecond(array, OLESTR("x"), E_INVALIDARG);
  }
}

TEST(NumericFailure, NumberBufferMayBeNullWhereNoNumberMoves) {
  const Bstr path(OLESTR("x"));
  const auto points = PointsFromSeven();
  VARIANT_BOOL result = VARIANT_TRUE;
  EXPECT_TRUE(Raises(
      E_POINTER, [&] { return points->BuildNumericArray(path.get(), I2(kLong).get(), nullptr, &result); }));
  EXPECT_EQ(result, VARIANT_FALSE);
  result = VARIANT_TRUE;
  EXPECT_TRUE(Raises(
      E_POINTER, [&] { return points->ReadNumericArray(path.get(), I2(kLong).get(), nullptr, &result); }));
  EXPECT_EQ(result, VARIANT_FALSE);
  const auto none = NewArray(ArrayDefinition(Point()));
  EXPECT_EQ(none->BuildNumericArray(path.get(), I2(kLong).get(), nullptr, &result), S_OK);
  EXPECT_EQ(result, VARIANT_TRUE);
  EXPECT_EQ(points->ReadNumericArray(path.get(), I2(kDate).get(), nullptr, &result), S_OK);
  EXPECT_EQ(result, VARIANT_TRUE);
}

TEST(NumericFailure, IndexBeyondANestedVariableArrayIsInvalid) {
  const auto stations = Stations();
  GuardedBuffer buffer(8);
  VARIANT_BOOL result = VARIANT_FALSE;
  for (const OLECHAR* text : {OLESTR("Trace[3]"), OLESTR("Trace[1000000]"), OLESTR("Trace[2147483647]")}) {
    const Bstr path(text);
    EXPECT_EQ(stations->BuildNumericArray(path.get(), I2(kLong).get(), buffer.data(), &result), E_INVALIDARG);
    EXPECT_EQ(stations->ReadNumericArray(path.get(), I2(kLong).get(), buffer.data(), &result), E_INVALIDARG);
  }
  EXPECT_TRUE(buffer.GuardsIntact());
}

TEST(NumericFailure, UntypedArraysFailCleanly) {
  for (const CLSID& clsid : {kArrayClass, kSimpleArrayClass, kSimpleFixedArrayClass}) {
    const MessageRecorder messages;
    const auto array = CreateObject<IArray>(clsid);
    const Transferred built = Build(array, OLESTR("x"), I2(kLong), 8);
    EXPECT_EQ(built.status, E_POINTER);
    EXPECT_EQ(built.result, VARIANT_FALSE);
    EXPECT_EQ(built.bytes, Unwritten(8));
    const Transferred read = Read(array, OLESTR("x"), I2(kLong), "01 00 00 00 02 00 00 00");
    EXPECT_EQ(read.status, E_POINTER);
    EXPECT_EQ(read.result, VARIANT_FALSE);
    EXPECT_EQ(messages.Shown(), "");
  }
}

TEST(NumericFailure, NullResultPointerIsRejected) {
  unsigned char buffer[64] = {};
  const Bstr path(OLESTR(""));
  for (const auto& array : {NewArray(SimpleArrayDefinition(kShort)),
                            NewArray(SimpleArrayDefinition(kShort, 2)), NewArray(ArrayDefinition(Point()))}) {
    EXPECT_EQ(array->BuildNumericArray(path.get(), I2(kLong).get(), buffer, nullptr), E_POINTER);
    EXPECT_EQ(array->ReadNumericArray(path.get(), I2(kLong).get(), buffer, nullptr), E_POINTER);
  }
}

// The codes of a build and of a read along a path that the definition understands, which
// touch nothing outside the number buffer.
std::string Codes(const Ptr<IArray>& array, const OLECHAR* path) {
  const Transferred built = Build(array, path, I2(kReal), 16);
  const Transferred read = Read(array, path, I2(kShort), "01 00 02 00");
  EXPECT_EQ(built.result, VARIANT_TRUE) << Plain(WideView(path));
  EXPECT_EQ(read.result, VARIANT_TRUE) << Plain(WideView(path));
  return StatusText(built.status) + " " + StatusText(read.status);
}

constexpr const char* kMoved = "0x00000000 0x00000000";
constexpr const char* kNull = "0x80004003 0x80004003";
constexpr const char* kInvalid = "0x80070057 0x80070057";
constexpr const char* kNoObjects = "0x80004001 0x80004001";  // there is no At
constexpr const char* kNoNumber = "0x80020005 0x00000000";   // Value does not convert, its put does nothing

// Elements that the path of the definition does not fit.
TEST(NumericFailure, ElementsFromOtherDefinitions) {
  const struct {
    Ptr<IValueBase> other;
    const char* x;
    const char* y;
  } rows[] = {
      {NewValue(StructureDefinition({{OLESTR("b"), kByte}})), kInvalid, kNoObjects},
      {NewValue(StructureDefinition({{OLESTR("s"), kString}})), kNoNumber, kNull},
      {NewValue(StructureDefinition({{OLESTR("y"), kReal}, {OLESTR("x"), kString}})), kInvalid, kNoNumber},
      {NewValue(StructureDefinition({})), kNoObjects, kNoObjects},
  };
  for (const auto& row : rows) {
    const auto array = NewArray(ArrayDefinition(Point(), 2));
    PutItem(array, 1, Object(row.other));
    EXPECT_EQ(Codes(array, OLESTR("x")), row.x) << &row - rows;
    EXPECT_EQ(Codes(array, OLESTR("y")), row.y) << &row - rows;
  }
}

// Values of other kinds in place of a station, and in place of one of its members, where
// only the path through that member meets them.
TEST(NumericFailure, ElementsOfOtherKinds) {
  constexpr std::size_t kPathCount = 4;
  const OLECHAR* const paths[kPathCount] = {OLESTR("Position.X"), OLESTR("Samples[1]"), OLESTR("Level"),
                                            OLESTR("Points[1].X")};
  const OLECHAR* const members[kPathCount] = {OLESTR("Position"), OLESTR("Samples"), OLESTR("Level"),
                                              OLESTR("Points")};
  const struct {
    Ptr<IValueBase> other;
    const char* for_station[kPathCount];
    const char* for_member[kPathCount];
  } rows[] = {
      {SimpleValue(kLong), {kMoved, kMoved, kMoved, kMoved}, {kMoved, kMoved, kMoved, kMoved}},
      {NewValue(EnumerationDefinition(kLong, {})),
       {kMoved, kMoved, kMoved, kMoved},
       {kMoved, kMoved, kMoved, kMoved}},
      {NewValue(SimpleArrayDefinition(kLong, 1)),
       {kNoObjects, kNoObjects, kInvalid, kNoObjects},
       {kInvalid, kInvalid, kNoNumber, kNoObjects}},
      {NewValue(SimpleArrayDefinition(kString)),
       {kNoObjects, kNoObjects, kNoObjects, kNoObjects},
       {kNoObjects, kNoObjects, kNoNumber, kNoObjects}},
      {CreateObject<IValueBase>(kCollectionClass),
       {kNoObjects, kNoObjects, kNoObjects, kNoObjects},
       {kNoObjects, kNoObjects, kNoObjects, kNoObjects}},
      {CreateObject<IValueBase>(kStructureClass),
       {kNull, kNull, kNull, kNull},
       {kNull, kNull, kNoNumber, kNull}},
      {NewForeign<ForeignValue>(),
       {kNoObjects, kNoObjects, kNoObjects, kNoObjects},
       {kNoObjects, kNoObjects, kMoved, kNoObjects}},
  };
  for (const auto& row : rows) {
    for (std::size_t path = 0; path < kPathCount; ++path) {
      const auto stations = Stations(2);
      PutItem(stations, 1, Object(row.other));
      EXPECT_EQ(Codes(stations, paths[path]), row.for_station[path]) << &row - rows << " " << path;
      for (std::size_t member = 0; member < kPathCount; ++member) {
        const auto others = Stations(2);
        PutItem(At(others, 1), members[member], Object(row.other));
        EXPECT_EQ(Codes(others, paths[path]), path == member ? row.for_member[path] : kMoved)
            << &row - rows << " " << path << " " << member;
      }
    }
  }
}

TEST(NumericFailure, FailingMemberObjectIsRaised) {
  const auto array = Nullable(kLong, {1});
  const auto foreign = NewForeign<ForeignValue>();
  foreign->get_value_status = E_ABORT;
  foreign->put_value_status = E_ABORT;
  PutItem(At(array, 0), OLESTR("m"), Object(foreign));
  unsigned char buffer[8] = {};
  VARIANT_BOOL result = VARIANT_FALSE;
  const Bstr path(OLESTR("m"));
  EXPECT_TRUE(Raises(E_ABORT,
                     [&] { return array->BuildNumericArray(path.get(), I2(kLong).get(), buffer, &result); }));
  EXPECT_TRUE(
      Raises(E_ABORT, [&] { return array->ReadNumericArray(path.get(), I2(kLong).get(), buffer, &result); }));
}

}  // namespace
}  // namespace halyard::test
