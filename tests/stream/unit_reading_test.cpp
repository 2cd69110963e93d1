// What a unit makes of a buffer.
#include <gtest/gtest.h>

#include "halyard/stream/orm_session.h"
#include "halyard/stream/unit.h"
#include "tests/support/definitions.h"
#include "tests/support/encoding.h"
#include "tests/support/foreign_definition.h"
#include "tests/support/foreign_stream.h"
#include "tests/support/foreign_value.h"
#include "tests/support/message_recorder.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

constexpr const char* kInfoBytes =
    "65 00 0E 00 03 00 01 00 50 00 00 01 00 04 00 01 00 61 00 00 00 08 00 04 00 08 00 04 00 00 00";
constexpr ULONG kInfoSize = 31;
constexpr const char* kDataBytes = "66 00 0E 00 03 00 05 00 00 00";

Ptr<IOrmSession> NewSession() { return CreateObject<IOrmSession>(kOrmSessionClass); }

Ptr<IUnit> UnitWith(const Ptr<IOrmSession>& session) {
  const auto unit = CreateObject<IUnit>(kUnitClass);
  EXPECT_EQ(unit->put_Session(session.get()), S_OK);
  return unit;
}

// A unit whose session knows structure 3 with the member a (Long).
Ptr<IUnit> PreparedUnit() {
  const auto session = NewSession();
  VARIANT_BOOL added = VARIANT_FALSE;
  EXPECT_EQ(session->AddType(StructureDefinition({{OLESTR("a"), kLong}}, 3).get(), &added), S_OK);
  return UnitWith(session);
}

Ptr<IValueDefBase> Find(const Ptr<IOrmSession>& session, LONG type, SHORT id) {
  return Result<IValueDefBase*>(
      [&](IValueDefBase** out) { return session->GetTypeFromId(I4(type).get(), id, out); });
}

HRESULT Read(const Ptr<IUnit>& unit, std::string_view hex) { return ReadFrom(unit, hex).status; }

// A call that fails behind the unit's own words: readers of streams go on with the next.
Outcome FailedInTheBody(HRESULT status) { return {status, VARIANT_TRUE, kUntouched}; }

bool IsData(const Ptr<IUnit>& unit) { return Get(unit, &IUnit::get_IsDataUnit) == VARIANT_TRUE; }
bool IsInfo(const Ptr<IUnit>& unit) { return Get(unit, &IUnit::get_IsInfoUnit) == VARIANT_TRUE; }

TEST(UnitReading, InfoUnitIsReadAndRegistered) {
  const auto session = NewSession();
  const auto unit = UnitWith(session);
  EXPECT_EQ(ReadFrom(unit, kInfoBytes), Moved(kInfoSize));
  EXPECT_TRUE(IsInfo(unit));
  const auto definition = Get(unit, &IUnit::get_Info);
  ASSERT_TRUE(definition);
  EXPECT_EQ(Get(definition, &IValueDefBase::get_Name), "P");
  EXPECT_TRUE(SameObject(Find(session, 14, 3).get(), definition.get()));
  EXPECT_EQ(Encoded(unit), kInfoBytes);
}

TEST(UnitReading, SecondInfoUnitOfAKeyReplacesTheFirst) {
  const auto session = NewSession();
  const auto unit = UnitWith(session);
  EXPECT_EQ(ReadFrom(unit, kInfoBytes), Moved(kInfoSize));
  const auto first = Get(unit, &IUnit::get_Info);
  EXPECT_EQ(ReadFrom(unit, kInfoBytes), Moved(kInfoSize));
  const auto second = Get(unit, &IUnit::get_Info);
  EXPECT_FALSE(SameObject(first.get(), second.get()));
  EXPECT_TRUE(SameObject(Find(session, 14, 3).get(), second.get()));
}

TEST(UnitReading, DataUnitIsReadByTheRegisteredDefinition) {
  const auto unit = PreparedUnit();
  EXPECT_EQ(ReadFrom(unit, kDataBytes), Moved(10));
  EXPECT_TRUE(IsData(unit));
  const auto value = Get(unit, &IUnit::get_Value);
  ASSERT_TRUE(value);
  EXPECT_EQ(Item(value, OLESTR("a")), "I4 5");
  EXPECT_EQ(Get(value, &IValueBase::get_Id), 3);
  EXPECT_EQ(Encoded(unit), kDataBytes);
}

TEST(UnitReading, EachReadingMakesANewValue) {
  const auto unit = PreparedUnit();
  EXPECT_EQ(ReadFrom(unit, kDataBytes), Moved(10));
  const auto first = Get(unit, &IUnit::get_Value);
  EXPECT_EQ(ReadFrom(unit, "66 00 0E 00 03 00 06 00 00 00"), Moved(10));
  EXPECT_EQ(Item(first, OLESTR("a")), "I4 5");
  EXPECT_EQ(Item(Get(unit, &IUnit::get_Value), OLESTR("a")), "I4 6");
}

TEST(UnitReading, BytesBehindAUnitAreNotRead) {
  EXPECT_EQ(ReadFrom(PreparedUnit(), std::string(kDataBytes) + " 01 02"), Moved(10));
  EXPECT_EQ(ReadFrom(PreparedUnit(), std::string(kInfoBytes) + " 01 02"), Moved(kInfoSize));
}

TEST(UnitReading, OneByteIsTooShort) { EXPECT_EQ(ReadFrom(PreparedUnit(), "65"), TooShort()); }

TEST(UnitReading, ThreeBytesAreTooShortButLeaveTheKind) {
  const auto unit = PreparedUnit();
  EXPECT_EQ(ReadFrom(unit, "65 00 0E"), TooShort());
  EXPECT_TRUE(IsInfo(unit));
}

TEST(UnitReading, CutInfoUnits) {
  const Bytes bytes = Hex(kInfoBytes);
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    const auto session = NewSession();
    const auto unit = UnitWith(session);
    EXPECT_EQ(ReadFrom(unit, Prefix(bytes, size)), size < 4 ? TooShort() : NothingMoved()) << size;
    EXPECT_EQ(IsInfo(unit), size >= 2) << size;
    EXPECT_FALSE(Find(session, 14, 3)) << size;
  }
}

TEST(UnitReading, CutDataUnits) {
  const Bytes bytes = Hex(kDataBytes);
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    const auto unit = PreparedUnit();
    EXPECT_EQ(ReadFrom(unit, Prefix(bytes, size)), size < 6 ? TooShort() : NothingMoved()) << size;
    EXPECT_EQ(static_cast<bool>(Get(unit, &IUnit::get_Value)), size >= 6) << size;
  }
}

TEST(UnitReading, DataUnitOfAnElementaryTypeHasNoValue) {
  const auto unit = PreparedUnit();
  EXPECT_EQ(ReadFrom(unit, "66 00 08 00 00 00 05 00 00 00"), NothingMoved());
  EXPECT_FALSE(Get(unit, &IUnit::get_Value));
  EXPECT_TRUE(IsData(unit));
}

TEST(UnitReading, DataUnitsOfOtherTypesReadNothing) {
  for (const char* type : {"00 00", "01 00", "0D 00", "12 00", "14 00", "FF 7F", "FF FF"}) {
    const auto unit = PreparedUnit();
    const auto value = SimpleValue(kLong);
    EXPECT_EQ(unit->put_Value(value.get()), S_OK);
    EXPECT_EQ(ReadFrom(unit, std::string("66 00 ") + type + " 03 00 05 00 00 00"), NothingMoved()) << type;
    EXPECT_TRUE(SameObject(Get(unit, &IUnit::get_Value).get(), value.get())) << type;
  }
}

TEST(UnitReading, DataUnitWithAnUnknownIdHasNoValue) {
  const auto unit = PreparedUnit();
  EXPECT_EQ(ReadFrom(unit, "66 00 0E 00 04 00 05 00 00 00"), NothingMoved());
  EXPECT_FALSE(Get(unit, &IUnit::get_Value));
}

TEST(UnitReading, DataUnitWithAnUnknownIdKeepsTheOldValue) {
  const auto unit = PreparedUnit();
  EXPECT_EQ(ReadFrom(unit, kDataBytes), Moved(10));
  for (const char* type : {"0E 00", "0F 00", "11 00"}) {
    EXPECT_EQ(ReadFrom(unit, std::string("66 00 ") + type + " 04 00 05 00 00 00"), NothingMoved());
    EXPECT_EQ(Item(Get(unit, &IUnit::get_Value), OLESTR("a")), "I4 5");
  }
}

TEST(UnitReading, WithoutASessionNothingCanBeResolved) {
  for (const char* bytes : {kDataBytes, "66 00 0F 00 03 00", "66 00 11 00 03 00", kInfoBytes}) {
    const auto unit = CreateObject<IUnit>(kUnitClass);
    EXPECT_TRUE(Raises(E_POINTER, [&] { return Read(unit, bytes); })) << bytes;
    EXPECT_EQ(ReadFrom(unit, bytes), FailedInTheBody(E_POINTER)) << bytes;
  }
}

TEST(UnitReading, InfoUnitWithoutASessionKeepsItsDefinition) {
  const auto unit = CreateObject<IUnit>(kUnitClass);
  EXPECT_TRUE(Raises(E_POINTER, [&] { return Read(unit, kInfoBytes); }));
  EXPECT_TRUE(Get(unit, &IUnit::get_Info));
}

TEST(UnitReading, InfoUnitsOfElementaryTypesAreSimpleDefinitions) {
  constexpr struct {
    const char* bytes;
    SHORT type;
  } kRows[] = {{"65 00 00 00 00 00 00 00", 0},
               {"65 00 08 00 08 00 04 00 00 00", 8},
               {"65 00 0D 00 0D 00 08 00", 13},
               {"65 00 10 00 10 00 00 00", 16}};
  for (const auto& row : kRows) {
    const auto session = NewSession();
    const auto unit = UnitWith(session);
    EXPECT_EQ(ReadFrom(unit, row.bytes), Moved(static_cast<ULONG>(Hex(row.bytes).size())));
    const auto definition = Get(unit, &IUnit::get_Info);
    ASSERT_TRUE(definition.As<ISimpleValueDef>()) << row.bytes;
    EXPECT_EQ(Get(definition, &IValueDefBase::get_Type), row.type);
    EXPECT_FALSE(Find(session, row.type, 0));
  }
}

TEST(UnitReading, InfoUnitOfAnUnknownTypeShowsAMessageAndFails) {
  for (const char* type : {"12 00", "14 00", "FF 7F", "00 80", "FF FF"}) {
    MessageRecorder messages;
    const auto unit = UnitWith(NewSession());
    EXPECT_TRUE(Raises(E_POINTER, [&] { return Read(unit, std::string("65 00 ") + type + " 00 00"); }))
        << type;
    EXPECT_EQ(messages.Shown(), "No caption: Invalid type\n") << type;
    EXPECT_EQ(ReadFrom(unit, std::string("65 00 ") + type + " 00 00"), FailedInTheBody(E_POINTER)) << type;
  }
}

TEST(UnitReading, InfoUnitOfAnUnknownTypeIsReadByTheOldDefinition) {
  MessageRecorder messages;
  const auto session = NewSession();
  const auto unit = UnitWith(session);
  const auto old = StructureDefinition({}, 9);
  EXPECT_EQ(unit->put_Info(old.get()), S_OK);
  std::string bytes = kInfoBytes;
  bytes.replace(6, 5, "14 00");
  EXPECT_EQ(ReadFrom(unit, bytes), Moved(kInfoSize));
  EXPECT_EQ(messages.Shown(), "No caption: Invalid type\n");
  EXPECT_TRUE(SameObject(Get(unit, &IUnit::get_Info).get(), old.get()));
  EXPECT_TRUE(SameObject(Find(session, 14, 3).get(), old.get()));
}

TEST(UnitReading, OtherKindsAreKeptAndReadNoFurther) {
  for (const char* kind : {"00 00", "64 00", "67 00", "FF FF"}) {
    const auto unit = PreparedUnit();
    EXPECT_EQ(ReadFrom(unit, std::string(kind) + " 0E"), TooShort()) << kind;
    EXPECT_EQ(ReadFrom(unit, std::string(kind) + " 0E 00 03 00"), NothingMoved()) << kind;
    EXPECT_FALSE(IsData(unit)) << kind;
    EXPECT_FALSE(IsInfo(unit)) << kind;
    EXPECT_EQ(Get(unit, &IUnit::get_Type), 0) << kind;
    EXPECT_EQ(Get(unit, &IUnit::get_TypeString), "Invalid") << kind;
    const Written written = WriteTo(unit, 4);
    EXPECT_EQ(written.outcome, Moved(2)) << kind;
    EXPECT_EQ(ToHex(written.bytes), std::string(kind) + " EE EE");
    EXPECT_EQ(WriteTo(unit, 1).outcome, TooShort()) << kind;
  }
}

TEST(UnitReading, OtherKindsAreSizedByTheDefinition) {
  const auto unit = PreparedUnit();
  EXPECT_EQ(ReadFrom(unit, "67 00 0E 00"), NothingMoved());
  ULONG size = 0;
  EXPECT_TRUE(Raises(E_POINTER, [&] { return unit->get_PacketSize(&size); }));
  EXPECT_EQ(unit->put_Info(SimpleDefinition(kLong).get()), S_OK);
  EXPECT_EQ(ReadFrom(unit, "67 00 0E 00"), NothingMoved());
  EXPECT_EQ(PacketSize(unit), 10u);
}

TEST(UnitReading, SessionIsAskedForTheCodeAsALong) {
  const auto session = NewForeign<ForeignSession>();
  const auto unit = CreateObject<IUnit>(kUnitClass);
  EXPECT_EQ(unit->put_Session(session.get()), S_OK);
  EXPECT_EQ(ReadFrom(unit, "66 00 0E 00 FD FF 05 00 00 00"), NothingMoved());
  EXPECT_EQ(session->asked_tag, VT_I4);
  EXPECT_EQ(session->asked_type, 14);
  EXPECT_EQ(session->asked_id, -3);
}

TEST(UnitReading, FailuresOfTheSessionAreRaised) {
  const auto session = NewForeign<ForeignSession>();
  const auto unit = CreateObject<IUnit>(kUnitClass);
  EXPECT_EQ(unit->put_Session(session.get()), S_OK);
  session->found.status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return Read(unit, kDataBytes); }));
  EXPECT_EQ(ReadFrom(unit, kDataBytes), FailedInTheBody(E_ABORT));
  session->add_status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return Read(unit, kInfoBytes); }));
}

TEST(UnitReading, RefusalOfTheSessionIsIgnored) {
  const auto session = NewForeign<ForeignSession>();
  const auto unit = CreateObject<IUnit>(kUnitClass);
  EXPECT_EQ(unit->put_Session(session.get()), S_OK);
  EXPECT_EQ(ReadFrom(unit, kInfoBytes), Moved(kInfoSize));
}

TEST(UnitReading, DefinitionThatMakesNoValueFails) {
  const auto session = NewForeign<ForeignSession>();
  const auto definition = NewForeign<ForeignDefinition>();
  session->found.value = definition;
  const auto unit = CreateObject<IUnit>(kUnitClass);
  EXPECT_EQ(unit->put_Session(session.get()), S_OK);
  EXPECT_TRUE(Raises(E_POINTER, [&] { return Read(unit, kDataBytes); }));
  definition->created.status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return Read(unit, kDataBytes); }));
}

TEST(UnitReading, FailuresOfTheNewValueAreRaised) {
  const auto session = NewForeign<ForeignSession>();
  const auto definition = NewForeign<ForeignDefinition>();
  const auto value = NewForeign<ForeignValue>();
  definition->created.value = value;
  session->found.value = definition;
  const auto unit = CreateObject<IUnit>(kUnitClass);
  EXPECT_EQ(unit->put_Session(session.get()), S_OK);
  value->read.status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return Read(unit, kDataBytes); }));
  value->read = {VARIANT_FALSE, 0, S_OK};
  EXPECT_EQ(ReadFrom(unit, kDataBytes), NothingMoved());
  EXPECT_TRUE(SameObject(Get(unit, &IUnit::get_Value).get(), value.get()));
}

TEST(UnitReading, CollectionIsDeclaredOnly) {
  // The collection is put into the slot and answers that it cannot be read.
  const auto unit = PreparedUnit();
  EXPECT_TRUE(Raises(E_NOTIMPL, [&] { return Read(unit, "66 00 10 00 03 00"); }));
  EXPECT_EQ(ReadFrom(unit, "66 00 10 00 03 00"), FailedInTheBody(E_NOTIMPL));
  const auto collection = Get(unit, &IUnit::get_Value);
  ASSERT_TRUE(collection);
  EXPECT_EQ(Get(collection, &IValueBase::get_Type), 16);
}

TEST(UnitReading, DefinitionNestedAThousandDeepIsNoDefinition) {
  Bytes bytes = Hex("65 00 0E 00");
  for (int level = 0; level < 1000; ++level) {
    bytes = Join({bytes, Hex("01 00 00 00 00 00 01 00 00 00 00 00 00 00 00 0E 00 00 00")});
  }
  const auto session = NewSession();
  EXPECT_EQ(ReadFrom(UnitWith(session), Join({bytes, Bytes(10, 0)})), NothingMoved());
  EXPECT_FALSE(Find(session, 14, 1));
}

}  // namespace
}  // namespace halyard::test
