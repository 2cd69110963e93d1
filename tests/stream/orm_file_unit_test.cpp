// The current unit of a file of units: whose it is, and what writing it does.
#include <gtest/gtest.h>

#include "tests/support/foreign_definition.h"
#include "tests/support/foreign_stream.h"
#include "tests/support/foreign_value.h"
#include "tests/support/raised.h"
#include "tests/support/streams.h"

namespace halyard::test {
namespace {

Ptr<IStructureDef> Definition() { return StructureDefinition({{OLESTR("a"), kLong}}, 3); }

Ptr<IUnit> UnitOf(IValueBase* value) {
  const auto unit = CreateObject<IUnit>(kUnitClass);
  EXPECT_EQ(unit->put_Value(value), S_OK);
  return unit;
}

HRESULT TryWriteUnit(const Ptr<IOrmFile>& file, IUnit* unit) {
  VARIANT_BOOL result = VARIANT_FALSE;
  return file->WriteUnit(unit, &result);
}

HRESULT TryWriteData(const Ptr<IOrmFile>& file, IValueBase* value) {
  VARIANT_BOOL result = VARIANT_FALSE;
  return file->WriteData(value, &result);
}

HRESULT TryWriteInfo(const Ptr<IOrmFile>& file, IValueDefBase* definition) {
  VARIANT_BOOL result = VARIANT_FALSE;
  return file->WriteInfo(definition, &result);
}

class OrmFileUnit : public testing::Test {
 protected:
  OrmFileUnit() { EXPECT_TRUE(OpenForWrite(file_, disk_.name())); }

  // The file behind its header, once it is closed.
  std::string Records() {
    EXPECT_EQ(file_->Close(), S_OK);
    const Bytes bytes = disk_.Contents();
    return ToHex(Bytes(bytes.begin() + 8, bytes.end()));
  }

  TempFile disk_;
  Ptr<IOrmFile> file_ = NewFile();
};

TEST_F(OrmFileUnit, IsWrittenAsARecord) {
  EXPECT_TRUE(WriteUnit(file_, UnitOf(SimpleValue(kShort).get()).get()));
  EXPECT_EQ(Records(), "08 00 00 00 66 00 06 00 00 00 00 00");
}

TEST_F(OrmFileUnit, StaysTheCallersUnitWhileTheFileChangesIt) {
  const auto unit = UnitOf(SimpleValue(kShort).get());
  EXPECT_TRUE(WriteUnit(file_, unit.get()));
  const auto value = SimpleValue(kByte);
  EXPECT_TRUE(WriteData(file_, value.get()));
  EXPECT_TRUE(SameObject(Get(unit, &IUnit::get_Value).get(), value.get()));
  const auto definition = Definition();
  EXPECT_TRUE(WriteInfo(file_, definition.get()));
  EXPECT_EQ(Get(unit, &IUnit::get_IsInfoUnit), VARIANT_TRUE);
  EXPECT_TRUE(SameObject(Get(unit, &IUnit::get_Info).get(), definition.get()));
}

TEST_F(OrmFileUnit, LastUnitReadIsChangedByWriting) {
  TempFile source(FileOf({"66 00 08 00 00 00 05 00 00 00"}));
  EXPECT_TRUE(OpenForRead(file_, source.name()));
  const auto unit = ReadUnit(file_);
  ASSERT_TRUE(unit);
  const auto value = SimpleValue(kByte);
  EXPECT_FALSE(WriteData(file_, value.get()));  // the handle only reads
  EXPECT_TRUE(SameObject(Get(unit, &IUnit::get_Value).get(), value.get()));
}

TEST_F(OrmFileUnit, NullUnitFailsAndLeavesNone) {
  EXPECT_TRUE(Raises(E_POINTER, [&] { return TryWriteUnit(file_, nullptr); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return TryWriteData(file_, SimpleValue(kLong).get()); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return TryWriteInfo(file_, Definition().get()); }));
  TempFile source(FileOf({}));
  VARIANT_BOOL result = VARIANT_FALSE;
  EXPECT_TRUE(Raises(E_POINTER, [&] { return file_->OpenForRead(source.name(), VARIANT_TRUE, &result); }));
}

TEST_F(OrmFileUnit, ReadingBringsAUnitBack) {
  EXPECT_TRUE(Raises(E_POINTER, [&] { return TryWriteUnit(file_, nullptr); }));
  EXPECT_FALSE(ReadUnit(file_));
  EXPECT_TRUE(WriteData(file_, SimpleValue(kShort).get()));
}

TEST_F(OrmFileUnit, SomethingElseIsNoUnit) {
  const auto foreign = NewForeign<ForeignUnit>();
  foreign->query_status = E_NOINTERFACE;
  EXPECT_TRUE(Raises(E_POINTER, [&] { return TryWriteUnit(file_, foreign.get()); }));
  foreign->query_status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return TryWriteUnit(file_, foreign.get()); }));
}

TEST_F(OrmFileUnit, EmptyBodiesFail) {
  EXPECT_TRUE(Raises(E_POINTER, [&] { return TryWriteData(file_, nullptr); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return TryWriteInfo(file_, nullptr); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return TryWriteUnit(file_, CreateObject<IUnit>(kUnitClass).get()); }));
  EXPECT_EQ(Records(), "");
}

TEST_F(OrmFileUnit, UnitThatCannotWriteItselfIsFalseAndLeavesNoBytes) {
  const auto value = NewForeign<ForeignValue>();
  value->packet_size.value = 4;
  value->write.result = VARIANT_FALSE;
  EXPECT_FALSE(WriteData(file_, value.get()));
  const auto unit = NewForeign<ForeignUnit>();
  unit->packet_size.value = 100000;
  unit->write.result = VARIANT_FALSE;
  EXPECT_FALSE(WriteUnit(file_, unit.get()));
  EXPECT_EQ(Records(), "");
}

TEST_F(OrmFileUnit, RecordHasThePromisedLengthWhateverWasWritten) {
  const auto unit = NewForeign<ForeignUnit>();
  unit->packet_size.value = 10;
  unit->write.count = 3;
  EXPECT_TRUE(WriteUnit(file_, unit.get()));
  const std::string records = Records();
  EXPECT_EQ(records.substr(0, 11), "0A 00 00 00");
  EXPECT_EQ(Hex(records).size(), 14u);
}

TEST_F(OrmFileUnit, FailuresOfTheUnitAreRaised) {
  const auto unit = NewForeign<ForeignUnit>();
  unit->write.status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return TryWriteUnit(file_, unit.get()); }));
  unit->packet_size.status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return TryWriteUnit(file_, unit.get()); }));
}

TEST_F(OrmFileUnit, UnitThatLiesAboutAHugeSizeEndsCleanly) {
  for (const ULONG lie : {ULONG{0xFFFFFFFF}, ULONG{0xFFFFFFFD}, ULONG{0xFFFFFFFC}}) {
    const auto unit = NewForeign<ForeignUnit>();
    unit->packet_size.value = lie;
    unit->write.result = VARIANT_FALSE;
    VARIANT_BOOL result = VARIANT_FALSE;
    const HRESULT status = file_->WriteUnit(unit.get(), &result);
    EXPECT_TRUE(FAILED(status) || result == VARIANT_FALSE) << lie;
  }
  EXPECT_EQ(Records(), "");
}

TEST_F(OrmFileUnit, BodiesStayWithTheUnitUntilTheFileGoes) {
  auto value = NewForeign<ForeignValue>();
  const auto life = value->Life();
  EXPECT_TRUE(WriteData(file_, value.get()));
  value.Reset();
  EXPECT_EQ(file_->Close(), S_OK);
  EXPECT_FALSE(life.expired());
  file_.Reset();
  EXPECT_TRUE(life.expired());
}

}  // namespace
}  // namespace halyard::test
