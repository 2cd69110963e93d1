// SimpleContent: what a simple value holds, a text or any other variant.
//
// A text lies in memory of the content's own, which serves the next text, too. It becomes
// a string of the platform when somebody asks for a variant.
#pragma once

#include <string_view>

#include "halyard/object/variant.h"
#include "platform/text.h"

namespace halyard {

class SimpleContent {
 public:
  // The variant type of the content; of a new one VT_BSTR, as it is the empty text.
  [[nodiscard]] VARTYPE type() const noexcept { return is_own_text_ ? VARTYPE{VT_BSTR} : value_.type(); }

  // The text of a content of that type.
  [[nodiscard]] WideView Text() const noexcept {
    return is_own_text_ ? WideView(text_) : ViewOf(value_->bstrVal);
  }

  // Whether the content is a text in memory of its own.
  [[nodiscard]] bool IsOwnText() const noexcept { return is_own_text_; }

  // Becomes a text. Throws std::bad_alloc, and then stays as it was.
  void SetText(WideView text);
  void SetNarrowText(std::string_view narrow);

  // Becomes the empty text of a new content.
  void Renew() noexcept;

  // Becomes any variant.
  void Set(Variant value) noexcept;

  // Becomes what another one is; raises what a copy raises.
  void CopyFrom(const SimpleContent& other);

  // A copy for a client; raises what the copy raises.
  [[nodiscard]] Variant Copy() const;

  // The content as a variant that may be changed. Throws std::bad_alloc.
  [[nodiscard]] VARIANT& AsVariant();

 private:
  WideString text_;
  Variant value_;  // empty beside a text in memory of its own
  bool is_own_text_ = true;
};

}  // namespace halyard
