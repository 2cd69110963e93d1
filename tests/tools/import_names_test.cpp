// halyard import: the names of definitions, columns and elements, and what is said of those
// that cannot be stored.
#include <gtest/gtest.h>

#include "tests/tools/support/imported.h"

namespace halyard::test {
namespace {

TEST(Import, SaysThatNamesOfColumnsAreNotUnique) {
  const Imported imported("a,b,A\n1,2,3\n");
  EXPECT_NE(imported.outcome().err.find(
                "table.csv: several columns are called 'A'; --member reaches only the first"),
            std::string::npos)
      << imported.outcome().err;
  EXPECT_EQ(imported.Exported(), "a,b,A\n1,2,3\n");
  EXPECT_EQ(Imported("a,b\n1,2\n").outcome().err, "");
}

// What is said of a table that is refused for a name.
std::string Refusal(const std::string& file, const std::string& table, std::vector<std::string> arguments) {
  const Folder folder;
  arguments.insert(arguments.begin(), {"import", folder.Make(file, table), "-o", folder.File("t.orm")});
  const Outcome outcome = RunTool(arguments);
  EXPECT_EQ(outcome.code, 2) << outcome.err;
  EXPECT_EQ(folder.Names(), std::vector<std::string>{file});
  return outcome.err;
}

TEST(Import, SaysThatTheTableNamesTheDefinition) {
  EXPECT_EQ(
      Refusal("żaglówka.csv", "a\n1\n", {}),
      "halyard: the name of the definition, 'żaglówka', has no place in windows-1252; --encoding utf-8 has "
      "one for every text; --name gives it another name\n");
}

// Longer than a command line can be on some systems.
TEST(ImportNames, SaysThatTheDefinitionsNameIsTooLong) {
  const std::string long_name(65536, 'n');
  EXPECT_EQ(
      Refusal("t.csv", "a\n1\n", {"--name", long_name}),
      "halyard: the name of the definition is longer than 65,535 bytes; --name gives it another name\n");
}

// Names of files are bytes on some systems.
TEST(ImportNames, SaysThatTheNameOfATableIsNoText) {
  EXPECT_NE(Refusal("t\xFF.csv", "a\n1\n", {"--encoding", "utf-8"})
                .find("is not UTF-8; --name gives it another name"),
            std::string::npos);
}

TEST(Import, SaysWhoseNameIsTooLong) {
  const std::string text(65536, 'n');
  EXPECT_EQ(Refusal("t.csv", text + "\n1\n", {}),
            "halyard: the name of a column is longer than 65,535 bytes\n");
  EXPECT_EQ(Refusal("t.csv", "a\n" + text + "\n", {"--enumerations", "1"}),
            "halyard: an element of an enumeration is longer than 65,535 bytes\n");
}

TEST(Import, SaysWhoseNameHasNoPlace) {
  EXPECT_EQ(
      Refusal("t.csv", "日\n1\n", {}),
      "halyard: the name of a column, '日', has no place in windows-1252; --encoding utf-8 has one for every "
      "text\n");
  EXPECT_EQ(
      Refusal("t.csv", "a\n日\n", {"--enumerations", "1"}),
      "halyard: an element of an enumeration, '日', has no place in windows-1252; --encoding utf-8 has one "
      "for every text\n");
}

}  // namespace
}  // namespace halyard::test
