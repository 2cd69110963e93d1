// Mutates a file of units record by record, so that most of what the reader gets keeps its
// framing and its definitions: records are doubled, dropped, swapped, taken over from
// elsewhere in the file, and changed inside, after which their lengths are put right.
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

#include "tests/fuzz/support/input.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t most);

namespace halyard::fuzz {
namespace {

constexpr unsigned char kHeader[] = {'O', 'r', 'm', 0, 0, 0, 0x80, 0x3F};
constexpr std::size_t kLengthBytes = 4;

using Records = std::vector<Bytes>;
using Random = std::minstd_rand;

// The units of a file, as far as its lengths can be believed; the rest is one more.
Records Cut(std::span<const unsigned char> bytes) {
  Records records;
  if (bytes.size() < sizeof kHeader) return records;
  bytes = bytes.subspan(sizeof kHeader);
  while (bytes.size() > kLengthBytes) {
    std::uint32_t length = 0;
    std::memcpy(&length, bytes.data(), kLengthBytes);
    bytes = bytes.subspan(kLengthBytes);
    const auto unit = bytes.first(std::min<std::size_t>(length, bytes.size()));
    records.emplace_back(unit.begin(), unit.end());
    bytes = bytes.subspan(unit.size());
  }
  return records;
}

// The file of the records, as many as have room; its size.
std::size_t Join(const Records& records, std::uint8_t* data, std::size_t most) {
  if (most < sizeof kHeader) return 0;
  std::memcpy(data, kHeader, sizeof kHeader);
  std::size_t size = sizeof kHeader;
  for (const Bytes& record : records) {
    if (most - size < kLengthBytes + record.size()) break;
    const auto length = static_cast<std::uint32_t>(record.size());
    std::memcpy(data + size, &length, kLengthBytes);
    std::copy(record.begin(), record.end(), data + size + kLengthBytes);
    size += kLengthBytes + record.size();
  }
  return size;
}

std::size_t Any(Random& random, const Records& records) { return random() % records.size(); }

void ChangeInside(Bytes& record, std::size_t most) {
  const std::size_t size = record.size();
  record.resize(std::max(most, size));
  record.resize(LLVMFuzzerMutate(record.data(), size, record.size()));
}

void Change(Records& records, Random& random, std::size_t most) {
  const std::size_t chosen = Any(random, records);
  switch (random() % 6) {
    case 0:
      records.insert(records.begin() + static_cast<std::ptrdiff_t>(Any(random, records)),
                     Bytes(records[chosen]));
      break;
    case 1:
      if (records.size() > 1) records.erase(records.begin() + static_cast<std::ptrdiff_t>(chosen));
      break;
    case 2:
      std::swap(records[chosen], records[Any(random, records)]);
      break;
    default:
      ChangeInside(records[chosen], most);
  }
}

}  // namespace
}  // namespace halyard::fuzz

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t most,
                                               unsigned int seed) {
  using namespace halyard::fuzz;
  Records records = Cut({data, size});
  if (records.empty()) return LLVMFuzzerMutate(data, size, most);
  Random random(seed);
  Change(records, random, most - std::min(size, most));
  return Join(records, data, most);
}
