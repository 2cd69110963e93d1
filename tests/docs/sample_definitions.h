// The definitions that docs/format.md uses in more than one example.
#pragma once

#include "halyard/halyard.h"
#include "tests/support/composites.h"
#include "tests/support/definitions.h"

namespace halyard::test::samples {

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

// Quality, id 5, stored as Short: Good is 1, Bad is -1.
inline Ptr<IEnumerationDef> QualityDefinition() {
  const auto definition = EnumerationDefinition(kShort, {{OLESTR("Good"), 1}, {OLESTR("Bad"), -1}}, 5);
  Check(definition->put_Name(Bstr(OLESTR("Quality")).get()));
  return definition;
}

// A structure of fixed layout without id and name: X (Long), Y (Short).
inline Ptr<IStructureDef> PointDefinition() {
  return StructureDefinition({{.name = OLESTR("X"), .type = kLong}, {.name = OLESTR("Y"), .type = kShort}});
}

// Two points, id 7.
inline Ptr<IArrayDef> TrackDefinition() { return ArrayDefinition(PointDefinition(), 2, 7); }

// An array of texts of its own length, id 8, holding "ab" and "".
inline Ptr<IArrayDef> TextsDefinition() { return SimpleArrayDefinition(kString, 0, 8); }
inline Ptr<IArray> Texts() {
  const auto texts = NewArray(TextsDefinition());
  Add(texts, Variant(OLESTR("ab")));
  Add(texts, Variant(OLESTR("")));
  return texts;
}

}  // namespace halyard::test::samples
