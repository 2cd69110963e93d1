#include "tools/halyard/cell_content.h"

#include <fmt/format.h>

#include <cmath>
#include <limits>

#include "tools/halyard/column_form.h"
#include "tools/halyard/text.h"

namespace halyard::tool {
namespace {

constexpr std::size_t kLongestText = 65535;

Variant TextContent(const std::string& text, const DefinitionView& definition) {
  const auto wide = ToLibrary(text);
  if (!wide) {
    throw Misfit{fmt::format(
        "has a character that has no place in {}; --encoding utf-8 has one for every text", TextFormName())};
  }
  const std::size_t room = definition.type == kFixedString ? definition.data_size : kLongestText;
  if (wide->size() > room)
    throw Misfit{fmt::format("has {} bytes, and there is room for {}", wide->size(), room)};
  return Variant(WideView(*wide));
}

struct NumberRange {
  LONG least = 0;
  LONG greatest = 0;
};

template <class N>
constexpr NumberRange RangeOf() {
  return {std::numeric_limits<N>::min(), std::numeric_limits<N>::max()};
}

// What a member takes: Word and DWord are signed, and Int64 has 32 bits in files.
NumberRange RangeOf(SHORT type) {
  switch (type) {
    case kChar:
    case kByte:
      return RangeOf<std::uint8_t>();
    case kShort:
    case kWord:
      return RangeOf<std::int16_t>();
    default:
      return RangeOf<LONG>();
  }
}

Variant WholeNumber(const std::string& text, const DefinitionView& definition) {
  const auto number = ParseInteger(text);
  const NumberRange range = RangeOf(definition.type);
  if (!number || *number < range.least || *number > range.greatest) {
    throw Misfit{fmt::format("is no whole number that fits; {} holds {} to {}", definition.TypeText(),
                             range.least, range.greatest)};
  }
  return Variant(static_cast<LONG>(*number));
}

Variant RealNumber(const std::string& text, const DefinitionView& definition) {
  const auto number = ParseNumber(text);
  if (!number) throw Misfit{"is no number"};
  if (definition.type == kReal) return Variant(*number);
  // The largest ShortReal is written with digits that round to it from above.
  const auto rounded = static_cast<float>(*number);
  if (!std::isfinite(rounded)) {
    throw Misfit{fmt::format("is too large for a ShortReal, which holds numbers up to {}",
                             std::numeric_limits<float>::max())};
  }
  return Variant(static_cast<double>(rounded));
}

Variant EnumerationNumber(const std::string& text, const DefinitionView& definition) {
  for (const ElementView& element : definition.elements) {
    if (element.name == text) return Variant(element.number);
  }
  if (!ParseInteger(text)) throw Misfit{"is none of the elements of " + definition.Title()};
  return WholeNumber(text, definition);
}

}  // namespace

Variant CellContent(const std::string& text, const DefinitionView& definition) {
  switch (definition.type) {
    case kString:
    case kFixedString:
      return TextContent(text, definition);
    case kShortReal:
    case kReal:
      return RealNumber(text, definition);
    case kDate: {
      const auto date = ParseDate(text);
      if (!date) throw Misfit{"is no date such as 2004-03-15 or 2004-03-15 12:30:45"};
      return Variant::FromDate(*date);
    }
    case kEnumeration:
      return EnumerationNumber(text, definition);
    default:
      if (definition.type < kChar || definition.type > kInt64) {
        throw Misfit{
            fmt::format("cannot be stored: nothing makes a value of {} from a text", definition.TypeText())};
      }
      return WholeNumber(text, definition);
  }
}

}  // namespace halyard::tool
