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

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;
inline constexpr HRESULT E_NOTIMPL = halyard::detail::FailureCode(0x80004001u);
inline constexpr HRESULT E_NOINTERFACE = halyard::detail::FailureCode(0x80004002u);
inline constexpr HRESULT E_POINTER = halyard::detail::FailureCode(0x80004003u);
inline constexpr HRESULT E_ABORT = halyard::detail::FailureCode(0x80004004u);
inline constexpr HRESULT E_FAIL = halyard::detail::FailureCode(0x80004005u);
inline constexpr HRESULT E_UNEXPECTED = halyard::detail::FailureCode(0x8000FFFFu);
inline constexpr HRESULT E_OUTOFMEMORY = halyard::detail::FailureCode(0x8007000Eu);
inline constexpr HRESULT E_INVALIDARG = halyard::detail::FailureCode(0x80070057u);
inline constexpr HRESULT DISP_E_UNKNOWNINTERFACE = halyard::detail::FailureCode(0x80020001u);
inline constexpr HRESULT DISP_E_MEMBERNOTFOUND = halyard::detail::FailureCode(0x80020003u);
inline constexpr HRESULT DISP_E_PARAMNOTFOUND = halyard::detail::FailureCode(0x80020004u);
inline constexpr HRESULT DISP_E_TYPEMISMATCH = halyard::detail::FailureCode(0x80020005u);
inline constexpr HRESULT DISP_E_UNKNOWNNAME = halyard::detail::FailureCode(0x80020006u);
inline constexpr HRESULT DISP_E_BADVARTYPE = halyard::detail::FailureCode(0x80020008u);
inline constexpr HRESULT DISP_E_EXCEPTION = halyard::detail::FailureCode(0x80020009u);
inline constexpr HRESULT DISP_E_OVERFLOW = halyard::detail::FailureCode(0x8002000Au);
inline constexpr HRESULT DISP_E_BADPARAMCOUNT = halyard::detail::FailureCode(0x8002000Eu);
inline constexpr HRESULT CLASS_E_NOAGGREGATION = halyard::detail::FailureCode(0x80040110u);
inline constexpr HRESULT CLASS_E_CLASSNOTAVAILABLE = halyard::detail::FailureCode(0x80040111u);
inline constexpr HRESULT REGDB_E_CLASSNOTREG = halyard::detail::FailureCode(0x80040154u);
