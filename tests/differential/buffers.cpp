// The two buffer calls of definitions, values and units.
#include <algorithm>
#include <cstring>

#include "tests/differential/world.h"

namespace halyard::differential {
namespace {

// Behind every buffer lie zeroed bytes: a simple value does not look at the size of its
// buffer, and its widest field fits here.
constexpr std::size_t kSpare = 66000;
constexpr unsigned char kFiller = 0xEE;
constexpr ULONG kLargestRoom = 100000;
constexpr ULONG kLargestOwn = 2000;

// What a call answers: status, result, count.
std::string Answer(HRESULT status, VARIANT_BOOL result, ULONG count) {
  return Status(status) + " " + ShowNumber(result) + " " + (count == 0x5A5A5A5A ? "-" : ShowNumber(count));
}

template <class I>
void Write(World& world, const std::string& name, const Ptr<I>& object) {
  ULONG size = 0;
  if (FAILED(object->get_PacketSize(&size)) || size > kLargestRoom) size = 64;
  ULONG room = size + (world.random.OneIn(4) ? 40 : 0);
  if (world.random.OneIn(4)) room = world.random.Below(size + 1);
  Bytes buffer(room + kSpare, 0);
  std::memset(buffer.data(), kFiller, room);
  VARIANT_BOOL result = 77;
  ULONG count = 0x5A5A5A5A;
  const HRESULT status =
      Answered([&] { return object->WriteToBuffer(buffer.data(), room, &count, &result); });
  buffer.resize(room);
  world.Tell(name + ".WriteToBuffer " + ShowNumber(room),
             Answer(status, result, count) + " [" + test::ToHex(buffer) + "]");
  if (status != S_OK || result != VARIANT_TRUE) return;
  if (count < buffer.size()) buffer.resize(count);
  world.Keep(std::move(buffer));
}

// What the object writes now; nothing when it cannot or when it is large.
template <class I>
Bytes OwnBytes(const Ptr<I>& object) {
  Bytes buffer(kSpare, 0);
  VARIANT_BOOL result = VARIANT_FALSE;
  ULONG count = 0;
  const HRESULT status = object->WriteToBuffer(buffer.data(), kLargestOwn, &count, &result);
  buffer.resize(SUCCEEDED(status) && result != VARIANT_FALSE ? std::min(count, kLargestOwn) : 0);
  return buffer;
}

template <class I>
void Read(World& world, const std::string& name, const Ptr<I>& object) {
  const Bytes bytes = world.random.OneIn(2) ? world.Damaged(OwnBytes(object)) : world.AnyBytes();
  Bytes buffer = bytes;
  buffer.resize(bytes.size() + kSpare, 0);
  VARIANT_BOOL result = 77;
  ULONG count = 0x5A5A5A5A;
  const auto size = static_cast<ULONG>(bytes.size());
  const HRESULT status =
      Answered([&] { return object->ReadFromBuffer(buffer.data(), size, &count, &result); });
  world.Tell(name + ".ReadFromBuffer [" + test::ToHex(bytes) + "]", Answer(status, result, count));
}

// Calls `move` with the interface that the object has.
template <class Move>
void WithInterface(IUnknown* object, Move&& move) {
  const Ptr<IUnknown> any(object);
  if (const auto definition = any.As<IValueDefBase>()) {
    move(definition);
  } else if (const auto value = any.As<IValueBase>()) {
    move(value);
  } else if (const auto unit = any.As<IUnit>()) {
    move(unit);
  }
}

}  // namespace

void WriteAnything(World& world, const std::string& name, IUnknown* object) {
  WithInterface(object, [&](const auto& any) { Write(world, name, any); });
}

void ReadAnything(World& world, const std::string& name, IUnknown* object) {
  WithInterface(object, [&](const auto& any) { Read(world, name, any); });
}

}  // namespace halyard::differential
