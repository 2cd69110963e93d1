#include "tools/halyard/progress.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

#include "tools/halyard/counts.h"
#include "tools/halyard/platform/system.h"
#include "tools/halyard/unicode.h"

namespace halyard::tool {
namespace {

constexpr auto kPatience = std::chrono::milliseconds(400);
constexpr auto kPause = std::chrono::milliseconds(100);
constexpr unsigned kCallsBetweenLooks = 64;  // at the clock
constexpr std::size_t kBarWidth = 30;
constexpr std::size_t kNameWidth = 30;

void ToStandardError(std::string_view text) {
  // Nobody can be told of a failure here, and the work does not depend on it.
  static_cast<void>(WriteSome(kStandardError, text.data(), text.size()));
}

}  // namespace

Progress::Progress(std::string what, std::optional<std::uint64_t> total)
    : what_(std::move(what)),
      total_(total),
      is_terminal_(IsTerminal(kStandardError)),
      next_(Clock::now() + kPatience) {}

Progress::~Progress() {
  if (is_drawn_) ToStandardError("\r\x1B[K");
}

void Progress::At(std::uint64_t done) {
  if (!is_terminal_ || ++calls_ % kCallsBetweenLooks != 0) return;
  const Clock::time_point now = Clock::now();
  if (now < next_) return;
  next_ = now + kPause;
  Draw(done);
}

void Progress::Draw(std::uint64_t done) {
  is_drawn_ = true;
  const std::string name = Shortened(Printable(what_), kNameWidth);
  if (!total_ || *total_ == 0) {
    ToStandardError(fmt::format("\r{}: {}\x1B[K", name, SizeText(done)));
    return;
  }
  const double share = std::min(1.0, static_cast<double>(done) / static_cast<double>(*total_));
  const auto filled = static_cast<std::size_t>(share * kBarWidth);
  ToStandardError(fmt::format("\r{} [{:#<{}}{: <{}}] {:3.0f} %\x1B[K", name, "", filled, "",
                              kBarWidth - filled, share * 100));
}

}  // namespace halyard::tool
