// halyard cat: values as tables, trees and JSON.
#include <gtest/gtest.h>

#include "tests/tools/support/run_tool.h"
#include "tests/tools/support/unit_bytes.h"

namespace halyard::test {
namespace {

TEST(Cat, ShowsAnAlignedTable) {
  const Folder folder;
  const std::string file =
      folder.Make("a.orm", Header() + Record(StationDefinition()) + Record(StationValue(5, "hi")) +
                               Record(StationWithoutLabel(12345)));
  const Outcome outcome = RunTool({"cat", file});
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_EQ(outcome.out,
            "Station\n"
            "#  Depth  Label  Salt\n"
            "2      5  hi      0.5\n"
            "3  12345  null    0.5\n");
}

TEST(Cat, WritesOneJsonDocumentForEachValue) {
  const Folder folder;
  const std::string file =
      folder.Make("a.orm", Header() + Record(StationDefinition()) + Record(StationValue(5, "h\"i")) +
                               Record(StationWithoutLabel(6)));
  EXPECT_EQ(RunTool({"cat", "--json", file}).out,
            "{\"Depth\":5,\"Label\":\"h\\\"i\",\"Salt\":0.5}\n"
            "{\"Depth\":6,\"Label\":null,\"Salt\":0.5}\n");
}

TEST(Cat, DrawsTrees) {
  const Folder folder;
  EXPECT_EQ(RunTool({"cat", "--tree", folder.Make("a.orm", StationFile(1))}).out,
            "2: Station\n├─ Depth 5\n├─ Label n0\n└─ Salt 0.5\n");
}

TEST(Cat, ChoosesRecordsByRange) {
  const Folder folder;
  const std::string file = folder.Make("a.orm", StationFile(5));
  EXPECT_EQ(RunTool({"cat", "--json", "-r", "3-4", "-m", "Depth", file}).out,
            "{\"Depth\":6}\n{\"Depth\":7}\n");
  EXPECT_EQ(RunTool({"cat", "--json", "-r", "6-", "-m", "Depth", file}).out, "{\"Depth\":9}\n");
  EXPECT_EQ(RunTool({"cat", "--json", "-r", "2", "-m", "Depth", file}).out, "{\"Depth\":5}\n");
}

TEST(Cat, ChoosesDefinitionsByNameAndId) {
  const Folder folder;
  const std::string file = folder.Make(
      "a.orm", Header() + Record(StationDefinition(3, "One")) + Record(StationDefinition(4, "Two")) +
                   Record(StationValue(1, "a", 3)) + Record(StationValue(2, "b", 4)));
  EXPECT_EQ(RunTool({"cat", "--json", "-m", "Depth", "-d", "two", file}).out, "{\"Depth\":2}\n");
  EXPECT_EQ(RunTool({"cat", "--json", "-m", "Depth", "-d", "3", file}).out, "{\"Depth\":1}\n");
  const Outcome none = RunTool({"cat", "-d", "Three", file});
  EXPECT_EQ(none.code, 2);
  EXPECT_NE(none.err.find("there is no definition 'Three'"), std::string::npos) << none.err;
}

TEST(Cat, TakesMembersByPath) {
  const Folder folder;
  const std::string file = folder.Make("a.orm", StationFile(1));
  EXPECT_EQ(RunTool({"cat", "-m", ".salt", "-m", "DEPTH", file}).out,
            "Station\n#  Salt  Depth\n2   0.5      5\n");
  EXPECT_EQ(RunTool({"cat", "-m", "[Depth,Label]", file}).out, "Station\n#  Depth  Label\n2      5  n0\n");
  for (const std::string path : {"Speed", "Depth.X", "Depth[0]", "Depth[", "[Depth,0]"}) {
    const Outcome outcome = RunTool({"cat", "-m", path, file});
    EXPECT_EQ(outcome.code, 2) << path;
    EXPECT_NE(outcome.err.find("the member path '" + path + "' cannot be followed"), std::string::npos)
        << outcome.err;
  }
}

TEST(Cat, EscapesWhatATerminalWouldObey) {
  const Folder folder;
  const std::string file = folder.Make(
      "a.orm", Header() + Record(StationDefinition(3, "S\x1B[2J")) + Record(StationValue(5, "a\nb\x07")));
  EXPECT_EQ(RunTool({"cat", "-m", "Label", file}).out, "S\\x1B[2J\n#  Label\n2  a\\nb\\x07\n");
}

TEST(Cat, ReadsTextsInTheChosenForm) {
  const Folder folder;
  const std::string file =
      folder.Make("a.orm", Header() + Record(StationDefinition()) + Record(StationValue(5, "\xC3\xA9\x80")));
  EXPECT_EQ(RunTool({"cat", "--json", "-m", "Label", file}).out, "{\"Label\":\"Ã©€\"}\n");
  EXPECT_EQ(RunTool({"cat", "--json", "-m", "Label", "--encoding", "utf-8", file}).out,
            "{\"Label\":\"é\xEF\xBF\xBD\"}\n");
}

TEST(Cat, ShowsWhatIsWholeBeforeTheFileBreaksOff) {
  const Folder folder;
  const std::string whole = StationFile(3);
  const Outcome outcome =
      RunTool({"cat", "--json", "-m", "Depth", folder.Make("a.orm", whole.substr(0, whole.size() - 1))});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.out, "{\"Depth\":5}\n{\"Depth\":6}\n");
  EXPECT_NE(
      outcome.err.find("offset 138, record 4: the record announces 19 bytes and the file ends after 18"),
      std::string::npos)
      << outcome.err;
}

TEST(Cat, StartsANewTableWhereTheDefinitionChanges) {
  const Folder folder;
  const std::string file = folder.Make(
      "a.orm", Header() + Record(StationDefinition()) + Record(StationValue(5, "a")) +
                   Record(OtherDefinition(9)) + Record(UnitBytes().U16(102).U16(14).U16(9).U32(77).bytes()));
  EXPECT_EQ(RunTool({"cat", file}).out,
            "Station\n#  Depth  Label  Salt\n2      5  a       0.5\n\nOther\n#  Number\n4      77\n");
}

}  // namespace
}  // namespace halyard::test
