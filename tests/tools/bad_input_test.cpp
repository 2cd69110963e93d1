// Every verb against every kind of bad input: an exit code and a message, nothing left
// behind, no hanging and no crash.
#include <gtest/gtest.h>

#include <random>

#include "tests/tools/support/run_tool.h"
#include "tests/tools/support/unit_bytes.h"

namespace halyard::test {
namespace {

// A verb with the arguments that it needs beside its file.
struct VerbCase {
  std::string verb;
  std::vector<std::string> more;
};

class BadInput : public testing::TestWithParam<VerbCase> {
 protected:
  // Runs the verb on a file; it must end with one of the program's own codes.
  Outcome RunOn(const std::string& file, const Setting& setting = {}) {
    std::vector<std::string> arguments = {GetParam().verb, file};
    for (const std::string& argument : GetParam().more) {
      arguments.push_back(argument == "OUT" ? folder_.File("out") : argument);
    }
    const Outcome outcome = RunTool(arguments, setting);
    EXPECT_GE(outcome.code, 0);
    EXPECT_LE(outcome.code, 3) << outcome.err;
    return outcome;
  }

  // The verb must refuse the content, name the file, and leave no output.
  void ExpectRefused(const std::string& content) {
    const std::string file = folder_.Make("bad.orm", content);
    const Outcome outcome = RunOn(file);
    EXPECT_EQ(outcome.code, 1) << outcome.err;
    EXPECT_NE((outcome.out + outcome.err).find("bad.orm"), std::string::npos) << outcome.out << outcome.err;
    EXPECT_EQ(folder_.Names(), std::vector<std::string>{"bad.orm"});
  }

  void ExpectCannotRead(const std::string& file, const std::string& reason) {
    const Outcome outcome = RunOn(file);
    EXPECT_EQ(outcome.code, 3);
    EXPECT_NE(outcome.err.find(file + ": cannot be read: " + reason), std::string::npos) << outcome.err;
  }

  Folder folder_;
};

TEST_P(BadInput, EmptyFile) { ExpectRefused(""); }

TEST_P(BadInput, ForeignFile) { ExpectRefused("\x89PNG\r\n\x1A\n and so on, \"which is nothing"); }

TEST_P(BadInput, Directory) {
  ExpectCannotRead(folder_.path().string(), "Is a directory; name a file inside it");
}

TEST_P(BadInput, MissingFile) {
  ExpectCannotRead(folder_.File("none"), "No such file or directory; check the name");
}

TEST_P(BadInput, RandomBytes) {
  std::mt19937_64 random(7);
  std::string bytes(10'000'000, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random());
  ExpectRefused(bytes);
}

TEST_P(BadInput, RandomRecordsBehindAGoodHeader) {
  std::mt19937_64 random(8);
  std::string bytes = GetParam().verb == "import" ? "" : StationFile(1);
  for (int i = 0; i < 100000; ++i) bytes += static_cast<char>(random());
  const Outcome outcome = RunOn(folder_.Make("bad.orm", bytes));
  EXPECT_EQ(outcome.code, 1) << outcome.err;
}

TEST_P(BadInput, LengthThatNothingBacks) {
  if (GetParam().verb == "import") ExpectRefused(std::string(2'000'000, 'x'));
  const Outcome outcome =
      RunOn(folder_.Make("bad.orm", Header() + UnitBytes().U32(0xFFFFFFF0).U16(101).U16(14).bytes()));
  EXPECT_EQ(outcome.code, 1) << outcome.err;
}

TEST_P(BadInput, Unreadable) {
  const std::string file = folder_.Make("secret.orm", StationFile(1));
  std::filesystem::permissions(file, std::filesystem::perms::none);
  std::filesystem::permissions(folder_.path(), std::filesystem::perms::all);
  Setting setting;
  setting.as_nobody = true;  // root may read everything
  const Outcome outcome = RunOn(file, setting);
  EXPECT_EQ(outcome.code, 3);
  EXPECT_NE(outcome.err.find("secret.orm: cannot be read: Permission denied; ask its owner"),
            std::string::npos)
      << outcome.err;
}

INSTANTIATE_TEST_SUITE_P(Verbs, BadInput,
                         testing::Values(VerbCase{"info", {}}, VerbCase{"defs", {}}, VerbCase{"cat", {}},
                                         VerbCase{"doctor", {}}, VerbCase{"export", {"-o", "OUT"}},
                                         VerbCase{"import", {"-o", "OUT"}},
                                         VerbCase{"recover", {"-o", "OUT"}}, VerbCase{"merge", {"-o", "OUT"}},
                                         VerbCase{"filter", {"-o", "OUT"}}),
                         [](const auto& verb) { return verb.param.verb; });

class HostileFile : public testing::TestWithParam<std::string> {};

TEST_P(HostileFile, CutAnywhereIsSurvived) {
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

INSTANTIATE_TEST_SUITE_P(Verbs, HostileFile, testing::Values("info", "cat", "doctor", "recover", "export"),
                         [](const auto& verb) { return verb.param; });

}  // namespace
}  // namespace halyard::test
