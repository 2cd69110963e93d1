// Files that are no files of units, are cut, or lie.
#include <gtest/gtest.h>

#include "tests/support/handles.h"
#include "tests/support/memory.h"
#include "tests/support/raised.h"
#include "tests/support/streams.h"

namespace halyard::test {
namespace {

// Structure 3 with a (Long) and s (String, can be null), and three values of it.
constexpr const char* kInfo =
    "65 00 0E 00 03 00 01 00 50 00 00 02 00 04 00"
    " 01 00 61 00 00 00 08 00 04 00 08 00 04 00 00 00 01 00 73 00 00 01 01 00 00 00 01 00 00 00 00 00";
constexpr const char* kFirst = "66 00 0E 00 03 00 05 00 00 00 00 02 00 68 69";
constexpr const char* kSecond = "66 00 0E 00 03 00 06 00 00 00 01";

Bytes SmallFile() { return FileOf({kInfo, kFirst, kSecond}); }

bool Opens(const Bytes& contents) {
  TempFile disk(contents);
  return OpenForRead(NewFile(), disk.name());
}

bool OpensWithHeader(std::string_view hex) { return Opens(Hex(hex)); }

testing::AssertionResult ReadDataFails(const Ptr<IOrmFile>& file) {
  Ptr<IValueBase> value;
  return Raises(E_POINTER, [&] { return file->ReadData(value.Out()); });
}

// A file of the header and these bytes, opened.
class Opened {
 public:
  explicit Opened(const Bytes& records) : disk_(Join({FileHeader(), records})) {
    EXPECT_TRUE(OpenForRead(file_, disk_.name()));
  }
  const Ptr<IOrmFile>& operator*() const { return file_; }

 private:
  TempFile disk_;
  Ptr<IOrmFile> file_ = NewFile();
};

TEST(OrmFileHeader, SignatureIgnoresLetterCase) {
  EXPECT_TRUE(OpensWithHeader("4F 52 4D 00 00 00 80 3F"));
  EXPECT_TRUE(OpensWithHeader("6F 72 6D 00 00 00 80 3F"));
  EXPECT_TRUE(OpensWithHeader("6F 52 6D 00 00 00 80 3F"));
}

TEST(OrmFileHeader, OtherSignaturesAreRefused) {
  for (const char* signature : {"4F 72 6E 00", "4F 72 6D 20", "4F 72 00 6D", "00 4F 72 6D", "89 50 4E 47",
                                "00 00 00 00", "50 72 6D 00"}) {
    EXPECT_FALSE(OpensWithHeader(std::string(signature) + " 00 00 80 3F")) << signature;
  }
}

TEST(OrmFileHeader, OtherVersionsAreRefused) {
  for (const char* version : {"00 00 00 40", "00 00 00 00", "00 00 80 BF", "01 00 80 3F", "FF FF 7F 3F",
                              "00 00 80 7F", "01 00 00 00"}) {
    EXPECT_FALSE(OpensWithHeader(std::string("4F 72 6D 00 ") + version)) << version;
  }
}

TEST(OrmFileHeader, VersionTwoIsRefused) { EXPECT_FALSE(OpensWithHeader("4F 72 6D 00 00 00 00 40")); }

TEST(OrmFileHeader, VersionThatIsNoNumberIsNeitherLessNorGreater) {
  EXPECT_TRUE(OpensWithHeader("4F 72 6D 00 00 00 C0 7F"));
}

TEST(OrmFileHeader, CutHeadersAreRefused) {
  for (std::size_t size = 0; size < 8; ++size) EXPECT_FALSE(Opens(Prefix(FileHeader(), size))) << size;
  EXPECT_TRUE(Opens(FileHeader()));
}

TEST(OrmFileHeader, RefusedFileStaysOpenBehindItsHeader) {
  TempFile disk(Join({Hex("4F 72 6D 00 00 00 00 40"), Record(kInfo)}));
  const auto file = NewFile();
  EXPECT_FALSE(OpenForRead(file, disk.name()));
  EXPECT_TRUE(ReadUnit(file));
  EXPECT_FALSE(ReadUnit(file));
}

TEST(OrmFileDamage, FileCutAtEveryByte) {
  const Bytes whole = SmallFile();
  const std::size_t ends[] = {8 + 4 + Hex(kInfo).size(), 8 + 8 + Hex(kInfo).size() + Hex(kFirst).size(),
                              whole.size()};
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    TempFile disk(Prefix(whole, size));
    const auto file = NewFile();
    ASSERT_EQ(OpenForRead(file, disk.name()), size >= 8) << size;
    if (size < 8) continue;
    for (const std::size_t end : ends) {
      const auto unit = ReadUnit(file);
      ASSERT_EQ(static_cast<bool>(unit), size >= end) << size << " bytes, record up to " << end;
    }
    EXPECT_FALSE(ReadInfo(file)) << size;
    EXPECT_TRUE(ReadDataFails(file)) << size;
  }
}

TEST(OrmFileDamage, EveryReadingCallMeetsACutRecord) {
  const Bytes cut = Prefix(Record(kInfo), 20);
  EXPECT_FALSE(ReadUnit(*Opened(cut)));
  EXPECT_FALSE(ReadInfo(*Opened(cut)));
  EXPECT_TRUE(ReadDataFails(*Opened(cut)));
}

TEST(OrmFileDamage, LengthThatTheFileCannotHoldIsTheEnd) {
  const MemoryLimit limit;
  for (const unsigned length : {11u, 64000u, 64001u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFCu, 0xFFFFFFFFu}) {
    const Opened file(Join({LittleEndian(length, 4), Hex("66 00 08 00 00 00 05 00 00 00")}));
    EXPECT_FALSE(ReadUnit(*file)) << length;
    EXPECT_FALSE(ReadUnit(*file)) << length;
    EXPECT_TRUE(ReadDataFails(*file)) << length;
  }
  EXPECT_TRUE(limit.Kept());
}

TEST(OrmFileDamage, LengthThatAPipeDoesNotDeliverIsTheEnd) {
  const MemoryLimit limit;
  for (const unsigned length : {11u, 64001u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
    const Pipe pipe = OpenPipe();
    WriteHandle(pipe.write,
                Join({FileHeader(), LittleEndian(length, 4), Hex("66 00 08 00 00 00 05 00 00 00")}));
    CloseHandleValue(pipe.write);
    const auto reader = NewFile();
    EXPECT_TRUE(AttachForRead(reader, pipe.read)) << length;
    EXPECT_FALSE(ReadUnit(reader)) << length;
    EXPECT_FALSE(ReadUnit(reader)) << length;
  }
  EXPECT_TRUE(limit.Kept());
}

TEST(OrmFileDamage, BytesBehindAUnitAreSkipped) {
  const Opened file(
      Join({LittleEndian(14, 4), Hex("66 00 08 00 00 00 05 00 00 00 01 02 03 04"), Record(kInfo)}));
  EXPECT_TRUE(ReadUnit(*file));
  EXPECT_TRUE(ReadInfo(*file));
}

TEST(OrmFileDamage, RecordsWithoutRoomForAUnitAreNull) {
  for (const char* unit : {"", "65", "65 00", "65 00 0E", "66 00 0E 00 03"}) {
    const Opened file(Join({Record(unit), Record(kInfo), Record(unit), Record(unit)}));
    EXPECT_FALSE(ReadUnit(*file)) << unit;
    EXPECT_TRUE(ReadInfo(*file)) << unit;
    EXPECT_FALSE(ReadInfo(*file)) << unit;
    EXPECT_TRUE(ReadDataFails(*file)) << unit;
  }
}

TEST(OrmFileDamage, RecordThatCutsItsUnitKeepsWhatArrived) {
  const Opened file(Join({Record(kInfo), Record("66 00 0E 00 03 00 05 00 00 00 00 02 00 68")}));
  EXPECT_TRUE(ReadInfo(*file));
  const auto value = ReadData(*file);
  ASSERT_TRUE(value);
  EXPECT_EQ(Item(value, OLESTR("a")), "I4 5");
  EXPECT_EQ(Item(value, OLESTR("s")), "BSTR ");
}

TEST(OrmFileDamage, RecordThatCutsItsDefinitionRegistersNothing) {
  const Opened file(Record("65 00 0E 00 03 00 01 00 50 00 00 01 00 04 00 01 00 61"));
  EXPECT_TRUE(ReadUnit(*file));
  EXPECT_FALSE(FindInSession(*file, 14, 3));
}

TEST(OrmFileDamage, TrailingBytesAreTheEnd) {
  for (const char* tail : {"01", "01 00", "01 00 00", "01 00 00 00"}) {
    const Opened file(Join({Record(kInfo), Hex(tail)}));
    EXPECT_TRUE(ReadInfo(*file)) << tail;
    EXPECT_FALSE(ReadInfo(*file)) << tail;
  }
}

TEST(OrmFileDamage, DefinitionNestedAThousandDeepIsNotRegistered) {
  Bytes unit = Hex("65 00 0E 00");
  for (int level = 0; level < 1000; ++level) {
    unit = Join({unit, Hex("01 00 00 00 00 00 01 00 00 00 00 00 00 00 00 0E 00 00 00")});
  }
  const Opened file(Join({Record(ToHex(unit)), Record(kInfo)}));
  EXPECT_TRUE(ReadUnit(*file));
  EXPECT_FALSE(FindInSession(*file, 14, 1));
  EXPECT_TRUE(ReadInfo(*file));
}

TEST(OrmFileDamage, ShorterRecordsAfterLongerOnesSeeNoneOfTheirBytes) {
  const Opened file(Join({Record(kInfo), Record(kFirst), Record("66 00 0E 00 03 00 06 00")}));
  EXPECT_TRUE(ReadInfo(*file));
  EXPECT_TRUE(ReadData(*file));
  const auto value = ReadData(*file);
  ASSERT_TRUE(value);
  EXPECT_EQ(Item(value, OLESTR("a")), "I4 0");
  EXPECT_EQ(Item(value, OLESTR("s")), "BSTR ");
}

}  // namespace
}  // namespace halyard::test
