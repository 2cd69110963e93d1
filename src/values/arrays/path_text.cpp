#include "values/arrays/path_text.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace halyard {
namespace {

// With the leading "." or "[" and a zero at its end, a path fills at most 512 bytes.
constexpr std::size_t kLongestText = 511;

constexpr std::string_view kSeparators = ".[";
constexpr std::string_view kBracketCharacters = "[,]";

// The path with a "." or "[" in front of every part; empty for the empty path.
std::string LedBySeparator(const std::string& path) {
  const bool led = path.empty() || kSeparators.find(path.front()) != std::string_view::npos;
  return led ? path : "." + path;
}

std::vector<std::string> SplitBracket(std::string_view text) {
  std::vector<std::string> tokens;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of(kBracketCharacters), text.size());
    if (end != 0) tokens.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return tokens;
}

bool IsDigit(char c) noexcept { return c >= '0' && c <= '9'; }

// Where the digits of a number begin, behind spaces and a sign.
std::size_t FirstDigit(std::string_view token) noexcept {
  std::size_t at = std::min(token.find_first_not_of(" \t\n\v\f\r"), token.size());
  if (at < token.size() && (token[at] == '-' || token[at] == '+')) ++at;
  return at;
}

bool IsNumber(std::string_view token) noexcept {
  const std::size_t at = FirstDigit(token);
  return at < token.size() && IsDigit(token[at]);
}

// The number that a token begins with, 0 without digits; numbers beyond the range of a
// LONG are its ends.
LONG NumberOf(std::string_view token) noexcept {
  const std::size_t start = FirstDigit(token);
  const bool negative = start != 0 && token[start - 1] == '-';
  constexpr std::int64_t kLimit = std::int64_t{std::numeric_limits<LONG>::max()} + 1;
  std::int64_t number = 0;
  for (std::size_t at = start; at < token.size() && IsDigit(token[at]); ++at)
    number = std::min(number * 10 + (token[at] - '0'), kLimit);
  return static_cast<LONG>(negative ? -number : std::min(number, kLimit - 1));
}

PathPart BracketPart(std::string_view text) {
  std::vector<std::string> tokens = SplitBracket(text);
  PathPart part{PathPart::Kind::kIndices, {}, {}};
  if (!tokens.empty() && !IsNumber(tokens.front())) {
    part.kind = PathPart::Kind::kNames;
    part.names = std::move(tokens);
  } else {
    std::transform(tokens.begin(), tokens.end(), std::back_inserter(part.indices), NumberOf);
  }
  return part;
}

}  // namespace

std::optional<std::vector<PathPart>> CutMemberPath(const std::string& path) {
  const std::string text = LedBySeparator(path);
  if (text.size() > kLongestText) return std::nullopt;
  std::vector<PathPart> parts;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find_first_of(kSeparators, start + 1), text.size());
    const std::string_view body = std::string_view(text).substr(start + 1, end - start - 1);
    if (text[start] == '[') {
      parts.push_back(BracketPart(body));
    } else {
      parts.push_back({PathPart::Kind::kName, {std::string(body)}, {}});
    }
    start = end;
  }
  return parts;
}

}  // namespace halyard
