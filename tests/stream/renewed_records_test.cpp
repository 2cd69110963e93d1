// Records that are read one after another: whatever the reader does with memory of
// earlier ones, each is a new value, and what a client still holds of an earlier one
// stays what it is.
#include <gtest/gtest.h>

#include "halyard/definitions/array_def.h"
#include "tests/support/encoding.h"
#include "tests/support/foreign_stream.h"
#include "tests/support/foreign_value.h"
#include "tests/support/streams.h"
#include "tests/support/trees.h"

namespace halyard::test {
namespace {

constexpr SHORT kId = 7;
const OLECHAR* const kParts[] = {OLESTR("name"),  OLESTR("note"),  OLESTR("place"), OLESTR("samples"),
                                 OLESTR("state"), OLESTR("track"), OLESTR("spot")};

// A record with a member of every kind that has no fixed place, and with a fixed one.
Ptr<IStructureDef> Log(SHORT id = kId) {
  const auto definition = StructureDefinition({{OLESTR("number"), kLong}}, id);
  AddMember(definition, OLESTR("name"), SimpleDefinition(kString).get());
  AddMember(definition, OLESTR("note"), SimpleDefinition(kString).get(), true);
  AddMember(definition, OLESTR("place"),
            StructureDefinition({{OLESTR("x"), kReal}, {OLESTR("label"), kString}}).get());
  AddMember(definition, OLESTR("samples"), SimpleArrayDefinition(kShort, 2).get());
  AddMember(definition, OLESTR("state"),
            EnumerationDefinition(kShort, {{OLESTR("Off"), 3}, {OLESTR("On"), 4}}).get());
  AddMember(definition, OLESTR("track"), SimpleArrayDefinition(kReal).get());
  AddMember(definition, OLESTR("spot"), StructureDefinition({{OLESTR("x"), kReal}}).get());
  Calculate(definition);
  return definition;
}

Ptr<IValueBase> At(const Ptr<IValueBase>& record, const OLECHAR* member) {
  return Get(record, &IValueBase::get_At, Text(member));
}

// A filled record; every third one has no note.
Ptr<IValueBase> LogOf(const Ptr<IStructureDef>& definition, LONG seed) {
  auto record = NewValue(definition);
  FillTree(record, seed);
  PutValue(At(record, OLESTR("state")), I4(seed));
  if (seed % 3 == 0) PutItem(record, OLESTR("note"), Variant::Null());
  return record;
}

// What a record shows when it is read: the same as it showed when it was written.
std::string Shown(LONG seed) { return ShowTree(LogOf(Log(), seed)); }

// A file of records made from 1, 2, ... count, open for reading behind its definition.
struct Logs {
  explicit Logs(LONG count) {
    const auto definition = Log();
    const auto writer = NewFile();
    EXPECT_TRUE(OpenForWrite(writer, place.name()));
    EXPECT_TRUE(WriteInfo(writer, definition.get()));
    for (LONG seed = 1; seed <= count; ++seed) EXPECT_TRUE(WriteData(writer, LogOf(definition, seed).get()));
    Check(writer->Close());
    EXPECT_TRUE(OpenForRead(reader, place.name()));
    info = ReadInfo(reader).As<IStructureDef>();
  }

  TempFile place;
  Ptr<IOrmFile> reader = NewFile();
  Ptr<IStructureDef> info;
};

TEST(RenewedRecords, EachIsWhatWasWritten) {
  const Logs logs(9);
  for (LONG seed = 1; seed <= 9; ++seed) EXPECT_EQ(ShowTree(ReadData(logs.reader)), Shown(seed));
}

TEST(RenewedRecords, RecordThatIsHeldStays) {
  const Logs logs(5);
  const auto held = ReadData(logs.reader);
  for (LONG seed = 2; seed <= 5; ++seed) {
    const auto other = ReadData(logs.reader);
    EXPECT_FALSE(SameObject(held.get(), other.get()));
    EXPECT_EQ(ShowTree(other), Shown(seed));
    EXPECT_EQ(ShowTree(held), Shown(1));
  }
}

TEST(RenewedRecords, PartThatIsHeldStays) {
  for (const OLECHAR* part : kParts) {
    const Logs logs(4);
    const auto held = At(ReadData(logs.reader), part);
    const std::string shown = ShowTree(held);
    for (LONG seed = 2; seed <= 4; ++seed) {
      const auto record = ReadData(logs.reader);
      EXPECT_EQ(ShowTree(record), Shown(seed)) << Plain(part);
      EXPECT_FALSE(SameObject(held.get(), At(record, part).get())) << Plain(part);
      EXPECT_EQ(ShowTree(held), shown) << Plain(part);
    }
  }
}

TEST(RenewedRecords, PartOfAPartThatIsHeldStays) {
  const Logs logs(3);
  const auto held = At(At(ReadData(logs.reader), OLESTR("place")), OLESTR("label"));
  const std::string shown = ValueOf(held);
  for (LONG seed = 2; seed <= 3; ++seed) {
    EXPECT_EQ(ShowTree(ReadData(logs.reader)), Shown(seed));
    EXPECT_EQ(ValueOf(held), shown);
  }
}

TEST(RenewedRecords, UnitThatIsHeldKeepsItsRecord) {
  const Logs logs(3);
  const auto held = ReadUnit(logs.reader);
  for (LONG seed = 2; seed <= 3; ++seed) {
    EXPECT_EQ(ShowTree(ReadData(logs.reader)), Shown(seed));
    EXPECT_EQ(ShowTree(Get(held, &IUnit::get_Value)), Shown(1));
  }
}

TEST(RenewedRecords, WhatAClientPutIntoARecordIsNotInTheNext) {
  const Logs logs(8);
  const auto foreign = NewForeign<ForeignValue>();
  const Variant contents[] = {Object(SimpleValue(kLong)), Object(foreign), Object(Ptr<IValueBase>()),
                              Object(NewValue(StructureDefinition({{OLESTR("a"), kByte}})))};
  LONG seed = 0;
  for (const Variant& content : contents) {
    const auto record = ReadData(logs.reader);
    for (const OLECHAR* part : kParts) PutItem(record, part, content);
    EXPECT_EQ(ShowTree(ReadData(logs.reader)), Shown(seed += 2));
  }
}

// What a client may have said about the safety of the object.
DWORD SafetyOf(const Ptr<IValueBase>& value) {
  DWORD supported = 0;
  DWORD enabled = 0;
  const auto safety = value.As<IObjectSafety>();
  EXPECT_EQ(safety->GetInterfaceSafetyOptions(IidOf<IDispatch>, &supported, &enabled), S_OK);
  return enabled;
}

TEST(RenewedRecords, WhatAClientSaidToARecordIsForgotten) {
  const Logs logs(2);
  const DWORD usual = SafetyOf(NewValue(Log()));
  {
    const auto record = ReadData(logs.reader);
    std::vector<Ptr<IValueBase>> objects = {record};
    for (const OLECHAR* part : kParts) objects.push_back(At(record, part));
    for (const auto& object : objects) {
      const auto safety = object.As<IObjectSafety>();
      EXPECT_EQ(safety->SetInterfaceSafetyOptions(IidOf<IDispatch>, 3, usual == 0 ? 3 : 0), S_OK);
      EXPECT_NE(SafetyOf(object), usual);
    }
  }
  const auto record = ReadData(logs.reader);
  EXPECT_EQ(SafetyOf(record), usual);
  for (const OLECHAR* part : kParts) EXPECT_EQ(SafetyOf(At(record, part)), usual) << Plain(part);
}

TEST(RenewedRecords, WhatIsCutOffIsNew) {
  const auto definition = Log();
  const auto fresh = NewValue(definition);
  const auto unit = CreateObject<IUnit>(kUnitClass);
  EXPECT_EQ(unit->put_Value(LogOf(definition, 5).get()), S_OK);
  const Bytes whole = Hex(Encoded(unit));
  const TempFile place;
  const auto writer = NewFile();
  ASSERT_TRUE(OpenForWrite(writer, place.name()));
  ASSERT_TRUE(WriteInfo(writer, definition.get()));
  Check(writer->Close());
  // Whole records and such that end before their members, in turns.
  constexpr std::size_t kHead = 6;
  Bytes bytes = place.Contents();
  for (std::size_t size = kHead; size < whole.size(); ++size) {
    bytes = Join({bytes, LittleEndian(whole.size(), 4), whole, LittleEndian(size, 4), Prefix(whole, size)});
  }
  place.Write(bytes);
  const auto reader = NewFile();
  ASSERT_TRUE(OpenForRead(reader, place.name()));
  ASSERT_TRUE(ReadInfo(reader));
  for (std::size_t size = kHead; size < whole.size(); ++size) {
    EXPECT_EQ(ShowTree(ReadData(reader)), Shown(5));
    // The same, read by a value that never held anything.
    const auto expected = NewValue(definition);
    EXPECT_EQ(ReadFrom(expected, Bytes(whole.begin() + kHead, whole.begin() + static_cast<LONG>(size))),
              TooShort());
    EXPECT_EQ(ShowTree(ReadData(reader)), ShowTree(expected)) << size;
  }
}

TEST(RenewedRecords, MembersTakeTheirDefinitionAnew) {
  const Logs logs(2);
  ASSERT_TRUE(ReadData(logs.reader));
  // The note's own definition stays; what it describes is a number from now on.
  const auto note = Get(logs.info, &IStructureDef::get_Members, Text(OLESTR("note")));
  EXPECT_EQ(note->put_Type(kLong), S_OK);
  const auto record = ReadData(logs.reader);
  EXPECT_EQ(Get(At(record, OLESTR("note")), &IValueBase::get_Type), kLong);
}

TEST(RenewedRecords, MembersWithOtherDefinitionsAreMadeByThem) {
  const Logs logs(2);
  ASSERT_TRUE(ReadData(logs.reader));
  const auto other = StructureDefinition({{OLESTR("y"), kReal}, {OLESTR("label"), kString}});
  EXPECT_EQ(logs.info->put_Members(Text(OLESTR("place")).get(), other.get()), S_OK);
  const auto place = At(ReadData(logs.reader), OLESTR("place"));
  EXPECT_TRUE(SameObject(Get(place, &IValueBase::get_Info).get(), other.get()));
}

TEST(RenewedRecords, ShapesAreThoseOfTheMoment) {
  const Logs logs(2);
  ASSERT_TRUE(ReadData(logs.reader));
  const auto samples = Get(logs.info, &IStructureDef::get_Members, Text(OLESTR("samples"))).As<IArrayDef>();
  EXPECT_EQ(samples->put_ElementCount(0), S_OK);
  EXPECT_EQ(ClassOf(At(ReadData(logs.reader), OLESTR("samples")).get()), "SimpleArray");
}

TEST(RenewedRecords, MembersThatWereAddedAreThere) {
  const Logs logs(2);
  ASSERT_TRUE(ReadData(logs.reader));
  AddMember(logs.info, OLESTR("more"), SimpleDefinition(kString).get());
  Calculate(logs.info);
  const auto record = ReadData(logs.reader);
  EXPECT_EQ(Get(record, &IValueBase::get_Count), 9);
  EXPECT_EQ(Item(record, OLESTR("more")), "BSTR ");
}

TEST(RenewedRecords, RedefinitionCountsForTheNextRecord) {
  const TempFile place(
      FileOf({// structure 3 of a, Long; its value 5; structure 3 of b, Byte; its value 6
              "65 00 0E 00 03 00 01 00 50 00 00 01 00 04 00 01 00 61 00 00 00 08 00 04 00 08 "
              "00 04 00 00 00",
              "66 00 0E 00 03 00 05 00 00 00",
              "65 00 0E 00 03 00 01 00 50 00 00 01 00 01 00 01 00 62 00 00 00 05 00 01 00 05 "
              "00 01 00 00 00",
              "66 00 0E 00 03 00 06"}));
  const auto file = NewFile();
  ASSERT_TRUE(OpenForRead(file, place.name()));
  ASSERT_TRUE(ReadInfo(file));
  EXPECT_EQ(ShowTree(ReadData(file)), "{a=I4 5}");
  ASSERT_TRUE(ReadInfo(file));
  EXPECT_EQ(ShowTree(ReadData(file)), "{b=UI1 6}");
}

TEST(RenewedRecords, SessionThatWasChangedByHandCounts) {
  const Logs logs(4);
  ASSERT_TRUE(ReadData(logs.reader));
  ASSERT_TRUE(ReadData(logs.reader));
  const auto session = Get(logs.reader, &IOrmFile::get_Session);
  const auto other = StructureDefinition({{OLESTR("n"), kLong}}, kId);
  VARIANT_BOOL added = VARIANT_FALSE;
  EXPECT_EQ(session->AddType(other.get(), &added), S_OK);
  EXPECT_EQ(ShowTree(ReadData(logs.reader)), "{n=" + Item(LogOf(Log(), 3), OLESTR("number")) + "}");
}

TEST(RenewedRecords, IdThatWasChangedByHandCounts) {
  const Logs logs(4);
  ASSERT_TRUE(ReadData(logs.reader));
  ASSERT_TRUE(ReadData(logs.reader));
  EXPECT_EQ(logs.info->put_Id(kId + 1), S_OK);
  EXPECT_FALSE(ReadData(logs.reader));
  EXPECT_EQ(logs.info->put_Id(kId), S_OK);
  EXPECT_EQ(ShowTree(ReadData(logs.reader)), Shown(4));
}

TEST(RenewedRecords, OtherSessionCounts) {
  const Logs logs(4);
  ASSERT_TRUE(ReadData(logs.reader));
  ASSERT_TRUE(ReadData(logs.reader));
  const auto session = Get(logs.reader, &IOrmFile::get_Session);
  EXPECT_EQ(logs.reader->put_Session(CreateObject<IOrmSession>(kOrmSessionClass).get()), S_OK);
  EXPECT_FALSE(ReadData(logs.reader));
  EXPECT_EQ(logs.reader->put_Session(session.get()), S_OK);
  EXPECT_EQ(ShowTree(ReadData(logs.reader)), Shown(4));
}

// A value of a client's in the record that was read last.
std::weak_ptr<void> ClientValueInTheLastRecord(const Logs& logs) {
  const auto record = ReadData(logs.reader);
  const auto foreign = NewForeign<ForeignValue>();
  PutItem(record, kParts[0], Object(foreign));
  return foreign->Life();
}

TEST(RenewedRecords, RecordBeforeOneThatCannotBeResolvedIsGone) {
  const Logs logs(2);
  const auto life = ClientValueInTheLastRecord(logs);
  EXPECT_FALSE(life.expired());
  EXPECT_EQ(logs.reader->put_Session(nullptr), S_OK);
  Ptr<IUnit> unit;
  EXPECT_EQ(logs.reader->ReadUnit(unit.Out()), E_POINTER);
  EXPECT_TRUE(life.expired());
}

TEST(RenewedRecords, RecordBeforeAReadingThatFailsAtOnceIsGone) {
  const Logs logs(2);
  const auto life = ClientValueInTheLastRecord(logs);
  const auto session = NewForeign<ForeignSession>();
  EXPECT_EQ(logs.reader->put_Session(session.get()), S_OK);
  session->query_status = E_ABORT;
  Ptr<IUnit> unit;
  EXPECT_EQ(logs.reader->ReadUnit(unit.Out()), E_ABORT);
  EXPECT_TRUE(life.expired());
}

}  // namespace
}  // namespace halyard::test
