// Narrow text where there is no ANSI code page: Windows-1252 unless the program chose.
#include "platform/text.h"

#include <atomic>

#include "halyard/platform/narrow_text.h"
#include "platform/native/utf.h"

namespace halyard {
namespace {

constexpr char kNoNarrowForm = '?';

// The characters of Windows-1252 at 0x80 to 0x9F. The five unassigned places map to
// the control characters of the same number, as Windows does.
constexpr char16_t kWindows1252High[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                           0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                           0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                           0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr unsigned kHighFirst = 0x80;
constexpr unsigned kHighLast = 0x9F;

std::atomic<NarrowEncoding> g_encoding{NarrowEncoding::kWindows1252};
std::atomic<bool> g_used{false};

NarrowEncoding UseEncoding() noexcept {
  NoteNarrowUse();
  return g_encoding.load(std::memory_order_relaxed);
}

char NarrowOne(char16_t c, NarrowEncoding encoding) noexcept {
  if (c < kHighFirst) return static_cast<char>(c);
  if (encoding == NarrowEncoding::kLatin1) return c <= 0xFF ? static_cast<char>(c) : kNoNarrowForm;
  if (c > kHighLast && c <= 0xFF) return static_cast<char>(c);
  for (unsigned i = 0; i < 32; ++i) {
    if (kWindows1252High[i] == c) return static_cast<char>(kHighFirst + i);
  }
  return kNoNarrowForm;
}

char16_t WidenOne(unsigned char c, NarrowEncoding encoding) noexcept {
  if (encoding == NarrowEncoding::kWindows1252 && c >= kHighFirst && c <= kHighLast) {
    return kWindows1252High[c - kHighFirst];
  }
  return c;
}

}  // namespace

bool SetNarrowEncoding(NarrowEncoding encoding) noexcept {
  if (g_used.load(std::memory_order_relaxed)) return false;
  g_encoding.store(encoding, std::memory_order_relaxed);
  return true;
}

void NoteNarrowUse() noexcept {
  if (!g_used.load(std::memory_order_relaxed)) g_used.store(true, std::memory_order_relaxed);
}

std::string Narrow(WideView text) {
  const NarrowEncoding encoding = UseEncoding();
  if (encoding == NarrowEncoding::kUtf8) return ToUtf8(text);
  std::string narrow;
  narrow.reserve(text.size());
  for (const char16_t c : text) narrow.push_back(NarrowOne(c, encoding));
  return narrow;
}

WideString Widen(std::string_view text) {
  const NarrowEncoding encoding = UseEncoding();
  if (encoding == NarrowEncoding::kUtf8) return FromUtf8(text);
  WideString wide;
  wide.reserve(text.size());
  for (const char c : text) wide.push_back(WidenOne(static_cast<unsigned char>(c), encoding));
  return wide;
}

}  // namespace halyard
