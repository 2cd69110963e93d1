#include "platform/native/utf.h"

namespace halyard {
namespace {

bool IsLeadSurrogate(char32_t c) noexcept { return c >= 0xD800 && c <= 0xDBFF; }
bool IsTrailSurrogate(char32_t c) noexcept { return c >= 0xDC00 && c <= 0xDFFF; }

void AppendUtf8(std::string& out, char32_t c) {
  const auto tail = [&](int shift) { out.push_back(static_cast<char>(0x80 | ((c >> shift) & 0x3F))); };
  if (c < 0x80) {
    out.push_back(static_cast<char>(c));
  } else if (c < 0x800) {
    out.push_back(static_cast<char>(0xC0 | (c >> 6)));
    tail(0);
  } else if (c < 0x10000) {
    out.push_back(static_cast<char>(0xE0 | (c >> 12)));
    tail(6);
    tail(0);
  } else {
    out.push_back(static_cast<char>(0xF0 | (c >> 18)));
    tail(12);
    tail(6);
    tail(0);
  }
}

// The code point at `i`, which moves past it; a lone surrogate is the replacement.
char32_t NextCodePoint(WideView text, std::size_t& i) noexcept {
  const char32_t c = text[i++];
  if (IsLeadSurrogate(c) && i < text.size() && IsTrailSurrogate(text[i])) {
    return 0x10000 + ((c - 0xD800) << 10) + (static_cast<char32_t>(text[i++]) - 0xDC00);
  }
  return IsLeadSurrogate(c) || IsTrailSurrogate(c) ? kReplacementCharacter : c;
}

void AppendUtf16(WideString& out, char32_t c) {
  if (c < 0x10000) {
    out.push_back(static_cast<char16_t>(c));
    return;
  }
  out.push_back(static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10)));
  out.push_back(static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF)));
}

struct Utf8Lead {
  int tail;           // bytes that follow
  char32_t bits;      // the lead byte's own bits
  char32_t smallest;  // below this the form is longer than needed
};

Utf8Lead LeadOf(unsigned char c) noexcept {
  if (c < 0x80) return {0, c, 0};
  if ((c & 0xE0) == 0xC0) return {1, c & 0x1Fu, 0x80};
  if ((c & 0xF0) == 0xE0) return {2, c & 0x0Fu, 0x800};
  if ((c & 0xF8) == 0xF0) return {3, c & 0x07u, 0x10000};
  return {-1, 0, 0};
}

// The code point at `i`, which moves past it, or past one byte where the bytes are no
// UTF-8; the result is the replacement then.
char32_t NextCodePoint(std::string_view text, std::size_t& i) noexcept {
  const auto [tail, bits, smallest] = LeadOf(static_cast<unsigned char>(text[i]));
  const std::size_t start = i++;
  if (tail < 0 || text.size() - start < static_cast<std::size_t>(tail) + 1) return kReplacementCharacter;
  char32_t c = bits;
  for (int k = 1; k <= tail; ++k) {
    const auto byte = static_cast<unsigned char>(text[start + static_cast<std::size_t>(k)]);
    if ((byte & 0xC0) != 0x80) return kReplacementCharacter;
    c = (c << 6) | (byte & 0x3F);
  }
  if (c < smallest || c > 0x10FFFF || IsLeadSurrogate(c) || IsTrailSurrogate(c)) return kReplacementCharacter;
  i = start + static_cast<std::size_t>(tail) + 1;
  return c;
}

}  // namespace

std::string ToUtf8(WideView text) {
  std::string narrow;
  narrow.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) AppendUtf8(narrow, NextCodePoint(text, i));
  return narrow;
}

WideString FromUtf8(std::string_view text) {
  WideString wide;
  wide.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) AppendUtf16(wide, NextCodePoint(text, i));
  return wide;
}

}  // namespace halyard
