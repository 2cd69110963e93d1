#include "tests/support/encoding.h"

#include <algorithm>

namespace halyard::test {

std::ostream& operator<<(std::ostream& stream, const Outcome& outcome) {
  stream << StatusText(outcome.status) << ", result " << outcome.result << ", ";
  if (outcome.count == kUntouched) return stream << "count untouched";
  return stream << "count " << outcome.count;
}

GuardedBuffer::GuardedBuffer(std::size_t size) : size_(size), bytes_(size + 2 * kGuardSize, kGuard) {
  std::fill_n(data(), size, kFiller);
}

Bytes GuardedBuffer::Contents() const {
  const auto start = bytes_.begin() + kGuardSize;
  return Bytes(start, start + static_cast<std::ptrdiff_t>(size_));
}

bool GuardedBuffer::GuardsIntact() const {
  const auto is_guard = [](unsigned char byte) { return byte == kGuard; };
  const auto front_end = bytes_.begin() + kGuardSize;
  return std::all_of(bytes_.begin(), front_end, is_guard) &&
         std::all_of(front_end + static_cast<std::ptrdiff_t>(size_), bytes_.end(), is_guard);
}

}  // namespace halyard::test
