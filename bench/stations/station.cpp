#include "stations/station.h"

namespace bench {
namespace {

constexpr std::size_t kShortestName = 8;
constexpr std::size_t kShortestNote = 12;

// Texts whose lengths go round from the shortest to the longest.
std::vector<std::string> MakeTexts(std::size_t shortest, std::size_t longest) {
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < kTextCount; ++i) {
    std::string text;
    const std::size_t length = shortest + i % (longest - shortest + 1);
    for (std::size_t j = 0; j < length; ++j) text += static_cast<char>('a' + (i * 7 + j * 3) % 26);
    texts.push_back(text);
  }
  return texts;
}

}  // namespace

const std::vector<std::string>& Names() {
  static const std::vector<std::string> names = MakeTexts(kShortestName, kLongestName);
  return names;
}

const std::vector<std::string>& Notes() {
  static const std::vector<std::string> notes = MakeTexts(kShortestNote, kLongestNote);
  return notes;
}

StationSums TrueStationSums(std::int32_t count) {
  StationSums sums;
  for (std::int32_t i = 0; i < count; ++i) {
    const Station one = StationAt(i);
    sums.id += one.id;
    sums.name += SumOfCharacters(Names()[one.name]);
    if (one.has_note) {
      sums.note += SumOfCharacters(Notes()[one.note]);
    } else {
      ++sums.without_note;
    }
    sums.x += one.x;
    sums.y += one.y;
    sums.z += one.z;
    sums.samples += SumOfSamples(one.samples);
    sums.state += one.state;
  }
  return sums;
}

}  // namespace bench
