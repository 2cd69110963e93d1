// The numeric transfer apart from its paths and its pairs: how number types are named,
// members that are objects, and elements that are not what the definition says.
#include <gtest/gtest.h>

#include "tests/support/foreign_value.h"
#include "tests/support/message_recorder.h"
#include "tests/support/raised.h"
#include "tests/values/arrays/stations.h"
#include "tests/values/arrays/transfer.h"

namespace halyard::test {
namespace {

Ptr<IStructureDef> Point() { return StructureDefinition({{OLESTR("x"), kLong}, {OLESTR("y"), kReal}}); }

Ptr<IArray> Shorts() {
  const auto array = NewArray(SimpleArrayDefinition(kShort));
  AddAll(array, {1, -2});
  return array;
}

// Structures whose member m is an object, with these numbers.
Ptr<IArray> Nullable(SHORT type, std::initializer_list<LONG> numbers) {
  const auto definition = StructureDefinition({{OLESTR("m"), type, 0, true}});
  const auto array = NewArray(ArrayDefinition(definition));
  for (const LONG number : numbers) {
    const auto element = NewValue(definition);
    PutItem(element, OLESTR("m"), I4(number));
    Add(array, Object(element));
  }
  return array;
}

// Puts an object into a position; an object that is no value empties it.
void PutObject(const Ptr<IArray>& array, LONG position, IDispatch* object) {
  PutItem(array, position, Variant(object));
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

TEST(NumericTransfer, NullMemberFails) {
  const auto array = Nullable(kLong, {1, 2});
  PutItem(At(array, 1), OLESTR("m"), Variant::Null());
  unsigned char buffer[8] = {1, 0, 0, 0, 2, 0, 0, 0};
  VARIANT_BOOL result = VARIANT_FALSE;
  const Bstr path(OLESTR("m"));
  EXPECT_TRUE(Raises(E_POINTER,
                     [&] { return array->BuildNumericArray(path.get(), I2(kLong).get(), buffer, &result); }));
  EXPECT_TRUE(Raises(E_POINTER,
                     [&] { return array->ReadNumericArray(path.get(), I2(kLong).get(), buffer, &result); }));
}

TEST(NumericTransfer, EmptySlotFails) {
  const auto array = NewArray(ArrayDefinition(Point(), 2));
  PutObject(array, 1, Point().get());
  unsigned char buffer[8] = {};
  VARIANT_BOOL result = VARIANT_FALSE;
  const Bstr path(OLESTR("x"));
  EXPECT_TRUE(Raises(E_POINTER,
                     [&] { return array->BuildNumericArray(path.get(), I2(kLong).get(), buffer, &result); }));
  EXPECT_TRUE(Raises(E_POINTER,
                     [&] { return array->ReadNumericArray(path.get(), I2(kLong).get(), buffer, &result); }));
}

TEST(NumericTransfer, IndexBeyondANestedVariableArrayIsInvalid) {
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

TEST(NumericTransfer, UntypedArraysFailCleanly) {
  for (const CLSID& clsid : {kArrayClass, kSimpleArrayClass, kSimpleFixedArrayClass}) {
    MessageRecorder messages;
    const auto array = CreateObject<IArray>(clsid);
    const Transferred built = Build(array, OLESTR("x"), I2(kLong), 8);
    EXPECT_TRUE(FAILED(built.status) || built.result == VARIANT_FALSE);
    EXPECT_EQ(built.bytes, Unwritten(8));
  }
}

TEST(NumericTransfer, NullResultPointerIsRejected) {
  unsigned char buffer[64] = {};
  const Bstr path(OLESTR(""));
  for (const auto& array :
       {Shorts(), NewArray(SimpleArrayDefinition(kShort, 2)), NewArray(ArrayDefinition(Point()))}) {
    EXPECT_EQ(array->BuildNumericArray(path.get(), I2(kLong).get(), buffer, nullptr), E_POINTER);
    EXPECT_EQ(array->ReadNumericArray(path.get(), I2(kLong).get(), buffer, nullptr), E_POINTER);
  }
}

// Elements that the path of the definition does not fit: each ends with some code and
// touches nothing outside the number buffer and the elements.
TEST(NumericTransfer, ElementsFromOtherDefinitionsAreHarmless) {
  const Ptr<IValueDefBase> others[] = {
      StructureDefinition({{OLESTR("b"), kByte}}),
      StructureDefinition({{OLESTR("s"), kString}}),
      StructureDefinition({{OLESTR("y"), kReal}, {OLESTR("x"), kString}}),
      StructureDefinition({}),
  };
  for (const OLECHAR* path : {OLESTR("x"), OLESTR("y")}) {
    for (const auto& other : others) {
      const auto array = NewArray(ArrayDefinition(Point(), 1));
      PutItem(array, 0, Object(NewValue(other)));
      static_cast<void>(Build(array, path, I2(kReal), 8));
      static_cast<void>(Read(array, path, I2(kReal), "00 00 00 00 00 00 F0 3F"));
    }
  }
}

TEST(NumericTransfer, ElementsOfOtherKindsAreHarmless) {
  const auto foreign = NewForeign<ForeignValue>();
  const Ptr<IValueBase> others[] = {SimpleValue(kLong),
                                    NewValue(EnumerationDefinition(kLong, {})),
                                    NewValue(SimpleArrayDefinition(kLong, 1)),
                                    NewValue(SimpleArrayDefinition(kString)),
                                    CreateObject<IValueBase>(kCollectionClass),
                                    CreateObject<IValueBase>(kStructureClass),
                                    foreign};
  for (const auto& other : others) {
    for (const OLECHAR* path :
         {OLESTR("Depth"), OLESTR("Position.X"), OLESTR("Samples[1]"), OLESTR("Level")}) {
      const auto stations = Stations(2);
      PutItem(stations, 1, Object(other));
      static_cast<void>(Build(stations, path, I2(kReal), 16));
      static_cast<void>(Read(stations, path, I2(kShort), "01 00 02 00"));
    }
    for (const OLECHAR* member : {OLESTR("Position"), OLESTR("Samples"), OLESTR("Level"), OLESTR("Points")}) {
      const auto stations = Stations(2);
      PutItem(At(stations, 1), member, Object(other));
      for (const OLECHAR* path :
           {OLESTR("Position.X"), OLESTR("Samples[1]"), OLESTR("Level"), OLESTR("Points[1].X")}) {
        static_cast<void>(Build(stations, path, I2(kReal), 16));
        static_cast<void>(Read(stations, path, I2(kShort), "01 00 02 00"));
      }
    }
  }
}

TEST(NumericTransfer, FailingMemberObjectIsRaised) {
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
