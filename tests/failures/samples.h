// What the tests of failing memory work on.
#pragma once

#include <string>

#include "tests/support/composites.h"
#include "tests/support/encoding.h"
#include "tests/support/trees.h"

namespace halyard::test {

// {Number Long, Label String that may be null, Place {X Real, Y Real}, Samples Short[],
// Texts String[], Colour enumeration} with id 3 and a name.
inline Ptr<IStructureDef> EverythingDefinition() {
  const auto place = StructureDefinition({{OLESTR("X"), kReal}, {OLESTR("Y"), kReal}});
  const auto definition = StructureDefinition(
      {{OLESTR("Number"), kLong}, {OLESTR("Label"), kString, 0, true}}, 3, OLESTR("Everything"));
  AddMember(definition, OLESTR("Place"), place.get());
  AddMember(definition, OLESTR("Samples"), SimpleArrayDefinition(kShort).get());
  AddMember(definition, OLESTR("Texts"), SimpleArrayDefinition(kString).get());
  AddMember(definition, OLESTR("Colour"), EnumerationDefinition(kShort, {{OLESTR("Red"), 1}}).get());
  Calculate(definition);
  return definition;
}

// A value of it with something in every member.
inline Ptr<IValueBase> EverythingValue() {
  const auto value = NewValue(EverythingDefinition());
  FillTree(value, 5);
  return value;
}

// The bytes that the object writes, or why it does not.
template <class I>
std::string BytesOf(const Ptr<I>& object) {
  Bytes bytes(4096);
  ULONG count = 0;
  VARIANT_BOOL done = VARIANT_FALSE;
  const HRESULT hr = object->WriteToBuffer(bytes.data(), static_cast<ULONG>(bytes.size()), &count, &done);
  if (FAILED(hr)) return "failed " + std::to_string(hr);
  return done == VARIANT_FALSE ? "no room" : ToHex(Prefix(bytes, count));
}

// Reads the object from the bytes; what a short buffer answers is a failure here.
template <class I>
HRESULT ReadBytes(const Ptr<I>& object, Bytes& bytes) {
  ULONG count = 0;
  VARIANT_BOOL done = VARIANT_FALSE;
  const HRESULT hr = object->ReadFromBuffer(bytes.data(), static_cast<ULONG>(bytes.size()), &count, &done);
  return SUCCEEDED(hr) && done == VARIANT_FALSE ? E_FAIL : hr;
}

// Writes the object to a buffer with room for it.
template <class I>
HRESULT WriteBytes(const Ptr<I>& object, Bytes& buffer) {
  ULONG count = 0;
  VARIANT_BOOL done = VARIANT_FALSE;
  return object->WriteToBuffer(buffer.data(), static_cast<ULONG>(buffer.size()), &count, &done);
}

}  // namespace halyard::test
