// The choice of a narrow form, which each process makes once: every test runs in a process
// of its own, in which no text has been converted.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "halyard/platform/narrow_text.h"
#include "tests/support/definitions.h"
#include "tests/support/encoding.h"

namespace halyard::test {
namespace {

// Runs the body in a child of this process; what fails there fails the test.
template <class Body>
void InAProcessOfItsOwn(Body body) {
  const auto run = [&] {
    body();
    std::exit(testing::Test::HasFailure() ? EXIT_FAILURE : EXIT_SUCCESS);
  };
  EXPECT_EXIT(run(), testing::ExitedWithCode(EXIT_SUCCESS), "");
}

// A String definition with that script.
Ptr<ISimpleValueDef> Scripted(const OLECHAR* script) {
  const auto definition = SimpleDefinition(kString);
  EXPECT_EQ(definition->put_Validation(VARIANT_TRUE), S_OK);
  EXPECT_EQ(definition->put_ValidationScript(Bstr(script).get()), S_OK);
  return definition;
}

std::string ReadScript(std::string_view hex) {
  const auto definition = CreateObject<ISimpleValueDef>(kSimpleValueInfoClass);
  EXPECT_EQ(ReadFrom(definition, hex).result, VARIANT_TRUE);
  return Get(definition, &ISimpleValueDef::get_ValidationScript);
}

TEST(NarrowEncoding, IsWindows1252Unchosen) {
  InAProcessOfItsOwn([] {
    EXPECT_EQ(Encoded(Scripted(OLESTR("\u00E9\u20AC"))), "01 00 00 00 01 00 02 00 E9 80");
    EXPECT_EQ(ReadScript("01 00 00 00 01 00 02 00 E9 80"), "\\u00E9\\u20AC");
  });
}

TEST(NarrowEncoding, MayBeLatin1) {
  InAProcessOfItsOwn([] {
    EXPECT_TRUE(SetNarrowEncoding(NarrowEncoding::kLatin1));
    EXPECT_EQ(Encoded(Scripted(OLESTR("\u00E9\u0080\u20AC"))), "01 00 00 00 01 00 03 00 E9 80 3F");
    EXPECT_EQ(ReadScript("01 00 00 00 01 00 02 00 E9 80"), "\\u00E9\\u0080");
  });
}

// Lengths count characters, so a text whose narrow form is longer is cut.
TEST(NarrowEncoding, MayBeUtf8) {
  InAProcessOfItsOwn([] {
    EXPECT_TRUE(SetNarrowEncoding(NarrowEncoding::kUtf8));
    EXPECT_EQ(Encoded(Scripted(OLESTR("\u00E9x"))), "01 00 00 00 01 00 02 00 C3 A9");
    EXPECT_EQ(ReadScript("01 00 00 00 01 00 02 00 C3 A9"), "\\u00E9");
    EXPECT_EQ(ReadScript("01 00 00 00 01 00 01 00 C3"), "\\uFFFD");
  });
}

// Only the name of a definition counts bytes.
TEST(NarrowEncoding, Utf8NamesOfDefinitionsAreWhole) {
  InAProcessOfItsOwn([] {
    EXPECT_TRUE(SetNarrowEncoding(NarrowEncoding::kUtf8));
    const auto structure = CreateObject<IStructureDef>(kStructureInfoClass);
    EXPECT_EQ(structure->put_Name(Bstr(OLESTR("\u00E9x")).get()), S_OK);
    AddMember(structure, OLESTR("\u00E9x"), SimpleDefinition(kLong).get());
    EXPECT_EQ(PacketSize(structure), 30u);
    EXPECT_EQ(Encoded(structure),
              "00 00 03 00 C3 A9 78 00 00 01 00 00 00"
              " 02 00 C3 A9 00 00 00 08 00 04 00 08 00 04 00 00 00");
  });
}

TEST(NarrowEncoding, CanBeChosenAgainUntilATextIsConverted) {
  InAProcessOfItsOwn([] {
    EXPECT_TRUE(SetNarrowEncoding(NarrowEncoding::kUtf8));
    EXPECT_TRUE(SetNarrowEncoding(NarrowEncoding::kLatin1));
    EXPECT_EQ(Encoded(Scripted(OLESTR("\u00E9"))), "01 00 00 00 01 00 01 00 E9");
    EXPECT_FALSE(SetNarrowEncoding(NarrowEncoding::kUtf8));
    EXPECT_EQ(Encoded(Scripted(OLESTR("\u00E9"))), "01 00 00 00 01 00 01 00 E9");
  });
}

TEST(NarrowEncoding, PlainTextsCountAsConverted) {
  InAProcessOfItsOwn([] {
    const auto structure = CreateObject<IStructureDef>(kStructureInfoClass);
    EXPECT_EQ(structure->put_Name(Bstr(OLESTR("x")).get()), S_OK);
    EXPECT_FALSE(SetNarrowEncoding(NarrowEncoding::kUtf8));
  });
}

}  // namespace
}  // namespace halyard::test
