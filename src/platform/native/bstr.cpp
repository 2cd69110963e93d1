// Length-prefixed wide strings on the C++ heap.
//
// A block is a prefix, the bytes of the text and zero bytes behind it. The prefix is
// wider than the four length bytes at its end, so that the text is aligned for any use.
#include "halyard/platform/native/bstr.h"

#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>

namespace {

constexpr std::size_t kPrefixBytes = 8;
constexpr std::size_t kLengthBytes = sizeof(UINT);

// Two zero bytes end every text; an odd text has a third, which fills its last unit.
constexpr std::size_t kZeroBytes = 3;

// Longer texts would have no room for the length bytes and the zero within 32 bits.
constexpr UINT kMaxBytes = std::numeric_limits<UINT>::max() - kLengthBytes - sizeof(OLECHAR);

char* BlockOf(BSTR text) noexcept { return reinterpret_cast<char*>(text) - kPrefixBytes; }

BSTR Allocate(const void* source, UINT bytes) noexcept {
  if (bytes > kMaxBytes) return nullptr;
  char* block = static_cast<char*>(std::malloc(kPrefixBytes + bytes + kZeroBytes));
  if (block == nullptr) return nullptr;
  char* text = block + kPrefixBytes;
  std::memcpy(text - kLengthBytes, &bytes, kLengthBytes);
  if (source != nullptr) std::memcpy(text, source, bytes);
  std::memset(text + bytes, 0, kZeroBytes);
  return reinterpret_cast<BSTR>(text);
}

}  // namespace

BSTR SysAllocString(const OLECHAR* text) {
  if (text == nullptr) return nullptr;
  const std::size_t length = std::char_traits<OLECHAR>::length(text);
  if (length > kMaxBytes / sizeof(OLECHAR)) return nullptr;
  return SysAllocStringLen(text, static_cast<UINT>(length));
}

BSTR SysAllocStringLen(const OLECHAR* text, UINT length) {
  if (length > kMaxBytes / sizeof(OLECHAR)) return nullptr;
  return Allocate(text, length * static_cast<UINT>(sizeof(OLECHAR)));
}

BSTR SysAllocStringByteLen(const char* text, UINT bytes) { return Allocate(text, bytes); }

void SysFreeString(BSTR text) {
  if (text != nullptr) std::free(BlockOf(text));
}

UINT SysStringLen(BSTR text) { return SysStringByteLen(text) / static_cast<UINT>(sizeof(OLECHAR)); }

UINT SysStringByteLen(BSTR text) {
  if (text == nullptr) return 0;
  UINT bytes = 0;
  std::memcpy(&bytes, reinterpret_cast<const char*>(text) - kLengthBytes, kLengthBytes);
  return bytes;
}
