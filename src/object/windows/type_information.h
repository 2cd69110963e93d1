// What the registered type library says about the interfaces of this module: loaded
// once for an interface, on first need, and kept until the module ends.
#pragma once

#include <vector>

#include "halyard/object/ptr.h"

namespace halyard {

// One operation of an interface: a method, or one half of a property.
struct Operation {
  DISPID id;
  INVOKEKIND kind;

  // For every argument, the type of the number that it gives back; VT_EMPTY for all
  // arguments but plain out arguments. The automation result is not an argument.
  std::vector<VARTYPE> outputs;
};

class InterfaceInformation {
 public:
  // Raises what the type library answers.
  InterfaceInformation(REFIID iid, LCID locale);

  [[nodiscard]] const IID& iid() const noexcept { return iid_; }
  [[nodiscard]] const Ptr<ITypeInfo>& type_info() const noexcept { return type_info_; }

  // The operation of that id that a call with the flags of IDispatch::Invoke means: a
  // put by value and a put by reference stand in for each other. Null for none.
  [[nodiscard]] const Operation* Find(DISPID id, WORD flags) const noexcept;

  // The id of a member; DISPID_UNKNOWN where the interface lacks it.
  [[nodiscard]] DISPID IdOf(const OLECHAR* name) const noexcept;

 private:
  void AddOperations(ITypeInfo* vtable_interface);

  IID iid_;
  Ptr<ITypeInfo> type_info_;
  std::vector<Operation> operations_;
};

// The information about an interface in the caller's language. Raises what the type
// library answers: TYPE_E_LIBNOTREGISTERED where it is not registered. The result lives
// until ReleaseTypeInformation.
const InterfaceInformation& InformationOf(REFIID iid, LCID locale);

// Lets go of everything that was loaded; for the end of the module.
void ReleaseTypeInformation() noexcept;

}  // namespace halyard
