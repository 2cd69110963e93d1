#include "tools/halyard/unicode.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "tools/halyard/ascii.h"

namespace halyard::tool {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kLargest = 0x10FFFF;

constexpr bool IsSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDFFF; }

struct Lead {
  unsigned following;
  char32_t bits;
  char32_t smallest;
};

constexpr std::optional<Lead> LeadOf(unsigned char c) {
  if (c < 0x80) return Lead{0, c, 0};
  if (c >= 0xC0 && c < 0xE0) return Lead{1, static_cast<char32_t>(c & 0x1F), 0x80};
  if (c >= 0xE0 && c < 0xF0) return Lead{2, static_cast<char32_t>(c & 0x0F), 0x800};
  if (c >= 0xF0 && c < 0xF8) return Lead{3, static_cast<char32_t>(c & 0x07), 0x10000};
  return std::nullopt;
}

struct Range {
  char32_t first;
  char32_t last;
};

// Characters of two columns and of none, in the ranges that matter in practice.
constexpr std::array<Range, 9> kWide = {{{0x1100, 0x115F},
                                         {0x2E80, 0x303E},
                                         {0x3041, 0xA4CF},
                                         {0xAC00, 0xD7A3},
                                         {0xF900, 0xFAFF},
                                         {0xFE30, 0xFE6F},
                                         {0xFF00, 0xFF60},
                                         {0x1F300, 0x1FAFF},
                                         {0x20000, 0x3FFFD}}};
constexpr std::array<Range, 4> kNarrowless = {
    {{0x300, 0x36F}, {0x200B, 0x200F}, {0x20D0, 0x20FF}, {0xFE00, 0xFE0F}}};

template <std::size_t N>
constexpr bool IsIn(char32_t c, const std::array<Range, N>& ranges) {
  for (const Range& range : ranges) {
    if (c >= range.first && c <= range.last) return true;
  }
  return false;
}

std::size_t WidthOf(char32_t c) { return IsIn(c, kNarrowless) ? 0 : IsIn(c, kWide) ? 2 : 1; }

// What a terminal obeys or shows as nothing, the marks that turn the writing direction
// included.
constexpr bool IsControl(char32_t c) {
  return c < 0x20 || (c >= 0x7F && c < 0xA0) || (c >= 0x200E && c <= 0x200F) ||
         (c >= 0x2028 && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

void AppendEscaped(std::string& result, char32_t c) {
  switch (c) {
    case '\n':
      result += "\\n";
      return;
    case '\r':
      result += "\\r";
      return;
    case '\t':
      result += "\\t";
      return;
    default:
      result += c < 0x100 ? fmt::format("\\x{:02X}", static_cast<std::uint32_t>(c))
                          : fmt::format("\\u{:04X}", static_cast<std::uint32_t>(c));
  }
}

}  // namespace

std::optional<char32_t> TakeCharacter(std::string_view& text) noexcept {
  const auto lead = LeadOf(static_cast<unsigned char>(text.front()));
  if (!lead || text.size() <= lead->following) {
    text.remove_prefix(1);
    return std::nullopt;
  }
  char32_t result = lead->bits;
  for (unsigned i = 1; i <= lead->following; ++i) {
    const auto c = static_cast<unsigned char>(text[i]);
    if ((c & 0xC0) != 0x80) {
      text.remove_prefix(1);
      return std::nullopt;
    }
    result = result << 6 | (c & 0x3F);
  }
  const bool valid = result >= lead->smallest && result <= kLargest && !IsSurrogate(result);
  text.remove_prefix(valid ? lead->following + 1 : 1);
  if (!valid) return std::nullopt;
  return result;
}

void AppendUtf8(std::string& text, char32_t c) {
  const auto put = [&text](char32_t byte) {
    text.push_back(static_cast<char>(static_cast<unsigned char>(byte)));
  };
  if (c < 0x80) {
    put(c);
  } else if (c < 0x800) {
    put(0xC0 | c >> 6);
    put(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    put(0xE0 | c >> 12);
    put(0x80 | (c >> 6 & 0x3F));
    put(0x80 | (c & 0x3F));
  } else {
    put(0xF0 | c >> 18);
    put(0x80 | (c >> 12 & 0x3F));
    put(0x80 | (c >> 6 & 0x3F));
    put(0x80 | (c & 0x3F));
  }
}

std::string Utf8Of(WideView wide) {
  std::string result;
  for (std::size_t i = 0; i < wide.size(); ++i) {
    char32_t c = static_cast<char16_t>(wide[i]);
    const bool is_pair = c >= 0xD800 && c < 0xDC00 && i + 1 < wide.size() &&
                         (static_cast<char16_t>(wide[i + 1]) & 0xFC00) == 0xDC00;
    if (is_pair) {
      c = 0x10000 + ((c & 0x3FF) << 10 | (static_cast<char16_t>(wide[i + 1]) & 0x3FFU));
      ++i;
    }
    AppendUtf8(result, IsSurrogate(c) ? kReplacement : c);
  }
  return result;
}

std::size_t DisplayWidth(std::string_view text) noexcept {
  if (IsAscii(text)) return text.size();
  std::size_t width = 0;
  while (!text.empty()) width += WidthOf(TakeCharacter(text).value_or(kReplacement));
  return width;
}

std::string Printable(std::string_view text) {
  const bool is_plain = std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c < 0x7F; });
  if (is_plain) return std::string(text);
  std::string result;
  while (!text.empty()) {
    const auto byte = static_cast<unsigned char>(text.front());
    const auto c = TakeCharacter(text);
    if (!c) {
      AppendEscaped(result, byte);
    } else if (IsControl(*c)) {
      AppendEscaped(result, *c);
    } else {
      AppendUtf8(result, *c);
    }
  }
  return result;
}

std::string Shortened(std::string_view text, std::size_t columns) {
  if (DisplayWidth(text) <= columns) return std::string(text);
  std::string result;
  std::size_t width = 1;  // of the ellipsis
  while (!text.empty()) {
    const char32_t c = TakeCharacter(text).value_or(kReplacement);
    width += WidthOf(c);
    if (width > columns) break;
    AppendUtf8(result, c);
  }
  return result + "…";
}

}  // namespace halyard::tool
