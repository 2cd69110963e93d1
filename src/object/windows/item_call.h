// The call that scripts make most: the default member with one index, as in
// `record("depth") = x`. It is made directly; the type library's own Invoke would look up
// the operation and copy its arguments each time, and answer the same.
#pragma once

#include <optional>

#include "object/dispatch.h"

namespace halyard {

// One call of Invoke, as it arrives.
struct LateCall {
  DISPID id;
  WORD flags;
  const DISPPARAMS& params;
  VARIANT* result;
  EXCEPINFO* exception;
  UINT* bad_argument;
};

// Makes the call where it is a get or put of an item with an index, and nothing unusual
// about its arguments; none otherwise, and nothing was done.
std::optional<HRESULT> CallItem(const DispatchTarget& target, const LateCall& call);

}  // namespace halyard
