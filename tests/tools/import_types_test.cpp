// halyard import: what columns become, by what is found in them or by what a person says.
#include <gtest/gtest.h>

#include "tests/tools/support/imported.h"

namespace halyard::test {
namespace {

// A table of one column with one text in it that cannot be stored as the type that is
// given, and what is said about that.
void ExpectMisfit(const std::string& type, const std::string& text, const std::string& why) {
  const Folder folder;
  const Outcome outcome = RunTool({"import", "--type", "a=" + type, folder.Make("t.csv", "a\n" + text + "\n"),
                                   "-o", folder.File("t.orm")});
  EXPECT_EQ(outcome.code, 1) << type << " " << text;
  EXPECT_NE(outcome.err.find("line 2: column a: '" + text + "' " + why), std::string::npos) << outcome.err;
}

const std::vector<std::string> kNoDates = {
    "2004-02-30", "2003-02-29",          "2004-04-31",          "2004-13-01",
    "2004-00-10", "2004-01-00",          "0099-01-01",          "0001-01-01",
    "0000-01-01", "2004-03-15 24:00:00", "2004-03-15 23:60:00", "2004-03-15T23:59:60"};

TEST(Import, RefusesDatesThatNoCalendarHas) {
  const Imported dates("a\n2004-02-29\n");
  for (const std::string& text : kNoDates) {
    ExpectMisfit("Date", text, "is no date such as 2004-03-15 or 2004-03-15 12:30:45");
    const std::string table = dates.folder().Make("more.csv", "a\n" + text + "\n");
    EXPECT_EQ(RunTool({"import", "--like", dates.file(), table, "-o", dates.folder().File("more.orm")}).code,
              1)
        << text;
  }
}

// They are no dates in an odd form, which somebody could ask for by a type.
TEST(Import, TakesDatesThatNoCalendarHasForPlainTexts) {
  for (const std::string& text : kNoDates) {
    const Imported imported("a\n" + text + "\n");
    EXPECT_EQ(imported.outcome().err, "");
    EXPECT_EQ(imported.Exported(), "a\n" + text + "\n");
  }
}

TEST(Import, KeepsTheFirstAndTheLastDate) {
  const std::string table = "a\n0100-01-01\n1899-12-30\n1900-02-28\n2000-02-29\n9999-12-31\n";
  EXPECT_EQ(Imported(table, {"--type", "a=Date"}).Exported(), table);
  const std::string times = "a\n0100-01-01 00:00:01\n1899-12-29 23:59:59\n9999-12-31 23:59:59\n";
  EXPECT_EQ(Imported(times, {"--type", "a=Date"}).Exported(), times);
}

TEST(Import, SaysWhichTypeKeepsOddTexts) {
  EXPECT_NE(Imported("a\n1.5\n2.50\n").outcome().err.find("; --type 'a=Real' decides otherwise"),
            std::string::npos);
  EXPECT_NE(Imported("a\n2004-03-15\n2004-03-15T12:30:45\n")
                .outcome()
                .err.find("dates kept as texts: '2004-03-15T12:30:45' would not come back as it is; --type "
                          "'a=Date' decides otherwise"),
            std::string::npos);
}

// The number of elements is stored in 16 bits.
TEST(Import, MakesNoEnumerationOfMoreElementsThanADefinitionHolds) {
  std::string table = "a\n";
  for (int i = 0; i < 65536; ++i) table += "w" + std::to_string(i) + "\n";
  const Folder folder;
  const Outcome refused =
      RunTool({"import", "--enumerations", "65536", folder.Make("t.csv", table), "-o", folder.File("t.orm")});
  EXPECT_EQ(refused.code, 2);
  EXPECT_NE(refused.err.find("--enumerations: '65536' is no number from 0 to 65535"), std::string::npos)
      << refused.err;
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"t.csv"});
  const Imported texts(table, {"--enumerations", "65535"});
  EXPECT_EQ(texts.Says({"defs"}).find("Enumeration a"), std::string::npos);
  EXPECT_NE(texts.Says({"doctor"}).find("sound"), std::string::npos);
}

TEST(Import, SaysWhatATypeHolds) {
  ExpectMisfit("Char", "-1", "is no whole number that fits; Char holds 0 to 255");
  ExpectMisfit("Byte", "256", "is no whole number that fits; Byte holds 0 to 255");
  ExpectMisfit("Short", "70000", "is no whole number that fits; Short holds -32768 to 32767");
  ExpectMisfit("Word", "40000", "is no whole number that fits; Word holds -32768 to 32767");
  ExpectMisfit("Long", "1.5", "is no whole number that fits; Long holds -2147483648 to 2147483647");
  ExpectMisfit("DWord", "4000000000", "is no whole number that fits; DWord holds -2147483648 to 2147483647");
  ExpectMisfit("Int64", "99999999999999999999",
               "is no whole number that fits; Int64 holds -2147483648 to 2147483647");
  ExpectMisfit("ShortReal", "1e300", "is too large for a ShortReal, which holds numbers up to 3.4028235e+38");
}

TEST(Import, TakesTheLimitsOfEachType) {
  for (const auto& [type, table] : std::vector<std::pair<std::string, std::string>>{
           {"Char", "a\n0\n255\n"},
           {"Byte", "a\n0\n255\n"},
           {"Short", "a\n-32768\n32767\n"},
           {"Word", "a\n-32768\n32767\n"},
           {"Long", "a\n-2147483648\n2147483647\n"},
           {"DWord", "a\n-2147483648\n2147483647\n"},
           {"Int64", "a\n-2147483648\n2147483647\n"},
           {"ShortReal", "a\n-3.4028235e+38\n3.4028235e+38\n"}}) {
    EXPECT_EQ(Imported(table, {"--type", "a=" + type}).Exported(), table) << type;
  }
}

}  // namespace
}  // namespace halyard::test
