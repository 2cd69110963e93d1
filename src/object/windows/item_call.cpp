#include "object/windows/item_call.h"

#include "halyard/object/bstr.h"
#include "halyard/object/ptr.h"
#include "object/windows/invoke_arguments.h"

namespace halyard {
namespace {

// The argument itself where a variable of the script was passed.
const VARIANT& Unwrapped(const VARIANT& argument) noexcept {
  const bool is_variable = argument.vt == (VT_BYREF | VT_VARIANT) && argument.pvarVal != nullptr;
  return is_variable ? *argument.pvarVal : argument;
}

// An argument that was left out is the type library's affair.
bool IsUsual(const VARIANT& argument) noexcept {
  return Unwrapped(argument).vt != VT_ERROR && Unwrapped(argument).vt != (VT_BYREF | VT_VARIANT);
}

bool IsGet(const LateCall& call) noexcept {
  return (call.flags & DISPATCH_PROPERTYGET) != 0 && call.params.cArgs == 1 && call.params.cNamedArgs == 0 &&
         call.result != nullptr && IsUsual(call.params.rgvarg[0]);
}

bool IsPut(const LateCall& call) noexcept {
  return call.flags == DISPATCH_PROPERTYPUT && call.params.cArgs == 2 && call.params.cNamedArgs == 1 &&
         call.params.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT && IsUsual(call.params.rgvarg[0]) &&
         IsUsual(call.params.rgvarg[1]);
}

// Tells the caller of a failure what the object has left as its error object.
HRESULT Tell(HRESULT failure, EXCEPINFO* exception) noexcept {
  if (exception == nullptr) return DISP_E_EXCEPTION;
  *exception = {};
  exception->scode = failure;
  Ptr<IErrorInfo> error;
  if (GetErrorInfo(0, error.Out()) != S_OK) return DISP_E_EXCEPTION;
  error->GetSource(&exception->bstrSource);
  error->GetDescription(&exception->bstrDescription);
  error->GetHelpFile(&exception->bstrHelpFile);
  error->GetHelpContext(&exception->dwHelpContext);
  return DISP_E_EXCEPTION;
}

}  // namespace

std::optional<HRESULT> CallItem(const DispatchTarget& target, const LateCall& call) {
  if (call.id != DISPID_VALUE || target.get_item == nullptr) return std::nullopt;
  const bool is_get = IsGet(call);
  if (!is_get && !IsPut(call)) return std::nullopt;
  // An error object of an earlier call must not describe a failure of this one.
  SetErrorInfo(0, nullptr);
  const VARIANT* arguments = call.params.rgvarg;
  const HRESULT hr = is_get
                         ? target.get_item(target.object, Unwrapped(arguments[0]), call.result)
                         : target.put_item(target.object, Unwrapped(arguments[1]), Unwrapped(arguments[0]));
  if (FAILED(hr)) return Tell(hr, call.exception);
  if (is_get) MakeScriptable(*call.result);
  return hr;
}

}  // namespace halyard
