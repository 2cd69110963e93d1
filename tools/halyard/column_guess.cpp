#include "tools/halyard/column_guess.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>

#include "tools/halyard/unicode.h"

namespace halyard::tool {
namespace {

using Kind = ColumnForm::Kind;

constexpr std::size_t kShownText = 60;  // columns of a text in a remark

// Keeps the forms that write the value as `text`; the form with as many decimals as the
// text has is tried with the first one.
template <class Write>
void Keep(std::vector<ColumnForm>& forms, const std::string& text, Write write) {
  std::erase_if(forms, [&](const ColumnForm& form) { return write(form) != text; });
}

int DecimalsOf(const std::string& text) {
  const std::size_t point = text.find('.');
  return point == std::string::npos ? 0 : static_cast<int>(text.size() - point - 1);
}

template <class N>
bool Fits(std::int64_t least, std::int64_t greatest) {
  return least >= std::numeric_limits<N>::min() && greatest <= std::numeric_limits<N>::max();
}

}  // namespace

void ColumnGuess::Take(const CsvField& field) {
  if (field.IsMissing()) {
    has_missing_ = true;
    return;
  }
  ++count_;
  // What stands in quotes may be a number all the same: quotes are not part of a value.
  if (is_integer_) TakeInteger(field.text);
  if (is_number_) TakeReal(field.text);
  if (is_date_) TakeDate(field.text);
  if (most_elements_ != 0 && is_enumeration_) TakeElement(field.text);
}

void ColumnGuess::TakeInteger(const std::string& text) {
  const auto number = ParseInteger(text);
  is_integer_ = number && std::to_string(*number) == text;
  if (!is_integer_) return;
  least_ = count_ == 1 ? *number : std::min(least_, *number);
  greatest_ = count_ == 1 ? *number : std::max(greatest_, *number);
}

void ColumnGuess::TakeReal(const std::string& text) {
  const auto number = ParseNumber(text);
  is_number_ = number.has_value();
  if (!is_number_ || !odd_number_.empty()) return;
  if (count_ == 1) real_forms_ = {{}, {Kind::kPoint, 0}, {Kind::kDecimals, std::min(DecimalsOf(text), 17)}};
  Keep(real_forms_, text, [&](const ColumnForm& form) { return form.Number(*number); });
  if (real_forms_.empty()) odd_number_ = text;
}

void ColumnGuess::TakeDate(const std::string& text) {
  const auto date = ParseDate(text);
  is_date_ = date.has_value();
  if (!is_date_ || !odd_date_.empty()) return;
  if (count_ == 1) date_forms_ = {{}, {Kind::kDateTime, 0}, {Kind::kIso, 0}};
  Keep(date_forms_, text, [&](const ColumnForm& form) { return form.Date(*date).value_or(""); });
  if (date_forms_.empty()) odd_date_ = text;
}

void ColumnGuess::TakeElement(const std::string& text) {
  if (known_elements_.contains(text)) return;
  is_enumeration_ = !text.empty() && elements_.size() < most_elements_;
  if (!is_enumeration_) return;
  known_elements_.insert(text);
  elements_.push_back(text);
}

SHORT ColumnGuess::IntegerType() const noexcept {
  if (Fits<std::uint8_t>(least_, greatest_)) return kByte;
  if (Fits<std::int16_t>(least_, greatest_)) return kShort;
  return kLong;
}

ColumnType ColumnGuess::Result() const {
  ColumnType result;
  result.can_be_null = has_missing_ || count_ == 0;
  if (count_ == 0) return result;
  if (is_integer_ && Fits<std::int32_t>(least_, greatest_)) {
    result.type = IntegerType();
  } else if (is_number_ && !real_forms_.empty()) {
    result.type = kReal;
    result.form = real_forms_.front();
  } else if (is_date_ && !date_forms_.empty()) {
    result.type = kDate;
    result.form = date_forms_.front();
  } else if (most_elements_ != 0 && is_enumeration_ && !is_number_) {
    result.type = kEnumeration;
    result.elements = elements_;
  } else if (is_number_) {
    result.remark = fmt::format("numbers kept as texts: '{}' would not come back as it is",
                                Shortened(odd_number_, kShownText));
    result.odd_type = "Real";
  } else if (is_date_) {
    result.remark = fmt::format("dates kept as texts: '{}' would not come back as it is",
                                Shortened(odd_date_, kShownText));
    result.odd_type = "Date";
  }
  return result;
}

}  // namespace halyard::tool
