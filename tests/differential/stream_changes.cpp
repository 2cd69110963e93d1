// Changes to streams, most of which leave the framing valid, so that what lies behind the
// first records is reached.
#include <algorithm>
#include <array>

#include "tests/differential/hostile_streams.h"

namespace halyard::differential {
namespace {

constexpr std::size_t kLengthBytes = 4;
constexpr std::size_t kWordBytes = 2;
constexpr std::size_t kKindPlace = 0;
constexpr std::size_t kTypePlace = 2;
constexpr std::size_t kIdPlace = 4;

// Counts and lengths that readers get wrong.
constexpr std::uint32_t kNumbers[] = {
    0,      1,       2,       3,        0x7F,      0x80,       0xFF,       0x100,      0x7FFF,    0x8000,
    0xFFFF, 0x10000, 0x10001, 0xFFFFFF, 0x1000000, 0x7FFFFFFF, 0x80000000, 0xFFFFFFF0, 0xFFFFFFFF};
constexpr std::uint32_t kKinds[] = {101, 102, 0, 100, 103, 0xFFFF};

std::uint32_t Size(const Bytes& bytes) { return static_cast<std::uint32_t>(bytes.size()); }

// Puts a number of `width` bytes at a place, as far as the bytes reach.
void Put(Bytes& bytes, std::size_t place, std::uint32_t number, std::size_t width) {
  for (std::size_t i = 0; i < width && place + i < bytes.size(); ++i)
    bytes[place + i] = static_cast<unsigned char>(number >> (8 * i));
}

void PutLength(Bytes& stream, std::uint32_t length) {
  const Bytes bytes = test::LittleEndian(length, kLengthBytes);
  stream.insert(stream.end(), bytes.begin(), bytes.end());
}

void ChangeByte(Random& random, Bytes& bytes) {
  if (bytes.empty()) return;
  auto& byte = bytes[random.Below(Size(bytes))];
  byte = static_cast<unsigned char>(random.OneIn(2) ? byte ^ 1u << random.Below(8) : random.Below(256));
}

void ChangeNumber(Random& random, Bytes& bytes) {
  if (bytes.empty()) return;
  Put(bytes, random.Below(Size(bytes)), random.Of(kNumbers), random.OneIn(3) ? kLengthBytes : kWordBytes);
}

void InsertBytes(Random& random, Bytes& bytes) {
  const auto place = bytes.begin() + random.Below(Size(bytes) + 1);
  bytes.insert(place, random.Below(9) + 1,
               static_cast<unsigned char>(random.OneIn(2) ? 0 : random.Below(256)));
}

void RemoveBytes(Random& random, Bytes& bytes) {
  const std::uint32_t first = random.Below(Size(bytes) + 1);
  const std::uint32_t count = std::min(random.Below(9) + 1, Size(bytes) - first);
  bytes.erase(bytes.begin() + first, bytes.begin() + first + count);
}

void Cut(Random& random, Bytes& bytes) { bytes.resize(random.Below(Size(bytes) + 1)); }

// A change inside one unit; its length is put right behind it.
void ChangeUnit(Random& random, Bytes& unit) {
  switch (random.Below(10)) {
    case 0:
      return Put(unit, kKindPlace, random.Of(kKinds), kWordBytes);
    case 1:
      return Put(unit, kTypePlace, random.Below(19), kWordBytes);
    case 2:
      return Put(unit, kIdPlace, random.Below(7), kWordBytes);
    case 3:
      return InsertBytes(random, unit);
    case 4:
      return RemoveBytes(random, unit);
    case 5:
      return Cut(random, unit);
    case 6:
    case 7:
      return ChangeNumber(random, unit);
    default:
      return ChangeByte(random, unit);
  }
}

void ChangeUnits(Random& random, std::vector<Bytes>& units) {
  if (units.empty()) return;
  const auto any = [&] { return random.Below(static_cast<std::uint32_t>(units.size())); };
  const std::uint32_t chosen = any();
  switch (random.Below(8)) {
    case 0:
      units.insert(units.begin() + any(), Bytes(units[chosen]));
      return;
    case 1:
      units.erase(units.begin() + chosen);
      return;
    case 2:
      std::swap(units[chosen], units[any()]);
      return;
    default:
      return ChangeUnit(random, units[chosen]);
  }
}

// A change to the stream that knows nothing of records, or to the length of one.
void ChangeFraming(Random& random, Bytes& stream) {
  switch (random.Below(4)) {
    case 0:
      return Cut(random, stream);
    case 1:
      return InsertBytes(random, stream);
    case 2:
      return ChangeByte(random, stream);
    default:
      return ChangeNumber(random, stream);
  }
}

}  // namespace

std::vector<Bytes> UnitsOf(const Bytes& stream) {
  std::vector<Bytes> units;
  for (std::size_t place = sizeof kHeader; place + kLengthBytes < stream.size();) {
    std::uint32_t length = 0;
    for (std::size_t i = kLengthBytes; i-- > 0;) length = length << 8 | stream[place + i];
    place += kLengthBytes;
    const std::size_t there = std::min<std::size_t>(length, stream.size() - place);
    const auto first = stream.begin() + static_cast<std::ptrdiff_t>(place);
    units.emplace_back(first, first + static_cast<std::ptrdiff_t>(there));
    place += there;
  }
  return units;
}

Bytes StreamOf(const std::vector<Bytes>& units) {
  Bytes stream(std::begin(kHeader), std::end(kHeader));
  for (const Bytes& unit : units) {
    PutLength(stream, Size(unit));
    stream.insert(stream.end(), unit.begin(), unit.end());
  }
  return stream;
}

Bytes Changed(Random& random, Bytes stream) {
  constexpr std::uint32_t kMostChanges = 4;
  auto units = UnitsOf(stream);
  for (auto changes = random.Below(kMostChanges) + 1; changes > 0; --changes) ChangeUnits(random, units);
  stream = StreamOf(units);
  if (random.OneIn(4)) ChangeFraming(random, stream);
  return stream;
}

}  // namespace halyard::differential
