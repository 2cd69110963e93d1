// Station: the larger record of the workload W2, with texts, a member that may be null, a
// nested record, a list of samples and an enumeration; and the answers that every
// participant must give.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace bench {

inline constexpr std::size_t kSampleCount = 16;
inline constexpr std::size_t kTextCount = 64;  // different names, and different notes
inline constexpr std::int32_t kStateCount = 4;
inline constexpr std::size_t kLongestName = 24;
inline constexpr std::size_t kLongestNote = 43;

// One record. Texts are given by their place in the lists below, so that each participant
// can hold them ready in the form that its interface takes.
struct Station {
  std::int32_t id;
  std::size_t name;  // in Names()
  bool has_note;
  std::size_t note;  // in Notes(), where there is one
  double x;
  double y;
  double z;
  float samples[kSampleCount];
  std::int32_t state;  // 0 to 3
};

// The texts: names of 8 to 24 characters, notes of 12 to 43, all ASCII.
const std::vector<std::string>& Names();
const std::vector<std::string>& Notes();

// The record at a position. Every other one has a note. Numbers are multiples of an
// eighth, so that sums are exact in any order.
inline Station StationAt(std::int32_t position) {
  const auto p = static_cast<std::size_t>(position);
  Station one;
  one.id = position;
  one.name = p % kTextCount;
  one.has_note = position % 2 == 1;
  one.note = p / 2 % kTextCount;
  one.x = position * 0.25;
  one.y = position * 0.5 + 1;
  one.z = 100 - position * 0.125;
  for (std::size_t i = 0; i < kSampleCount; ++i) one.samples[i] = static_cast<float>((p & 255) + i) * 0.5F;
  one.state = position % kStateCount;
  return one;
}

// The sum of every member over all records; of a text, the sum of its character codes.
struct StationSums {
  std::int64_t id = 0;
  std::int64_t name = 0;
  std::int64_t note = 0;
  std::int64_t without_note = 0;
  double x = 0;
  double y = 0;
  double z = 0;
  double samples = 0;
  std::int64_t state = 0;

  friend bool operator==(const StationSums&, const StationSums&) = default;
};

// The sum of the character codes of a text in any form.
template <class Text>
std::int64_t SumOfCharacters(const Text& text) {
  std::int64_t sum = 0;
  for (const auto character : text) sum += static_cast<std::int64_t>(character);
  return sum;
}

// The sum of one record's samples, in any form that can be walked over.
template <class Samples>
double SumOfSamples(const Samples& samples) {
  double sum = 0;
  for (const float sample : samples) sum += sample;
  return sum;
}

// The sums over the first `count` records.
StationSums TrueStationSums(std::int32_t count);

}  // namespace bench
