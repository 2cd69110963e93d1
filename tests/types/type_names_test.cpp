#include "types/type_names.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/raised.h"
#include "tests/support/variants.h"

namespace halyard::test {
namespace {

struct Row {
  SHORT code;
  const char* name;
  int size;
};

constexpr Row kRows[] = {{0, "Invalid", 0},   {1, "String", 0},      {2, "FixedString", 0},
                         {3, "ByteArray", 0}, {4, "Char", 1},        {5, "Byte", 1},
                         {6, "Short", 2},     {7, "Word", 2},        {8, "Long", 4},
                         {9, "DWord", 4},     {10, "Int64", 4},      {11, "ShortReal", 4},
                         {12, "Real", 8},     {13, "Date", 8},       {14, "Structure", 0},
                         {15, "Array", 0},    {16, "Collection", 0}, {17, "Enumeration", 0}};

constexpr SHORT kNamelessCodes[] = {-32768, -1, 18, 19, 256, 32767};

WideString Wide(const char* text) {
  const std::string_view view(text);
  return WideString(view.begin(), view.end());
}

HRESULT FailureOf(const VARIANT& type) {
  try {
    static_cast<void>(TypeCodeFromVariant(type));
  } catch (const Error& error) {
    return error.code();
  }
  return S_OK;
}

TEST(TypeCodeName, NamesEveryCodeOfTheTable) {
  for (const Row& row : kRows) {
    EXPECT_STREQ(TypeCodeName(row.code), row.name);
    EXPECT_EQ(Plain(TypeCodeNameText(row.code).get()), row.name);
  }
}

TEST(TypeCodeName, CodeTenIsInt64) { EXPECT_STREQ(TypeCodeName(10), "Int64"); }

TEST(TypeCodeName, CodesOutsideTheTableAreUnknown) {
  for (const SHORT code : kNamelessCodes) {
    EXPECT_STREQ(TypeCodeName(code), "Unknown") << code;
    EXPECT_EQ(Plain(TypeCodeNameText(code).get()), "Unknown") << code;
  }
}

TEST(ElementarySize, FollowsTheTableAndIsZeroElsewhere) {
  for (const Row& row : kRows) EXPECT_EQ(ElementarySize(row.code), row.size) << row.name;
  for (const SHORT code : kNamelessCodes) EXPECT_EQ(ElementarySize(code), 0) << code;
}

TEST(TypeCodeFromVariant, FindsEveryName) {
  for (const Row& row : kRows) {
    EXPECT_EQ(TypeCodeFromVariant(Variant(WideView(Wide(row.name))).get()), row.code) << row.name;
  }
}

TEST(TypeCodeFromVariant, IgnoresTheCaseOfNames) {
  for (const OLECHAR* name : {OLESTR("long"), OLESTR("LONG"), OLESTR("Long"), OLESTR("lOnG")}) {
    EXPECT_EQ(TypeCodeFromVariant(Text(name).get()), 8);
  }
  EXPECT_EQ(TypeCodeFromVariant(Text(OLESTR("shortREAL")).get()), 11);
}

TEST(TypeCodeFromVariant, UnknownNamesAreInvalid) {
  for (const OLECHAR* name : {OLESTR("Unknown"), OLESTR("Array<Long>"), OLESTR(""), OLESTR("Lon"),
                              OLESTR("Longs"), OLESTR(" Long"), OLESTR("Long ")}) {
    EXPECT_EQ(TypeCodeFromVariant(Text(name).get()), 0) << Describe(Text(name));
  }
}

TEST(TypeCodeFromVariant, NullStringIsNoName) { EXPECT_EQ(TypeCodeFromVariant(Tagged(VT_BSTR).get()), 0); }

TEST(TypeCodeFromVariant, DigitsInAStringAreLookedUpAndNeverParsed) {
  EXPECT_EQ(TypeCodeFromVariant(Text(OLESTR("8")).get()), 0);
  EXPECT_EQ(TypeCodeFromVariant(Text(OLESTR("14")).get()), 0);
}

TEST(TypeCodeFromVariant, SixteenBitNumbersPassUnchecked) {
  for (const SHORT code : {SHORT{0}, SHORT{8}, SHORT{17}, SHORT{99}, SHORT{-1}, SHORT{32767}}) {
    EXPECT_EQ(TypeCodeFromVariant(I2(code).get()), code);
  }
}

TEST(TypeCodeFromVariant, OtherNumbersAreConverted) {
  EXPECT_EQ(TypeCodeFromVariant(I4(8).get()), 8);
  EXPECT_EQ(TypeCodeFromVariant(Ui1(13).get()), 13);
  EXPECT_EQ(TypeCodeFromVariant(R8(12.0).get()), 12);
  EXPECT_EQ(TypeCodeFromVariant(I4(-1).get()), -1);
  EXPECT_EQ(TypeCodeFromVariant(Variant().get()), 0);
  EXPECT_EQ(TypeCodeFromVariant(Variant::FromBool(true).get()), -1);
}

TEST(TypeCodeFromVariant, StringByReferenceTakesTheConversionPath) {
  Bstr digits(OLESTR("8"));
  BSTR text = digits.get();
  EXPECT_EQ(TypeCodeFromVariant(ByReference(&text).get()), 8);
}

TEST(TypeCodeFromVariant, NameByReferenceFailsToConvert) {
  Bstr name(OLESTR("Long"));
  BSTR text = name.get();
  EXPECT_EQ(FailureOf(ByReference(&text).get()), DISP_E_TYPEMISMATCH);
}

TEST(TypeCodeFromVariant, FailedConversionsAreRaised) {
  EXPECT_EQ(FailureOf(I4(70000).get()), DISP_E_OVERFLOW);
  EXPECT_EQ(FailureOf(Variant::Null().get()), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(FailureOf(R8(40000.0).get()), DISP_E_OVERFLOW);
}

TEST(TypeCodeFromVariant, LeavesTheArgumentAlone) {
  const Variant name = Text(OLESTR("Long"));
  static_cast<void>(TypeCodeFromVariant(name.get()));
  EXPECT_EQ(Describe(name), "BSTR Long");
}

}  // namespace
}  // namespace halyard::test
