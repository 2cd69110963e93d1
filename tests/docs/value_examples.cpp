// The examples of the chapter on values.
#include "halyard/halyard.h"
#include "tests/docs/format_examples.h"
#include "tests/docs/station.h"
#include "tests/support/definitions.h"
#include "tests/support/encoding.h"

namespace halyard::test {
namespace {

// A value writes the example, and a fresh one of the same definition that reads the
// example takes all of it and writes it again.
void ExpectValue(const Ptr<IValueBase>& value, const Ptr<IValueBase>& fresh, const std::string& hex) {
  EXPECT_EQ(Encoded(value), hex);
  EXPECT_NE(Encoded(fresh), hex);
  EXPECT_EQ(ReadFrom(fresh, hex), Moved(static_cast<ULONG>(Hex(hex).size())));
  EXPECT_EQ(Encoded(fresh), hex);
}

void ExpectSimpleValue(SHORT type, const Variant& content, const std::string& hex, LONG field_size = 0) {
  const auto value = SimpleValue(type, field_size);
  PutValue(value, content);
  ExpectValue(value, SimpleValue(type, field_size), hex);
}

void CheckString(const std::string& hex) { ExpectSimpleValue(kString, Variant(OLESTR("abc")), hex); }

void CheckFixedString(const std::string& hex) {
  ExpectSimpleValue(kFixedString, Variant(OLESTR("abc")), hex, 5);
}

void CheckLong(const std::string& hex) { ExpectSimpleValue(kLong, Variant(LONG{-2}), hex); }

void CheckReal(const std::string& hex) { ExpectSimpleValue(kReal, Variant(0.5), hex); }

void CheckDate(const std::string& hex) {
  constexpr DATE kDays = 38061;  // 15 March 2004
  constexpr double kTimeOfDay = (12 * 3600 + 30 * 60 + 45) / 86400.0;
  ExpectSimpleValue(kDate, Variant::FromDate(kDays + kTimeOfDay), hex);
}

void CheckStructureWithNull(const std::string& hex) {
  ExpectValue(Station(Variant::Null()), NewValue(StationDefinition()), hex);
}

void CheckStructure(const std::string& hex) {
  ExpectValue(Station(Variant(OLESTR("hi"))), NewValue(StationDefinition()), hex);
}

void CheckFixedStructure(const std::string& hex) {
  const auto definition =
      StructureDefinition({{.name = OLESTR("X"), .type = kLong}, {.name = OLESTR("Y"), .type = kShort}});
  const auto value = NewValue(definition);
  PutItem(value, OLESTR("X"), Variant(LONG{1}));
  PutItem(value, OLESTR("Y"), Variant(SHORT{2}));
  ExpectValue(value, NewValue(definition), hex);
}

}  // namespace

std::vector<ExampleCheck> ValueExamples() {
  return {
      {"string-value", CheckString},       {"fixed-string-value", CheckFixedString},
      {"long-value", CheckLong},           {"real-value", CheckReal},
      {"date-value", CheckDate},           {"structure-value-null", CheckStructureWithNull},
      {"structure-value", CheckStructure}, {"fixed-structure-value", CheckFixedStructure},
  };
}

}  // namespace halyard::test
