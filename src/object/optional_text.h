// A text that a client set, or did not: held wide, written narrow.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "halyard/object/bstr.h"

namespace halyard {

class OptionalText {
 public:
  // Takes a copy; a null string means no text.
  void Set(BSTR text);

  // Takes the wide form of narrow text.
  void SetNarrow(std::string_view narrow);

  // A copy for a client; null when there is no text.
  [[nodiscard]] Bstr NewCopy() const;

  // The text; empty when there is none.
  [[nodiscard]] WideView View() const noexcept { return text_ ? WideView(*text_) : WideView(); }

  // The 16-bit length that leads the text in an encoding: its wide characters.
  [[nodiscard]] std::uint16_t EncodedLength() const noexcept {
    return static_cast<std::uint16_t>(View().size());
  }

  // The narrow form, of which encodings carry the first EncodedLength bytes.
  [[nodiscard]] std::string NarrowForm() const;

 private:
  std::optional<WideString> text_;
};

}  // namespace halyard
