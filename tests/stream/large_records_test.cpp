// Records larger than a file's work buffer: their arrays keep the memory that they were
// read into and are written from where they lie. Nothing else may differ.
#include <gtest/gtest.h>

#include <cstdint>

#include "halyard/values/arrays/simple_array.h"
#include "tests/support/composites.h"
#include "tests/support/encoding.h"
#include "tests/support/handles.h"
#include "tests/support/streams.h"

namespace halyard::test {
namespace {

constexpr LONG kCount = 60000;
constexpr std::size_t kAllocationAlignment = 16;

// The encoding of an array of that many elements of `width` bytes, none like the next.
Bytes Encoding(LONG count, std::size_t width) {
  Bytes bytes = LittleEndian(static_cast<unsigned long long>(count), 4);
  for (std::size_t i = 0; i < static_cast<std::size_t>(count) * width; ++i)
    bytes.push_back(static_cast<unsigned char>(i * 7 + i / 251));
  return bytes;
}

Ptr<IArrayDef> Reals() { return SimpleArrayDefinition(kReal, 0, 5); }

Ptr<IArrayDef> Structures() {
  const auto element = StructureDefinition({{OLESTR("a"), kLong}, {OLESTR("b"), kByte}});
  Calculate(element);
  return ArrayDefinition(element, 0, 6);
}

Ptr<IArray> Filled(const Ptr<IArrayDef>& definition, const Bytes& bytes) {
  const auto array = NewArray(definition);
  EXPECT_EQ(ReadFrom(array, bytes), Moved(static_cast<ULONG>(bytes.size())));
  return array;
}

// What a file holds that was written with the array twice.
Bytes FileWith(const Ptr<IArrayDef>& definition, const Bytes& bytes, LONG buffer) {
  TempFile disk;
  const auto file = NewFile();
  EXPECT_EQ(file.As<IOrmFileBuffering>()->put_BufferSize(buffer), S_OK);
  EXPECT_TRUE(OpenForWrite(file, disk.name()));
  EXPECT_TRUE(WriteInfo(file, definition.get()));
  const auto array = Filled(definition, bytes);
  EXPECT_TRUE(WriteData(file, array.get()));
  EXPECT_TRUE(WriteData(file, array.get()));
  EXPECT_EQ(file->Close(), S_OK);
  return disk.Contents();
}

Bytes EncodedBytes(const Ptr<IValueBase>& value) { return WriteTo(value, PacketSize(value)).bytes; }

// The array of the second record of a file with these contents.
Ptr<IArray> ReadBack(const Bytes& contents) {
  TempFile disk(contents);
  const auto file = NewFile();
  EXPECT_TRUE(OpenForRead(file, disk.name()));
  EXPECT_TRUE(ReadInfo(file));
  EXPECT_TRUE(ReadData(file));
  return ReadData(file).As<IArray>();
}

struct Row {
  const char* name;
  Ptr<IArrayDef> (*definition)();
  std::size_t width;
  SHORT id;
};
constexpr Row kRows[] = {{"reals", &Reals, 8, 5}, {"structures", &Structures, 5, 6}};

TEST(LargeRecords, AreWrittenAsTheirBytes) {
  for (const Row& row : kRows) {
    const Bytes bytes = Encoding(kCount, row.width);
    const Bytes record = Join({LittleEndian(6 + bytes.size(), 4), Hex("66 00 0F 00"),
                               LittleEndian(static_cast<unsigned long long>(row.id), 2), bytes});
    const Bytes plain = FileWith(row.definition(), bytes, 0);
    ASSERT_GT(plain.size(), 2 * record.size());
    const Bytes end(plain.end() - static_cast<std::ptrdiff_t>(2 * record.size()), plain.end());
    EXPECT_TRUE(end == Join({record, record})) << row.name;
    EXPECT_TRUE(FileWith(row.definition(), bytes, 1000) == plain) << row.name;
    EXPECT_TRUE(FileWith(row.definition(), bytes, 1 << 20) == plain) << row.name;
  }
}

TEST(LargeRecords, AreReadAsTheyWereWritten) {
  for (const Row& row : kRows) {
    const Bytes bytes = Encoding(kCount, row.width);
    const auto array = ReadBack(FileWith(row.definition(), bytes, 0));
    ASSERT_TRUE(array);
    EXPECT_EQ(Count(array), kCount);
    EXPECT_TRUE(EncodedBytes(array) == bytes) << row.name;
  }
}

TEST(LargeRecords, TheirArraysGrowShrinkAndAreReadAgain) {
  for (const Row& row : kRows) {
    const Bytes bytes = Encoding(kCount, row.width);
    const auto from_file = ReadBack(FileWith(row.definition(), bytes, 0));
    const auto from_buffer = Filled(row.definition(), bytes);
    ASSERT_TRUE(from_file);
    for (const auto& array : {from_file, from_buffer}) {
      for (LONG i = 0; i < 12; ++i) EXPECT_EQ(array->Remove(I4(i * 100).get()), S_OK);
      for (LONG i = 0; i < 3; ++i) Add(array, row.id == 5 ? R8(0.5 + i) : Object(At(array, i)));
    }
    EXPECT_EQ(Count(from_file), kCount - 9);
    EXPECT_TRUE(EncodedBytes(from_file) == EncodedBytes(from_buffer)) << row.name;
    Ptr<IValueBase> copy;
    ASSERT_EQ(from_file->Copy(copy.Out()), S_OK);
    EXPECT_TRUE(EncodedBytes(copy) == EncodedBytes(from_buffer)) << row.name;
    const Bytes shorter = Encoding(10, row.width);
    EXPECT_EQ(ReadFrom(from_file, shorter), Moved(static_cast<ULONG>(shorter.size())));
    EXPECT_EQ(EncodedBytes(from_file), shorter) << row.name;
  }
}

TEST(LargeRecords, TheirArraysGrowBeyondTheMemoryOfTheRecord) {
  for (const Row& row : kRows) {
    const auto array = ReadBack(FileWith(row.definition(), Encoding(kCount, row.width), 0));
    ASSERT_TRUE(array);
    const Bytes longer = Encoding(kCount + 7, row.width);
    // The elements that are there first, so that the rest is added to what the record left.
    EXPECT_EQ(ReadFrom(array, longer), Moved(static_cast<ULONG>(longer.size()))) << row.name;
    EXPECT_TRUE(EncodedBytes(array) == longer) << row.name;
  }
}

TEST(LargeRecords, NumbersLieAsAnAllocationDoes) {
  const auto array = ReadBack(FileWith(Reals(), Encoding(kCount, 8), 0));
  const LONG_PTR address = Get(array.As<ISimpleArray>(), &ISimpleArray::get_GetDataPointer);
  EXPECT_EQ(static_cast<std::uintptr_t>(address) % kAllocationAlignment, 0u);
}

TEST(LargeRecords, AnArrayInAStructureKeepsOnlyItsOwn) {
  const auto structure = StructureDefinition({{OLESTR("n"), kLong}});
  AddMember(structure, OLESTR("many"), SimpleArrayDefinition(kReal, 0, 0).get());
  AddMember(structure, OLESTR("few"), SimpleArrayDefinition(kReal, 0, 0).get());
  ASSERT_EQ(structure->put_Id(7), S_OK);
  Calculate(structure);
  const Bytes many = Encoding(kCount, 8);
  const Bytes few = Encoding(3, 8);
  const Bytes body = Join({Hex("07 00 00 00"), many, few});
  TempFile disk(Join({FileOf({}), LittleEndian(6 + body.size(), 4), Hex("66 00 0E 00 07 00"), body}));
  const auto file = NewFile();
  ASSERT_TRUE(OpenForRead(file, disk.name()));
  const auto session = Get(file, &IOrmFile::get_Session);
  EXPECT_EQ(Result<VARIANT_BOOL>([&](auto* out) { return session->AddType(structure.get(), out); }),
            VARIANT_TRUE);
  const auto value = ReadData(file);
  ASSERT_TRUE(value);
  EXPECT_TRUE(EncodedBytes(value) == body);
}

}  // namespace
}  // namespace halyard::test
