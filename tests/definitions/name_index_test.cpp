#include "definitions/name_index.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/text.h"

namespace halyard::test {
namespace {

WideString Wide(const std::string& text) { return Widen(text); }

// Equality as the index promises it, without the index.
bool Same(WideView a, WideView b) {
  return EqualIgnoringCase(a.substr(0, a.find(OLECHAR{0})), b.substr(0, b.find(OLECHAR{0})));
}

LONG FirstOf(const std::vector<WideString>& names, WideView name) {
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (Same(names[i], name)) return static_cast<LONG>(i);
  }
  return NameIndex::kNone;
}

NameIndex IndexOf(const std::vector<WideString>& names) {
  NameIndex index;
  for (const WideString& name : names) index.Add(name);
  return index;
}

TEST(NameIndex, AnEmptyIndexFindsNothing) {
  const NameIndex index;
  EXPECT_EQ(index.Find(OLESTR("a")), NameIndex::kNone);
  EXPECT_EQ(index.Find({}), NameIndex::kNone);
}

TEST(NameIndex, FindsNamesOfEveryLengthInEitherCase) {
  std::vector<WideString> names;
  const std::string letters = "aBcDeFgHiJkLmNoPqRsTuVwXyZ0123456789_aBcDeFgHiJ";
  for (std::size_t length = 0; length <= letters.size(); ++length)
    names.push_back(Wide(letters.substr(0, length)));
  const NameIndex index = IndexOf(names);
  for (std::size_t i = 0; i < names.size(); ++i) {
    WideString other = names[i];
    for (OLECHAR& c : other) {
      if (c >= 'a' && c <= 'z') {
        c = static_cast<OLECHAR>(c - 32);
      } else if (c >= 'A' && c <= 'Z') {
        c = static_cast<OLECHAR>(c + 32);
      }
    }
    EXPECT_EQ(index.Find(names[i]), static_cast<LONG>(i));
    EXPECT_EQ(index.Find(other), static_cast<LONG>(i));
  }
}

TEST(NameIndex, EveryCharacterIsFoldedLikeEverywhere) {
  // One name for each character, and the same with longer names, where it is in the middle.
  for (const std::string& around : {std::string(), std::string("123456789")}) {
    std::vector<WideString> names;
    for (std::uint32_t c = 1; c < 0x10000; c += c < 0x200 ? 1 : 97) {
      WideString name = Wide(around);
      name.insert(name.size() / 2, 1, static_cast<OLECHAR>(c));
      names.push_back(name);
    }
    const NameIndex index = IndexOf(names);
    for (const WideString& name : names) EXPECT_EQ(index.Find(name), FirstOf(names, name));
  }
}

TEST(NameIndex, OfEqualNamesTheFirstCounts) {
  const std::vector<WideString> names = {Wide("x"), Wide("Depth"), Wide("DEPTH"), Wide("depth"), Wide("X")};
  const NameIndex index = IndexOf(names);
  EXPECT_EQ(index.size(), 5u);
  EXPECT_EQ(index.Find(OLESTR("dEPTH")), 1);
  EXPECT_EQ(index.Find(OLESTR("X")), 0);
}

TEST(NameIndex, NamesEndAtTheirFirstZero) {
  const WideString with_zero = Wide(std::string("depth\0more", 10));
  const NameIndex index = IndexOf({with_zero, Wide("y")});
  EXPECT_EQ(index.Find(OLESTR("depth")), 0);
  EXPECT_EQ(index.Find(Wide(std::string("Depth\0else", 10))), 0);
  EXPECT_EQ(index.Find(Wide(std::string("y\0", 2))), 1);
  EXPECT_EQ(index.Find(Wide(std::string("\0y", 2))), NameIndex::kNone);
}

TEST(NameIndex, ManyAlikeNamesAreToldApart) {
  std::vector<WideString> names;
  for (int i = 0; i < 3000; ++i) names.push_back(Wide("sensor_" + std::to_string(i) + "_value"));
  const NameIndex index = IndexOf(names);
  for (std::size_t i = 0; i < names.size(); ++i) EXPECT_EQ(index.Find(names[i]), static_cast<LONG>(i));
  EXPECT_EQ(index.Find(OLESTR("sensor_3000_value")), NameIndex::kNone);
}

TEST(NameIndex, KnowsNothingAfterForget) {
  NameIndex index = IndexOf({Wide("a"), Wide("a longer name")});
  index.Forget();
  EXPECT_EQ(index.size(), 0u);
  EXPECT_EQ(index.Find(OLESTR("a")), NameIndex::kNone);
  index.Add(OLESTR("b"));
  EXPECT_EQ(index.Find(OLESTR("b")), 0);
}

}  // namespace
}  // namespace halyard::test
