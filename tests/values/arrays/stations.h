// A structure with members of every kind, and arrays of it: what member paths walk.
#pragma once

#include "tests/support/composites.h"

namespace halyard::test {

// {X Real, Y Real}
inline Ptr<IStructureDef> PositionDefinition() {
  return StructureDefinition({{OLESTR("X"), kReal}, {OLESTR("Y"), kReal}});
}

// {Name String, Depth ShortReal, Level Long (can be null), Position {X, Y}, Samples[4] Short,
//  Trace[] Long, Names[] String, Points[2] of {X, Y}, Grid[2] of [3] Byte, Colour
//  enumeration, When Date, Tag FixedString 4, Raw ByteArray 2, Big Int64}
inline Ptr<IStructureDef> StationDefinition() {
  const auto station = StructureDefinition(
      {{OLESTR("Name"), kString}, {OLESTR("Depth"), kShortReal}, {OLESTR("Level"), kLong, 0, true}});
  AddMember(station, OLESTR("Position"), PositionDefinition().get());
  AddMember(station, OLESTR("Samples"), SimpleArrayDefinition(kShort, 4).get());
  AddMember(station, OLESTR("Trace"), SimpleArrayDefinition(kLong).get());
  AddMember(station, OLESTR("Names"), SimpleArrayDefinition(kString).get());
  AddMember(station, OLESTR("Points"), ArrayDefinition(PositionDefinition(), 2).get());
  AddMember(station, OLESTR("Grid"), ArrayDefinition(SimpleArrayDefinition(kByte, 3), 2).get());
  AddMember(station, OLESTR("Colour"), EnumerationDefinition(kShort, {{OLESTR("Red"), 5}}).get());
  AddMember(station, OLESTR("When"), SimpleDefinition(kDate).get());
  AddMember(station, OLESTR("Tag"), SimpleDefinition(kFixedString, 4).get());
  AddMember(station, OLESTR("Raw"), SimpleDefinition(kByteArray, 2).get());
  AddMember(station, OLESTR("Big"), SimpleDefinition(kInt64).get());
  Calculate(station);
  return station;
}

// The object in a member.
inline Ptr<IValueBase> MemberObject(const Ptr<IValueBase>& value, const OLECHAR* name) {
  return Get(value, &IValueBase::get_At, Text(name));
}

// Numbers into a station, all different and made from `seed`.
inline void FillStation(const Ptr<IValueBase>& station, LONG seed) {
  PutItem(station, OLESTR("Name"), Text(OLESTR("a station")));
  PutItem(station, OLESTR("Depth"), I4(seed));
  PutItem(station, OLESTR("Level"), I4(seed + 1));
  PutItem(MemberObject(station, OLESTR("Position")), OLESTR("X"), I4(seed + 2));
  PutItem(MemberObject(station, OLESTR("Position")), OLESTR("Y"), I4(seed + 3));
  const auto samples = MemberObject(station, OLESTR("Samples")).As<IArray>();
  for (LONG i = 0; i < 4; ++i) PutItem(samples, i, I4(seed + 10 + i));
  AddAll(MemberObject(station, OLESTR("Trace")).As<IArray>(), {seed + 20, seed + 21, seed + 22});
  const auto points = MemberObject(station, OLESTR("Points")).As<IArray>();
  for (LONG i = 0; i < 2; ++i) {
    PutItem(At(points, i), OLESTR("X"), I4(seed + 30 + i));
    PutItem(At(points, i), OLESTR("Y"), I4(seed + 40 + i));
  }
  const auto grid = MemberObject(station, OLESTR("Grid")).As<IArray>();
  for (LONG row = 0; row < 2; ++row) {
    for (LONG i = 0; i < 3; ++i) PutItem(At(grid, row).As<IArray>(), i, I4(seed % 50 + 10 * row + i));
  }
}

// Two stations with the seeds 100 and 200: an array of that fixed count, or variable.
inline Ptr<IArray> Stations(LONG fixed = 0) {
  const auto definition = StationDefinition();
  const auto array = NewArray(ArrayDefinition(definition, fixed));
  for (LONG i = 0; i < 2; ++i) {
    if (fixed == 0) Add(array, Variant(static_cast<IDispatch*>(NewValue(definition).get())));
    FillStation(At(array, i), 100 * (i + 1));
  }
  return array;
}

}  // namespace halyard::test
