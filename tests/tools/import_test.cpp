// halyard import: tables become files, and export gives the same tables again.
#include <gtest/gtest.h>

#include <random>

#include "tests/tools/support/imported.h"

namespace halyard::test {
namespace {

TEST(Import, FindsTheNarrowestTypes) {
  const std::string defs =
      Imported("a,b,c,d,e,f,g,h\n0,-1,40000,0.5,2004-03-15,x,,12345678901\n255,300,-5,2,2026-01-31,7,1,1\n")
          .Says({"defs", "-d", "1"});
  for (const std::string line :
       {"a  Byte,", "b  Short,", "c  Long,", "d  Real,", "e  Date,", "f  String,", "g?  Byte,", "h  Real,"}) {
    EXPECT_NE(defs.find("─ " + line), std::string::npos) << line << " in\n" << defs;
  }
}

TEST(Import, RoundTripsTables) {
  ExpectRoundTrip("a\r\n1\r\n");
  ExpectRoundTrip("a,b\n1,x\n,\n3,\"\"\n");
  ExpectRoundTrip("quoted\n\"a,b\"\n\"say \"\"hi\"\"\"\n\"two\nlines\"\n\"two\r\nlines\"\n");
  ExpectRoundTrip("one\n\n1\n\n");
  ExpectRoundTrip("leading\n007\n010\n");
  ExpectRoundTrip("empty column,x\n,1\n,2\n");
  ExpectRoundTrip("Köln,€\nZürich,“quoted”\n");
}

// In quotes it is text; at the beginning of a file it would be none.
TEST(Import, RoundTripsATextThatBeginsWithTheMarkOfAFile) {
  const std::string table = "\"\xEF\xBB\xBFmark\",b\n1,2\n";
  const std::vector<std::string> utf8 = {"--encoding", "utf-8"};
  EXPECT_EQ(Imported(table, utf8).Exported(utf8), table);
}

TEST(Import, RoundTripsNumbersAsTheyWereWritten) {
  ExpectRoundTrip("price\n1.50\n20.00\n-3.25\n");
  ExpectRoundTrip("python\n3.0\n1e-05\n0.1\n");
  ExpectRoundTrip("plain\n3\n0.25\n-1e+300\n");
  ExpectRoundTrip("large\n2147483648\n-9007199254740992\n12345678901\n");
  ExpectRoundTrip("too large\n9007199254740993\n18446744073709551616\n");
  ExpectRoundTrip("limits\n-2147483648\n2147483647\n");
  ExpectRoundTrip("odd\n1.5\n2.50\n+3\n");
}

TEST(Import, RoundTripsDates) {
  ExpectRoundTrip("day\n2004-03-15\n1999-12-31\n");
  ExpectRoundTrip("time\n2004-03-15 12:30:45\n2004-03-16 00:00:00\n");
  ExpectRoundTrip("iso\n2004-03-15T12:30:45\n2004-03-16T00:00:00\n");
  ExpectRoundTrip("mixed\n2004-03-15\n2004-03-15 12:30:45\n");
  ExpectRoundTrip("none\n2004-02-30\n2004-13-01\n");
}

TEST(Import, SaysWhyNumbersStayTexts) {
  const Imported imported("odd\n1.5\n2.50\n");
  EXPECT_NE(
      imported.outcome().err.find("column odd: numbers kept as texts: '2.50' would not come back as it is"),
      std::string::npos)
      << imported.outcome().err;
  EXPECT_EQ(Imported("odd\n1.5\n2.50\n", {"--type", "odd=Real"}).Exported(), "odd\n1.5\n2.5\n");
}

TEST(Import, MakesEnumerationsOnRequest) {
  const std::string table = "colour,n\nred,1\ngreen,2\n,3\nred,4\n";
  const Imported imported(table, {"--enumerations", "2"});
  EXPECT_NE(imported.Says({"defs", "-d", "1"}).find("red = 0"), std::string::npos) << imported.Says({"defs"});
  EXPECT_NE(imported.Says({"defs", "-d", "1"}).find("green = 1"), std::string::npos);
  EXPECT_EQ(imported.Exported(), table);
  EXPECT_EQ(Imported(table, {"--enumerations", "1"}).Says({"defs"}).find("red = 0"), std::string::npos);
}

TEST(Import, MakesOneArrayOnRequest) {
  const std::string table = "a,b\n1,x\n2,\n300,zz\n";
  const Imported imported(table, {"--array"});
  EXPECT_EQ(imported.Exported(), table);
  EXPECT_NE(imported.Says({"info"}).find("values          1 record"), std::string::npos)
      << imported.Says({"info"});
  EXPECT_EQ(imported.Says({"cat", "-m", "a"}).substr(0, 20), "table\n   #    a\n3[0]");
}

TEST(Import, NamesLineAndColumnOfWhatDoesNotFit) {
  const Folder folder;
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"a,b\n1\n", "line 2: 1 field instead of 2; is the delimiter right?"},
      {"a\n\"x\n", "line 2: a quoted field has no closing quote"},
      {"a\n\"x\"y\n", "line 2: there is text behind the closing quote of a field"},
      {"a\nx\xFFy\n", "line 2: a text is not UTF-8; is --table-encoding windows-1252 right?"},
      {std::string("a\nx\0y\n", 6), "line 2: there is a zero byte in a text"},
      {"a\n" + std::string(70000, 'y') + "\n",
       "column a: '" + std::string(59, 'y') + "…' has 70000 bytes, and there is room for 65535"},
      {"", "it is empty"}};
  for (const auto& [table, fault] : cases) {
    const Outcome outcome = RunTool({"import", folder.Make("t.csv", table), "-o", folder.File("t.orm")});
    EXPECT_EQ(outcome.code, 1) << fault;
    EXPECT_NE(outcome.err.find(fault), std::string::npos) << outcome.err;
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"t.csv"});
  }
}

TEST(Import, LosesNoCharacterSilently) {
  const Folder folder;
  const std::string table = folder.Make("t.csv", "a\n日本\n");
  const Outcome refused = RunTool({"import", table, "-o", folder.File("t.orm")});
  EXPECT_EQ(refused.code, 1);
  EXPECT_NE(refused.err.find("line 2: column a: '日本' has a character that has no place in windows-1252; "
                             "--encoding utf-8 has one"),
            std::string::npos)
      << refused.err;
  EXPECT_EQ(RunTool({"import", "--encoding", "utf-8", table, "-o", folder.File("t.orm")}).code, 0);
  EXPECT_EQ(RunTool({"export", "--encoding", "utf-8", folder.File("t.orm")}).out, "a\n日本\n");
}

TEST(Import, ReadsAndWritesTablesInWindows1252) {
  const std::string table = "name,\x80\nZ\xFCrich,1\n\x84x\x93,2\n";
  const Imported imported(table, {"--table-encoding", "windows-1252"});
  EXPECT_EQ(imported.Exported({"--table-encoding", "windows-1252"}), table);
  EXPECT_EQ(imported.Exported(), "name,€\nZürich,1\n„x“,2\n");
}

TEST(Import, TakesOtherDelimitersAndNoHeader) {
  const std::string table = "1;a,b\n2;c\n";
  const Imported imported(table, {"--delimiter", ";", "--no-header"});
  EXPECT_EQ(imported.Exported({"--delimiter", ";", "--no-header"}), table);
  EXPECT_EQ(imported.Exported({"--delimiter", "tab"}), "Column1\tColumn2\n1\ta,b\n2\tc\n");
}

TEST(Import, ReadsAPipeAndWritesOne) {
  EXPECT_EQ(RunShell("printf 'a,b\\n1,x\\n' | $HALYARD import - -o - | $HALYARD export -").out, "a,b\n1,x\n");
}

// Tables of all kinds of fields, made at random from a fixed seed.
class RandomTable {
 public:
  explicit RandomTable(unsigned seed) : random_(seed) {}

  std::string Make() {
    const unsigned columns = 1 + Below(6);
    const unsigned rows = 1 + Below(30);
    std::vector<unsigned> kinds;
    std::string table;
    for (unsigned i = 0; i < columns; ++i) {
      kinds.push_back(Below(6));
      table += (i == 0 ? "c" : ",c") + std::to_string(i);
    }
    table += "\n";
    for (unsigned row = 0; row < rows; ++row) {
      for (unsigned i = 0; i < columns; ++i) table += (i == 0 ? "" : ",") + Field(kinds[i]);
      table += "\n";
    }
    return table;
  }

 private:
  unsigned Below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }

  std::string Field(unsigned kind) {
    if (Below(8) == 0) return "";
    switch (kind) {
      case 0:
        return std::to_string(static_cast<int>(Below(600)) - 300);
      case 1:
        return std::to_string(static_cast<long long>(random_()) * 1000 - 2'000'000'000'000LL);
      case 2:
        return std::to_string(Below(100000)) + "." + std::to_string(10 + Below(90));
      case 3: {
        const std::string day = std::to_string(10 + Below(19));
        return "20" + std::to_string(10 + Below(80)) + "-0" + std::to_string(1 + Below(9)) + "-" + day;
      }
      case 4:
        return Quoted();
      default:
        return "w" + std::to_string(Below(5));
    }
  }

  // A text with everything that needs quotes, and characters of one, two and three bytes.
  std::string Quoted() {
    static const std::vector<std::string> kPieces = {"a", " ", "\"\"", ",", "\n", "\r\n",
                                                     "é", "€", "0",    "ß", ";",  "'"};
    std::string text = "\",";
    for (unsigned i = Below(8); i > 0; --i) text += kPieces[Below(static_cast<unsigned>(kPieces.size()))];
    return text + "\"";
  }

  std::mt19937 random_;
};

TEST(Import, RoundTripsRandomTables) {
  const unsigned count = IsWindowsTool() ? 3 : 60;
  for (unsigned seed = 1; seed <= count; ++seed) {
    const std::string table = RandomTable(seed).Make();
    SCOPED_TRACE("seed " + std::to_string(seed));
    ExpectRoundTrip(table, seed % 3 == 0 ? std::vector<std::string>{"--array"} : std::vector<std::string>{});
  }
}

}  // namespace
}  // namespace halyard::test
