// The bar on standard error that shows how far long work is. It appears on a terminal
// only, once the work has taken a while, and leaves no trace.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace halyard::tool {

class Progress {
 public:
  // `total` is what At counts towards; none where the end is not known.
  Progress(std::string what, std::optional<std::uint64_t> total);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // Cheap enough to be called for every record.
  void At(std::uint64_t done);

 private:
  using Clock = std::chrono::steady_clock;

  void Draw(std::uint64_t done);

  std::string what_;
  std::optional<std::uint64_t> total_;
  bool is_terminal_;
  bool is_drawn_ = false;
  unsigned calls_ = 0;
  Clock::time_point next_;
};

}  // namespace halyard::tool
