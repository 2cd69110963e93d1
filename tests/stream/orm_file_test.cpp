// Files of units: opening, writing and reading. Broken files are in
// orm_file_damage_test.cpp, handles and sharing in orm_file_handle_test.cpp.
#include "halyard/stream/orm_file.h"

#include <gtest/gtest.h>

#include "tests/support/encoding.h"
#include "tests/support/foreign_stream.h"
#include "tests/support/handles.h"
#include "tests/support/raised.h"
#include "tests/support/streams.h"

namespace halyard::test {
namespace {

// Structure 3 "P" with the member a (Long).
Ptr<IStructureDef> Definition() { return StructureDefinition({{OLESTR("a"), kLong}}, 3, OLESTR("P")); }

constexpr const char* kInfoUnitBytes =
    "65 00 0E 00 03 00 01 00 50 00 00 01 00 04 00 01 00 61 00 00 00 08 00 04 00 08 00 04 00 00 00";
constexpr const char* kDataUnitBytes = "66 00 0E 00 03 00 05 00 00 00";

Ptr<IValueBase> Value(LONG a) {
  const auto value = NewValue(Definition());
  PutItem(value, OLESTR("a"), I4(a));
  return value;
}

Ptr<IOrmFile> OpenedForWrite(const TempFile& disk) {
  const auto file = NewFile();
  EXPECT_TRUE(OpenForWrite(file, disk.name()));
  return file;
}

Ptr<IOrmFile> OpenedForRead(const TempFile& disk) {
  const auto file = NewFile();
  EXPECT_TRUE(OpenForRead(file, disk.name()));
  return file;
}

// The unit of a definition, in hexadecimal.
std::string EncodedInfo(const Ptr<IStructureDef>& definition) {
  const auto unit = CreateObject<IUnit>(kUnitClass);
  EXPECT_EQ(unit->put_Info(definition.get()), S_OK);
  return Encoded(unit);
}

testing::AssertionResult ReadDataFails(const Ptr<IOrmFile>& file) {
  Ptr<IValueBase> value;
  return Raises(E_POINTER, [&] { return file->ReadData(value.Out()); });
}

TEST(OrmFile, NewFileIsItsHeader) {
  TempFile disk;
  EXPECT_EQ(OpenedForWrite(disk)->Close(), S_OK);
  EXPECT_EQ(ToHex(disk.Contents()), "4F 72 6D 00 00 00 80 3F");
}

TEST(OrmFile, RecordsAreAUnitBehindItsLength) {
  TempFile disk;
  {
    const auto file = OpenedForWrite(disk);
    EXPECT_TRUE(WriteInfo(file, Definition().get()));
    EXPECT_TRUE(WriteData(file, Value(5).get()));
  }
  EXPECT_EQ(ToHex(disk.Contents()), ToHex(FileOf({kInfoUnitBytes, kDataUnitBytes})));
}

TEST(OrmFile, InfoThenDataIsReadBackWithANewSession) {
  TempFile disk;
  {
    const auto file = OpenedForWrite(disk);
    EXPECT_TRUE(WriteInfo(file, Definition().get()));
    EXPECT_TRUE(WriteData(file, Value(5).get()));
  }
  const auto file = OpenedForRead(disk);
  EXPECT_FALSE(ReadData(file));
  const auto value = ReadData(file);
  ASSERT_TRUE(value);
  EXPECT_EQ(Item(value, OLESTR("a")), "I4 5");
  EXPECT_TRUE(ReadDataFails(file));
}

TEST(OrmFile, EndOfTheFileIsNullOrAFailure) {
  TempFile disk(FileOf({kInfoUnitBytes, kDataUnitBytes}));
  const auto file = OpenedForRead(disk);
  EXPECT_TRUE(ReadInfo(file));
  EXPECT_TRUE(ReadUnit(file));
  for (int times = 0; times < 2; ++times) {
    EXPECT_FALSE(ReadUnit(file));
    EXPECT_FALSE(ReadInfo(file));
    EXPECT_TRUE(ReadDataFails(file));
  }
}

TEST(OrmFile, EachCallReadsOneRecordOfEitherKind) {
  TempFile disk(FileOf({kInfoUnitBytes, kDataUnitBytes, kDataUnitBytes, kInfoUnitBytes}));
  const auto file = OpenedForRead(disk);
  EXPECT_FALSE(ReadData(file));  // the definition, which is registered
  EXPECT_TRUE(FindInSession(file, 14, 3));
  EXPECT_FALSE(ReadInfo(file));  // a value
  EXPECT_TRUE(ReadData(file));
  const auto definition = ReadInfo(file);
  ASSERT_TRUE(definition);
  EXPECT_TRUE(SameObject(FindInSession(file, 14, 3).get(), definition.get()));
  EXPECT_FALSE(ReadInfo(file));
}

TEST(OrmFile, ElementaryDataUnitIsAUnitWithoutAValue) {
  TempFile disk;
  {
    const auto file = OpenedForWrite(disk);
    EXPECT_TRUE(WriteData(file, SimpleValue(kLong).get()));
    EXPECT_TRUE(WriteData(file, SimpleValue(kLong).get()));
  }
  const auto file = OpenedForRead(disk);
  const auto unit = ReadUnit(file);
  ASSERT_TRUE(unit);
  EXPECT_FALSE(Get(unit, &IUnit::get_Value));
  EXPECT_FALSE(ReadData(file));
  EXPECT_TRUE(ReadDataFails(file));
}

TEST(OrmFile, ReadUnitsAreFreshAndCarryTheSession) {
  TempFile disk(FileOf({kInfoUnitBytes, kDataUnitBytes}));
  const auto file = OpenedForRead(disk);
  const auto first = ReadUnit(file);
  const auto second = ReadUnit(file);
  EXPECT_FALSE(SameObject(first.get(), second.get()));
  EXPECT_TRUE(SameObject(Get(second, &IUnit::get_Session).get(), Get(file, &IOrmFile::get_Session).get()));
  EXPECT_TRUE(Get(first, &IUnit::get_Info));
}

TEST(OrmFile, DataBeforeItsDefinitionIsNotResolved) {
  TempFile disk(FileOf({kDataUnitBytes, kInfoUnitBytes, kDataUnitBytes}));
  const auto file = OpenedForRead(disk);
  EXPECT_FALSE(ReadData(file));
  EXPECT_FALSE(ReadData(file));
  EXPECT_TRUE(ReadData(file));
}

TEST(OrmFile, OpeningForWriteEmptiesAnExistingFile) {
  TempFile disk(Bytes(100, 7));
  EXPECT_EQ(OpenedForWrite(disk)->Close(), S_OK);
  EXPECT_EQ(disk.Contents(), FileHeader());
}

TEST(OrmFile, MissingFileIsFalseAndLeavesNoHandle) {
  TempFile disk;
  const auto file = NewFile();
  EXPECT_FALSE(OpenForRead(file, disk.name()));
  EXPECT_FALSE(disk.Exists());
  EXPECT_FALSE(ReadUnit(file));
  EXPECT_EQ(file->Close(), S_OK);
}

TEST(OrmFile, FoldersAndNamelessFilesCannotBeOpened) {
  const auto file = NewFile();
  const Bstr folder = NameOf(std::filesystem::temp_directory_path());
  const Bstr empty{WideView()};
  const TempFile disk;
  const Bstr below_nothing = NameOf(disk.path() / "file");
  for (BSTR name : {folder.get(), empty.get(), BSTR{nullptr}, below_nothing.get()}) {
    EXPECT_FALSE(OpenForRead(file, name)) << Plain(name);
    EXPECT_FALSE(OpenForWrite(file, name)) << Plain(name);
  }
}

TEST(OrmFile, ClosedFileNeitherReadsNorWrites) {
  const auto file = NewFile();
  EXPECT_FALSE(ReadUnit(file));
  EXPECT_FALSE(ReadInfo(file));
  EXPECT_TRUE(ReadDataFails(file));
  EXPECT_FALSE(WriteData(file, Value(5).get()));
  EXPECT_FALSE(WriteInfo(file, Definition().get()));
  EXPECT_EQ(file->Close(), S_OK);
  EXPECT_EQ(file->Close(), S_OK);
}

TEST(OrmFile, ClosedFileGivesNothingThatWasReadAhead) {
  TempFile disk(FileOf({kInfoUnitBytes, kInfoUnitBytes, kInfoUnitBytes}));
  const auto file = OpenedForRead(disk);
  EXPECT_TRUE(ReadUnit(file));
  EXPECT_EQ(file->Close(), S_OK);
  EXPECT_FALSE(ReadUnit(file));
  EXPECT_TRUE(ReadDataFails(file));
  const TempFile missing;
  EXPECT_FALSE(OpenForRead(file, missing.name()));
  EXPECT_FALSE(ReadUnit(file));
}

TEST(OrmFile, DirectionOfTheHandleDecides) {
  TempFile disk(FileOf({kInfoUnitBytes}));
  const auto reader = OpenedForRead(disk);
  EXPECT_FALSE(WriteInfo(reader, Definition().get()));
  EXPECT_EQ(disk.Contents(), FileOf({kInfoUnitBytes}));
  TempFile other;
  const auto writer = OpenedForWrite(other);
  EXPECT_FALSE(ReadUnit(writer));
  EXPECT_FALSE(ReadInfo(writer));
  EXPECT_TRUE(ReadDataFails(writer));
}

TEST(OrmFile, SessionIsThereFromTheStartAndSurvivesClosing) {
  TempFile disk(FileOf({kInfoUnitBytes}));
  const auto file = NewFile();
  const auto at_start = Get(file, &IOrmFile::get_Session);
  ASSERT_TRUE(at_start);
  EXPECT_TRUE(OpenForRead(file, disk.name(), false));
  EXPECT_TRUE(SameObject(Get(file, &IOrmFile::get_Session).get(), at_start.get()));
  EXPECT_TRUE(ReadUnit(file));
  EXPECT_EQ(file->Close(), S_OK);
  EXPECT_TRUE(SameObject(Get(file, &IOrmFile::get_Session).get(), at_start.get()));
  EXPECT_TRUE(FindInSession(file, 14, 3));
}

TEST(OrmFile, OpeningForReadTakesANewSessionUnlessToldOtherwise) {
  TempFile disk(FileOf({kInfoUnitBytes}));
  const auto file = OpenedForRead(disk);
  EXPECT_TRUE(ReadUnit(file));
  const auto session = Get(file, &IOrmFile::get_Session);
  EXPECT_TRUE(OpenForRead(file, disk.name(), false));
  EXPECT_TRUE(SameObject(Get(file, &IOrmFile::get_Session).get(), session.get()));
  EXPECT_TRUE(OpenForRead(file, disk.name(), true));
  EXPECT_FALSE(SameObject(Get(file, &IOrmFile::get_Session).get(), session.get()));
  EXPECT_FALSE(FindInSession(file, 14, 3));
}

TEST(OrmFile, OpeningForWriteKeepsTheSession) {
  TempFile disk;
  const auto file = NewFile();
  const auto session = Get(file, &IOrmFile::get_Session);
  EXPECT_TRUE(OpenForWrite(file, disk.name()));
  EXPECT_TRUE(SameObject(Get(file, &IOrmFile::get_Session).get(), session.get()));
}

TEST(OrmFile, WritingRegistersNothing) {
  TempFile disk;
  const auto file = OpenedForWrite(disk);
  EXPECT_TRUE(WriteInfo(file, Definition().get()));
  EXPECT_FALSE(FindInSession(file, 14, 3));
}

TEST(OrmFile, SessionOfOneFileResolvesAnother) {
  TempFile definitions(FileOf({kInfoUnitBytes}));
  TempFile data(FileOf({kDataUnitBytes}));
  const auto file = OpenedForRead(definitions);
  EXPECT_TRUE(ReadInfo(file));
  EXPECT_TRUE(OpenForRead(file, data.name(), false));
  EXPECT_TRUE(ReadData(file));
  EXPECT_TRUE(OpenForRead(file, data.name(), true));
  EXPECT_FALSE(ReadData(file));
}

TEST(OrmFile, PutSessionCountsForTheUnitsReadFromThenOn) {
  TempFile disk(FileOf({kDataUnitBytes, kDataUnitBytes}));
  const auto session = CreateObject<IOrmSession>(kOrmSessionClass);
  VARIANT_BOOL added = VARIANT_FALSE;
  EXPECT_EQ(session->AddType(Definition().get(), &added), S_OK);
  const auto file = OpenedForRead(disk);
  EXPECT_FALSE(ReadData(file));
  EXPECT_EQ(file->put_Session(session.get()), S_OK);
  EXPECT_TRUE(SameObject(Get(file, &IOrmFile::get_Session).get(), session.get()));
  EXPECT_TRUE(ReadData(file));
}

TEST(OrmFile, EmptiedSessionResolvesNothing) {
  TempFile disk(FileOf({kInfoUnitBytes, kDataUnitBytes}));
  const auto file = OpenedForRead(disk);
  EXPECT_EQ(file->put_Session(nullptr), S_OK);
  EXPECT_FALSE(Get(file, &IOrmFile::get_Session));
  Ptr<IUnit> unit;
  EXPECT_TRUE(Raises(E_POINTER, [&] { return file->ReadUnit(unit.Out()); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return file->ReadUnit(unit.Out()); }));
}

TEST(OrmFile, EmptiedSessionIsRenewedByOpening) {
  TempFile disk(FileOf({kInfoUnitBytes}));
  const auto file = NewFile();
  EXPECT_EQ(file->put_Session(nullptr), S_OK);
  EXPECT_TRUE(OpenForRead(file, disk.name(), false));
  EXPECT_TRUE(Get(file, &IOrmFile::get_Session));
  EXPECT_TRUE(ReadInfo(file));
}

TEST(OrmFile, SomethingElseIsNoSession) {
  const auto file = NewFile();
  const auto foreign = NewForeign<ForeignSession>();
  foreign->query_status = E_NOINTERFACE;
  EXPECT_EQ(file->put_Session(foreign.get()), S_OK);
  EXPECT_FALSE(Get(file, &IOrmFile::get_Session));
  const auto session = CreateObject<IOrmSession>(kOrmSessionClass);
  EXPECT_EQ(file->put_Session(session.get()), S_OK);
  foreign->query_status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return file->put_Session(foreign.get()); }));
  EXPECT_TRUE(SameObject(Get(file, &IOrmFile::get_Session).get(), session.get()));
}

TEST(OrmFile, SessionOutlivesTheFileInItsUnits) {
  TempFile disk(FileOf({kInfoUnitBytes}));
  auto file = OpenedForRead(disk);
  const auto unit = ReadUnit(file);
  file.Reset();
  const auto session = Get(unit, &IUnit::get_Session);
  ASSERT_TRUE(session);
  EXPECT_TRUE(
      Result<IValueDefBase*>([&](auto* out) { return session->GetTypeFromId(I4(14).get(), 3, out); }));
}

TEST(OrmFile, ExactSizesAroundTheWorkBuffer) {
  // Data units of structure 3 with one text: 6 bytes of header, 2 of length, the text.
  const auto definition = StructureDefinition({{OLESTR("s"), kString}}, 3);
  for (const std::size_t unit_size :
       {std::size_t{63995}, std::size_t{63996}, std::size_t{63997}, std::size_t{63999}, std::size_t{64000},
        std::size_t{64001}, std::size_t{65543}}) {
    TempFile disk;
    const WideString text(unit_size - 8, 'x');
    {
      const auto file = OpenedForWrite(disk);
      const auto value = NewValue(definition);
      PutItem(value, OLESTR("s"), Variant(WideView(text)));
      EXPECT_TRUE(WriteInfo(file, definition.get()));
      EXPECT_TRUE(WriteData(file, value.get()));
      EXPECT_TRUE(WriteInfo(file, definition.get()));
    }
    const Bytes data = Join({LittleEndian(unit_size, 4), Hex("66 00 0E 00 03 00"),
                             LittleEndian(text.size(), 2), Bytes(text.size(), 'x')});
    const Bytes info = Record(EncodedInfo(definition));
    EXPECT_TRUE(disk.Contents() == Join({FileHeader(), info, data, info})) << unit_size;
    for (const bool by_name : {true, false}) {
      const auto file = NewFile();
      ASSERT_TRUE(by_name ? OpenForRead(file, disk.name())
                          : AttachForRead(file, OpenHandleForRead(disk.path())));
      EXPECT_TRUE(ReadInfo(file));
      const auto unit = ReadUnit(file);
      ASSERT_TRUE(unit) << unit_size;
      EXPECT_EQ(PacketSize(unit), unit_size);
      EXPECT_EQ(Item(Get(unit, &IUnit::get_Value), OLESTR("s")), "BSTR " + std::string(text.size(), 'x'));
      EXPECT_TRUE(ReadInfo(file)) << unit_size;
      EXPECT_FALSE(ReadUnit(file)) << unit_size;
    }
  }
}

TEST(OrmFile, NullOutPointersAreRejected) {
  TempFile disk;
  const auto file = NewFile();
  EXPECT_EQ(file->OpenForRead(disk.name(), VARIANT_TRUE, nullptr), E_POINTER);
  EXPECT_EQ(file->OpenForWrite(disk.name(), nullptr), E_POINTER);
  EXPECT_EQ(file->get_Session(nullptr), E_POINTER);
  EXPECT_EQ(file->WriteData(Value(5).get(), nullptr), E_POINTER);
  EXPECT_EQ(file->ReadData(nullptr), E_POINTER);
  EXPECT_EQ(file->WriteInfo(Definition().get(), nullptr), E_POINTER);
  EXPECT_EQ(file->ReadInfo(nullptr), E_POINTER);
  EXPECT_EQ(file->WriteUnit(CreateObject<IUnit>(kUnitClass).get(), nullptr), E_POINTER);
  EXPECT_EQ(file->ReadUnit(nullptr), E_POINTER);
  EXPECT_EQ(file->AttachForRead(-1, VARIANT_TRUE, nullptr), E_POINTER);
  EXPECT_EQ(file->AttachForWrite(-1, nullptr), E_POINTER);
}

}  // namespace
}  // namespace halyard::test
