// Where Wine's automation library is known to differ from what Windows documents.
#pragma once

#include <optional>
#include <string>

namespace halyard::recorder {

// What Windows answers instead, and the documented rule that says so.
struct Correction {
  std::string answer;
  std::string reason;
};

// The correction of an answer that was recorded under Wine; nothing where it stands.
std::optional<Correction> CorrectForWindows(const std::string& request, const std::string& recorded);

// The rows that no rule covers, as a table.
std::optional<Correction> FindWindowsRow(const std::string& request);

}  // namespace halyard::recorder
