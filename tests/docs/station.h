// The structure that docs/format.md uses in its examples.
#pragma once

#include "halyard/halyard.h"
#include "tests/support/definitions.h"

namespace halyard::test {

// Station, id 3: Depth (Long), Label (String, may be null), Salt (ShortReal).
inline Ptr<IStructureDef> StationDefinition() {
  return StructureDefinition({{.name = OLESTR("Depth"), .type = kLong},
                              {.name = OLESTR("Label"), .type = kString, .can_be_null = true},
                              {.name = OLESTR("Salt"), .type = kShortReal}},
                             3, OLESTR("Station"));
}

// A station of depth 5 and salt 0.5 with that label, null for VT_NULL.
inline Ptr<IValueBase> Station(const Variant& label) {
  const auto station = NewValue(StationDefinition());
  PutItem(station, OLESTR("Depth"), Variant(LONG{5}));
  PutItem(station, OLESTR("Label"), label);
  PutItem(station, OLESTR("Salt"), Variant(0.5F));
  return station;
}

}  // namespace halyard::test
