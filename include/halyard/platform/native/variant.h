// The self-describing automation value for platforms other than Windows: the scalar
// types with the layout (8 bytes of tag and padding, then the value) and the results
// of the Windows automation library, US English formats.
//
// A variant of type VT_BSTR, VT_DISPATCH or VT_UNKNOWN owns what it holds, unless
// VT_BYREF says that it only points at a value of somebody else.
#pragma once

#include "halyard/platform/native/bstr.h"
#include "halyard/platform/native/unknown.h"

struct IDispatch;
struct IRecordInfo;
struct SAFEARRAY;

// What a variant holds: one of the types, with VT_BYREF where it points at a value of
// somebody else.
using VARTYPE = USHORT;

// The numbers of the types. VT_I and VT_UI are whole numbers with and without sign, of the
// bytes that follow, VT_R reals; VT_INT and VT_UINT have 4 bytes. VT_ARRAY and VT_BYREF are
// bits beside a type.
enum VARENUM : USHORT {
  VT_EMPTY = 0,
  VT_NULL = 1,
  VT_I2 = 2,
  VT_I4 = 3,
  VT_R4 = 4,
  VT_R8 = 5,
  VT_CY = 6,
  VT_DATE = 7,
  VT_BSTR = 8,
  VT_DISPATCH = 9,
  VT_ERROR = 10,
  VT_BOOL = 11,
  VT_VARIANT = 12,
  VT_UNKNOWN = 13,
  VT_DECIMAL = 14,
  VT_I1 = 16,
  VT_UI1 = 17,
  VT_UI2 = 18,
  VT_UI4 = 19,
  VT_I8 = 20,
  VT_UI8 = 21,
  VT_INT = 22,
  VT_UINT = 23,
  VT_RECORD = 36,
  VT_ARRAY = 0x2000,
  VT_BYREF = 0x4000,
  VT_TYPEMASK = 0x0FFF,
};

// Currency: a 64-bit count of ten-thousandths.
struct CY {
  LONGLONG int64;
};

// A 96-bit whole number, a sign and a decimal scale of 0 to 28. Inside a VARIANT it
// lies over the whole 16 first bytes, its reserved word over the variant's type.
struct DECIMAL {
  USHORT wReserved;
  BYTE scale;
  BYTE sign;  // 0, or DECIMAL_NEG
  ULONG Hi32;
  ULONGLONG Lo64;
};
inline constexpr BYTE DECIMAL_NEG = 0x80;

struct VARIANT;

// A record of a type that the person defined. None are made here; the member is there for
// the size of the variant.
struct VARIANT_RECORD {
  void* pvRecord;
  IRecordInfo* pRecInfo;
};

struct VARIANT {
  VARTYPE vt;
  WORD wReserved1;
  WORD wReserved2;
  WORD wReserved3;
  union {
    LONGLONG llVal;
    LONG lVal;
    BYTE bVal;
    SHORT iVal;
    FLOAT fltVal;
    DOUBLE dblVal;
    VARIANT_BOOL boolVal;
    SCODE scode;
    CY cyVal;
    DATE date;
    BSTR bstrVal;
    IUnknown* punkVal;
    IDispatch* pdispVal;
    SAFEARRAY* parray;
    BYTE* pbVal;
    SHORT* piVal;
    LONG* plVal;
    LONGLONG* pllVal;
    FLOAT* pfltVal;
    DOUBLE* pdblVal;
    VARIANT_BOOL* pboolVal;
    SCODE* pscode;
    CY* pcyVal;
    DATE* pdate;
    BSTR* pbstrVal;
    IUnknown** ppunkVal;
    IDispatch** ppdispVal;
    SAFEARRAY** pparray;
    VARIANT* pvarVal;
    void* byref;
    CHAR cVal;
    USHORT uiVal;
    ULONG ulVal;
    ULONGLONG ullVal;
    INT intVal;
    UINT uintVal;
    DECIMAL* pdecVal;
    CHAR* pcVal;
    USHORT* puiVal;
    ULONG* pulVal;
    ULONGLONG* pullVal;
    INT* pintVal;
    UINT* puintVal;
    VARIANT_RECORD record;
  };
};
using VARIANTARG = VARIANT;
static_assert(sizeof(VARIANT) == 8 + 2 * sizeof(void*), "the layout of the automation variant");
static_assert(sizeof(DECIMAL) == 16, "the layout of the automation decimal");

// Makes the variant empty without looking at what it held.
inline void VariantInit(VARIANTARG* variant) {
  if (variant != nullptr) *variant = VARIANT{};
}

// Frees what the variant owns and makes it empty. DISP_E_BADVARTYPE for a type that
// no variant can have and for arrays and records, which are not made here; the variant
// is then left alone. E_INVALIDARG for null, as for all functions below.
HRESULT VariantClear(VARIANTARG* variant);

// Clears `destination` and gives it a copy of its own of `source`; a null text becomes
// an empty one. By-reference variants stay by reference. E_OUTOFMEMORY leaves the
// destination unchanged.
HRESULT VariantCopy(VARIANTARG* destination, const VARIANTARG* source);

// As VariantCopy, but a by-reference source gives the value that it points at.
// E_INVALIDARG for references to nothing, to arrays and to references to variants.
HRESULT VariantCopyInd(VARIANT* destination, const VARIANTARG* source);

// Converts `source` to the type `vt`; destination and source may be the same variant.
// By-reference sources are followed, objects give the value of their default member, a
// boolean becomes the text "-1" or "0", `flags` are not looked at.
// DISP_E_TYPEMISMATCH where no conversion exists or a text does not parse,
// DISP_E_OVERFLOW where the value does not fit, DISP_E_BADVARTYPE for an impossible
// type. The destination is unchanged on failure.
HRESULT VariantChangeType(VARIANTARG* destination, const VARIANTARG* source, USHORT flags, VARTYPE vt);
