// Help, the manual page, the completion script, and pictures of definitions.
#include <gtest/gtest.h>

#include "tests/tools/support/run_tool.h"
#include "tests/tools/support/unit_bytes.h"

namespace halyard::test {
namespace {

const std::vector<std::string> kVerbs = {"info",   "defs",    "cat",   "doctor", "export",
                                         "import", "recover", "merge", "filter"};

TEST(Reference, HelpNamesEveryVerb) {
  const Outcome outcome = RunTool({"--help"});
  EXPECT_EQ(outcome.code, 0);
  for (const std::string& verb : kVerbs)
    EXPECT_NE(outcome.out.find("  " + verb + " "), std::string::npos) << verb;
  EXPECT_NE(outcome.out.find("Exit codes: 0 fine, 1 the file has faults, 2 usage, 3 cannot read or write."),
            std::string::npos);
}

TEST(Reference, HelpCallsVerbsVerbs) {
  const std::string help = RunTool({"--help"}).out;
  EXPECT_NE(help.find("Usage: halyard [OPTIONS] VERB\n"), std::string::npos) << help;
  EXPECT_NE(help.find("\nVerbs:\n"), std::string::npos) << help;
  EXPECT_EQ(help.find("ubcommand"), std::string::npos) << help;
}

TEST(Reference, HelpSaysWhatIsChosen) {
  EXPECT_NE(RunTool({"defs", "--help"}).out.find("Only this definition, by name or id"), std::string::npos);
  EXPECT_NE(RunTool({"cat", "--help"}).out.find("Only values of this definition, by name or id"),
            std::string::npos);
}

TEST(Reference, HelpOfEveryVerbHasExamples) {
  for (const std::string& verb : kVerbs) {
    const Outcome outcome = RunTool({verb, "--help"});
    EXPECT_EQ(outcome.code, 0) << verb;
    EXPECT_NE(outcome.out.find("Examples:\n  halyard " + verb), std::string::npos) << outcome.out;
  }
}

TEST(Reference, TheManualPageIsSoundAndNamesEverything) {
  const std::string page = RunTool({"manual"}).out;
  for (const std::string& verb : kVerbs)
    EXPECT_NE(page.find("\n.SS " + verb + "\n"), std::string::npos) << verb;
  for (const std::string option :
       {"\\-\\-layout", "\\-\\-svg", "\\-\\-json", "\\-\\-like", "\\-\\-raw", "\\-\\-encoding"}) {
    EXPECT_NE(page.find(option), std::string::npos) << option;
  }
  EXPECT_NE(page.find(". Only with \\-\\-like\n"), std::string::npos);
  EXPECT_NE(page.find(". Not with \\-\\-enumerations, \\-\\-name, \\-\\-type\n"), std::string::npos);
  EXPECT_EQ(page.find("\n'"), std::string::npos);
}

TEST(Reference, BashCompletesVerbsAndOptions) {
  const auto complete = [](const std::string& words, int position) {
    return RunShell("source <($HALYARD completion); COMP_WORDS=(" + words +
                    "); COMP_CWORD=" + std::to_string(position) +
                    "; _halyard; for reply in \"${COMPREPLY[@]}\"; do echo \"$reply\"; done")
        .out;
  };
  EXPECT_EQ(complete("halyard do", 1), "doctor\n");
  EXPECT_EQ(complete("halyard cat --tr", 2), "--tree\n");
  EXPECT_EQ(complete("halyard cat --encoding utf", 3), "utf-8\n");
  EXPECT_EQ(complete("halyard import --li", 2), "--like\n");
  const Folder folder;
  const std::string file = folder.Make("sounding.orm", "");
  EXPECT_EQ(complete("halyard cat " + folder.File("sou"), 2), file + "\n");
  EXPECT_EQ(complete("halyard export --raw Short", 3), "Short\nShortReal\n");
  const std::string spaced = folder.Make("my sounding.orm", "");
  EXPECT_EQ(complete("halyard cat " + folder.File("my"), 2), spaced + "\n");
  EXPECT_EQ(complete("halyard cat " + folder.File("none"), 2), "");
}

TEST(Defs, DrawsTreeAndLayout) {
  const Folder folder;
  const Outcome outcome = RunTool({"defs", "--layout", folder.Make("a.orm", StationFile(1))});
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_EQ(
      outcome.out,
      "Station Structure, id 3, 8 bytes, varying layout, record 1\n"
      "├─ Depth  Long, offset 0, 4 bytes\n"
      "├─ Label?  String, piece 1 of varying size, can be null\n"
      "└─ Salt  ShortReal, offset 4, 4 bytes\n"
      "\n"
      "        0   1   2   3   4   5   6   7   8   9  10  11  12  13  14  15\n"
      "      +---------------+\n"
      "   0  |     Depth     |\n"
      "      +---------------+\n"
      "   4  <Label> String: 1 byte: 1 where it is null, else 0 and then 2 bytes length, then the text\n"
      "      +---------------+\n"
      "  +0  |     Salt      |\n"
      "      +---------------+\n");
}

TEST(Defs, ShowsRangesAndScripts) {
  UnitBytes unit;
  unit.U16(101).U16(14).U16(1).Text("Limits").Text("").U16(1).U16(4);
  unit.Text("Speed").Text("").U8(0).U16(8).U16(4).U16(8).U16(4).U16(8).U32(0xFFFFFFFB).U32(100).Text("x>0");
  const Folder folder;
  const std::string out = RunTool({"defs", folder.Make("a.orm", Header() + Record(unit.bytes()))}).out;
  EXPECT_NE(out.find("Speed  Long, from -5 to 100, script 'x>0', offset 0, 4 bytes"), std::string::npos)
      << out;
}

TEST(Defs, DrawsAPicture) {
  const Folder folder;
  const Outcome outcome =
      RunTool({"defs", "--svg", "-", folder.Make("a.orm", Header() + Record(StationDefinition(3, "<&>")))});
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_EQ(outcome.out.substr(0, 5), "<svg ");
  EXPECT_NE(outcome.out.find(">&lt;&amp;&gt;, id 3, 8 bytes and more</text>"), std::string::npos)
      << outcome.out;
  EXPECT_NE(outcome.out.find("<title>Depth Long, 4 bytes</title>"), std::string::npos) << outcome.out;
}

}  // namespace
}  // namespace halyard::test
