// Files larger than the memory that the program may have: every verb streams.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "tests/tools/support/run_tool.h"
#include "tests/tools/support/unit_bytes.h"

namespace halyard::test {
namespace {

constexpr std::uintmax_t kFileBytes = 64'000'000;
constexpr unsigned long long kMemory =
    48'000'000;  // of address space, the program and its libraries included
constexpr unsigned kRecordsAtOnce = 100;

// One file for all tests, of records of about 1,000 bytes, and the table of it.
class Memory : public testing::TestWithParam<std::string> {
 protected:
  static void SetUpTestSuite() {
    folder_ = new Folder;
    std::string records;
    for (unsigned i = 0; i < kRecordsAtOnce; ++i) records += Record(StationValue(i, std::string(1000, 'x')));
    std::ofstream file(File("large.orm"), std::ios::binary);
    file << StationFile(0);
    for (std::uintmax_t bytes = 0; bytes < kFileBytes; bytes += records.size()) file << records;
    file.close();
    ASSERT_EQ(RunTool({"export", File("large.orm"), "-o", File("large.csv")}).code, 0);
  }
  static void TearDownTestSuite() { delete folder_; }

  static std::string File(const std::string& name) { return folder_->File(name); }

  static Folder* folder_;
};

Folder* Memory::folder_ = nullptr;

TEST_P(Memory, IsBounded) {
  ASSERT_GE(std::filesystem::file_size(File("large.orm")), kFileBytes);
  Setting setting;
  setting.memory = kMemory;
  setting.output_device = "/dev/null";
  std::vector<std::string> words;
  std::istringstream line(GetParam());
  for (std::string word; line >> word;)
    words.push_back(word == "FILE"    ? File("large.orm")
                    : word == "TABLE" ? File("large.csv")
                    : word == "OUT"   ? File("out")
                                      : word);
  const Outcome outcome = RunTool(words, setting);
  EXPECT_EQ(outcome.code, 0) << outcome.err;
}

INSTANTIATE_TEST_SUITE_P(Verbs, Memory,
                         testing::Values("info FILE", "defs FILE", "cat FILE", "cat --json FILE",
                                         "cat --tree -m Depth FILE", "doctor FILE", "export FILE",
                                         "export --raw Long -m Depth FILE", "import TABLE -o OUT",
                                         "recover FILE -o OUT", "merge FILE FILE -o OUT",
                                         "filter -r 3- FILE -o OUT"));

}  // namespace
}  // namespace halyard::test
