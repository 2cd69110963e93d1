// What is said about wrong arguments.
#include <gtest/gtest.h>

#include <tuple>

#include "tests/tools/support/run_tool.h"
#include "tests/tools/support/unit_bytes.h"

namespace halyard::test {
namespace {

TEST(Arguments, WrongArgumentsAreUsage) {
  const Folder folder;
  const std::string file = folder.Make("a.orm", StationFile(1));
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{},
        {"fly"},
        {"cat"},
        {"cat", file, "--no-such-option"},
        {"cat", "-r", "5-2", file},
        {"cat", "-r", "x", file},
        {"cat", "--json", "--tree", file},
        {"filter", file},
        {"doctor", "--limit=-5", file},
        {"import", file, "-o", folder.File("o"), "--enumerations", "99999999999999999999"},
        {"cat", "--encoding", "ebcdic", file},
        {"import", file, "-o", folder.File("o"), "--type", "a=Number"}}) {
    const Outcome outcome = RunTool(arguments);
    EXPECT_EQ(outcome.code, 2) << outcome.err;
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err.substr(0, 9), "halyard: ") << outcome.err;
  }
}

TEST(Arguments, NamesAVerbThatIsNone) {
  EXPECT_EQ(RunTool({"fly", "a.orm"}).err, "halyard: there is no verb 'fly'; 'halyard --help' lists them\n");
}

// What is said of arguments that are wrong.
std::string Said(const std::vector<std::string>& arguments) {
  const Outcome outcome = RunTool(arguments);
  EXPECT_EQ(outcome.code, 2) << outcome.err;
  EXPECT_EQ(outcome.out, "");
  return outcome.err;
}

// An option that changes nothing would be believed to do so.
TEST(Arguments, OptionsThatGoNotTogetherAreRefused) {
  const Folder folder;
  const std::string file = folder.Make("a.orm", StationFile(1));
  const std::vector<std::string> import = {"import", file, "-o", folder.File("o")};
  const std::vector<std::string> like = {"import", file, "-o", folder.File("o"), "--like", file};
  const std::vector<std::string> raw = {"export", file, "--raw", "Long"};
  const std::vector<std::string> cat = {"cat", file, "--wide"};
  for (const auto& [first, more, why] :
       std::vector<std::tuple<std::vector<std::string>, std::vector<std::string>, std::string>>{
           {like, {"--name", "n"}, "--name excludes --like"},
           {like, {"--type", "a=Long"}, "--type excludes --like"},
           {like, {"--enumerations", "3"}, "--enumerations excludes --like"},
           {import, {"-d", "X"}, "--definition requires --like"},
           {raw, {"--delimiter", ";"}, "--raw excludes --delimiter"},
           {raw, {"--no-header"}, "--raw excludes --no-header"},
           {raw, {"--table-encoding", "utf-8"}, "--raw excludes --table-encoding"},
           {cat, {"--json"}, "--json excludes --wide"},
           {cat, {"--tree"}, "--tree excludes --wide"}}) {
    std::vector<std::string> all = first;
    all.insert(all.end(), more.begin(), more.end());
    EXPECT_EQ(Said(all).substr(0, std::string("halyard: ").size() + why.size()), "halyard: " + why);
  }
}

TEST(Arguments, AnUnknownOptionIsNoVerb) {
  EXPECT_EQ(Said({"--foo"}), "halyard: there is no option '--foo'; 'halyard --help' lists them\n");
  EXPECT_EQ(Said({"-"}), "halyard: there is no verb '-'; 'halyard --help' lists them\n");
}

TEST(Arguments, AMissingVerbIsNamed) {
  const std::string said =
      "halyard: the verb is missing: info, defs, cat, doctor, export, import, recover, merge, filter, manual "
      "or "
      "completion; 'halyard --help' explains them\n";
  EXPECT_EQ(Said({}), said);
  EXPECT_EQ(Said({"--encoding", "latin-1"}), said);
}

// The parser would take the next argument for the value.
TEST(Arguments, AnEmptyValueBehindASignIsRefused) {
  EXPECT_EQ(Said({"cat", "--member=", "a.orm"}), "halyard: there is no value in '--member='\n");
}

TEST(Arguments, StandardInputIsReadOnce) {
  const std::string said = "halyard: '-' is given twice, and standard input can be read only once\n";
  EXPECT_EQ(Said({"merge", "-", "-", "-o", "-"}), said);
  EXPECT_EQ(Said({"doctor", "-", "-"}), said);
  EXPECT_EQ(Said({"info", "-", "-"}), said);
  EXPECT_EQ(Said({"import", "-", "--like", "-", "-o", "-"}), said);
}

}  // namespace
}  // namespace halyard::test
