// How a table writes the numbers and dates of a column, so that an imported table comes
// out again as it went in.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "tools/halyard/node.h"

namespace halyard::tool {

struct ColumnForm {
  enum class Kind {
    kUsual,     // as values are shown everywhere
    kPoint,     // numbers with a point always: 3.0
    kDecimals,  // numbers with so many decimals: 1.50
    kDateTime,  // dates with their time always: 2004-03-15 00:00:00
    kIso,       // and with the T of ISO 8601 between: 2004-03-15T00:00:00
  };
  Kind kind = Kind::kUsual;
  int decimals = 0;

  friend bool operator==(const ColumnForm&, const ColumnForm&) = default;

  // The form in a word, and the form that a word names; none for any other text.
  [[nodiscard]] std::string Name() const;
  static std::optional<ColumnForm> Named(std::string_view name);

  // A number, or a date, in this form; none where a date is outside the calendar.
  [[nodiscard]] std::string Number(double number) const;
  [[nodiscard]] std::optional<std::string> Date(DATE date) const;

  // The text of any value that is not null.
  [[nodiscard]] std::string Text(const Node& node) const;
};

// A date or a date and time as tables write them ("2004-03-15", with " 12:30:45" or
// "T12:30:45" behind it); none for any other text, and for a time that no calendar has.
std::optional<DATE> ParseDate(std::string_view text);

// The whole text as a number; none where it is anything else, or infinite.
std::optional<double> ParseNumber(std::string_view text);
std::optional<std::int64_t> ParseInteger(std::string_view text);

}  // namespace halyard::tool
