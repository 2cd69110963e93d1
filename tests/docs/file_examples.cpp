// The examples of whole files.
#include "halyard/halyard.h"
#include "tests/docs/format_examples.h"
#include "tests/docs/sample_definitions.h"
#include "tests/support/composites.h"
#include "tests/support/encoding.h"
#include "tests/support/temp_file.h"

namespace halyard::test {
namespace {

using namespace samples;

Ptr<IOrmFile> OpenedForWrite(const TempFile& place) {
  const auto file = CreateObject<IOrmFile>(kOrmFileClass);
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(file->OpenForWrite(place.name(), &done));
  EXPECT_EQ(done, VARIANT_TRUE);
  return file;
}

Ptr<IOrmFile> OpenedForRead(const TempFile& place) {
  const auto file = CreateObject<IOrmFile>(kOrmFileClass);
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(file->OpenForRead(place.name(), VARIANT_TRUE, &done));
  EXPECT_EQ(done, VARIANT_TRUE);
  return file;
}

// A file of two records, a definition and a value.
void WriteFile(const TempFile& place, const Ptr<IValueDefBase>& definition, const Ptr<IValueBase>& value) {
  const auto file = OpenedForWrite(place);
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(file->WriteInfo(definition.get(), &done));
  EXPECT_EQ(done, VARIANT_TRUE);
  Check(file->WriteData(value.get(), &done));
  EXPECT_EQ(done, VARIANT_TRUE);
  Check(file->Close());
}

void CheckEmptyFile(const std::string& hex) {
  const TempFile place;
  Check(OpenedForWrite(place)->Close());
  EXPECT_EQ(ToHex(place.Contents()), hex);
  EXPECT_FALSE(Get(OpenedForRead(place), &IOrmFile::ReadUnit));
}

void CheckWholeFile(const std::string& hex) {
  const TempFile place;
  WriteFile(place, StationDefinition(), Station(Variant(OLESTR("hi"))));
  EXPECT_EQ(ToHex(place.Contents()), hex);

  const auto reader = OpenedForRead(place);
  const auto definition = Get(reader, &IOrmFile::ReadInfo);
  ASSERT_TRUE(definition);
  EXPECT_EQ(Encoded(definition), Encoded(StationDefinition()));
  const auto station = Get(reader, &IOrmFile::ReadData);
  ASSERT_TRUE(station);
  EXPECT_EQ(Encoded(station), Encoded(Station(Variant(OLESTR("hi")))));
  EXPECT_FALSE(Get(reader, &IOrmFile::ReadUnit));
}

void CheckRecordWithSurplus(const std::string& hex) {
  const TempFile place;
  WriteFile(place, TextsDefinition(), Texts());
  const Bytes contents = place.Contents();
  const std::size_t size = Hex(hex).size();
  ASSERT_GE(contents.size(), size);
  EXPECT_EQ(ToHex(Bytes(contents.end() - static_cast<std::ptrdiff_t>(size), contents.end())), hex);

  const auto reader = OpenedForRead(place);
  EXPECT_TRUE(Get(reader, &IOrmFile::ReadInfo));
  const auto texts = Get(reader, &IOrmFile::ReadData);
  ASSERT_TRUE(texts);
  EXPECT_EQ(Items(texts.As<IArray>()), Items(Texts()));
  EXPECT_FALSE(Get(reader, &IOrmFile::ReadUnit));
}

}  // namespace

std::vector<ExampleCheck> FileExamples() {
  return {
      {"empty-file", CheckEmptyFile},
      {"whole-file", CheckWholeFile},
      {"record-with-surplus", CheckRecordWithSurplus},
  };
}

}  // namespace halyard::test
