#include "object/optional_text.h"

#include "platform/text.h"

namespace halyard {

void OptionalText::Set(BSTR text) {
  if (text == nullptr) {
    text_.reset();
  } else {
    text_ = WideString(ViewOf(text));
  }
}

void OptionalText::SetNarrow(std::string_view narrow) { text_ = Widen(narrow); }

Bstr OptionalText::NewCopy() const { return text_ ? Bstr(*text_) : Bstr(); }

std::string OptionalText::NarrowForm() const { return Narrow(View()); }

}  // namespace halyard
