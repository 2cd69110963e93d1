// TextCursor: reads a text from its start, a character at a time.
#pragma once

#include "halyard/platform/wide_text.h"

namespace halyard {

constexpr bool IsDigit(OLECHAR c) noexcept { return c >= u'0' && c <= u'9'; }

constexpr bool IsLetter(OLECHAR c) noexcept { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }

// White space of Unicode, line ends included.
constexpr bool IsBlank(OLECHAR c) noexcept {
  return c == u' ' || (c >= u'\t' && c <= u'\r') || c == 0x85 || c == 0xA0 || c == 0x1680 ||
         (c >= 0x2000 && c <= 0x200A) || c == 0x2028 || c == 0x2029 || c == 0x202F || c == 0x205F ||
         c == 0x3000;
}

// The letter in lower case; other characters as they are.
constexpr OLECHAR ToLower(OLECHAR c) noexcept {
  return c >= u'A' && c <= u'Z' ? static_cast<OLECHAR>(c - u'A' + u'a') : c;
}

// True where the text is the lower-case word, in letters of any case.
constexpr bool IsWord(WideView text, std::string_view word) noexcept {
  if (text.size() != word.size()) return false;
  for (std::size_t i = 0; i < word.size(); ++i) {
    if (ToLower(text[i]) != static_cast<OLECHAR>(word[i])) return false;
  }
  return true;
}

class TextCursor {
 public:
  explicit TextCursor(WideView text) noexcept : text_(text) {}

  [[nodiscard]] bool AtEnd() const noexcept { return at_ == text_.size(); }

  // The next character; zero at the end.
  [[nodiscard]] OLECHAR Next() const noexcept { return AtEnd() ? u'\0' : text_[at_]; }

  void Skip() noexcept { ++at_; }

  // Steps over the character where it is next.
  bool Take(OLECHAR c) noexcept {
    const bool found = !AtEnd() && text_[at_] == c;
    if (found) ++at_;
    return found;
  }

  void SkipBlanks() noexcept {
    while (IsBlank(Next())) ++at_;
  }

  // Takes all letters that follow.
  WideView TakeLetters() noexcept {
    const std::size_t start = at_;
    while (IsLetter(Next())) ++at_;
    return text_.substr(start, at_ - start);
  }

 private:
  WideView text_;
  std::size_t at_ = 0;
};

}  // namespace halyard
