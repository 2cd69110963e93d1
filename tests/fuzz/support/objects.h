// The objects that fuzz targets begin with.
#pragma once

#include <cstdint>

#include "halyard/halyard.h"

namespace halyard::fuzz {

// One of the definition classes, chosen by a number.
const CLSID& DefinitionClass(std::uint8_t choice) noexcept;

// A structure {A Byte, B Real, Texts[] String, Samples[4] Short, Name String, Extent
// {X Real, Y Real}, When Date, Note String that may be null} with a name and id 1.
Ptr<IStructureDef> SampleStructure();

// A definition of an array of `element`; 0 elements stand for any number.
Ptr<IArrayDef> ArrayOf(IValueDefBase* element, LONG count, SHORT id);

// A session that knows the sample structure, an array of it (id 2), an array of Reals
// (id 3), one of texts (id 4), and an enumeration (id 5).
Ptr<IOrmSession> FilledSession();

}  // namespace halyard::fuzz
