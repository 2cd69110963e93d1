// The class table: the one list of creatable classes, in the order of registration.
//
// It is declared here, low down, so that a definition can make a value without knowing
// the value's class, and filled in by the classes floor, which knows them all. Direct
// construction, activation and the server's object map all read it.
#pragma once

#include <span>

#include "halyard/object/error.h"
#include "halyard/object/ptr.h"

namespace halyard {

struct ClassRow {
  CLSID clsid;

  // The class's name, which is also the stem of its programmatic identifiers.
  const char* name;

  // The number of the class's registry script in the server's resources.
  int registry_script;

  // Makes an object, plain or aggregated (see CreateInstance).
  HRESULT (*create)(IUnknown* outer, REFIID iid, void** result) noexcept;
};

std::span<const ClassRow> ClassTable() noexcept;

// The row of a class of this library; null for any other identifier.
const ClassRow* FindClass(REFCLSID clsid) noexcept;

// Makes an object of a class of this library directly, whatever is registered. Raises
// REGDB_E_CLASSNOTREG for a class that cannot be made.
Ptr<IUnknown> Construct(REFCLSID clsid);

template <class I>
[[nodiscard]] Ptr<I> ConstructAs(REFCLSID clsid) {
  return QueryFor<I>(Construct(clsid).get());
}

}  // namespace halyard
