// halyard doctor: every kind of fault, with its place.
#include <gtest/gtest.h>

#include "tests/tools/support/run_tool.h"
#include "tests/tools/support/unit_bytes.h"

namespace halyard::test {
namespace {

// What the doctor says of a file with that content, without its name.
Outcome Examine(const std::string& content) {
  const Folder folder;
  const std::string file = folder.Make("a.orm", content);
  Outcome outcome = RunTool({"doctor", file});
  for (std::size_t at = 0; (at = outcome.out.find(file + ": ")) != std::string::npos;)
    outcome.out.erase(at, file.size() + 2);
  return outcome;
}

void ExpectFault(const std::string& content, const std::string& line) {
  const Outcome outcome = Examine(content);
  EXPECT_EQ(outcome.code, 1) << line;
  EXPECT_NE(("\n" + outcome.out).find("\n" + line + "\n"), std::string::npos)
      << "wanted: " << line << "\nfound: " << outcome.out;
  EXPECT_EQ(outcome.err, "");
}

TEST(Doctor, FindsASoundFileSound) {
  const Outcome outcome = Examine(StationFile(3));
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.out, "sound in 4 records, 161 bytes\n");
}

TEST(Doctor, FindsAFileOfTheHeaderAloneSound) {
  EXPECT_EQ(Examine(Header()).out, "sound in 0 records, 8 bytes\n");
}

TEST(Doctor, NamesAWrongVersion) {
  ExpectFault(std::string("Orm\0\0\0\0\x40", 8),
              "offset 0: fault: no file of units: its format version is 2, not 1.0; 'halyard recover' looks "
              "for records in a "
              "damaged file");
}

TEST(Doctor, NamesALengthBeyondTheEnd) {
  ExpectFault(StationFile(1) + UnitBytes().U32(0xFFFFFFFF).bytes(),
              "offset 115, record 3: fault: the record announces 4,294,967,295 bytes and the file ends after "
              "0; 'halyard "
              "recover' saves the whole records");
}

TEST(Doctor, NamesACutLength) {
  ExpectFault(StationFile(1) + "ab",
              "offset 115, record 3: fault: the length of a record has 2 of 4 bytes; 'halyard recover' saves "
              "the whole records");
}

TEST(Doctor, NamesAnUnknownKind) {
  ExpectFault(StationFile(0) + Record(UnitBytes().U16(100).U16(14).U32(0).bytes()),
              "offset 96, record 2: fault: the unit is of kind 100, neither a definition nor a value");
}

TEST(Doctor, NamesAnUnresolvedId) {
  ExpectFault(
      Header() + Record(StationValue(1, "a", 7)),
      "offset 12, record 1: fault: the definition of the value, Structure 7, does not stand before it");
}

TEST(Doctor, NamesAnUnknownTypeOnceAndWithItsPlace) {
  ExpectFault(Header() + Record(UnitBytes().U16(101).U16(20).U32(0).bytes()),
              "offset 16, record 1: fault: the type code 20 is unknown");
  const std::string member = UnitBytes().Text("m").Text("").U8(0).U16(99).U16(0).bytes();
  ExpectFault(
      Header() +
          Record(UnitBytes().U16(101).U16(14).U16(1).Text("").Text("").U16(1).U16(0).Raw(member).bytes()),
      "offset 36, record 1: fault: the type code 99 is unknown");
}

TEST(Doctor, NamesAnotherDefinitionOfTheSameId) {
  ExpectFault(StationFile(1) + Record(OtherDefinition()),
              "offset 119, record 3: fault: the id 3 gets another definition, Other: values before and after "
              "it differ");
}

TEST(Doctor, RemarksOnARepeatedDefinition) {
  const Outcome outcome = Examine(StationFile(1) + Record(StationDefinition()));
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.out,
            "offset 115, record 3: remark: the definition Station is repeated\nsound, 1 remark in 3 records, "
            "199 bytes\n");
}

TEST(Doctor, NamesBytesBehindAUnit) {
  ExpectFault(StationFile(0) + Record(StationValue(1, "a") + "xyz"),
              "offset 114, record 2: fault: 3 bytes stand behind the end of the unit, which needs 18 of 21");
}

TEST(Doctor, NamesAValueThatIsCutShort) {
  const std::string value = StationValue(1, "abc");
  ExpectFault(StationFile(0) + Record(value.substr(0, value.size() - 5)),
              "offset 96, record 2: fault: the value is cut short: its 9 bytes are not enough for Station");
}

TEST(Doctor, NamesADefinitionThatIsCutShort) {
  ExpectFault(Header() + Record(StationDefinition().substr(0, 40)),
              "offset 51, record 1: fault: the definition is cut short in the validation type");
}

TEST(Doctor, RefusesNestingWithoutLimit) {
  std::string unit = UnitBytes().U16(101).U16(15).bytes();
  for (int i = 0; i < 10000; ++i) unit += UnitBytes().U16(1).U16(0).U16(0).U16(2).U16(15).U16(0).bytes();
  const Outcome outcome = Examine(Header() + Record(unit));
  EXPECT_EQ(outcome.code, 1);
  EXPECT_NE(outcome.out.find("definitions are nested more than 64 deep"), std::string::npos) << outcome.out;
}

TEST(Doctor, RefusesCountsThatNothingBacks) {
  // 65,535 elements of 65,535 elements of a structure.
  UnitBytes unit;
  unit.U16(101).U16(15).U16(1).U16(0).U16(0).U16(65535).U16(15).U16(0);
  unit.U16(0).U16(0).U16(0).U16(65535).U16(14).U16(0);
  unit.U16(0).U16(0).U16(0).U16(0).U16(0);
  const Outcome outcome =
      Examine(Header() + Record(unit.bytes()) + Record(UnitBytes().U16(102).U16(15).U16(1).bytes()));
  EXPECT_EQ(outcome.code, 1);
  EXPECT_NE(outcome.out.find("record 2: fault: the value is not read: its definition asks for some"),
            std::string::npos)
      << outcome.out;
}

TEST(Doctor, BelievesNoCountOfElements) {
  // Arrays of any number of elements, of which values announce four thousand million.
  const auto array_of = [](const std::string& element, unsigned type) {
    return UnitBytes().U16(101).U16(15).U16(1).Text("").Text("").U16(0).U16(type).U16(0).Raw(element).bytes();
  };
  const std::string elements[] = {array_of(UnitBytes().U16(8).U16(4).U16(0).bytes(), 8),
                                  array_of(UnitBytes().U16(1).U16(0).U16(0).bytes(), 1),
                                  array_of(StationDefinition().substr(4), 14)};
  for (const std::string& definition : elements) {
    const Outcome outcome =
        Examine(Header() + Record(definition) +
                Record(UnitBytes().U16(102).U16(15).U16(1).U32(0xFFFFFFF0).U32(1).bytes()));
    EXPECT_EQ(outcome.code, 1);
    EXPECT_NE(outcome.out.find("record 2: fault: the value is cut short"), std::string::npos) << outcome.out;
  }
  // Elements that take no bytes.
  const std::string empty = array_of(UnitBytes().U16(0).Text("").Text("").U16(0).U16(0).bytes(), 14);
  const Outcome outcome =
      Examine(Header() + Record(empty) + Record(UnitBytes().U16(102).U16(15).U16(1).U32(0xFFFFFFF0).bytes()));
  EXPECT_NE(outcome.out.find("no count of them can be believed"), std::string::npos) << outcome.out;
}

TEST(Doctor, WritesFindingsAsJson) {
  const Folder folder;
  const std::string file = folder.Make("a.orm", StationFile(0) + "ab");
  const std::string out = RunTool({"doctor", "--json", file}).out;
  EXPECT_NE(out.find("\"offset\":92,\"record\":2,\"severity\":\"fault\""), std::string::npos) << out;
  EXPECT_NE(out.find("\"faults\":1,\"remarks\":0,\"not_listed\":0}"), std::string::npos) << out;
}

TEST(Doctor, ListsNoMoreThanItIsToldTo) {
  std::string content = Header();
  for (int i = 0; i < 5; ++i) content += Record(StationValue(1, "a"));
  const Folder folder;
  const std::string file = folder.Make("a.orm", content);
  const std::string out = RunTool({"doctor", "--limit", "2", file}).out;
  EXPECT_NE(out.find(file + ": 3 more, see --limit\n" + file + ": 5 faults in 5 records"), std::string::npos)
      << out;
}

}  // namespace
}  // namespace halyard::test
