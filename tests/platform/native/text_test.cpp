// Narrow text in the form that is the default: Windows-1252.
#include "platform/text.h"

#include <gtest/gtest.h>

#include <string>

namespace halyard {
namespace {

// What 0x80 to 0x9F stand for; 0 for the five that stand for the control character of
// their own number.
constexpr char16_t kHigh[] = u"€\0‚ƒ„…†‡ˆ‰Š‹Œ\0Ž\0\0‘’“”•–—˜™š›œ\0žŸ";

char16_t CharacterOf(unsigned byte) {
  if (byte < 0x80 || byte > 0x9F || kHigh[byte - 0x80] == 0) return static_cast<char16_t>(byte);
  return kHigh[byte - 0x80];
}

TEST(NarrowText, EveryByteIsACharacterAndComesBack) {
  for (unsigned byte = 0; byte < 256; ++byte) {
    const std::string narrow(1, static_cast<char>(byte));
    const WideString wide(1, CharacterOf(byte));
    EXPECT_EQ(Widen(narrow), wide) << byte;
    EXPECT_EQ(Narrow(wide), narrow) << byte;
  }
}

TEST(NarrowText, OtherCharactersBecomeQuestionMarks) {
  // The control characters among them have a place that something else takes.
  EXPECT_EQ(Narrow(u"\u0080\u0095\u009F"), "???");
  EXPECT_EQ(Narrow(u"\u0100\u2212\u4E2D\uFF21"), "????");
  EXPECT_EQ(Narrow(u"\U0001F600"), "??");  // two units, each without a form
}

TEST(NarrowText, ZerosAreKeptUnlessTheyEndTheText) {
  const WideString text(u"a\0b", 3);
  EXPECT_EQ(Narrow(text), std::string("a\0b", 3));
  EXPECT_EQ(NarrowToZero(text), "a");
  EXPECT_EQ(Widen(std::string("a\0b", 3)), text);
}

}  // namespace
}  // namespace halyard
