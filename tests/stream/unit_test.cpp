// A unit's slots, kinds and writing; reading is in unit_reading_test.cpp.
#include "halyard/stream/unit.h"

#include <gtest/gtest.h>

#include "halyard/stream/orm_session.h"
#include "tests/support/definitions.h"
#include "tests/support/encoding.h"
#include "tests/support/foreign_definition.h"
#include "tests/support/foreign_stream.h"
#include "tests/support/foreign_value.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

Ptr<IUnit> NewUnit() { return CreateObject<IUnit>(kUnitClass); }

// Structure 3 with the member a (Long), and its value 5.
Ptr<IStructureDef> Definition() { return StructureDefinition({{OLESTR("a"), kLong}}, 3); }
Ptr<IValueBase> Value() {
  const auto value = NewValue(Definition());
  PutItem(value, OLESTR("a"), I4(5));
  return value;
}

constexpr const char* kInfoBytes =
    "65 00 0E 00 03 00 00 00 00 00 01 00 04 00 01 00 61 00 00 00 08 00 04 00 08 00 04 00 00 00";
constexpr const char* kDataBytes = "66 00 0E 00 03 00 05 00 00 00";

Ptr<IUnit> InfoUnit(IValueDefBase* definition) {
  const auto unit = NewUnit();
  EXPECT_EQ(unit->put_Info(definition), S_OK);
  return unit;
}

Ptr<IUnit> DataUnit(IValueBase* value) {
  const auto unit = NewUnit();
  EXPECT_EQ(unit->put_Value(value), S_OK);
  return unit;
}

// "data", "info" or the mere fact that it is neither.
std::string Kind(const Ptr<IUnit>& unit) {
  const bool data = Get(unit, &IUnit::get_IsDataUnit) == VARIANT_TRUE;
  const bool info = Get(unit, &IUnit::get_IsInfoUnit) == VARIANT_TRUE;
  return data && info ? "both" : data ? "data" : info ? "info" : "neither";
}

SHORT TypeOf(const Ptr<IUnit>& unit) { return Get(unit, &IUnit::get_Type); }

HRESULT Write(const Ptr<IUnit>& unit) {
  GuardedBuffer buffer(64);
  ULONG count = 0;
  VARIANT_BOOL result = VARIANT_FALSE;
  return unit->WriteToBuffer(buffer.data(), buffer.size(), &count, &result);
}

TEST(Unit, NewUnitIsADataUnitWithoutAValue) {
  const auto unit = NewUnit();
  EXPECT_EQ(Kind(unit), "data");
  EXPECT_EQ(TypeOf(unit), 0);
  EXPECT_EQ(Get(unit, &IUnit::get_TypeString), "Invalid");
  EXPECT_FALSE(Get(unit, &IUnit::get_Value));
  EXPECT_FALSE(Get(unit, &IUnit::get_Info));
  EXPECT_FALSE(Get(unit, &IUnit::get_Session));
  const Written written = WriteTo(unit, 10);
  EXPECT_EQ(written.outcome, TooShort());
  EXPECT_EQ(ToHex(written.bytes), "66 00 EE EE EE EE EE EE EE EE");
}

TEST(Unit, InfoUnitIsAHeaderAndTheDefinition) {
  const auto unit = InfoUnit(Definition().get());
  EXPECT_EQ(Kind(unit), "info");
  EXPECT_EQ(TypeOf(unit), 14);
  EXPECT_EQ(Get(unit, &IUnit::get_TypeString), "Structure");
  EXPECT_EQ(PacketSize(unit), PacketSize(Definition()) + 4);
  EXPECT_EQ(Encoded(unit), kInfoBytes);
}

TEST(Unit, DataUnitIsAHeaderAndTheValue) {
  const auto unit = DataUnit(Value().get());
  EXPECT_EQ(Kind(unit), "data");
  EXPECT_EQ(TypeOf(unit), 14);
  EXPECT_EQ(PacketSize(unit), PacketSize(Value()) + 6);
  EXPECT_EQ(Encoded(unit), kDataBytes);
}

TEST(Unit, DataUnitOfASimpleValueHasNoId) {
  const auto value = SimpleValue(kLong);
  PutValue(value, I4(5));
  EXPECT_EQ(Encoded(DataUnit(value.get())), "66 00 08 00 00 00 05 00 00 00");
}

TEST(Unit, InfoUnitOfASimpleDefinition) {
  EXPECT_EQ(Encoded(InfoUnit(SimpleDefinition(kLong).get())), "65 00 08 00 08 00 04 00 00 00");
}

TEST(Unit, ShortBuffersKeepWholeFields) {
  ExpectShortWrites(DataUnit(Value().get()), kDataBytes, {2, 2, 2, 4});
  ExpectShortWrites(InfoUnit(Definition().get()), kInfoBytes,
                    {2, 2, 2, 2, 2, 2, 2, 2, 1, 2, 1, 2, 2, 2, 2, 2});
}

TEST(Unit, ElementaryBodyStaysInsideTheBuffer) {
  const auto value = SimpleValue(kReal);
  ExpectShortWrites(DataUnit(value.get()), "66 00 0C 00 00 00 00 00 00 00 00 00 00 00", {2, 2, 2, 8});
}

TEST(Unit, PutSharesTheBody) {
  const auto definition = Definition();
  const auto value = Value();
  EXPECT_TRUE(SameObject(Get(InfoUnit(definition.get()), &IUnit::get_Info).get(), definition.get()));
  EXPECT_TRUE(SameObject(Get(DataUnit(value.get()), &IUnit::get_Value).get(), value.get()));
}

TEST(Unit, SlotsAreIndependentAndTheKindDecides) {
  const auto definition = Definition();
  const auto value = Value();
  const auto unit = DataUnit(value.get());
  EXPECT_EQ(unit->put_Info(definition.get()), S_OK);
  EXPECT_EQ(Kind(unit), "info");
  EXPECT_FALSE(Get(unit, &IUnit::get_Value));
  EXPECT_TRUE(Get(unit, &IUnit::get_Info));
  EXPECT_EQ(Encoded(unit), kInfoBytes);
  const auto second = SimpleValue(kByte);
  EXPECT_EQ(unit->put_Value(second.get()), S_OK);
  EXPECT_EQ(Kind(unit), "data");
  EXPECT_FALSE(Get(unit, &IUnit::get_Info));
  EXPECT_TRUE(SameObject(Get(unit, &IUnit::get_Value).get(), second.get()));
}

TEST(Unit, NullEmptiesTheSlotAndSetsTheKind) {
  const auto unit = DataUnit(Value().get());
  EXPECT_EQ(unit->put_Info(nullptr), S_OK);
  EXPECT_EQ(Kind(unit), "info");
  EXPECT_EQ(TypeOf(unit), 0);
  EXPECT_EQ(Get(unit, &IUnit::get_TypeString), "Invalid");
  EXPECT_FALSE(Get(unit, &IUnit::get_Info));
  EXPECT_EQ(unit->put_Value(nullptr), S_OK);
  EXPECT_EQ(Kind(unit), "data");
  EXPECT_FALSE(Get(unit, &IUnit::get_Value));
}

TEST(Unit, SomethingElseEmptiesTheSlotAndSetsTheKind) {
  const auto value = NewForeign<ForeignValue>();
  const auto definition = NewForeign<ForeignDefinition>();
  value->query_status = E_NOINTERFACE;
  definition->query_status = E_NOINTERFACE;
  const auto unit = InfoUnit(Definition().get());
  EXPECT_EQ(unit->put_Value(Value().get()), S_OK);
  EXPECT_EQ(unit->put_Info(definition.get()), S_OK);
  EXPECT_EQ(Kind(unit), "info");
  EXPECT_FALSE(Get(unit, &IUnit::get_Info));
  EXPECT_EQ(unit->put_Value(value.get()), S_OK);
  EXPECT_EQ(Kind(unit), "data");
  EXPECT_FALSE(Get(unit, &IUnit::get_Value));
}

TEST(Unit, FailedQueryIsRaisedAfterTheSlotWasEmptied) {
  const auto value = NewForeign<ForeignValue>();
  const auto definition = NewForeign<ForeignDefinition>();
  value->query_status = E_ABORT;
  definition->query_status = E_ABORT;
  const auto data = DataUnit(Value().get());
  EXPECT_TRUE(Raises(E_ABORT, [&] { return data->put_Value(value.get()); }));
  EXPECT_FALSE(Get(data, &IUnit::get_Value));
  const auto info = InfoUnit(Definition().get());
  EXPECT_TRUE(Raises(E_ABORT, [&] { return info->put_Info(definition.get()); }));
  EXPECT_FALSE(Get(info, &IUnit::get_Info));
}

TEST(Unit, EmptyUnitsHaveNoSizeAndNoBytes) {
  const auto data = DataUnit(nullptr);
  const auto info = InfoUnit(nullptr);
  ULONG size = 0;
  EXPECT_TRUE(Raises(E_POINTER, [&] { return data->get_PacketSize(&size); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return info->get_PacketSize(&size); }));
  const Written written = WriteTo(info, 4);
  EXPECT_EQ(written.outcome, TooShort());
  EXPECT_EQ(ToHex(written.bytes), "65 00 EE EE");
}

TEST(Unit, SessionIsShared) {
  const auto unit = NewUnit();
  const auto session = CreateObject<IOrmSession>(kOrmSessionClass);
  EXPECT_EQ(unit->put_Session(session.get()), S_OK);
  EXPECT_TRUE(SameObject(Get(unit, &IUnit::get_Session).get(), session.get()));
  EXPECT_EQ(unit->put_Session(nullptr), S_OK);
  EXPECT_FALSE(Get(unit, &IUnit::get_Session));
}

TEST(Unit, SomethingElseIsNoSession) {
  const auto unit = NewUnit();
  const auto foreign = NewForeign<ForeignSession>();
  EXPECT_EQ(unit->put_Session(foreign.get()), S_OK);
  foreign->query_status = E_NOINTERFACE;
  EXPECT_EQ(unit->put_Session(foreign.get()), S_OK);
  EXPECT_FALSE(Get(unit, &IUnit::get_Session));
  foreign->query_status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return unit->put_Session(foreign.get()); }));
}

TEST(Unit, FailuresOfAValueAreRaised) {
  const auto value = NewForeign<ForeignValue>();
  const auto unit = DataUnit(value.get());
  ULONG size = 0;
  SHORT type = 0;
  value->packet_size.status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return unit->get_PacketSize(&size); }));
  for (HRESULT* status : {&value->type.status, &value->id.status, &value->write.status}) {
    *status = E_ABORT;
    EXPECT_TRUE(Raises(E_ABORT, [&] { return Write(unit); }));
    *status = S_OK;
  }
  value->type.status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return unit->get_Type(&type); }));
  Bstr name;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return unit->get_TypeString(name.Out()); }));
}

TEST(Unit, FailuresOfADefinitionAreRaised) {
  const auto definition = NewForeign<ForeignDefinition>();
  const auto unit = InfoUnit(definition.get());
  ULONG size = 0;
  SHORT type = 0;
  definition->packet_size.status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return unit->get_PacketSize(&size); }));
  definition->write.status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return Write(unit); }));
  definition->type.status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return Write(unit); }));
  EXPECT_TRUE(Raises(E_ABORT, [&] { return unit->get_Type(&type); }));
}

TEST(Unit, BodyThatReportsAShortBufferShortensTheUnit) {
  const auto value = NewForeign<ForeignValue>();
  const auto definition = NewForeign<ForeignDefinition>();
  value->write.result = VARIANT_FALSE;
  definition->write.result = VARIANT_FALSE;
  EXPECT_EQ(WriteTo(DataUnit(value.get()), 64).outcome, TooShort());
  EXPECT_EQ(WriteTo(InfoUnit(definition.get()), 64).outcome, TooShort());
}

TEST(Unit, UnknownTypeCodeHasNoName) {
  const auto value = NewForeign<ForeignValue>();
  value->type.value = 99;
  const auto unit = DataUnit(value.get());
  EXPECT_EQ(TypeOf(unit), 99);
  EXPECT_EQ(Get(unit, &IUnit::get_TypeString), "Unknown");
}

TEST(Unit, BodiesAreReleasedWithTheUnit) {
  auto unit = NewUnit();
  auto value = NewForeign<ForeignValue>();
  auto definition = NewForeign<ForeignDefinition>();
  auto session = NewForeign<ForeignSession>();
  const std::weak_ptr<void> lives[] = {value->Life(), definition->Life(), session->Life()};
  EXPECT_EQ(unit->put_Value(value.get()), S_OK);
  EXPECT_EQ(unit->put_Info(definition.get()), S_OK);
  EXPECT_EQ(unit->put_Session(session.get()), S_OK);
  value.Reset();
  definition.Reset();
  session.Reset();
  for (const auto& life : lives) EXPECT_FALSE(life.expired());
  unit.Reset();
  for (const auto& life : lives) EXPECT_TRUE(life.expired());
}

TEST(Unit, NullOutPointersAreRejected) {
  const auto unit = DataUnit(Value().get());
  EXPECT_EQ(unit->get_IsDataUnit(nullptr), E_POINTER);
  EXPECT_EQ(unit->get_IsInfoUnit(nullptr), E_POINTER);
  EXPECT_EQ(unit->get_Type(nullptr), E_POINTER);
  EXPECT_EQ(unit->get_TypeString(nullptr), E_POINTER);
  EXPECT_EQ(unit->get_Value(nullptr), E_POINTER);
  EXPECT_EQ(unit->get_Info(nullptr), E_POINTER);
  EXPECT_EQ(unit->get_PacketSize(nullptr), E_POINTER);
  EXPECT_EQ(unit->get_Session(nullptr), E_POINTER);
  ExpectNullBufferArgumentsRejected(unit);
}

}  // namespace
}  // namespace halyard::test
