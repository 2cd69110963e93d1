// The late-bound half of every object: IDispatch served for the object's main
// interface, from the type library on Windows, for the default member elsewhere.
#pragma once

#include "halyard/platform/automation.h"

namespace halyard {

// What late binding needs to know of an object for the length of one call.
struct DispatchTarget {
  // The identifier of the interface that is served and the object as that interface.
  const IID& iid;
  IDispatch* object;

  // The programmatic name of the object's class, for error descriptions.
  const char* class_name;

  // Reads the value that the object stands for where an argument-less default member is
  // asked for: DISP_E_PARAMNOTFOUND when it stands for none. Called with `object`.
  HRESULT (*default_value)(IDispatch* object, VARIANT* result);

  // The default member with one index, Item, get and put; null for objects without it.
  // Called with `object`.
  HRESULT (*get_item)(IDispatch* object, VARIANT index, VARIANT* result) = nullptr;
  HRESULT (*put_item)(IDispatch* object, VARIANT index, VARIANT value) = nullptr;
};

HRESULT DispatchTypeInfoCount(UINT* count) noexcept;

HRESULT DispatchTypeInfo(const DispatchTarget& target, UINT index, LCID locale, ITypeInfo** info) noexcept;

HRESULT DispatchIdsOfNames(const DispatchTarget& target, LPOLESTR* names, UINT count, LCID locale,
                           DISPID* ids) noexcept;

HRESULT DispatchInvoke(const DispatchTarget& target, DISPID id, LCID locale, WORD flags, DISPPARAMS* params,
                       VARIANT* result, EXCEPINFO* exception, UINT* bad_argument) noexcept;

}  // namespace halyard
