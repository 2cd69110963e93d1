// The arguments of one late-bound call, in the form that the type library's own Invoke
// understands, and the way back of what the call gives.
#pragma once

#include <vector>

#include "object/windows/type_information.h"

namespace halyard {

// Turns a number of a type that scripts do not know (unsigned, or signed of 8 bits)
// into one that they do: VT_I2 or VT_I4 where it fits, else VT_R8.
void MakeScriptable(VARIANT& value) noexcept;

// Scripts pass their variables as references to variants. Such a reference is replaced
// by the variant that it refers to; for a plain out argument it is replaced by a number
// of the argument's own type, and the variable gets that number after the call.
class InvokeArguments {
 public:
  // Borrows what `given` refers to for the life of this object.
  InvokeArguments(const DISPPARAMS& given, const Operation& operation);
  InvokeArguments(const InvokeArguments&) = delete;
  InvokeArguments& operator=(const InvokeArguments&) = delete;

  [[nodiscard]] DISPPARAMS* params() noexcept { return &params_; }

  // Gives the variables of the caller what the call has left in the out arguments.
  void HandBack() noexcept;

 private:
  struct Output {
    VARIANT* variable;
    VARIANT number;
  };

  void Unwrap(VARIANT& argument, VARTYPE output);

  DISPPARAMS params_;
  std::vector<VARIANT> arguments_;  // not cleared: their content belongs to the caller
  std::vector<Output> outputs_;
};

}  // namespace halyard
