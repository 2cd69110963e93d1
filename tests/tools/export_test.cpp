// halyard export: tables and raw numbers, and what cannot be one.
#include <gtest/gtest.h>

#include "tests/tools/support/imported.h"
#include "tests/tools/support/unit_bytes.h"

namespace halyard::test {
namespace {

TEST(Export, WritesRawNumbers) {
  const Imported imported("a,b\n1,0.5\n300,-2\n-1,1.75\n");
  EXPECT_EQ(imported.Says({"export", "--raw", "Long", "-m", "a"}),
            std::string("\1\0\0\0\x2C\1\0\0\xFF\xFF\xFF\xFF", 12));
  EXPECT_EQ(imported.Says({"export", "--raw", "shortreal", "-m", "b"}),
            std::string("\0\0\0\x3F\0\0\0\xC0\0\0\xE0\x3F", 12));
  EXPECT_EQ(imported.Says({"export", "--raw", "Short", "-m", "[b,a]"}),
            std::string("\0\0\1\0\xFE\xFF\x2C\1\1\0\xFF\xFF", 12));
  const Imported array("a,b\n1,0.5\n300,-2\n", {"--array"});
  EXPECT_EQ(array.Says({"export", "--raw", "Word", "-m", "a"}), std::string("\1\0\x2C\1", 4));
}

TEST(Export, KeepsTheColumnsOfATableWithoutRows) {
  ExpectRoundTrip("a,b\n");
  ExpectRoundTrip("a,b\r\n", {"--array"});
}

TEST(Export, RefusesRawNumbersThatAreMissing) {
  const Imported imported("a,b\n1,x\n,y\n3,z\n");
  const Outcome outcome = RunTool({"export", "--raw", "Long", "-m", "a", imported.file()});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_NE(outcome.err.find("record 4: there is no a, and raw numbers have no gaps"), std::string::npos)
      << outcome.err;
}

TEST(Export, RefusesRawNumbersThatAreNone) {
  const Imported imported("a,b\n1,x\n");
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{"--raw", "Long", "-m", "c"},
                                                    {"--raw", "Long", "-m", "b"},
                                                    {"--raw", "Float", "-m", "a"},
                                                    {"--raw", "Long"},
                                                    {"--raw", "Long", "-m", "a", "-m", "b"}}) {
    std::vector<std::string> all = {"export", imported.file(), "-o", imported.folder().File("n")};
    all.insert(all.end(), arguments.begin(), arguments.end());
    EXPECT_EQ(RunTool(all).code, 2);
  }
  EXPECT_EQ(imported.folder().Names(), (std::vector<std::string>{"t.orm", "table.csv"}));
}

// A reader of standard output gets every row that was whole; a file appears only when all
// of them were.
TEST(Export, WritesWhatWasReadBeforeTheFileBreaksOff) {
  const Folder folder;
  const std::string whole = StationFile(100);
  const std::string cut = folder.Make("cut.orm", whole.substr(0, whole.size() - 1));
  const std::string before = folder.Make("before.orm", StationFile(99));
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"export"}, {"export", "--raw", "Long", "-m", "Depth"}}) {
    const auto on = [&](std::string file, const std::vector<std::string>& more = {}) {
      std::vector<std::string> all = arguments;
      all.push_back(std::move(file));
      all.insert(all.end(), more.begin(), more.end());
      return RunTool(all);
    };
    EXPECT_EQ(on(cut).code, 1);
    EXPECT_EQ(on(cut).out, on(before).out);
    EXPECT_FALSE(on(before).out.empty());
    EXPECT_EQ(on(cut, {"-o", folder.File("out")}).code, 1);
    EXPECT_EQ(Content(folder.File("out")), "");
  }
}

TEST(Export, AsksForAMemberWhereTheWholeIsNoNumber) {
  const Imported imported("a,b\n1,x\n");
  const Outcome outcome = RunTool({"export", "--raw", "Long", imported.file()});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(
      outcome.err,
      "halyard: a value of table is no number; choose one of its members with --member; 'halyard defs' shows "
      "them\n");
}

}  // namespace
}  // namespace halyard::test
