// halyard import --like: the columns of a table and the members of another file's definition.
#include <gtest/gtest.h>

#include "tests/tools/support/imported.h"

namespace halyard::test {
namespace {

TEST(Import, TakesTheDefinitionOfAnotherFile) {
  const Imported first("a,b\n1,x\n2,y\n", {"--type", "a=Long", "--type", "b=FixedString(4)"});
  const std::string table = first.folder().Make("second.csv", "B,A\nlong,70000\n,5\n");
  const std::string out = first.folder().File("second.orm");
  const Outcome outcome = RunTool({"import", "--like", first.file(), table, "-o", out});
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_EQ(RunTool({"export", out}).out, "a,b\r\n70000,long\r\n5,\"\"\r\n");
  const std::string wide = first.folder().Make("wide.csv", "a,b\n1,toolong\n");
  const Outcome refused = RunTool({"import", "--like", first.file(), wide, "-o", out});
  EXPECT_EQ(refused.code, 1);
  EXPECT_NE(refused.err.find("wide.csv: line 2: column b: 'toolong' has 7 bytes, and there is room for 4"),
            std::string::npos)
      << refused.err;
}

TEST(Import, LeavesOutWhatTheTableLacks) {
  const Imported first("a,b,c\n1,x,5\n2,y,\n");
  const std::string table = first.folder().Make("second.csv", "a\n7\n");
  const std::string out = first.folder().File("second.orm");
  EXPECT_EQ(RunTool({"import", "--like", first.file(), table, "-o", out}).code, 0);
  EXPECT_EQ(RunTool({"cat", "--json", out}).out, "{\"a\":7,\"b\":\"\",\"c\":null}\n");
}

// Imports a second table with the definition that a first one got, into "second.orm".
Outcome ImportLike(const Imported& first, const std::string& table) {
  return RunTool({"import", "--like", first.file(), first.folder().Make("second.csv", table), "-o",
                  first.folder().File("second.orm")});
}

// A member that can be null is null; of one that cannot, zero or an empty text is stored,
// which nobody wrote.
TEST(Import, SaysWhichMembersNoColumnFills) {
  const Imported first("a,b,c,d\n1,x,5,2\n2,y,,3\n");
  const Outcome outcome = ImportLike(first, "a\n7\n");
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_NE(outcome.err.find("second.csv: no column fills b, d of table; they cannot be null and become zero "
                             "or empty"),
            std::string::npos)
      << outcome.err;
  EXPECT_EQ(ImportLike(first, "a,b,d\n7,x,1\n").err, "");
}

TEST(Import, RefusesTwoColumnsForOneMember) {
  const Imported first("a,b\n1,2\n");
  const Outcome outcome = ImportLike(first, "a,b,A\n1,2,3\n");
  EXPECT_EQ(outcome.code, 2);
  EXPECT_NE(outcome.err.find("second.csv: line 1: column 'A' names a member that another column names"),
            std::string::npos)
      << outcome.err;
  EXPECT_EQ(Content(first.folder().File("second.orm")), "");
}

TEST(Import, SaysWhereAColumnIsNoMember) {
  const Imported first("a,b\n1,2\n");
  for (const std::string column : {"zz", "a.b", "a[", "[a,b]"}) {
    const Outcome outcome = ImportLike(first, "\"" + column + "\",b\n1,2\n");
    EXPECT_EQ(outcome.code, 2);
    EXPECT_NE(outcome.err.find("second.csv: line 1: column '" + column +
                               "' is no member of table; 'halyard defs " + first.file() + "' shows them"),
              std::string::npos)
        << outcome.err;
  }
}

}  // namespace
}  // namespace halyard::test
