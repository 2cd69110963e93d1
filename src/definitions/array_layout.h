// What array values read of their definition: element definition, count and type.
//
// The layout stays the definition's own and changes when a client changes the
// definition, so a value copies what it must rely on.
#pragma once

#include "definitions/held_definition.h"
#include "halyard/definitions/value_def_base.h"
#include "halyard/object/ptr.h"
#include "halyard/types/type_codes.h"

namespace halyard {

struct ArrayLayout {
  // The element definition; empty until a client sets one.
  HeldDefinition value_type;

  // 0 where each value has a length of its own.
  ULONG element_count = 0;

  // The type code of the element definition when sizes were last calculated, 0 before.
  SHORT element_type = kInvalid;
};

// Answered by the array definitions of this library only, and only inside it.
struct IArrayLayoutSource : IUnknown {
  using Base = IUnknown;
  static constexpr IID kIid = {0x18F5ED3A, 0x56C6, 0x4C21, {0xB2, 0x27, 0x9F, 0x09, 0x09, 0x89, 0x9A, 0x6C}};

  // The layout; it lives as long as the definition.
  virtual const ArrayLayout& Layout() = 0;
};

}  // namespace halyard
