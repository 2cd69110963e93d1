#include "platform/native/utf.h"

#include <gtest/gtest.h>

#include <string>

namespace halyard {
namespace {

struct Row {
  WideView wide;
  std::string_view narrow;
};

constexpr Row kTexts[] = {
    {u"", ""},
    {u"ab", "ab"},
    {u"\u0080", "\xC2\x80"},
    {u"\u00E9\u07FF", "\xC3\xA9\xDF\xBF"},
    {u"\u0800\u20AC\uFFFF", "\xE0\xA0\x80\xE2\x82\xAC\xEF\xBF\xBF"},
    {u"\uD7FF\uE000", "\xED\x9F\xBF\xEE\x80\x80"},
    {u"\U00010000\U0001F600\U0010FFFF", "\xF0\x90\x80\x80\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF"},
};

TEST(Utf, TextsGoThereAndBack) {
  for (const Row& row : kTexts) {
    EXPECT_EQ(ToUtf8(row.wide), row.narrow);
    EXPECT_EQ(FromUtf8(row.narrow), row.wide) << row.narrow;
  }
}

TEST(Utf, LoneSurrogatesAreReplaced) {
  constexpr char16_t kLead = 0xD83D;
  constexpr char16_t kTrail = 0xDE00;
  EXPECT_EQ(ToUtf8(WideString{kLead}), "\xEF\xBF\xBD");
  EXPECT_EQ(ToUtf8(WideString{kTrail, kLead}), "\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(ToUtf8(WideString{kLead, u'a'}),
            "\xEF\xBF\xBD"
            "a");
}

// Each byte on its own: of forms that are cut short or longer than needed, of surrogates,
// of what lies above the last code point, and bytes that begin nothing.
TEST(Utf, BytesThatAreNoUtf8AreReplaced) {
  constexpr Row kRows[] = {
      {u"\uFFFD\uFFFD", "\xE2\x82"},
      {u"\uFFFDa",
       "\xC3"
       "a"},
      {u"\uFFFD\uFFFD", "\xC0\x80"},
      {u"\uFFFD\uFFFD\uFFFD", "\xE0\x9F\xBF"},
      {u"\uFFFD\uFFFD\uFFFD", "\xED\xA0\x80"},
      {u"\uFFFD\uFFFD\uFFFD\uFFFD", "\xF0\x8F\xBF\xBF"},
      {u"\uFFFD\uFFFD\uFFFD\uFFFD", "\xF4\x90\x80\x80"},
      {u"\uFFFDb\uFFFD",
       "\x80"
       "b\xFF"},
  };
  for (const Row& row : kRows) EXPECT_EQ(FromUtf8(row.narrow), row.wide) << row.narrow;
}

}  // namespace
}  // namespace halyard
