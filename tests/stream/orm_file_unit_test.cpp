// The current unit of a file of units: whose it is, and what writing it does.
#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "tests/support/foreign_definition.h"
#include "tests/support/foreign_stream.h"
#include "tests/support/foreign_value.h"
#include "tests/support/handles.h"
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
}

TEST_F(OrmFileUnit, StaysWhereAnotherCannotBeAsked) {
  const auto unit = UnitOf(SimpleValue(kShort).get());
  EXPECT_TRUE(WriteUnit(file_, unit.get()));
  const auto foreign = NewForeign<ForeignUnit>();
  foreign->query_status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return TryWriteUnit(file_, foreign.get()); }));
  const auto value = SimpleValue(kByte);
  EXPECT_TRUE(WriteData(file_, value.get()));
  EXPECT_TRUE(SameObject(Get(unit, &IUnit::get_Value).get(), value.get()));
}

TEST_F(OrmFileUnit, FailuresOfItsPutsAreRaised) {
  const auto unit = NewForeign<ForeignUnit>();
  EXPECT_TRUE(WriteUnit(file_, unit.get()));
  const std::string records = "00 00 00 00";  // the bare length of a unit of no bytes
  unit->put_value_status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return TryWriteData(file_, SimpleValue(kLong).get()); }));
  unit->put_info_status = E_NOTIMPL;
  EXPECT_TRUE(Raises(E_NOTIMPL, [&] { return TryWriteInfo(file_, Definition().get()); }));
  EXPECT_EQ(Records(), records);
  unit->put_session_status = E_ABORT;
  const TempFile source(FileOf({}));
  VARIANT_BOOL result = VARIANT_TRUE;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return file_->OpenForRead(source.name(), VARIANT_TRUE, &result); }));
  EXPECT_EQ(result, VARIANT_FALSE);
  result = VARIANT_TRUE;
  const LONG handle = OpenHandleForRead(source.path());
  EXPECT_TRUE(Raises(E_ABORT, [&] { return file_->AttachForRead(handle, VARIANT_TRUE, &result); }));
  EXPECT_EQ(result, VARIANT_FALSE);
}

TEST_F(OrmFileUnit, GetsTheSessionWhenAFileIsOpenedForRead) {
  const TempFile source(FileOf({}));
  const auto session = CreateObject<IOrmSession>(kOrmSessionClass);
  const auto read = [&](bool attach) {
    return attach ? AttachForRead(file_, OpenHandleForRead(source.path()), false)
                  : OpenForRead(file_, source.name(), false);
  };
  for (const bool attach : {false, true}) {
    const auto unit = UnitOf(SimpleValue(kShort).get());
    static_cast<void>(WriteUnit(file_, unit.get()));
    EXPECT_EQ(file_->put_Session(session.get()), S_OK);
    EXPECT_FALSE(Get(unit, &IUnit::get_Session));
    EXPECT_EQ(file_->Close(), S_OK);
    EXPECT_TRUE(read(attach));
    EXPECT_TRUE(SameObject(Get(unit, &IUnit::get_Session).get(), session.get()));
  }
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

// Sizes on both sides of what fits into the file's work buffer.
TEST_F(OrmFileUnit, RecordHasThePromisedLengthWhateverWasWritten) {
  for (const ULONG size : {ULONG{10}, ULONG{63995}, ULONG{63996}, ULONG{63997}, ULONG{64001}}) {
    EXPECT_TRUE(OpenForWrite(file_, disk_.name()));
    const auto unit = NewForeign<ForeignUnit>();
    unit->packet_size.value = size;
    unit->write.count = 3;
    EXPECT_TRUE(WriteUnit(file_, unit.get()));
    EXPECT_EQ(file_->Close(), S_OK);
    EXPECT_TRUE(disk_.Contents() == Join({FileHeader(), LittleEndian(size, 4), Bytes(size, 0)})) << size;
  }
}

TEST_F(OrmFileUnit, FailuresOfTheUnitAreRaised) {
  const auto unit = NewForeign<ForeignUnit>();
  unit->write.status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return TryWriteUnit(file_, unit.get()); }));
  unit->packet_size.status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return TryWriteUnit(file_, unit.get()); }));
}

TEST_F(OrmFileUnit, UnitTooLargeForARecordIsToldSo) {
  for (const ULONG lie : {ULONG{0xFFFFFFFF}, ULONG{0xFFFFFFFD}, ULONG{0xFFFFFFFC}}) {
    const auto unit = NewForeign<ForeignUnit>();
    unit->packet_size.value = lie;
    EXPECT_TRUE(Raises(E_OUTOFMEMORY, [&] { return TryWriteUnit(file_, unit.get()); })) << lie;
  }
  EXPECT_EQ(Records(), "");
}

// A session that comes back to the file from the calls that the file makes of it.
class ReturningSession : public ForeignSession {
 public:
  std::function<void()> when_queried;
  std::function<void()> when_asked;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
    Run(when_queried);
    return ForeignSession::QueryInterface(riid, out);
  }
  HRESULT STDMETHODCALLTYPE GetTypeFromId(VARIANT type, SHORT id, IValueDefBase** out) override {
    Run(when_asked);
    return ForeignSession::GetTypeFromId(type, id, out);
  }

 private:
  static void Run(std::function<void()>& step) {
    if (const auto once = std::exchange(step, nullptr)) once();
  }
};

TEST_F(OrmFileUnit, OfARecordIsTheOneThatWasCurrentWhenItsReadingBegan) {
  const char* data = "66 00 0E 00 03 00 05 00 00 00";
  const TempFile source(FileOf({data, data, data}));
  const auto session = NewForeign<ReturningSession>();
  ASSERT_TRUE(OpenForRead(file_, source.name()));
  EXPECT_EQ(file_->put_Session(session.get()), S_OK);
  // While its session is put, another record is read; while the definition is looked for,
  // the unit of that one goes.
  session->when_queried = [&] { EXPECT_TRUE(ReadUnit(file_)); };
  const auto other = CreateObject<IUnit>(kUnitClass);
  session->when_asked = [&] {
    session->when_asked = [&] { EXPECT_EQ(TryWriteUnit(file_, other.get()), E_POINTER); };
  };
  Ptr<IUnit> unit;
  EXPECT_EQ(file_->ReadUnit(unit.Out()), S_OK);
  EXPECT_TRUE(SameObject(unit.get(), other.get()));
  EXPECT_TRUE(ReadUnit(file_));
  EXPECT_FALSE(ReadUnit(file_));
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
