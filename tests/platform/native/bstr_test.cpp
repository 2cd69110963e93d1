#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>

#include "halyard/platform/wide_text.h"

namespace halyard {
namespace {

UINT LengthBefore(BSTR text) {
  UINT bytes = 0;
  std::memcpy(&bytes, reinterpret_cast<const char*>(text) - sizeof(bytes), sizeof(bytes));
  return bytes;
}

TEST(BstrFunctions, KeepTheLengthInBytesBeforeTheText) {
  BSTR text = SysAllocString(u"Depth");
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(SysStringLen(text), 5u);
  EXPECT_EQ(SysStringByteLen(text), 10u);
  EXPECT_EQ(LengthBefore(text), 10u);
  EXPECT_EQ(text[5], u'\0');
  EXPECT_EQ(reinterpret_cast<std::uintptr_t>(text) % alignof(std::uint64_t), 0u);
  SysFreeString(text);
}

TEST(BstrFunctions, KeepZerosWithinTheText) {
  BSTR text = SysAllocStringLen(u"a\0b", 3);
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(SysStringLen(text), 3u);
  EXPECT_EQ(WideView(text, 4), WideView(u"a\0b\0", 4));
  SysFreeString(text);
}

TEST(BstrFunctions, KeepOddNumbersOfBytes) {
  for (UINT bytes = 0; bytes <= 9; ++bytes) {
    BSTR text = SysAllocStringByteLen("123456789", bytes);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(SysStringByteLen(text), bytes);
    EXPECT_EQ(SysStringLen(text), bytes / 2);
    EXPECT_EQ(std::memcmp(text, "123456789", bytes), 0);
    EXPECT_EQ(std::memcmp(reinterpret_cast<const char*>(text) + bytes, "\0\0", 2), 0);
    SysFreeString(text);
  }
}

TEST(BstrFunctions, LeaveRoomWithoutASource) {
  BSTR text = SysAllocStringLen(nullptr, 4);
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(SysStringLen(text), 4u);
  for (int i = 0; i < 4; ++i) text[i] = u'x';
  EXPECT_EQ(text[4], u'\0');
  SysFreeString(text);

  BSTR bytes = SysAllocStringByteLen(nullptr, 3);
  ASSERT_NE(bytes, nullptr);
  EXPECT_EQ(SysStringByteLen(bytes), 3u);
  SysFreeString(bytes);
}

TEST(BstrFunctions, TakeNullForAnEmptyText) {
  EXPECT_EQ(SysAllocString(nullptr), nullptr);
  EXPECT_EQ(SysStringLen(nullptr), 0u);
  EXPECT_EQ(SysStringByteLen(nullptr), 0u);
  SysFreeString(nullptr);
}

TEST(BstrFunctions, DistinguishAnEmptyTextFromNone) {
  BSTR text = SysAllocString(u"");
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(SysStringByteLen(text), 0u);
  EXPECT_EQ(text[0], u'\0');
  SysFreeString(text);
}

TEST(BstrFunctions, RefuseLengthsBeyondThirtyTwoBits) {
  EXPECT_EQ(SysAllocStringLen(nullptr, 0xFFFFFFFFu), nullptr);
  EXPECT_EQ(SysAllocStringLen(nullptr, 0x80000000u), nullptr);
  EXPECT_EQ(SysAllocStringLen(nullptr, 0x7FFFFFFDu), nullptr);
  EXPECT_EQ(SysAllocStringByteLen(nullptr, 0xFFFFFFFFu), nullptr);
  EXPECT_EQ(SysAllocStringByteLen(nullptr, 0xFFFFFFFAu), nullptr);
}

}  // namespace
}  // namespace halyard
