// Late binding from the type library. The library's own Invoke finds the operation,
// converts the arguments and makes the call; here is what scripts need beyond that.
#include "object/dispatch.h"

#include "halyard/object/variant.h"
#include "object/boundary.h"
#include "object/windows/invoke_arguments.h"
#include "object/windows/item_call.h"
#include "object/windows/item_enumerator.h"
#include "object/windows/type_information.h"

namespace halyard {
namespace {

bool ReadsDefaultValue(const LateCall& call) noexcept {
  return call.id == DISPID_VALUE && (call.flags & DISPATCH_PROPERTYGET) != 0 && call.params.cArgs == 0;
}

HRESULT ReturnEnumerator(const DispatchTarget& target, const InterfaceInformation& information,
                         const LateCall& call) {
  Ptr<IEnumVARIANT> items = EnumerateItems(target.object, information);
  if (!items) return DISP_E_MEMBERNOTFOUND;
  VARIANT& result = Out(call.result);
  result.vt = VT_UNKNOWN;
  result.punkVal = items.Detach();
  return S_OK;
}

HRESULT CallOperation(const DispatchTarget& target, const InterfaceInformation& information,
                      const LateCall& call) {
  const Operation* operation = information.Find(call.id, call.flags);
  if (operation == nullptr) return DISP_E_MEMBERNOTFOUND;
  // Surplus arguments of a get go to the default member of what it answers.
  const bool takes_surplus = operation->kind == INVOKE_PROPERTYGET;
  if (call.params.cArgs > operation->outputs.size() && !takes_surplus) return DISP_E_BADPARAMCOUNT;
  InvokeArguments arguments(call.params, *operation);
  // An error object of an earlier call must not describe a failure of this one.
  SetErrorInfo(0, nullptr);
  const HRESULT hr =
      information.type_info()->Invoke(target.object, call.id, static_cast<WORD>(operation->kind),
                                      arguments.params(), call.result, call.exception, call.bad_argument);
  if (SUCCEEDED(hr)) {
    arguments.HandBack();
    if (call.result != nullptr) MakeScriptable(*call.result);
  }
  return hr;
}

}  // namespace

HRESULT DispatchTypeInfoCount(UINT* count) noexcept {
  if (count == nullptr) return E_POINTER;
  *count = 1;
  return S_OK;
}

HRESULT DispatchTypeInfo(const DispatchTarget& target, UINT index, LCID locale, ITypeInfo** info) noexcept {
  return Guarded(target.class_name, "GetTypeInfo", [&] {
    Out(info) = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    *info = Ptr<ITypeInfo>(InformationOf(target.iid, locale).type_info()).Detach();
    return S_OK;
  });
}

HRESULT DispatchIdsOfNames(const DispatchTarget& target, LPOLESTR* names, UINT count, LCID locale,
                           DISPID* ids) noexcept {
  return Guarded(target.class_name, "GetIDsOfNames", [&] {
    if (names == nullptr || ids == nullptr) throw Error(E_POINTER);
    return InformationOf(target.iid, locale).type_info()->GetIDsOfNames(names, count, ids);
  });
}

HRESULT DispatchInvoke(const DispatchTarget& target, DISPID id, LCID locale, WORD flags, DISPPARAMS* params,
                       VARIANT* result, EXCEPINFO* exception, UINT* bad_argument) noexcept {
  return Guarded(target.class_name, "Invoke", [&] {
    const LateCall call{id, flags, Out(params), result, exception, bad_argument};
    if (ReadsDefaultValue(call)) return target.default_value(target.object, &Out(result));
    if (const auto made = CallItem(target, call)) return *made;
    const InterfaceInformation& information = InformationOf(target.iid, locale);
    if (id == DISPID_NEWENUM) return ReturnEnumerator(target, information, call);
    return CallOperation(target, information, call);
  });
}

}  // namespace halyard
