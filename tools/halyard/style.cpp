#include "tools/halyard/style.h"

#include <fmt/color.h>

#include <array>
#include <cstdlib>

#include "tools/halyard/platform/system.h"

namespace halyard::tool {
namespace {

constexpr std::array<fmt::terminal_color, 6> kRound = {
    fmt::terminal_color::cyan,    fmt::terminal_color::yellow, fmt::terminal_color::green,
    fmt::terminal_color::magenta, fmt::terminal_color::blue,   fmt::terminal_color::red};

bool IsForbidden() {
  const char* value = std::getenv("NO_COLOR");
  return value != nullptr && *value != '\0';
}

std::string Apply(bool has_colours, const fmt::text_style& style, std::string_view text) {
  return has_colours ? fmt::format(style, "{}", text) : std::string(text);
}

}  // namespace

Style::Style(int descriptor) : has_colours_(!IsForbidden() && ShowsColours(descriptor)) {}

std::string Style::Title(std::string_view text) const {
  return Apply(has_colours_, fmt::emphasis::bold, text);
}

std::string Style::Quiet(std::string_view text) const {
  return Apply(has_colours_, fmt::emphasis::faint, text);
}

std::string Style::Good(std::string_view text) const {
  return Apply(has_colours_, fmt::fg(fmt::terminal_color::green), text);
}

std::string Style::Bad(std::string_view text) const {
  return Apply(has_colours_, fmt::fg(fmt::terminal_color::red) | fmt::emphasis::bold, text);
}

std::string Style::Coloured(std::string_view text, std::size_t round) const {
  return Apply(has_colours_, fmt::fg(kRound[round % kRound.size()]), text);
}

}  // namespace halyard::tool
