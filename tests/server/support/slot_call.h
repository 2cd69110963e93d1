// One operation called as the type library describes it, through its slot in the vtable
// or through IDispatch, with arguments made up from their types and names.
#pragma once

#include <string>
#include <vector>

#include "tests/server/support/type_info.h"

namespace halyard::test {

// What a call answers, in a form in which both ways can be compared: the status, the
// result and the out arguments as text.
struct SlotOutcome {
  HRESULT status;
  std::vector<std::string> outputs;

  friend bool operator==(const SlotOutcome&, const SlotOutcome&) = default;
};
std::ostream& operator<<(std::ostream& stream, const SlotOutcome& outcome);

// Calls the function at its place in the vtable of `object`, which must be the
// interface that the function belongs to.
SlotOutcome CallThroughVtable(IUnknown* object, const FunctionDescription& function);

// Calls the function by its dispatch id.
SlotOutcome CallThroughDispatch(IDispatch* object, const FunctionDescription& function);

}  // namespace halyard::test
