// Bstr: the owner of one automation string.
#pragma once

#include <new>
#include <utility>

#include "halyard/platform/wide_text.h"

namespace halyard {

class Bstr {
 public:
  Bstr() noexcept = default;

  // A copy of the text, zeros included. Throws std::bad_alloc when memory is out.
  explicit Bstr(WideView text) : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
    if (text_ == nullptr) throw std::bad_alloc();
  }

  Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
  Bstr& operator=(Bstr&& other) noexcept {
    std::swap(text_, other.text_);
    return *this;
  }
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  ~Bstr() { SysFreeString(text_); }

  // Takes over a string that the caller owns.
  static Bstr Adopt(BSTR text) noexcept {
    Bstr result;
    result.text_ = text;
    return result;
  }

  // The string, still owned here. Null when empty-by-default.
  [[nodiscard]] BSTR get() const noexcept { return text_; }

  // The text; it lives as long as this owner keeps the string.
  [[nodiscard]] WideView View() const noexcept {
    return text_ == nullptr ? WideView() : WideView(text_, SysStringLen(text_));
  }

  // Hands the string to the caller, who must free it.
  [[nodiscard]] BSTR Detach() noexcept { return std::exchange(text_, nullptr); }

  // The place for an out argument; what was held is freed first.
  [[nodiscard]] BSTR* Out() noexcept {
    SysFreeString(std::exchange(text_, nullptr));
    return &text_;
  }

 private:
  BSTR text_ = nullptr;
};

// The text of a BSTR of somebody else; empty for null.
[[nodiscard]] inline WideView ViewOf(BSTR text) noexcept {
  return text == nullptr ? WideView() : WideView(text, SysStringLen(text));
}

}  // namespace halyard
