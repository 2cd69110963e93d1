// The examples of whole files.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "halyard/halyard.h"
#include "tests/docs/format_examples.h"
#include "tests/docs/station.h"
#include "tests/support/encoding.h"

namespace halyard::test {
namespace {

// A file in the folder for such files; it is gone when the test is.
class ScratchFile {
 public:
  ScratchFile() : path_(std::filesystem::path(testing::TempDir()) / "halyard_format_example.orm") {}
  ~ScratchFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
  }
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;

  [[nodiscard]] Bstr Name() const {
    const auto name = path_.u16string();
    return Bstr(WideString(name.begin(), name.end()));
  }

  [[nodiscard]] Bytes Content() const {
    std::ifstream file(path_, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

  void Fill(const Bytes& bytes) const {
    std::ofstream file(path_, std::ios::binary);
    for (const unsigned char byte : bytes) file.put(static_cast<char>(byte));
  }

 private:
  std::filesystem::path path_;
};

Ptr<IOrmFile> OpenedForWrite(const ScratchFile& scratch) {
  const auto file = CreateObject<IOrmFile>(kOrmFileClass);
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(file->OpenForWrite(scratch.Name().get(), &done));
  EXPECT_EQ(done, VARIANT_TRUE);
  return file;
}

Ptr<IOrmFile> OpenedForRead(const ScratchFile& scratch, const std::string& hex) {
  scratch.Fill(Hex(hex));
  const auto file = CreateObject<IOrmFile>(kOrmFileClass);
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(file->OpenForRead(scratch.Name().get(), VARIANT_TRUE, &done));
  EXPECT_EQ(done, VARIANT_TRUE);
  return file;
}

void CheckEmptyFile(const std::string& hex) {
  const ScratchFile scratch;
  Check(OpenedForWrite(scratch)->Close());
  EXPECT_EQ(ToHex(scratch.Content()), hex);
  EXPECT_FALSE(Get(OpenedForRead(scratch, hex), &IOrmFile::ReadUnit));
}

void CheckWholeFile(const std::string& hex) {
  const ScratchFile scratch;
  const auto writer = OpenedForWrite(scratch);
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(writer->WriteInfo(StationDefinition().get(), &done));
  EXPECT_EQ(done, VARIANT_TRUE);
  Check(writer->WriteData(Station(Variant(OLESTR("hi"))).get(), &done));
  EXPECT_EQ(done, VARIANT_TRUE);
  Check(writer->Close());
  EXPECT_EQ(ToHex(scratch.Content()), hex);

  const auto reader = OpenedForRead(scratch, hex);
  const auto definition = Get(reader, &IOrmFile::ReadInfo);
  ASSERT_TRUE(definition);
  EXPECT_EQ(Encoded(definition), Encoded(StationDefinition()));
  const auto station = Get(reader, &IOrmFile::ReadData);
  ASSERT_TRUE(station);
  EXPECT_EQ(Encoded(station), Encoded(Station(Variant(OLESTR("hi")))));
  EXPECT_FALSE(Get(reader, &IOrmFile::ReadUnit));
}

}  // namespace

std::vector<ExampleCheck> FileExamples() {
  return {
      {"empty-file", CheckEmptyFile},
      {"whole-file", CheckWholeFile},
  };
}

}  // namespace halyard::test
