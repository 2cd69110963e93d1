#include "tools/halyard/path_text.h"

#include <fmt/format.h>

#include <charconv>
#include <string_view>

namespace halyard::tool {
namespace {

constexpr std::size_t kLongestPath = 510;  // what the library takes

std::optional<LONG> IndexIn(std::string_view text) {
  LONG index = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), index);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size()) return std::nullopt;
  return index;
}

class Cutter {
 public:
  explicit Cutter(std::string_view text) : rest_(text) {}

  CutPath Cut() {
    if (rest_.size() > kLongestPath) Fail(fmt::format("it is longer than {} bytes", kLongestPath));
    // The dot in front may be left out.
    if (!rest_.empty() && rest_.front() != '.' && rest_.front() != '[') TakeName();
    while (!rest_.empty() && !result_.fault) {
      const bool is_bracket = rest_.front() == '[';
      rest_.remove_prefix(1);
      if (is_bracket) {
        TakeBracket();
      } else {
        TakeName();
      }
    }
    return std::move(result_);
  }

 private:
  void Fail(std::string why) {
    if (!result_.fault) result_.fault = std::move(why);
  }

  void TakeName() {
    const std::string_view name = rest_.substr(0, rest_.find_first_of(".["));
    rest_.remove_prefix(name.size());
    if (name.empty()) Fail("a name is missing");
    if (!rest_.empty() && rest_.front() == ']') Fail("an opening bracket is missing");
    result_.parts.push_back({PathPart::Kind::kName, {std::string(name)}, {}});
  }

  void TakeBracket() {
    const std::size_t end = rest_.find(']');
    if (end == std::string_view::npos) return Fail("a closing bracket is missing");
    std::string_view inside = rest_.substr(0, end);
    rest_.remove_prefix(end + 1);
    if (!rest_.empty() && rest_.front() != '.' && rest_.front() != '[') Fail("a dot or a bracket is missing");
    PathPart part;
    part.kind =
        IndexIn(inside.substr(0, inside.find(','))) ? PathPart::Kind::kIndices : PathPart::Kind::kNames;
    for (bool is_last = false; !is_last && !result_.fault;) {
      const std::size_t comma = inside.find(',');
      is_last = comma == std::string_view::npos;
      TakeItem(inside.substr(0, comma), part);
      if (!is_last) inside.remove_prefix(comma + 1);
    }
    result_.parts.push_back(std::move(part));
  }

  void TakeItem(std::string_view text, PathPart& part) {
    const auto index = IndexIn(text);
    if (text.empty()) Fail("a bracket has nothing in it, or between its commas");
    if (index.has_value() != (part.kind == PathPart::Kind::kIndices)) {
      Fail("a bracket holds members or numbers, not both");
    } else if (index) {
      part.indices.push_back(*index);
    } else {
      part.names.emplace_back(text);
    }
  }

  std::string_view rest_;
  CutPath result_;
};

}  // namespace

CutPath CutMemberPath(const std::string& text) { return Cutter(text).Cut(); }

}  // namespace halyard::tool
