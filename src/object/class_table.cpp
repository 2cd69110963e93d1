#include "object/class_table.h"

#include <algorithm>

namespace halyard {

const ClassRow* FindClass(REFCLSID clsid) noexcept {
  const std::span<const ClassRow> table = ClassTable();
  const auto row =
      std::find_if(table.begin(), table.end(), [&](const ClassRow& r) { return r.clsid == clsid; });
  return row == table.end() ? nullptr : &*row;
}

Ptr<IUnknown> Construct(REFCLSID clsid) {
  const ClassRow* row = FindClass(clsid);
  if (row == nullptr) throw Error(REGDB_E_CLASSNOTREG);
  Ptr<IUnknown> object;
  Check(row->create(nullptr, IidOf<IUnknown>, object.OutVoid()));
  return object;
}

}  // namespace halyard
