// The identifier of an interface, known at compile time: IidOf<IValueBase>.
//
// An interface of this library states its identifier as `kIid` and the interface that
// it extends as `Base`; the platform's own interfaces are listed here.
#pragma once

#include "halyard/platform/automation.h"

namespace halyard {

// What the compiler knows about interface I: kIid is its identifier, Base the interface
// that it extends, void for IUnknown, which extends none.
template <class I>
struct InterfaceTraits {
  static constexpr IID kIid = I::kIid;
  using Base = typename I::Base;
};

template <>
struct InterfaceTraits<IUnknown> {
  static constexpr IID kIid = {0x00000000, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
  using Base = void;
};

template <>
struct InterfaceTraits<IDispatch> {
  static constexpr IID kIid = {0x00020400, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
  using Base = IUnknown;
};

template <>
struct InterfaceTraits<IErrorInfo> {
  static constexpr IID kIid = {0x1CF2B120, 0x547D, 0x101B, {0x8E, 0x65, 0x08, 0x00, 0x2B, 0x2B, 0xD1, 0x19}};
  using Base = IUnknown;
};

template <>
struct InterfaceTraits<ICreateErrorInfo> {
  static constexpr IID kIid = {0x22F03340, 0x547D, 0x101B, {0x8E, 0x65, 0x08, 0x00, 0x2B, 0x2B, 0xD1, 0x19}};
  using Base = IUnknown;
};

template <>
struct InterfaceTraits<ISupportErrorInfo> {
  static constexpr IID kIid = {0xDF0B3D60, 0x548F, 0x101B, {0x8E, 0x65, 0x08, 0x00, 0x2B, 0x2B, 0xD1, 0x19}};
  using Base = IUnknown;
};

template <>
struct InterfaceTraits<IObjectSafety> {
  static constexpr IID kIid = {0xCB5BDC81, 0x93C1, 0x11CF, {0x8F, 0x20, 0x00, 0x80, 0x5F, 0x2C, 0xD0, 0x64}};
  using Base = IUnknown;
};

// The identifier of interface I.
template <class I>
inline constexpr IID IidOf = InterfaceTraits<I>::kIid;

}  // namespace halyard
