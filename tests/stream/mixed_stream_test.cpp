// Values of every kind inside structures and arrays, in units and in files.
#include <gtest/gtest.h>

#include "halyard/stream/orm_file.h"
#include "halyard/stream/orm_session.h"
#include "halyard/stream/unit.h"
#include "tests/support/encoding.h"
#include "tests/support/temp_file.h"
#include "tests/support/trees.h"

namespace halyard::test {
namespace {

Ptr<IStructureDef> Point() { return StructureDefinition({{OLESTR("x"), kLong}, {OLESTR("y"), kReal}}); }

Ptr<IStructureDef> Note() {
  return StructureDefinition({{OLESTR("text"), kString}, {OLESTR("level"), kByte}});
}

Ptr<IEnumerationDef> Colour() {
  return EnumerationDefinition(kShort, {{OLESTR("Red"), 5}, {OLESTR("Green"), 9}});
}

struct Kind {
  const char* name;
  Ptr<IValueDefBase> definition;
};

// A definition of every kind that a member or an element can have.
std::vector<Kind> Kinds() {
  return {{"Short", SimpleDefinition(kShort)},
          {"Date", SimpleDefinition(kDate)},
          {"String", SimpleDefinition(kString)},
          {"FixedString", SimpleDefinition(kFixedString, 5)},
          {"Colour", Colour()},
          {"Point", Point()},
          {"Note", Note()},
          {"array of Long", SimpleArrayDefinition(kLong)},
          {"array of 3 Short", SimpleArrayDefinition(kShort, 3)},
          {"array of String", SimpleArrayDefinition(kString)},
          {"array of 2 String", SimpleArrayDefinition(kString, 2)},
          {"array of Point", ArrayDefinition(Point())},
          {"array of 2 Note", ArrayDefinition(Note(), 2)},
          {"array of Colour", ArrayDefinition(Colour())},
          {"array of 2 arrays of Byte", ArrayDefinition(SimpleArrayDefinition(kByte), 2)}};
}

Ptr<IUnit> UnitIn(const Ptr<IOrmSession>& session) {
  const auto unit = CreateObject<IUnit>(kUnitClass);
  EXPECT_EQ(unit->put_Session(session.get()), S_OK);
  return unit;
}

// The bytes of a unit, however many more it announced.
Bytes UnitBytes(const Ptr<IUnit>& unit) {
  const Written written = WriteTo(unit, 4096);
  EXPECT_EQ(written.outcome.result, VARIANT_TRUE);
  return Prefix(written.bytes, written.outcome.count);
}

Bytes InfoUnit(const Ptr<IValueDefBase>& definition) {
  const auto unit = UnitIn(nullptr);
  EXPECT_EQ(unit->put_Info(definition.get()), S_OK);
  return UnitBytes(unit);
}

Bytes DataUnit(const Ptr<IValueBase>& value) {
  const auto unit = UnitIn(nullptr);
  EXPECT_EQ(unit->put_Value(value.get()), S_OK);
  return UnitBytes(unit);
}

// Sends definition and value through units into a session of their own and compares what
// arrives, tree and bytes.
void ExpectTravels(const Ptr<IValueDefBase>& definition, const Ptr<IValueBase>& value) {
  const auto session = CreateObject<IOrmSession>(kOrmSessionClass);
  const Bytes info = InfoUnit(definition);
  const Bytes data = DataUnit(value);
  const auto reader = UnitIn(session);
  EXPECT_EQ(ReadFrom(reader, info), Moved(static_cast<ULONG>(info.size())));
  EXPECT_EQ(ReadFrom(reader, data), Moved(static_cast<ULONG>(data.size())));
  const auto arrived = Get(reader, &IUnit::get_Value);
  ASSERT_TRUE(arrived);
  EXPECT_EQ(ShowTree(arrived), ShowTree(value));
  EXPECT_EQ(ToHex(DataUnit(arrived)), ToHex(data));
  const auto arrived_definition = Get(arrived, &IValueBase::get_Info);
  EXPECT_EQ(ToHex(InfoUnit(arrived_definition)), ToHex(info));
}

// {first, second, number}
Ptr<IStructureDef> PairDefinition(const Kind& first, const Kind& second, bool first_null, bool second_null) {
  const auto definition = CreateObject<IStructureDef>(kStructureInfoClass);
  EXPECT_EQ(definition->put_Id(3), S_OK);
  AddMember(definition, OLESTR("first"), first.definition.get(), first_null);
  AddMember(definition, OLESTR("second"), second.definition.get(), second_null);
  AddMember(definition, OLESTR("number"), SimpleDefinition(kByte).get());
  Calculate(definition);
  return definition;
}

TEST(MixedStream, EveryPairOfMembersTravels) {
  for (const Kind& first : Kinds()) {
    for (const Kind& second : Kinds()) {
      SCOPED_TRACE(std::string(first.name) + ", " + second.name);
      const auto definition = PairDefinition(first, second, false, false);
      const auto value = NewValue(definition);
      FillTree(value, 7);
      ExpectTravels(definition, value);
    }
  }
}

TEST(MixedStream, MembersThatCanBeNullTravelPresentAndNull) {
  for (const Kind& first : Kinds()) {
    for (const Kind& second : Kinds()) {
      SCOPED_TRACE(std::string(first.name) + ", " + second.name);
      const auto definition = PairDefinition(first, second, true, true);
      for (int nulls = 0; nulls < 4; ++nulls) {
        const auto value = NewValue(definition);
        FillTree(value, 20);
        if ((nulls & 1) != 0) PutItem(value, OLESTR("first"), Variant::Null());
        if ((nulls & 2) != 0) PutItem(value, OLESTR("second"), Variant::Null());
        ExpectTravels(definition, value);
      }
    }
  }
}

TEST(MixedStream, ArraysOfEveryKindTravel) {
  for (const Kind& kind : Kinds()) {
    if (kind.name == std::string("FixedString")) continue;  // no array holds it
    for (const LONG fixed : {0, 3}) {
      SCOPED_TRACE(std::string(kind.name) + " x " + std::to_string(fixed));
      const auto definition = ArrayDefinition(kind.definition, fixed, 4);
      const auto value = NewValue(definition);
      FillTree(value, 30);
      ExpectTravels(definition, value);
    }
  }
}

TEST(MixedStream, EnumerationsTravel) {
  const auto definition = EnumerationDefinition(kLong, {{OLESTR("One"), 1}, {OLESTR("Two"), 2}}, 5);
  const auto value = NewValue(definition);
  PutValue(value, I4(-2));
  ExpectTravels(definition, value);
}

TEST(MixedStream, SimpleArraysOfAStreamHaveTheirTrueWidth) {
  const auto session = CreateObject<IOrmSession>(kOrmSessionClass);
  const auto reader = UnitIn(session);
  const std::string info = "65 00 0F 00 09 00 00 00 00 00 00 00 06 00 02 00 06 00 02 00 00 00";
  EXPECT_EQ(ReadFrom(reader, info), Moved(22));
  EXPECT_EQ(ReadFrom(reader, "66 00 0F 00 09 00 02 00 00 00 05 00 FF FF"), Moved(14));
  EXPECT_EQ(ShowTree(Get(reader, &IUnit::get_Value)), "[I2 5, I2 -1]");
}

TEST(MixedStream, CutDataUnitsReportTrueAndMoveNothing) {
  const Kind points{"array of Point", ArrayDefinition(Point())};
  const Kind texts{"array of String", SimpleArrayDefinition(kString)};
  const auto definition = PairDefinition(points, texts, true, false);
  const auto value = NewValue(definition);
  FillTree(value, 7);
  const Bytes info = InfoUnit(definition);
  const Bytes data = DataUnit(value);
  const auto session = CreateObject<IOrmSession>(kOrmSessionClass);
  EXPECT_EQ(ReadFrom(UnitIn(session), info), Moved(static_cast<ULONG>(info.size())));
  for (std::size_t size = 0; size < data.size(); ++size) {
    const Outcome outcome = ReadFrom(UnitIn(session), Prefix(data, size));
    EXPECT_EQ(outcome, size < 6 ? TooShort() : NothingMoved()) << size;
  }
}

// All kinds, each as the member of a structure of its own and as an array, in one file.
struct Record {
  Ptr<IValueDefBase> definition;
  Ptr<IValueBase> value;
};

std::vector<Record> Records() {
  std::vector<Record> records;
  SHORT id = 100;
  for (const Kind& kind : Kinds()) {
    const auto structure = PairDefinition(kind, kind, false, true);
    EXPECT_EQ(structure->put_Id(++id), S_OK);
    records.push_back({structure, NewValue(structure)});
    const auto array = ArrayDefinition(kind.definition, 0, ++id);
    if (kind.name != std::string("FixedString")) records.push_back({array, NewValue(array)});
  }
  for (const Record& record : records) FillTree(record.value, 40);
  return records;
}

// Whether the value announces room for all its bytes. An array whose element definition
// has a size takes it for every element, so texts inside them are not announced.
bool Announced(const Ptr<IValueBase>& value) { return PacketSize(value) + 6 >= DataUnit(value).size(); }

TEST(MixedStream, FileCarriesEveryKind) {
  const TempFile name;
  const auto records = Records();
  int announced = 0;
  const auto writer = CreateObject<IOrmFile>(kOrmFileClass);
  EXPECT_EQ(Get(writer, &IOrmFile::OpenForWrite, name.name()), VARIANT_TRUE);
  for (const Record& record : records) {
    EXPECT_EQ(Get(writer, &IOrmFile::WriteInfo, record.definition.get()), VARIANT_TRUE);
  }
  for (const Record& record : records) {
    const VARIANT_BOOL expected = Announced(record.value) ? VARIANT_TRUE : VARIANT_FALSE;
    EXPECT_EQ(Get(writer, &IOrmFile::WriteData, record.value.get()), expected) << ShowTree(record.value);
    if (expected == VARIANT_TRUE) ++announced;
  }
  EXPECT_GE(announced, 24);
  EXPECT_EQ(writer->Close(), S_OK);

  const auto reader = CreateObject<IOrmFile>(kOrmFileClass);
  VARIANT_BOOL open = VARIANT_FALSE;
  EXPECT_EQ(reader->OpenForRead(name.name(), VARIANT_TRUE, &open), S_OK);
  ASSERT_EQ(open, VARIANT_TRUE);
  for (const Record& record : records) {
    const auto definition = Get(reader, &IOrmFile::ReadInfo);
    ASSERT_TRUE(definition);
    EXPECT_EQ(ToHex(InfoUnit(definition)), ToHex(InfoUnit(record.definition)));
  }
  for (const Record& record : records) {
    if (!Announced(record.value)) continue;
    const auto value = Get(reader, &IOrmFile::ReadData);
    ASSERT_TRUE(value) << ShowTree(record.value);
    EXPECT_EQ(ShowTree(value), ShowTree(record.value));
  }
  EXPECT_FALSE(Get(reader, &IOrmFile::ReadUnit));
}

TEST(MixedStream, ArrayOfStructuresWithTextsAnnouncesTooFewBytesForAFile) {
  const auto definition = ArrayDefinition(Note(), 0, 8);
  const auto value = NewValue(definition);
  FillTree(value, 7);
  EXPECT_EQ(PacketSize(value), 4u + 2 * 1);
  const TempFile name;
  const auto writer = CreateObject<IOrmFile>(kOrmFileClass);
  EXPECT_EQ(Get(writer, &IOrmFile::OpenForWrite, name.name()), VARIANT_TRUE);
  EXPECT_EQ(Get(writer, &IOrmFile::WriteData, value.get()), VARIANT_FALSE);
  EXPECT_EQ(writer->Close(), S_OK);
  EXPECT_EQ(name.Contents().size(), 8u);
  ExpectTravels(definition, value);
}

TEST(MixedStream, DataUnitOfACollectionRaisesWhatItsValueAnswers) {
  const auto unit = UnitIn(CreateObject<IOrmSession>(kOrmSessionClass));
  EXPECT_EQ(ReadFrom(unit, "66 00 10 00 01 00 01 02").status, E_NOTIMPL);
  EXPECT_EQ(ClassOf(Get(unit, &IUnit::get_Value).get()), "Collection");
  EXPECT_EQ(Get(unit, &IUnit::get_Type), kCollection);
}

}  // namespace
}  // namespace halyard::test
