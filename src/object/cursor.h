// Bounded little-endian cursors over a caller's buffer. All reading and writing of
// encodings goes through them: a step that does not fit answers false and moves nothing.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "object/raw_memory.h"

namespace halyard {

static_assert(std::endian::native == std::endian::little, "encodings are little-endian, as memory must be");

// Bytes with the memory in which they lie, or none.
struct OwnedBytes {
  RawMemory memory;
  std::span<unsigned char> bytes;

  explicit operator bool() const noexcept { return memory != nullptr; }
};

class ReadCursor {
 public:
  // Over `size` bytes; a null buffer has none.
  ReadCursor(const unsigned char* bytes, std::uint32_t size) noexcept
      : start_(bytes), rest_(bytes, bytes == nullptr ? 0 : size) {}

  // Takes a number of T's width.
  template <class T>
  [[nodiscard]] bool Take(T& value) noexcept {
    return TakeBytes(&value, sizeof value);
  }

  // Takes `size` bytes into memory of the caller, which may overlap the buffer.
  [[nodiscard]] bool TakeBytes(void* bytes, std::size_t size) noexcept {
    if (rest_.size() < size) return false;
    if (size != 0) std::memmove(bytes, rest_.data(), size);
    rest_ = rest_.subspan(size);
    return true;
  }

  // Takes narrow text that a 16-bit length leads. The view lies in the buffer.
  [[nodiscard]] bool TakeText(std::string_view& text) noexcept {
    std::uint16_t length = 0;
    if (!Take(length) || rest_.size() < length) return false;
    text = {reinterpret_cast<const char*>(rest_.data()), length};
    rest_ = rest_.subspan(length);
    return true;
  }
  [[nodiscard]] bool TakeText(std::string& text) {
    std::string_view view;
    if (!TakeText(view)) return false;
    text = view;
    return true;
  }

  [[nodiscard]] bool Skip(std::size_t size) noexcept {
    if (rest_.size() < size) return false;
    rest_ = rest_.subspan(size);
    return true;
  }

  // Lets a reader keep the memory of the buffer, which is `memory`, instead of copying
  // from it.
  void Offer(RawMemory* memory) noexcept { offered_ = memory; }

  // Takes `size` bytes together with the memory in which they lie. Only where they are the
  // last of the buffer and most of it, and the memory is to be had; else nothing is taken.
  [[nodiscard]] OwnedBytes TakeWithMemory(std::size_t size) noexcept {
    if (offered_ == nullptr || *offered_ == nullptr || rest_.size() != size || size < position()) return {};
    unsigned char* bytes = offered_->get() + (rest_.data() - offered_->get());
    rest_ = rest_.subspan(size);
    return {std::move(*offered_), {bytes, size}};
  }

  // What has not been taken yet.
  [[nodiscard]] std::span<const unsigned char> rest() const noexcept { return rest_; }
  [[nodiscard]] std::uint32_t room() const noexcept { return static_cast<std::uint32_t>(rest_.size()); }

  // The number of bytes taken.
  [[nodiscard]] std::uint32_t position() const noexcept {
    return static_cast<std::uint32_t>(rest_.data() - start_);
  }

 private:
  const unsigned char* start_;
  std::span<const unsigned char> rest_;
  RawMemory* offered_ = nullptr;
};

class WriteCursor {
 public:
  // Over `size` bytes of the caller; a null buffer has none.
  WriteCursor(unsigned char* bytes, std::uint32_t size) noexcept
      : start_(bytes), rest_(bytes, bytes == nullptr ? 0 : size) {}

  // Puts a number in T's width.
  template <class T>
  [[nodiscard]] bool Put(T value) noexcept {
    return PutBytes(&value, sizeof value);
  }

  [[nodiscard]] bool PutBytes(const void* bytes, std::size_t size) noexcept {
    if (rest_.size() < size) return false;
    if (size != 0) std::memmove(rest_.data(), bytes, size);
    rest_ = rest_.subspan(size);
    return true;
  }

  // Puts exactly `size` bytes of narrow text: cut, or filled up with zeros.
  [[nodiscard]] bool PutField(std::string_view text, std::size_t size) noexcept {
    if (rest_.size() < size) return false;
    const std::size_t used = text.size() < size ? text.size() : size;
    if (used != 0) std::memcpy(rest_.data(), text.data(), used);
    if (used != size) std::memset(rest_.data() + used, 0, size - used);
    rest_ = rest_.subspan(size);
    return true;
  }

  // Puts the low 16 bits of a length and that many bytes of narrow text, filled up with
  // zeros.
  [[nodiscard]] bool PutText(std::string_view text, std::size_t length) noexcept {
    return Put(static_cast<std::uint16_t>(length)) && PutField(text, length);
  }

  [[nodiscard]] bool Skip(std::size_t size) noexcept {
    if (rest_.size() < size) return false;
    rest_ = rest_.subspan(size);
    return true;
  }

  // The room that is left.
  [[nodiscard]] std::span<unsigned char> rest() const noexcept { return rest_; }
  [[nodiscard]] std::uint32_t room() const noexcept { return static_cast<std::uint32_t>(rest_.size()); }

  // The number of bytes put.
  [[nodiscard]] std::uint32_t position() const noexcept {
    return static_cast<std::uint32_t>(rest_.data() - start_);
  }

 private:
  unsigned char* start_;
  std::span<unsigned char> rest_;
};

}  // namespace halyard
