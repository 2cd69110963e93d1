// Every verb against every kind of bad input and bad output: the right exit code, a message
// with place and remedy, nothing left behind, the input unharmed, no hanging, no crash.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <random>

#include "tests/tools/support/hostile_files.h"
#include "tests/tools/support/run_tool.h"
#include "tests/tools/support/unit_bytes.h"

namespace halyard::test {
namespace {

constexpr std::size_t kManyBytes = 10'000'000;

struct Verb {
  std::string name;
  bool writes_file = false;   // needs -o
  bool makes_values = false;  // looks into values, not at their frames only
};

class BadInput : public testing::TestWithParam<Verb> {
 protected:
  static bool Imports() { return GetParam().name == "import"; }
  static bool Recovers() { return GetParam().name == "recover"; }

  // Runs the verb; its result goes to "out" in the folder, or to standard output.
  Outcome RunOn(const std::string& file, const Setting& setting = {}) {
    return RunWith(file, GetParam().writes_file ? folder_.File("out") : "", setting);
  }
  static Outcome RunWith(const std::string& file, const std::string& output, const Setting& setting) {
    std::vector<std::string> arguments = {GetParam().name, file};
    if (!output.empty()) arguments.insert(arguments.end(), {"-o", output});
    return RunTool(arguments, setting);
  }

  // The file is refused: code 1, a message with file, place and what to do; no output.
  void ExpectRefused(const std::string& content, const std::string& remedy) {
    const std::string file = folder_.Make("bad.orm", content);
    const Outcome outcome = RunOn(file);
    EXPECT_EQ(outcome.code, 1) << outcome.err;
    const std::string said = outcome.out + outcome.err;
    EXPECT_NE(said.find("bad.orm"), std::string::npos) << said;
    EXPECT_NE(said.find(Imports() ? "bad.orm: " : "offset "), std::string::npos) << said;
    EXPECT_NE(said.find(remedy), std::string::npos) << said;
    EXPECT_EQ(folder_.Names(), std::vector<std::string>{"bad.orm"});
    EXPECT_TRUE(Content(file) == content) << "the input was changed";
  }

  void ExpectCannotRead(const std::string& file, const std::string& reason) {
    const Outcome outcome = RunOn(file);
    EXPECT_EQ(outcome.code, 3);
    EXPECT_NE(outcome.err.find(file + ": cannot be read: " + reason), std::string::npos) << outcome.err;
  }

  // Something large and sound that the verb reads.
  std::string LargeInput() {
    if (!Imports()) return folder_.Make("large.orm", StationFile(20000));
    std::string table = "a,b\n";
    for (int i = 0; i < 20000; ++i) table += std::to_string(i) + ",text\n";
    return folder_.Make("large.orm", table);
  }

  Folder folder_;
};

std::string RandomBytes(std::size_t count, unsigned seed) {
  std::mt19937_64 random(seed);
  std::string bytes(count, '\0');
  std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<char>(random()); });
  return bytes;
}

TEST_P(BadInput, EmptyFile) {
  ExpectRefused("", Imports()    ? "it is empty; a table begins with the names of its columns"
                    : Recovers() ? "offset 0: the header is damaged: it is empty"
                                 : "no file of units: it is empty\n");
}

TEST_P(BadInput, ForeignFile) {
  ExpectRefused("\x89PNG\r\n\x1A\n and so on, \"which is nothing",
                Imports()    ? "line 1: a text is not UTF-8; is --table-encoding windows-1252 right?"
                : Recovers() ? "nothing can be saved: it holds no whole record"
                             : "'halyard recover' looks for records in a damaged file");
}

TEST_P(BadInput, RandomBytes) {
  ExpectRefused(RandomBytes(kManyBytes, 7), Imports() ? "line 1: "
                                            : Recovers()
                                                ? "offset 0: 10,000,000 bytes lost"
                                                : "no file of units: it does not begin with the signature");
}

TEST_P(BadInput, RandomBytesBehindGoodRecords) {
  const std::string content = (Imports() ? "a,b\n" : StationFile(1)) + RandomBytes(kManyBytes, 8);
  const Outcome outcome = RunOn(folder_.Make("bad.orm", content));
  EXPECT_EQ(outcome.code, 1) << outcome.err;
  const std::string said = outcome.out + outcome.err;
  EXPECT_NE(said.find(Imports() ? "line 2" : "offset 115"), std::string::npos) << said;
  EXPECT_EQ(Content(folder_.File("out")), Recovers() ? StationFile(1) : "");
}

TEST_P(BadInput, Directory) {
  ExpectCannotRead(folder_.path().string(), "Is a directory; name a file inside it");
}

TEST_P(BadInput, MissingFile) {
  ExpectCannotRead(folder_.File("none"), "No such file or directory; check the name");
}

TEST_P(BadInput, CutFile) {
  const std::string whole = Imports() ? "a,b\n1,2\n\"3,4\n" : StationFile(3);
  const std::string cut = whole.substr(0, whole.size() - 1);
  if (!Recovers()) {
    if (Imports()) {
      ExpectRefused(cut, "line 3: a quoted field has no closing quote");
      return;
    }
    const Outcome outcome = RunOn(folder_.Make("bad.orm", cut));
    EXPECT_EQ(outcome.code, 1);
    const std::string said = outcome.out + outcome.err;
    EXPECT_NE(said.find("offset 138"), std::string::npos) << said;
    EXPECT_NE(said.find("'halyard recover' saves the whole records"), std::string::npos) << said;
    EXPECT_EQ(folder_.Names(), std::vector<std::string>{"bad.orm"});
    return;
  }
  EXPECT_EQ(RunOn(folder_.Make("bad.orm", cut)).code, 1);
  EXPECT_EQ(Content(folder_.File("out")), StationFile(2));
}

TEST_P(BadInput, FileThatIsBeingWritten) {
  if (Imports()) return ExpectRefused("a,b\n\"half", "line 2: a quoted field has no closing quote");
  const std::string whole = StationFile(2);
  const std::string file = folder_.Make("bad.orm", whole.substr(0, whole.size() - 5));
  // As the library holds what it writes.
  const int writer = open(file.c_str(), O_WRONLY | O_CLOEXEC);
  ASSERT_EQ(flock(writer, LOCK_EX), 0);
  const Outcome outcome = RunOn(file);
  close(writer);
  EXPECT_EQ(outcome.code, 1);
  EXPECT_NE((outcome.out + outcome.err).find("the file is still being written, try again when that is done"),
            std::string::npos)
      << outcome.out << outcome.err;
  EXPECT_EQ(Content(file), whole.substr(0, whole.size() - 5));
}

TEST_P(BadInput, UnreadableFile) {
  const std::string file = folder_.Make("secret.orm", StationFile(1));
  std::filesystem::permissions(file, std::filesystem::perms::none);
  Setting setting;
  setting.obeys_permissions = true;
  const Outcome outcome = RunOn(file, setting);
  EXPECT_EQ(outcome.code, 3);
  EXPECT_NE(outcome.err.find("secret.orm: cannot be read: Permission denied; ask its owner"),
            std::string::npos)
      << outcome.err;
  EXPECT_EQ(folder_.Names(), std::vector<std::string>{"secret.orm"});
}

TEST_P(BadInput, HostileCountsAndNesting) {
  for (const HostileFile& hostile : HostileFiles()) {
    SCOPED_TRACE(hostile.name);
    const Folder folder;
    const std::string file = folder.Make("bad.orm", hostile.content);
    const bool writes = GetParam().writes_file;
    const Outcome outcome = RunWith(file, writes ? folder.File("out") : "", {});
    const bool is_seen = !hostile.is_in_value || GetParam().makes_values;
    EXPECT_EQ(outcome.code, is_seen ? 1 : 0) << outcome.err;
    if (!is_seen) continue;
    const std::string said = outcome.out + outcome.err;
    EXPECT_NE(said.find("bad.orm"), std::string::npos) << said;
    EXPECT_NE(said.find(Imports() ? "line " : "offset "), std::string::npos) << said;
    EXPECT_TRUE(Content(file) == hostile.content) << "the input was changed";
  }
}

TEST_P(BadInput, FullDisk) {
  const std::string file = LargeInput();
  const std::string old = folder_.Make("out", "what was there before");
  Setting setting;
  setting.has_full_disk = GetParam().writes_file;
  if (!GetParam().writes_file) setting.output_device = "/dev/full";
  const Outcome outcome = RunOn(file, setting);
  EXPECT_EQ(outcome.code, 3) << outcome.err;
  EXPECT_NE(outcome.err.find("cannot be written: No space left on device; free some space or choose another"),
            std::string::npos)
      << outcome.err;
  EXPECT_EQ(Content(old), "what was there before");
  EXPECT_EQ(folder_.Names(), (std::vector<std::string>{"large.orm", "out"}));
}

// Verbs that write a file.
class BadOutput : public BadInput {};

TEST_P(BadOutput, DiskThatFillsMeanwhile) {
  const std::string file = LargeInput();
  const std::string old = folder_.Make("out", "what was there before");
  Setting setting;
  setting.largest_file = 100000;
  const Outcome outcome = RunOn(file, setting);
  EXPECT_EQ(outcome.code, 3) << outcome.err;
  EXPECT_NE(outcome.err.find("out: cannot be written: File too large; free some space or choose another"),
            std::string::npos)
      << outcome.err;
  EXPECT_EQ(Content(old), "what was there before");
  EXPECT_EQ(folder_.Names(), (std::vector<std::string>{"large.orm", "out"}));
}

TEST_P(BadInput, PipeThatClosesEarly) {
  Setting setting;
  setting.has_closed_pipe = true;
  const Outcome outcome = RunWith(LargeInput(), GetParam().writes_file ? "-" : "", setting);
  EXPECT_EQ(outcome.code, 3);
  EXPECT_EQ(outcome.err, "");
}

INSTANTIATE_TEST_SUITE_P(Verbs, BadInput,
                         testing::Values(Verb{"info"}, Verb{"defs"}, Verb{"cat", false, true},
                                         Verb{"doctor", false, true}, Verb{"export", true, true},
                                         Verb{"import", true, true}, Verb{"recover", true, true},
                                         Verb{"merge", true}, Verb{"filter", true}),
                         [](const auto& verb) { return verb.param.name; });

INSTANTIATE_TEST_SUITE_P(Verbs, BadOutput,
                         testing::Values(Verb{"export", true, true}, Verb{"import", true, true},
                                         Verb{"recover", true, true}, Verb{"merge", true},
                                         Verb{"filter", true}),
                         [](const auto& verb) { return verb.param.name; });

class CutAnywhere : public testing::TestWithParam<std::string> {};

TEST_P(CutAnywhere, IsSurvived) {
  const Folder folder;
  const std::string whole = StationFile(2);
  for (std::size_t size = 0; size < whole.size(); size += 7) {
    std::vector<std::string> arguments = {GetParam(), folder.Make("cut.orm", whole.substr(0, size))};
    if (GetParam() == "recover") arguments.insert(arguments.end(), {"-o", folder.File("out")});
    const Outcome outcome = RunTool(arguments);
    // The places where the file is whole without its end: after the header and a record.
    const bool is_whole = size == 8 || size == 92 || size == 115;
    EXPECT_EQ(outcome.code, is_whole ? 0 : 1) << GetParam() << " cut at " << size << ": " << outcome.err;
  }
}

INSTANTIATE_TEST_SUITE_P(Verbs, CutAnywhere, testing::Values("info", "cat", "doctor", "recover", "export"),
                         [](const auto& verb) { return verb.param; });

}  // namespace
}  // namespace halyard::test
