// The automation types, on every platform: VARIANT, BSTR, HRESULT, GUID, IUnknown,
// IDispatch, error information, dates and activation by class identifier.
//
// On Windows they are the system's own. Elsewhere the headers under native/ declare
// the same names with the same layouts, and the library implements them with the same
// results, so code written against this header compiles and behaves alike on both.
#pragma once

#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <objsafe.h>
#include <ole2.h>
#include <oleauto.h>
#include <windows.h>

#else

#include "halyard/platform/native/activation.h"
#include "halyard/platform/native/bstr.h"
#include "halyard/platform/native/date.h"
#include "halyard/platform/native/dispatch.h"
#include "halyard/platform/native/error_info.h"
#include "halyard/platform/native/hresult.h"
#include "halyard/platform/native/object_safety.h"
#include "halyard/platform/native/types.h"
#include "halyard/platform/native/unknown.h"
#include "halyard/platform/native/variant.h"

#endif
