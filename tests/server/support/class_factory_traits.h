// The identifiers of the system's interfaces that the tests ask for.
#pragma once

#include "halyard/object/interface_id.h"

namespace halyard {

template <>
struct InterfaceTraits<IClassFactory> {
  static constexpr IID kIid = {0x00000001, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
  using Base = IUnknown;
};

template <>
struct InterfaceTraits<IEnumVARIANT> {
  static constexpr IID kIid = {0x00020404, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
  using Base = IUnknown;
};

}  // namespace halyard
