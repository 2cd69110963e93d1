// Status codes of automation calls for platforms other than Windows: the codes that
// this library returns or hands through, with their documented numbers.
#pragma once

#include "halyard/platform/native/types.h"

// Negative means failure.
using HRESULT = std::int32_t;
using SCODE = std::int32_t;

constexpr bool SUCCEEDED(HRESULT hr) noexcept { return hr >= 0; }
constexpr bool FAILED(HRESULT hr) noexcept { return hr < 0; }

namespace halyard::detail {
constexpr HRESULT FailureCode(std::uint32_t code) noexcept { return static_cast<HRESULT>(code); }
}  // namespace halyard::detail

// Success.
inline constexpr HRESULT S_OK = 0;
// Success, but not what was hoped for.
inline constexpr HRESULT S_FALSE = 1;
// There is no such function.
inline constexpr HRESULT E_NOTIMPL = halyard::detail::FailureCode(0x80004001u);
// The object lacks the interface.
inline constexpr HRESULT E_NOINTERFACE = halyard::detail::FailureCode(0x80004002u);
// A null pointer, or an object that is needed and missing.
inline constexpr HRESULT E_POINTER = halyard::detail::FailureCode(0x80004003u);
// Given up.
inline constexpr HRESULT E_ABORT = halyard::detail::FailureCode(0x80004004u);
// Failed for another reason.
inline constexpr HRESULT E_FAIL = halyard::detail::FailureCode(0x80004005u);
// Another object did what it must not do.
inline constexpr HRESULT E_UNEXPECTED = halyard::detail::FailureCode(0x8000FFFFu);
// Memory is out.
inline constexpr HRESULT E_OUTOFMEMORY = halyard::detail::FailureCode(0x8007000Eu);
// An argument that has no meaning.
inline constexpr HRESULT E_INVALIDARG = halyard::detail::FailureCode(0x80070057u);
// No such interface in a late-bound call.
inline constexpr HRESULT DISP_E_UNKNOWNINTERFACE = halyard::detail::FailureCode(0x80020001u);
// No member of that number.
inline constexpr HRESULT DISP_E_MEMBERNOTFOUND = halyard::detail::FailureCode(0x80020003u);
// No argument of that number.
inline constexpr HRESULT DISP_E_PARAMNOTFOUND = halyard::detail::FailureCode(0x80020004u);
// No conversion to the type.
inline constexpr HRESULT DISP_E_TYPEMISMATCH = halyard::detail::FailureCode(0x80020005u);
// No member of that name.
inline constexpr HRESULT DISP_E_UNKNOWNNAME = halyard::detail::FailureCode(0x80020006u);
// A type that no variant has.
inline constexpr HRESULT DISP_E_BADVARTYPE = halyard::detail::FailureCode(0x80020008u);
// The member failed and described why.
inline constexpr HRESULT DISP_E_EXCEPTION = halyard::detail::FailureCode(0x80020009u);
// Out of the range of the type.
inline constexpr HRESULT DISP_E_OVERFLOW = halyard::detail::FailureCode(0x8002000Au);
// Too many arguments or too few.
inline constexpr HRESULT DISP_E_BADPARAMCOUNT = halyard::detail::FailureCode(0x8002000Eu);
// Cannot become part of another object so.
inline constexpr HRESULT CLASS_E_NOAGGREGATION = halyard::detail::FailureCode(0x80040110u);
// The component has no such class.
inline constexpr HRESULT CLASS_E_CLASSNOTAVAILABLE = halyard::detail::FailureCode(0x80040111u);
// The class is not registered.
inline constexpr HRESULT REGDB_E_CLASSNOTREG = halyard::detail::FailureCode(0x80040154u);
