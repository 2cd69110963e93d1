// The examples of the chapter on definitions.
#include "halyard/halyard.h"
#include "tests/docs/format_examples.h"
#include "tests/docs/sample_definitions.h"
#include "tests/support/composites.h"
#include "tests/support/definitions.h"
#include "tests/support/encoding.h"

namespace halyard::test {
namespace {

using namespace samples;

// A definition writes the example, and a fresh one of its class that reads the example
// takes all of it and writes it again.
template <class Definition>
void ExpectDefinition(const Ptr<Definition>& definition, REFCLSID clsid, const std::string& hex) {
  EXPECT_EQ(Encoded(definition), hex);
  const auto reader = CreateObject<IValueDefBase>(clsid);
  EXPECT_EQ(ReadFrom(reader, hex), Moved(static_cast<ULONG>(Hex(hex).size())));
  EXPECT_EQ(Encoded(reader), hex);
}

void CheckSimpleShort(const std::string& hex) {
  ExpectDefinition(SimpleDefinition(kShort), kSimpleValueInfoClass, hex);
}

void CheckSimpleLongWithRange(const std::string& hex) {
  const auto definition = SimpleDefinition(kLong);
  Check(definition->put_Validation(VARIANT_TRUE));
  Check(definition->put_MinValue(Variant(LONG{-5}).get()));
  Check(definition->put_MaxValue(Variant(LONG{100}).get()));
  Check(definition->put_ValidationScript(Bstr(OLESTR("x>0")).get()));
  ExpectDefinition(definition, kSimpleValueInfoClass, hex);
}

void CheckSimpleFixedString(const std::string& hex) {
  ExpectDefinition(SimpleDefinition(kFixedString, 10), kSimpleValueInfoClass, hex);
}

void CheckStructure(const std::string& hex) {
  ExpectDefinition(StationDefinition(), kStructureInfoClass, hex);
}

void CheckEnumeration(const std::string& hex) {
  ExpectDefinition(QualityDefinition(), kEnumerationInfoClass, hex);
}

void CheckArray(const std::string& hex) {
  const auto definition = SimpleArrayDefinition(kShort, 0, 6);
  Check(definition->put_Name(Bstr(OLESTR("Depths")).get()));
  ExpectDefinition(definition, kArrayInfoClass, hex);
}

void CheckStructureArray(const std::string& hex) {
  ExpectDefinition(TrackDefinition(), kArrayInfoClass, hex);
}

}  // namespace

std::vector<ExampleCheck> DefinitionExamples() {
  return {
      {"simple-short", CheckSimpleShort},
      {"simple-long-with-range", CheckSimpleLongWithRange},
      {"simple-fixed-string", CheckSimpleFixedString},
      {"structure-definition", CheckStructure},
      {"enumeration-definition", CheckEnumeration},
      {"array-definition", CheckArray},
      {"structure-array-definition", CheckStructureArray},
  };
}

}  // namespace halyard::test
