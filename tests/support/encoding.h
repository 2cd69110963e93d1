// Moves definitions, values and units to and from buffers the way a careful adversary
// does: input lies in memory of exactly its size, output between guard bytes, counts
// and results start from garbage.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "tests/support/bytes.h"
#include "tests/support/get.h"
#include "tests/support/raised.h"

namespace halyard::test {

// A byte count that no call has written.
inline constexpr ULONG kUntouched = 0xCDCDCDCDu;

// What a buffer call answers.
struct Outcome {
  HRESULT status;
  VARIANT_BOOL result;
  ULONG count;

  friend bool operator==(const Outcome&, const Outcome&) = default;
};
std::ostream& operator<<(std::ostream& stream, const Outcome& outcome);

// Success with that many bytes.
inline Outcome Moved(ULONG count) { return {S_OK, VARIANT_TRUE, count}; }
// A short buffer: false, the count untouched.
inline Outcome TooShort() { return {S_OK, VARIANT_FALSE, kUntouched}; }
// True, but the count untouched.
inline Outcome NothingMoved() { return {S_OK, VARIANT_TRUE, kUntouched}; }

// A buffer between guard bytes, filled with kFiller.
class GuardedBuffer {
 public:
  static constexpr unsigned char kFiller = 0xEE;

  explicit GuardedBuffer(std::size_t size);

  [[nodiscard]] unsigned char* data() { return bytes_.data() + kGuardSize; }
  [[nodiscard]] ULONG size() const { return static_cast<ULONG>(size_); }
  [[nodiscard]] Bytes Contents() const;

  // Whether nothing was written outside the buffer.
  [[nodiscard]] bool GuardsIntact() const;

 private:
  static constexpr std::size_t kGuardSize = 64;
  static constexpr unsigned char kGuard = 0xA5;

  std::size_t size_;
  Bytes bytes_;
};

// Calls ReadFromBuffer with a copy of `bytes` in memory of exactly that size.
template <class Object>
Outcome ReadFrom(const Ptr<Object>& object, const Bytes& bytes) {
  const std::unique_ptr<unsigned char[]> copy(new unsigned char[bytes.size()]);
  if (!bytes.empty()) std::memcpy(copy.get(), bytes.data(), bytes.size());
  Outcome outcome{E_UNEXPECTED, Garbage<VARIANT_BOOL>(), kUntouched};
  outcome.status =
      object->ReadFromBuffer(copy.get(), static_cast<ULONG>(bytes.size()), &outcome.count, &outcome.result);
  return outcome;
}

template <class Object>
Outcome ReadFrom(const Ptr<Object>& object, std::string_view hex) {
  return ReadFrom(object, Hex(hex));
}

// What WriteToBuffer answers and leaves in the buffer.
struct Written {
  Outcome outcome;
  Bytes bytes;
};

template <class Object>
Written WriteTo(const Ptr<Object>& object, std::size_t size) {
  GuardedBuffer buffer(size);
  Outcome outcome{E_UNEXPECTED, Garbage<VARIANT_BOOL>(), kUntouched};
  outcome.status = object->WriteToBuffer(buffer.data(), buffer.size(), &outcome.count, &outcome.result);
  EXPECT_TRUE(buffer.GuardsIntact()) << "bytes outside a buffer of " << size << " were written";
  return {outcome, buffer.Contents()};
}

template <class Object>
ULONG PacketSize(const Ptr<Object>& object) {
  return Result<ULONG>([&](ULONG* out) { return object->get_PacketSize(out); });
}

// The encoding, in hexadecimal, of an object that needs exactly PacketSize bytes of room.
template <class Object>
std::string Encoded(const Ptr<Object>& object) {
  const ULONG size = PacketSize(object);
  const Written written = WriteTo(object, size);
  EXPECT_EQ(written.outcome, Moved(size));
  return ToHex(written.bytes);
}

// Writes into every room that is too small. The encoding is `full`, made of fields of
// the given widths: whole fields that fit are there, nothing after them is touched.
template <class Object>
void ExpectShortWrites(const Ptr<Object>& object, std::string_view full,
                       const std::vector<std::size_t>& widths) {
  const Bytes bytes = Hex(full);
  std::size_t field = 0;
  std::size_t kept = 0;
  for (std::size_t room = 0; room < bytes.size(); ++room) {
    while (field < widths.size() && kept + widths[field] <= room) kept += widths[field++];
    const Written written = WriteTo(object, room);
    EXPECT_EQ(written.outcome, TooShort()) << "room for " << room << " bytes";
    EXPECT_EQ(ToHex(written.bytes),
              ToHex(Join({Prefix(bytes, kept), Bytes(room - kept, GuardedBuffer::kFiller)})))
        << "room for " << room << " bytes";
  }
}

// Reads every true prefix of an encoding into an object of its own from `make`.
template <class Make>
void ExpectShortReads(std::string_view full, Make&& make) {
  const Bytes bytes = Hex(full);
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    EXPECT_EQ(ReadFrom(make(), Prefix(bytes, size)), TooShort()) << size << " bytes of " << full;
  }
}

// Null out arguments of both buffer calls.
template <class Object>
void ExpectNullBufferArgumentsRejected(const Ptr<Object>& object) {
  unsigned char byte = 0;
  ULONG count = kUntouched;
  VARIANT_BOOL result = Garbage<VARIANT_BOOL>();
  EXPECT_EQ(object->ReadFromBuffer(&byte, 1, nullptr, &result), E_POINTER);
  EXPECT_EQ(object->ReadFromBuffer(&byte, 1, &count, nullptr), E_POINTER);
  EXPECT_EQ(object->WriteToBuffer(&byte, 1, nullptr, &result), E_POINTER);
  EXPECT_EQ(object->WriteToBuffer(&byte, 1, &count, nullptr), E_POINTER);
  EXPECT_EQ(count, kUntouched);
  EXPECT_EQ(result, Garbage<VARIANT_BOOL>());
  EXPECT_EQ(byte, 0);
}

}  // namespace halyard::test
