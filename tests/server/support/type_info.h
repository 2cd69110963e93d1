// Type information as tests read it.
#pragma once

#include <string>
#include <vector>

#include "halyard/halyard.h"
#include "tests/server/support/slots.h"

namespace halyard::test {

// The type library of the component as it is registered; raises the failure.
Ptr<ITypeLib> RegisteredLibrary();

// The description of an interface, for automation and for its vtable.
Ptr<ITypeInfo> DispatchHalf(const Ptr<ITypeLib>& library, REFIID iid);
Ptr<ITypeInfo> VtableHalf(const Ptr<ITypeInfo>& dispatch_half);

// The type that `info` refers to by its base or implemented interface of that number.
Ptr<ITypeInfo> Implemented(const Ptr<ITypeInfo>& info, UINT index);

// One function of a vtable description, copied out of it.
struct Parameter {
  std::string name;
  ArgumentType type;
  USHORT flags;
  std::string default_value;  // as Describe shows it; empty for none
};

struct FunctionDescription {
  std::string name;
  std::string help;
  DISPID id;
  INVOKEKIND kind;
  std::size_t vtable_offset;
  std::vector<Parameter> parameters;
};

// The functions that an interface adds to its base, in order.
std::vector<FunctionDescription> Functions(const Ptr<ITypeInfo>& vtable_half);

// Those of the interface and of all it extends, down to IDispatch, the base's first.
std::vector<FunctionDescription> AllFunctions(const Ptr<ITypeInfo>& vtable_half);

// Identifier, kind and flags of a type.
struct TypeFacts {
  GUID guid;
  TYPEKIND kind;
  WORD flags;
  WORD implemented;
};
TypeFacts FactsOf(const Ptr<ITypeInfo>& info);

// Name and help string of a type (MEMBERID_NIL) or of one of its members.
struct Documentation {
  std::string name;
  std::string help;
};
Documentation DocumentationOf(const Ptr<ITypeInfo>& info, MEMBERID member = MEMBERID_NIL);

}  // namespace halyard::test
