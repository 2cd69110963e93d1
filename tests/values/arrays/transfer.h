// The two numeric transfers, with buffers between guard bytes, and an array for them.
#pragma once

#include <cstring>
#include <string>

#include "tests/support/composites.h"
#include "tests/support/encoding.h"

namespace halyard::test {

// What a transfer answers, and the number buffer afterwards.
struct Transferred {
  HRESULT status;
  VARIANT_BOOL result;
  std::string bytes;
};

// A buffer of `room` bytes, of which the first `expected` hold numbers afterwards.
inline Transferred Build(const Ptr<IArray>& array, const OLECHAR* path, const Variant& type,
                         std::size_t room) {
  GuardedBuffer buffer(room);
  const Bstr text(path);
  VARIANT_BOOL result = Garbage<VARIANT_BOOL>();
  const HRESULT status = array->BuildNumericArray(text.get(), type.get(), buffer.data(), &result);
  EXPECT_TRUE(buffer.GuardsIntact()) << "numbers outside the buffer";
  return {status, result, ToHex(buffer.Contents())};
}

inline Transferred Read(const Ptr<IArray>& array, const OLECHAR* path, const Variant& type,
                        std::string_view hex) {
  const Bytes numbers = Hex(hex);
  GuardedBuffer buffer(numbers.size());
  if (!numbers.empty()) std::memcpy(buffer.data(), numbers.data(), numbers.size());
  const Bstr text(path);
  VARIANT_BOOL result = Garbage<VARIANT_BOOL>();
  const HRESULT status = array->ReadNumericArray(text.get(), type.get(), buffer.data(), &result);
  EXPECT_EQ(buffer.Contents(), numbers) << "reading changed the number buffer";
  return {status, result, ToHex(buffer.Contents())};
}

// The numbers that a path selects, in a buffer of exactly their size.
inline std::string Built(const Ptr<IArray>& array, const OLECHAR* path, SHORT type, std::size_t room) {
  const Transferred built = Build(array, path, I2(type), room);
  EXPECT_EQ(built.status, S_OK);
  EXPECT_EQ(built.result, VARIANT_TRUE);
  return built.bytes;
}

inline void ReadNumbers(const Ptr<IArray>& array, const OLECHAR* path, SHORT type, std::string_view hex) {
  const Transferred read = Read(array, path, I2(type), hex);
  EXPECT_EQ(read.status, S_OK);
  EXPECT_EQ(read.result, VARIANT_TRUE);
}

// Structures whose member m is an object, with these numbers.
inline Ptr<IArray> Nullable(SHORT type, std::initializer_list<LONG> numbers) {
  const auto definition = StructureDefinition({{OLESTR("m"), type, 0, true}});
  const auto array = NewArray(ArrayDefinition(definition));
  for (const LONG number : numbers) {
    const auto element = NewValue(definition);
    PutItem(element, OLESTR("m"), I4(number));
    Add(array, Object(element));
  }
  return array;
}

// A buffer that no transfer has written.
inline std::string Unwritten(std::size_t room) { return ToHex(Bytes(room, GuardedBuffer::kFiller)); }

}  // namespace halyard::test
