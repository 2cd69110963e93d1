// Conversions of scalars to texts and to booleans, which have words of their own.
#include "platform/native/convert.h"
#include "platform/native/exact_digits.h"
#include "platform/native/format_date.h"
#include "platform/native/format_number.h"
#include "platform/native/text_cursor.h"
#include "platform/native/visit.h"

namespace halyard {
namespace {

HRESULT NewText(std::string_view ascii, BSTR* value) noexcept {
  BSTR text = SysAllocStringLen(nullptr, static_cast<UINT>(ascii.size()));
  if (text == nullptr) return E_OUTOFMEMORY;
  for (std::size_t i = 0; i < ascii.size(); ++i) text[i] = static_cast<OLECHAR>(ascii[i]);
  *value = text;
  return S_OK;
}

HRESULT DateText(DATE days, BSTR* value) noexcept {
  ShortText text;
  if (!FormatDate(days, &text)) return E_INVALIDARG;
  return NewText(text.view(), value);
}

// Whole numbers, booleans, currency and decimals: all their digits, but no zeros behind.
HRESULT ExactText(const Scalar& source, BSTR* value) noexcept {
  DecimalDigits digits;
  const HRESULT hr = ExactDigits(source, &digits);
  if (FAILED(hr)) return hr;
  digits.TrimZeros();
  if (digits.count() == 0) digits = DecimalDigits();
  return NewText(FormatPlain(digits).view(), value);
}

}  // namespace

HRESULT ToText(const Scalar& source, BSTR* value) noexcept {
  return std::visit(Overloads{
                        [&](Nothing) { return NewText("", value); },
                        [&](float number) { return NewText(FormatReal(number).view(), value); },
                        [&](double number) { return NewText(FormatReal(number).view(), value); },
                        [&](Moment moment) { return DateText(moment.days, value); },
                        [&](const auto&) { return ExactText(source, value); },
                    },
                    source);
}

HRESULT ToBool(const Scalar& source, VARIANT_BOOL* value) noexcept {
  if (const WideView* text = std::get_if<WideView>(&source)) {
    const bool is_true = IsWord(*text, "true") || *text == u"#TRUE#";
    if (is_true || IsWord(*text, "false") || *text == u"#FALSE#") {
      *value = is_true ? VARIANT_TRUE : VARIANT_FALSE;
      return S_OK;
    }
  }
  double number = 0;
  const HRESULT hr = ToDouble(source, &number);
  if (SUCCEEDED(hr)) *value = number != 0 ? VARIANT_TRUE : VARIANT_FALSE;
  return hr;
}

}  // namespace halyard
