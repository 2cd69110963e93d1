#include "tools/halyard/text.h"

#include "tools/halyard/ascii.h"
#include "tools/halyard/platform/narrow.h"
#include "tools/halyard/unicode.h"

namespace halyard::tool {
namespace {

TextForm g_form = TextForm::kWindows1252;

constexpr char32_t kReplacement = 0xFFFD;
constexpr unsigned kHighFirst = 0x80;
constexpr unsigned kHighLast = 0x9F;

// The characters of Windows-1252 at 0x80 to 0x9F; unassigned places hold the control
// characters of the same number.
constexpr char32_t kHigh[kHighLast - kHighFirst + 1] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t CharacterOf(unsigned char byte, TextForm form) {
  const bool is_high = byte >= kHighFirst && byte <= kHighLast;
  return form == TextForm::kWindows1252 && is_high ? kHigh[byte - kHighFirst] : byte;
}

std::optional<unsigned char> ByteOf(char32_t c, TextForm form) {
  const bool is_high = c >= kHighFirst && c <= kHighLast;
  if (c <= 0xFF && !(form == TextForm::kWindows1252 && is_high && kHigh[c - kHighFirst] != c)) {
    return static_cast<unsigned char>(c);
  }
  if (form != TextForm::kWindows1252) return std::nullopt;
  for (unsigned i = 0; i <= kHighLast - kHighFirst; ++i) {
    if (kHigh[i] == c) return static_cast<unsigned char>(kHighFirst + i);
  }
  return std::nullopt;
}

}  // namespace

void ChooseTextForm(TextForm form) noexcept { g_form = form; }

std::string TextFormName() {
  switch (g_form) {
    case TextForm::kLatin1:
      return "latin-1";
    case TextForm::kUtf8:
      return "utf-8";
    default:
      return "windows-1252";
  }
}

std::string Decoded(std::string_view bytes, TextForm form) {
  if (IsAscii(bytes)) return std::string(bytes);
  std::string utf8;
  if (form == TextForm::kUtf8) {
    while (!bytes.empty()) AppendUtf8(utf8, TakeCharacter(bytes).value_or(kReplacement));
  } else {
    for (const char byte : bytes) AppendUtf8(utf8, CharacterOf(static_cast<unsigned char>(byte), form));
  }
  return utf8;
}

std::optional<std::string> Encoded(std::string_view utf8, TextForm form) {
  if (IsAscii(utf8)) return std::string(utf8);
  std::string bytes;
  while (!utf8.empty()) {
    const auto character = TakeCharacter(utf8);
    if (!character) return std::nullopt;
    if (form == TextForm::kUtf8) {
      AppendUtf8(bytes, *character);
    } else if (const auto byte = ByteOf(*character, form)) {
      bytes.push_back(static_cast<char>(*byte));
    } else {
      return std::nullopt;
    }
  }
  return bytes;
}

std::string FromLibrary(WideView text) { return Decoded(BytesOfText(text), g_form); }

std::optional<WideString> ToLibrary(std::string_view utf8) {
  const auto bytes = Encoded(utf8, g_form);
  if (!bytes) return std::nullopt;
  return TextOfBytes(*bytes);
}

}  // namespace halyard::tool
