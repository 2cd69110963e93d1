// Streams that a hostile hand has changed.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/differential/random.h"
#include "tests/support/bytes.h"

namespace halyard::differential {

using test::Bytes;

class HostileStreams {
 public:
  // Takes the kept inputs of the fuzz targets, a folder for each target in each of the
  // folders; those that are parts of streams become streams of one or two records.
  explicit HostileStreams(const std::vector<std::filesystem::path>& folders);

  // The stream of a seed, 1 for the first: the kept ones as they are, then valid and kept
  // ones with a few changes.
  [[nodiscard]] Bytes Make(std::uint64_t seed);

 private:
  void TakeFolder(const std::filesystem::path& folder);
  const Bytes& ValidStream(std::uint64_t seed);

  std::vector<Bytes> kept_;
  std::uint64_t valid_seed_ = 0;  // of the stream in valid_
  Bytes valid_;
};

// The signature and version at the front of a stream.
inline constexpr unsigned char kHeader[] = {'O', 'r', 'm', 0, 0, 0, 0x80, 0x3F};

// The units of a stream as far as its lengths can be believed; the rest is one more.
std::vector<Bytes> UnitsOf(const Bytes& stream);

// The stream of units, each behind its length.
Bytes StreamOf(const std::vector<Bytes>& units);

// The stream with a few changes: to bits, lengths, kinds, types, ids and counts, to the
// order of its records, and cut.
Bytes Changed(Random& random, Bytes stream);

}  // namespace halyard::differential
