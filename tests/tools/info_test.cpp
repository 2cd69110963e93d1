// halyard info: what is in files.
#include <gtest/gtest.h>

#include "tests/tools/support/run_tool.h"
#include "tests/tools/support/unit_bytes.h"

namespace halyard::test {
namespace {

bool Has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

TEST(Info, ShowsSizesRecordsAndDefinitions) {
  const Folder folder;
  const Outcome outcome = RunTool({"info", folder.Make("a.orm", StationFile(3))});
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_TRUE(Has(outcome.out, "size              161 bytes")) << outcome.out;
  EXPECT_TRUE(Has(outcome.out, "records           4 records in 153 bytes")) << outcome.out;
  EXPECT_TRUE(Has(outcome.out, "definitions     1 record in 84 bytes")) << outcome.out;
  EXPECT_TRUE(Has(outcome.out, "values          3 records in 69 bytes")) << outcome.out;
  EXPECT_TRUE(Has(outcome.out, "first record at 8, last at 138")) << outcome.out;
  EXPECT_TRUE(Has(outcome.out, "unread tail       none")) << outcome.out;
  EXPECT_TRUE(
      Has(outcome.out, "Station     Structure   3     8        3  varying       3     69        92      138"))
      << outcome.out;
}

TEST(Info, GroupsNumbersForPeopleOnly) {
  const Folder folder;
  const std::string file = folder.Make("a.orm", StationFile(100));
  EXPECT_TRUE(Has(RunTool({"info", file}).out, "2,482 bytes (2.5 kB)")) << RunTool({"info", file}).out;
  EXPECT_TRUE(Has(RunTool({"info", "--json", file}).out, "\"size\": 2482"))
      << RunTool({"info", "--json", file}).out;
}

TEST(Info, WritesJsonWithMembersInOrder) {
  const Folder folder;
  const std::string out = RunTool({"info", "--json", folder.Make("a.orm", StationFile(1))}).out;
  const std::size_t file = out.find("\"file\"");
  const std::size_t records = out.find("\"records\"");
  const std::size_t definitions = out.find("\"definitions\": [");
  EXPECT_LT(file, records);
  EXPECT_LT(records, definitions);
  EXPECT_NE(definitions, std::string::npos) << out;
  EXPECT_TRUE(Has(out, "\"fixed_layout\": false")) << out;
}

TEST(Info, ReadsStandardInput) {
  Setting setting;
  setting.input = StationFile(2);
  const Outcome outcome = RunTool({"info", "-"}, setting);
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_TRUE(Has(outcome.out, "standard input")) << outcome.out;
  EXPECT_TRUE(Has(outcome.out, "size              138 bytes")) << outcome.out;
}

TEST(Info, TellsOfAnUnreadTail) {
  const Folder folder;
  const std::string whole = StationFile(2);
  const Outcome outcome = RunTool({"info", folder.Make("cut.orm", whole.substr(0, whole.size() - 3))});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_TRUE(Has(outcome.out,
                  "unread tail of 20 bytes at offset 115: the record announces 19 bytes and the file ends "
                  "after 16; 'halyard recover' saves the whole records"))
      << outcome.out;
}

TEST(Info, CountsWholeRecordsOfAPipeOnly) {
  Setting setting;
  setting.input = StationFile(2) + UnitBytes().U32(1000).U16(102).U16(14).U16(3).bytes();
  const Outcome outcome = RunTool({"info", "-"}, setting);
  EXPECT_EQ(outcome.code, 1);
  EXPECT_TRUE(Has(outcome.out, "records           3 records in 130 bytes")) << outcome.out;
  EXPECT_TRUE(Has(outcome.out, "unread tail of 10 bytes at offset 138")) << outcome.out;
}

TEST(Info, GoesOnWithTheOtherFiles) {
  const Folder folder;
  const Outcome outcome = RunTool({"info", folder.File("none.orm"), folder.Make("a.orm", StationFile(1))});
  EXPECT_EQ(outcome.code, 3);
  EXPECT_TRUE(Has(outcome.err, "none.orm: cannot be read: No such file or directory")) << outcome.err;
  EXPECT_TRUE(Has(outcome.out, "2 records")) << outcome.out;
}

TEST(Info, CountsValuesWithoutDefinition) {
  const Folder folder;
  const Outcome outcome = RunTool({"info", folder.Make("a.orm", Header() + Record(StationValue(1, "x")))});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_TRUE(Has(outcome.out, "1 value without a definition, the first at offset 8")) << outcome.out;
}

TEST(Info, UsesNoColoursInAPipe) {
  const Folder folder;
  EXPECT_FALSE(Has(RunTool({"info", folder.Make("a.orm", StationFile(1))}).out, "\x1B"));
}

}  // namespace
}  // namespace halyard::test
