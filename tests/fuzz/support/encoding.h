// Reading and writing through the buffer calls that definitions, values and units share.
#pragma once

#include <optional>

#include "halyard/halyard.h"
#include "tests/fuzz/support/input.h"
#include "tests/fuzz/support/promise.h"

namespace halyard::fuzz {

// More than what a fuzz input can hold needs.
inline constexpr ULONG kMostBytes = 1 << 20;

// Reads an object from a buffer; the bytes that it took, none where it refused. What it
// says to have taken is checked against what there was.
template <class I>
std::optional<ULONG> ReadFrom(const Ptr<I>& object, Bytes bytes) {
  constexpr ULONG kUntouched = 0xFFFFFFFF;
  ULONG taken = kUntouched;
  VARIANT_BOOL done = VARIANT_FALSE;
  const auto size = static_cast<ULONG>(bytes.size());
  const HRESULT hr = object->ReadFromBuffer(bytes.data(), size, &taken, &done);
  if (FAILED(hr) || done == VARIANT_FALSE) return std::nullopt;
  if (taken == kUntouched) return std::nullopt;
  Hold(taken <= size, "a reader takes no more than it was given");
  return taken;
}

// Writes an object into a buffer of exactly `size` bytes; what it wrote, none where it
// refused or had too little room.
template <class I>
std::optional<Bytes> WriteInto(const Ptr<I>& object, ULONG size) {
  constexpr ULONG kUntouched = 0xFFFFFFFF;
  Bytes bytes(size);
  ULONG written = kUntouched;
  VARIANT_BOOL done = VARIANT_FALSE;
  const HRESULT hr = object->WriteToBuffer(bytes.data(), size, &written, &done);
  if (FAILED(hr) || done == VARIANT_FALSE || written == kUntouched) return std::nullopt;
  Hold(written <= size, "a writer stays within its buffer");
  bytes.resize(written);
  return bytes;
}

// The encoding of an object, none where it has none.
template <class I>
std::optional<Bytes> Encoded(const Ptr<I>& object) {
  ULONG size = 0;
  if (SUCCEEDED(object->get_PacketSize(&size)) && size <= kMostBytes) {
    if (auto bytes = WriteInto(object, size)) return bytes;
  }
  constexpr ULONG kRoom = 1 << 17;  // for what says to need less than it does
  return WriteInto(object, kRoom);
}

}  // namespace halyard::fuzz
