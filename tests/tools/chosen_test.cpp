// What is said where a choice of definitions and records leaves nothing of a file.
#include <gtest/gtest.h>

#include "tests/tools/support/run_tool.h"
#include "tests/tools/support/unit_bytes.h"

namespace halyard::test {
namespace {

// A file of one definition and four values, and runs of the program on it.
class Chosen : public testing::Test {
 protected:
  [[nodiscard]] Outcome Run(std::vector<std::string> arguments) const {
    arguments.push_back(file_);
    return RunTool(arguments);
  }

  Folder folder_;
  std::string file_ = folder_.Make("a.orm", StationFile(4));
};

TEST_F(Chosen, NothingBehindTheEndIsTold) {
  const std::string said = "halyard: " + file_ + ": nothing was chosen; the file has 5 records\n";
  const std::string out = folder_.File("out.orm");
  for (const Outcome& outcome :
       {Run({"cat", "-r", "100-200"}), Run({"export", "--raw", "Long", "-m", "Depth", "-r", "6-"}),
        Run({"filter", "-r", "100-", "-o", out})}) {
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, said);
  }
  EXPECT_EQ(Content(out), Header());
}

// Behind the range the file is not looked at, so nobody knows whether the definition comes.
TEST_F(Chosen, DefinitionsThatAreNotThereAreTold) {
  EXPECT_EQ(Run({"defs", "-r", "100-"}).err,
            "halyard: " + file_ + ": nothing was chosen; the file has 5 records\n");
  EXPECT_EQ(Run({"defs", "-d", "nosuch", "-r", "1-3"}).err,
            "halyard: " + file_ + ": nothing was chosen in the records up to 3\n");
  EXPECT_EQ(Run({"defs", "-r", "1"}).err, "");
}

TEST_F(Chosen, NothingInARangeIsTold) {
  const std::string said = "halyard: " + file_ + ": nothing was chosen in the records up to 3\n";
  for (const Outcome& outcome : {Run({"cat", "-d", "nosuch", "-r", "1-3"}),
                                 Run({"filter", "-d", "nosuch", "-r", "1-3", "-o", folder_.File("o")})}) {
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, said);
  }
}

TEST_F(Chosen, ADefinitionThatNeverComesIsRefused) {
  for (const Outcome& outcome : {Run({"cat", "-d", "nosuch"}), Run({"cat", "-d", "nosuch", "-r", "2-"}),
                                 Run({"filter", "-d", "nosuch", "-o", folder_.File("o")})}) {
    EXPECT_EQ(outcome.code, 2);
    EXPECT_NE(outcome.err.find("there is no definition 'nosuch'"), std::string::npos) << outcome.err;
  }
}

TEST_F(Chosen, AFileWithoutValuesIsNoNews) {
  const std::string empty = folder_.Make("empty.orm", StationFile(0));
  EXPECT_EQ(RunTool({"cat", empty}).err, "");
  EXPECT_EQ(RunTool({"filter", empty, "-o", folder_.File("o")}).err, "");
}

}  // namespace
}  // namespace halyard::test
