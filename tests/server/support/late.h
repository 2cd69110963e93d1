// Late-bound calls, as script engines make them.
#pragma once

#include <string>
#include <vector>

#include "halyard/halyard.h"

namespace halyard::test {

// What Invoke answers.
struct LateOutcome {
  HRESULT status = S_OK;
  Variant result;

  // The exception of a DISP_E_EXCEPTION.
  HRESULT code = S_OK;
  std::string source;
  std::string description;

  UINT bad_argument = 0;
};

// The dispatch id of a member; raises the failure.
DISPID IdOf(IDispatch* object, const OLECHAR* name);

// Invoke with positional arguments in the order of the declaration; for a put the last
// one is the value put. They are borrowed for the call.
LateOutcome Invoke(IDispatch* object, DISPID id, WORD flags, std::vector<VARIANT> arguments = {});
LateOutcome Invoke(IDispatch* object, const OLECHAR* name, WORD flags, std::vector<VARIANT> arguments = {});

// A reference to a variable, the way in which scripts pass it.
VARIANT Variable(Variant& variable);

// An object as an argument.
VARIANT ObjectArgument(IDispatch* object);

}  // namespace halyard::test
