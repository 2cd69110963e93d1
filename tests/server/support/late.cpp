#include "tests/server/support/late.h"

#include <algorithm>

#include "tests/support/variants.h"

namespace halyard::test {

DISPID IdOf(IDispatch* object, const OLECHAR* name) {
  OLECHAR* names[] = {const_cast<OLECHAR*>(name)};
  DISPID id = DISPID_UNKNOWN;
  Check(object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), object);
  return id;
}

LateOutcome Invoke(IDispatch* object, DISPID id, WORD flags, std::vector<VARIANT> arguments) {
  std::reverse(arguments.begin(), arguments.end());
  DISPID put = DISPID_PROPERTYPUT;
  const bool is_put = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  DISPPARAMS params{arguments.data(), is_put ? &put : nullptr, static_cast<UINT>(arguments.size()),
                    is_put ? 1u : 0u};
  LateOutcome outcome;
  EXCEPINFO exception{};
  outcome.status = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &params,
                                  is_put ? nullptr : outcome.result.Out(), &exception, &outcome.bad_argument);
  outcome.code = exception.scode;
  outcome.source = Plain(Bstr::Adopt(exception.bstrSource).View());
  outcome.description = Plain(Bstr::Adopt(exception.bstrDescription).View());
  SysFreeString(exception.bstrHelpFile);
  return outcome;
}

LateOutcome Invoke(IDispatch* object, const OLECHAR* name, WORD flags, std::vector<VARIANT> arguments) {
  return Invoke(object, IdOf(object, name), flags, std::move(arguments));
}

VARIANT Variable(Variant& variable) {
  VARIANT reference{};
  reference.vt = VT_BYREF | VT_VARIANT;
  reference.pvarVal = &variable.get();
  return reference;
}

VARIANT ObjectArgument(IDispatch* object) {
  VARIANT value{};
  value.vt = VT_DISPATCH;
  value.pdispVal = object;
  return value;
}

}  // namespace halyard::test
