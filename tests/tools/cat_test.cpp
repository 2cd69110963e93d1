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

// A file with one array value of two structures: {Depth, Samples[3] of Long}.
std::string ArrayFile() {
  const std::string numbers =
      UnitBytes().U16(0).Text("").Text("").U16(3).U16(8).U16(4).U16(8).U16(4).U16(0).bytes();
  UnitBytes row;
  row.U16(2).Text("Row").Text("").U16(2).U16(4);
  row.Text("Depth").Text("").U8(0).U16(8).U16(4).U16(8).U16(4).U16(0);
  row.Text("Samples").Text("").U8(0).U16(15).U16(12).Raw(numbers);
  UnitBytes array;
  array.U16(101).U16(15).U16(1).Text("Rows").Text("").U16(0).U16(14).U16(0).Raw(row.bytes());
  UnitBytes value;
  value.U16(102).U16(15).U16(1).U32(2);
  for (const unsigned first : {10U, 20U}) value.U32(first).U32(first + 1).U32(first + 2).U32(first + 3);
  return Header() + Record(array.bytes()) + Record(value.bytes());
}

TEST(Cat, ShowsNestedArrays) {
  const Folder folder;
  const std::string file = folder.Make("a.orm", ArrayFile());
  EXPECT_EQ(RunTool({"cat", file}).out,
            "Rows\n   #  Depth  Samples\n2[0]     10  [11,12,13]\n2[1]     20  [21,22,23]\n");
  EXPECT_EQ(RunTool({"cat", "--json", file}).out,
            "[{\"Depth\":10,\"Samples\":[11,12,13]},{\"Depth\":20,\"Samples\":[21,22,23]}]\n");
}

TEST(Cat, TakesThePathsOfTheNumericTransfer) {
  const Folder folder;
  const std::string file = folder.Make("a.orm", ArrayFile());
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"Samples[2]", "[{\"Samples[2]\":13},{\"Samples[2]\":23}]\n"},
      {"Samples[1,2]", "[{\"Samples[1]\":12},{\"Samples[1]\":22}]\n"},
      {"[1].Depth", "[{\"Depth\":10},{\"Depth\":20}]\n"},
      {"[0][Depth]", "[{\"Depth\":10},{\"Depth\":20}]\n"},
      {"Depth[Depth]", "[{\"Depth\":10},{\"Depth\":20}]\n"}};
  for (const auto& [path, wanted] : cases) {
    const Outcome outcome = RunTool({"cat", "--json", "-m", path, file});
    EXPECT_EQ(outcome.out, wanted) << path << outcome.err;
  }
  EXPECT_EQ(RunTool({"cat", "--tree", "-m", "[Depth,Samples]", "-r", "2", file}).out.substr(0, 47),
            "2[0]: Rows\n├─ Depth 10\n└─ Samples Array")
      << RunTool({"cat", "--tree", "-m", "[Depth,Samples]", "-r", "2", file}).out;
  for (const std::string path :
       {"Samples[3]", "Samples[-1]", "Samples[]", "Samples.[0]", "Depth]", "[-1].Depth"}) {
    EXPECT_EQ(RunTool({"cat", "-m", path, file}).code, 2) << path;
  }
}

TEST(Export, WritesRawNumbersOfNestedArrays) {
  const Folder folder;
  const std::string file = folder.Make("a.orm", ArrayFile());
  EXPECT_EQ(RunTool({"export", "--raw", "Byte", "-m", "Samples[2]", "-m", "[1].Depth", file}).out,
            "\x0D\x0A\x17\x14");
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
