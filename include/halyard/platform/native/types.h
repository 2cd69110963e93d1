// Fixed-width automation names for platforms other than Windows.
//
// The widths are those of the Windows ABI on every platform: SHORT is 16 bits,
// LONG and ULONG are 32 bits, whatever the width of the compiler's own long.
// A wide character is a UTF-16 code unit (char16_t), so that a BSTR has the same
// bytes everywhere.
#pragma once

#include <cstddef>
#include <cstdint>

using CHAR = char;
using BYTE = std::uint8_t;
using SHORT = std::int16_t;
using USHORT = std::uint16_t;
using WORD = std::uint16_t;
using INT = std::int32_t;
using UINT = std::uint32_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using DWORD = std::uint32_t;
using LONGLONG = std::int64_t;
using ULONGLONG = std::uint64_t;
using LONG_PTR = std::intptr_t;
using FLOAT = float;
using DOUBLE = double;
using BOOL = std::int32_t;
using LCID = std::uint32_t;

// A UTF-16 code unit and zero-terminated strings of them.
using OLECHAR = char16_t;
using LPOLESTR = OLECHAR*;
using LPCOLESTR = const OLECHAR*;

// Makes a literal of wide characters: OLESTR("text").
#define OLESTR(literal) u##literal

// Automation boolean: 16 bits, true is -1 (all bits set), false is 0.
using VARIANT_BOOL = SHORT;
inline constexpr VARIANT_BOOL VARIANT_TRUE = -1;
inline constexpr VARIANT_BOOL VARIANT_FALSE = 0;

// Days since 30 December 1899; the fraction is the time of day, also for negative dates.
using DATE = double;

// Interface methods use the platform's only calling convention.
#define STDMETHODCALLTYPE

// A 128-bit identifier. Byte order of the first three fields is the machine's own.
struct GUID {
  std::uint32_t Data1;
  std::uint16_t Data2;
  std::uint16_t Data3;
  std::uint8_t Data4[8];
};

using IID = GUID;
using CLSID = GUID;
using REFGUID = const GUID&;
using REFIID = const IID&;
using REFCLSID = const CLSID&;

constexpr bool operator==(const GUID& a, const GUID& b) noexcept {
  if (a.Data1 != b.Data1 || a.Data2 != b.Data2 || a.Data3 != b.Data3) return false;
  for (int i = 0; i < 8; ++i) {
    if (a.Data4[i] != b.Data4[i]) return false;
  }
  return true;
}
