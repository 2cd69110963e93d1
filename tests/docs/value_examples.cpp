// The examples of the chapter on values.
#include "halyard/halyard.h"
#include "tests/docs/format_examples.h"
#include "tests/docs/sample_definitions.h"
#include "tests/support/composites.h"
#include "tests/support/definitions.h"
#include "tests/support/encoding.h"

namespace halyard::test {
namespace {

using namespace samples;

// The encoding of a value, which may need less room than it asks for.
template <class Value>
std::string EncodingOf(const Ptr<Value>& value) {
  const Written written = WriteTo(value, PacketSize(value));
  EXPECT_EQ(written.outcome, Moved(written.outcome.count));
  return ToHex(Prefix(written.bytes, written.outcome.count));
}

// A value writes the example, and a fresh one of the same definition that reads the
// example takes all of it and writes it again.
template <class Value>
void ExpectValue(const Ptr<Value>& value, const Ptr<Value>& fresh, const std::string& hex) {
  EXPECT_EQ(EncodingOf(value), hex);
  EXPECT_NE(EncodingOf(fresh), hex);
  EXPECT_EQ(ReadFrom(fresh, hex), Moved(static_cast<ULONG>(Hex(hex).size())));
  EXPECT_EQ(EncodingOf(fresh), hex);
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
  const auto definition = PointDefinition();
  const auto value = NewValue(definition);
  PutItem(value, OLESTR("X"), Variant(LONG{1}));
  PutItem(value, OLESTR("Y"), Variant(SHORT{2}));
  ExpectValue(value, NewValue(definition), hex);
}

void CheckEnumeration(const std::string& hex) {
  const auto value = NewValue(QualityDefinition());
  PutValue(value, Variant(LONG{-1}));
  ExpectValue(value, NewValue(QualityDefinition()), hex);
}

void CheckSimpleArray(const std::string& hex) {
  const auto definition = SimpleArrayDefinition(kShort);
  const auto array = NewArray(definition);
  AddAll(array, {1, -2, 3});
  ExpectValue(array, NewArray(definition), hex);
}

void CheckSimpleFixedArray(const std::string& hex) {
  const auto definition = SimpleArrayDefinition(kShort, 3);
  const auto array = NewArray(definition);
  PutItem(array, 0, Variant(SHORT{1}));
  PutItem(array, 1, Variant(SHORT{-2}));
  PutItem(array, 2, Variant(SHORT{3}));
  ExpectValue(array, NewArray(definition), hex);
}

void CheckStringArray(const std::string& hex) { ExpectValue(Texts(), NewArray(TextsDefinition()), hex); }

void CheckStructureArray(const std::string& hex) {
  const auto track = NewArray(TrackDefinition());
  for (LONG i = 0; i < 2; ++i) {
    const auto point = At(track, i);
    PutItem(point, OLESTR("X"), Variant(LONG{2 * i + 1}));
    PutItem(point, OLESTR("Y"), Variant(LONG{2 * i + 2}));
  }
  ExpectValue(track, NewArray(TrackDefinition()), hex);
}

}  // namespace

std::vector<ExampleCheck> ValueExamples() {
  return {
      {"string-value", CheckString},
      {"fixed-string-value", CheckFixedString},
      {"long-value", CheckLong},
      {"real-value", CheckReal},
      {"date-value", CheckDate},
      {"structure-value-null", CheckStructureWithNull},
      {"structure-value", CheckStructure},
      {"fixed-structure-value", CheckFixedStructure},
      {"enumeration-value", CheckEnumeration},
      {"simple-array-value", CheckSimpleArray},
      {"simple-fixed-array-value", CheckSimpleFixedArray},
      {"string-array-value", CheckStringArray},
      {"structure-array-value", CheckStructureArray},
  };
}

}  // namespace halyard::test
