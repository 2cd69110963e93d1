#include "tools/halyard/counts.h"

#include <fmt/format.h>

#include <array>
#include <locale>

namespace halyard::tool {
namespace {

class ThousandsGroups : public std::numpunct<char> {
 protected:
  char do_thousands_sep() const override { return ','; }
  std::string do_grouping() const override { return "\3"; }
};

constexpr double kUnitStep = 1000;
constexpr std::array<const char*, 4> kUnits = {"kB", "MB", "GB", "TB"};

}  // namespace

std::string Grouped(std::uint64_t count) {
  static const std::locale grouping(std::locale::classic(), new ThousandsGroups);
  return fmt::format(grouping, "{:L}", count);
}

std::string Counted(std::uint64_t count, std::string_view noun) {
  return fmt::format("{} {}{}", Grouped(count), noun, count == 1 ? "" : "s");
}

std::string SizeText(std::uint64_t bytes) {
  std::string text = Counted(bytes, "byte");
  if (static_cast<double>(bytes) < kUnitStep) return text;
  double scaled = static_cast<double>(bytes) / kUnitStep;
  std::size_t unit = 0;
  while (scaled >= kUnitStep && unit + 1 < kUnits.size()) {
    scaled /= kUnitStep;
    ++unit;
  }
  return fmt::format("{} ({:.1f} {})", text, scaled, kUnits[unit]);
}

}  // namespace halyard::tool
