// Length-prefixed wide strings for platforms other than Windows.
//
// A BSTR points at the first code unit; the four bytes before it hold the length in
// bytes and two zero bytes follow the text. A null BSTR is an empty string. Whoever
// receives one as an out argument frees it with SysFreeString.
#pragma once

#include "halyard/platform/native/types.h"

using BSTR = OLECHAR*;

// A copy of a zero-terminated text. Null for a null argument or when memory is out.
BSTR SysAllocString(const OLECHAR* text);

// A copy of `length` code units (zeros included); with a null text the contents are
// not initialised. Null when memory is out.
BSTR SysAllocStringLen(const OLECHAR* text, UINT length);

// A copy of `bytes` raw bytes, which need not be a multiple of two. With a null text
// the contents are not initialised. Null when memory is out.
BSTR SysAllocStringByteLen(const char* text, UINT bytes);

// Frees a string; null is allowed.
void SysFreeString(BSTR text);

// Length in whole code units; 0 for null.
UINT SysStringLen(BSTR text);

// Length in bytes; 0 for null.
UINT SysStringByteLen(BSTR text);
