#include "object/windows/invoke_arguments.h"

#include <limits>

namespace halyard {
namespace {

void SetNumber(VARIANT& value, double number) noexcept {
  if (number <= std::numeric_limits<LONG>::max()) {
    value.vt = VT_I4;
    value.lVal = static_cast<LONG>(number);
  } else {
    value.vt = VT_R8;
    value.dblVal = number;
  }
}

}  // namespace

void MakeScriptable(VARIANT& value) noexcept {
  switch (value.vt) {
    case VT_I1:
      value.vt = VT_I2;
      value.iVal = value.cVal;
      break;
    case VT_UI2:
      SetNumber(value, value.uiVal);
      break;
    case VT_UI4:
    case VT_UINT:
      SetNumber(value, value.ulVal);
      break;
    case VT_UI8:
      SetNumber(value, static_cast<double>(value.ullVal));
      break;
    default:
      break;
  }
}

InvokeArguments::InvokeArguments(const DISPPARAMS& given, const Operation& operation)
    : params_(given), arguments_(given.rgvarg, given.rgvarg + given.cArgs) {
  outputs_.reserve(arguments_.size());
  for (UINT i = 0; i != given.cArgs; ++i) {
    // Named arguments come first, the others last to first.
    const auto parameter =
        i < given.cNamedArgs ? static_cast<std::size_t>(given.rgdispidNamedArgs[i]) : given.cArgs - 1 - i;
    Unwrap(arguments_[i],
           parameter < operation.outputs.size() ? operation.outputs[parameter] : VARTYPE{VT_EMPTY});
  }
  params_.rgvarg = arguments_.data();
}

void InvokeArguments::Unwrap(VARIANT& argument, VARTYPE output) {
  if (argument.vt != (VT_BYREF | VT_VARIANT) || argument.pvarVal == nullptr) return;
  VARIANT* variable = argument.pvarVal;
  if (output == VT_EMPTY) {
    argument = *variable;
    return;
  }
  Output& slot = outputs_.emplace_back(Output{variable, {}});
  slot.number.vt = output;
  argument.vt = static_cast<VARTYPE>(VT_BYREF | output);
  argument.byref = &slot.number.llVal;
}

void InvokeArguments::HandBack() noexcept {
  for (Output& slot : outputs_) {
    MakeScriptable(slot.number);
    if (SUCCEEDED(VariantClear(slot.variable))) *slot.variable = slot.number;
  }
}

}  // namespace halyard
