#include "values/simple_content.h"

#include <utility>

namespace halyard {
namespace {

// Memory for more characters is given back when a content begins anew.
constexpr std::size_t kLargestToKeep = 1024;

}  // namespace

void SimpleContent::SetText(WideView text) {
  text_.assign(text);
  value_ = Variant();
  is_own_text_ = true;
}

void SimpleContent::SetNarrowText(std::string_view narrow) {
  if (!IsPlainText(narrow)) return SetText(Widen(narrow));
  text_.resize(narrow.size());
  WidenPlainText(narrow, text_.data());
  value_ = Variant();
  is_own_text_ = true;
}

void SimpleContent::Renew() noexcept {
  if (text_.capacity() > kLargestToKeep) text_ = WideString();
  text_.clear();
  value_ = Variant();
  is_own_text_ = true;
}

void SimpleContent::Set(Variant value) noexcept {
  value_ = std::move(value);
  is_own_text_ = false;
}

void SimpleContent::CopyFrom(const SimpleContent& other) {
  if (other.is_own_text_) {
    SetText(other.text_);
  } else {
    Set(Variant::CopyOf(other.value_.get()));
  }
}

Variant SimpleContent::Copy() const {
  return is_own_text_ ? Variant(WideView(text_)) : Variant::CopyOf(value_.get());
}

VARIANT& SimpleContent::AsVariant() {
  if (is_own_text_) Set(Variant(WideView(text_)));
  return value_.get();
}

}  // namespace halyard
