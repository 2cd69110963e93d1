// halyard recover, merge and filter: files from files.
#include <gtest/gtest.h>

#include "tests/tools/support/run_tool.h"
#include "tests/tools/support/unit_bytes.h"

namespace halyard::test {
namespace {

std::string ValueOfOther(unsigned number, unsigned id) {
  return UnitBytes().U16(102).U16(14).U16(id).U32(number).bytes();
}

TEST(Recover, SavesTheWholeRecordsOfACutFile) {
  const Folder folder;
  const std::string whole = StationFile(3);
  const std::string out = folder.File("out.orm");
  const Outcome outcome =
      RunTool({"recover", folder.Make("cut.orm", whole.substr(0, whole.size() - 4)), "-o", out});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(Content(out), StationFile(2));
  EXPECT_NE(outcome.err.find("offset 138: 19 bytes lost: no whole record follows"), std::string::npos)
      << outcome.err;
  EXPECT_NE(outcome.err.find("3 records saved in " + out + ", 19 bytes lost"), std::string::npos)
      << outcome.err;
}

TEST(Recover, GoesOnBehindADamagedLength) {
  const Folder folder;
  std::string damaged = StationFile(5);
  damaged.replace(115, 4, "\xFF\xFF\xFF\x7F");
  const std::string out = folder.File("out.orm");
  const Outcome outcome = RunTool({"recover", folder.Make("a.orm", damaged), "-o", out});
  EXPECT_EQ(outcome.code, 1);
  std::string wanted = StationFile(5);
  wanted.erase(115, 23);
  EXPECT_EQ(Content(out), wanted);
  EXPECT_NE(outcome.err.find("offset 115: 23 bytes lost: these are no record"), std::string::npos)
      << outcome.err;
}

TEST(Recover, FindsRecordsBehindADamagedHeader) {
  const Folder folder;
  const std::string out = folder.File("out.orm");
  EXPECT_EQ(
      RunTool({"recover", folder.Make("a.orm", "garbage in front" + StationFile(2).substr(8)), "-o", out})
          .code,
      1);
  EXPECT_EQ(Content(out), StationFile(2));
}

TEST(Recover, CopiesASoundFileAsItIs) {
  const Folder folder;
  const std::string out = folder.File("out.orm");
  EXPECT_EQ(RunTool({"recover", folder.Make("a.orm", StationFile(4)), "-o", out}).code, 0);
  EXPECT_EQ(Content(out), StationFile(4));
}

TEST(Recover, WritesNothingWhereNothingIsWhole) {
  const Folder folder;
  const std::string file = folder.Make("a.orm", std::string(100000, 'x'));
  const Outcome outcome = RunTool({"recover", file, "-o", folder.File("out.orm")});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"a.orm"});
  EXPECT_NE(outcome.err.find("nothing can be saved"), std::string::npos) << outcome.err;
}

TEST(Recover, ReadsAPipe) {
  Setting setting;
  setting.input = StationFile(2) + "tail";
  const Folder folder;
  EXPECT_EQ(RunTool({"recover", "-", "-o", folder.File("out.orm")}, setting).code, 1);
  EXPECT_EQ(Content(folder.File("out.orm")), StationFile(2));
}

TEST(Merge, WritesEqualDefinitionsOnce) {
  const Folder folder;
  const std::string out = folder.File("out.orm");
  const Outcome outcome = RunTool(
      {"merge", folder.Make("a.orm", StationFile(2)), folder.Make("b.orm", StationFile(1)), "-o", out});
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_EQ(Content(out), StationFile(2) + Record(StationValue(5, "n0")));
}

TEST(Merge, RenumbersClashingIds) {
  const Folder folder;
  const std::string out = folder.File("out.orm");
  const std::string other = Header() + Record(OtherDefinition(3)) + Record(ValueOfOther(9, 3));
  const Outcome outcome =
      RunTool({"merge", folder.Make("a.orm", StationFile(1)), folder.Make("b.orm", other), "-o", out});
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_EQ(Content(out), StationFile(1) + Record(OtherDefinition(1)) + Record(ValueOfOther(9, 1)));
  EXPECT_NE(outcome.err.find("the definition Other has the id 1 in the new file instead of 3"),
            std::string::npos)
      << outcome.err;
}

TEST(Merge, UnitesDefinitionsThatDifferInTheirIdOnly) {
  const Folder folder;
  const std::string out = folder.File("out.orm");
  const std::string second = Header() + Record(StationDefinition(8)) + Record(StationValue(6, "x", 8));
  EXPECT_EQ(
      RunTool({"merge", folder.Make("a.orm", StationFile(1)), folder.Make("b.orm", second), "-o", out}).code,
      0);
  EXPECT_EQ(Content(out), StationFile(1) + Record(StationValue(6, "x", 3)));
}

TEST(Merge, RefusesValuesWithoutDefinition) {
  const Folder folder;
  const std::string lost = Header() + Record(StationValue(6, "x"));
  const Outcome outcome = RunTool({"merge", folder.Make("a.orm", StationFile(1)), folder.Make("b.orm", lost),
                                   "-o", folder.File("out.orm")});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"a.orm", "b.orm"}));
  EXPECT_NE(
      outcome.err.find(
          "b.orm: offset 8, record 1: the definition of the value, Structure 3, does not stand before it"),
      std::string::npos)
      << outcome.err;
}

TEST(Merge, RefusesWhenIdsRunOut) {
  const Folder folder;
  std::string distinct = Header();
  for (unsigned id = 1; id <= 0xFFFF; ++id)
    distinct += Record(StationDefinition(id, "S" + std::to_string(id)));
  const Outcome outcome =
      RunTool({"merge", folder.Make("a.orm", distinct),
               folder.Make("b.orm", Header() + Record(OtherDefinition())), "-o", folder.File("out.orm")});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_NE(outcome.err.find("all 65,535 ids of its type are taken"), std::string::npos) << outcome.err;
}

TEST(Filter, KeepsChosenDefinitions) {
  const Folder folder;
  const std::string out = folder.File("out.orm");
  const std::string mixed =
      StationFile(1) + Record(OtherDefinition(9)) + Record(ValueOfOther(7, 9)) + Record(StationValue(8, "z"));
  EXPECT_EQ(RunTool({"filter", "-d", "Other", folder.Make("a.orm", mixed), "-o", out}).code, 0);
  EXPECT_EQ(Content(out), Header() + Record(OtherDefinition(9)) + Record(ValueOfOther(7, 9)));
}

TEST(Filter, KeepsTheDefinitionsThatARangeNeeds) {
  const Folder folder;
  const std::string out = folder.File("out.orm");
  EXPECT_EQ(RunTool({"filter", "-r", "3-4", folder.Make("a.orm", StationFile(5)), "-o", out}).code, 0);
  EXPECT_EQ(Content(out), Header() + Record(StationDefinition()) + Record(StationValue(6, "n1")) +
                              Record(StationValue(7, "n2")));
}

TEST(Convert, MayWriteOverItsInput) {
  const Folder folder;
  const std::string file = folder.Make("a.csv", "a\n1\n");
  EXPECT_EQ(RunTool({"import", file, "-o", file}).code, 0);
  EXPECT_EQ(RunTool({"recover", file, "-o", file}).code, 0);
  EXPECT_EQ(RunTool({"merge", file, file, "-o", file}).code, 0);
  EXPECT_EQ(RunTool({"export", file, "-o", file}).code, 0);
  EXPECT_EQ(Content(file), "a\n1\n1\n");
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"a.csv"});
}

TEST(Filter, MayWriteOverItsInput) {
  const Folder folder;
  const std::string file = folder.Make("a.orm", StationFile(3));
  EXPECT_EQ(RunTool({"filter", "-r", "1-2", file, "-o", file}).code, 0);
  EXPECT_EQ(Content(file), StationFile(1));
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"a.orm"});
}

}  // namespace
}  // namespace halyard::test
