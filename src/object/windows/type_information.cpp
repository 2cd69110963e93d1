#include "object/windows/type_information.h"

#include <algorithm>
#include <memory>
#include <mutex>

#include "halyard/object/error.h"

namespace halyard {
namespace {

constexpr GUID kLibraryId = {0x4011E38A, 0xFF8A, 0x4BF4, {0x8C, 0x6A, 0xF1, 0xF5, 0x5A, 0x3A, 0xD8, 0xD6}};
constexpr WORD kMajorVersion = 1;
constexpr WORD kMinorVersion = 0;

constexpr WORD kPutFlags = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;

// By this number a dispatch interface of a type library names its vtable half.
constexpr UINT kVtableHalf = static_cast<UINT>(-1);

Ptr<ITypeInfo> LoadTypeInfo(REFIID iid, LCID locale) {
  Ptr<ITypeLib> library;
  const HRESULT hr = LoadRegTypeLib(kLibraryId, kMajorVersion, kMinorVersion, locale, library.Out());
  if (FAILED(hr)) {
    throw Error(hr, "the type library HALYARDLib cannot be loaded, register halyard.dll with regsvr32");
  }
  Ptr<ITypeInfo> info;
  Check(library->GetTypeInfoOfGuid(iid, info.Out()));
  return info;
}

Ptr<ITypeInfo> Referenced(ITypeInfo* info, UINT index) {
  HREFTYPE reference = 0;
  Check(info->GetRefTypeOfImplType(index, &reference));
  Ptr<ITypeInfo> result;
  Check(info->GetRefTypeInfo(reference, result.Out()));
  return result;
}

// A description that its type information owns.
template <class Description, void (STDMETHODCALLTYPE ITypeInfo::*kRelease)(Description*)>
class Borrowed {
 public:
  Borrowed(ITypeInfo* owner, Description* description) noexcept : owner_(owner), description_(description) {}
  ~Borrowed() { (owner_->*kRelease)(description_); }
  Borrowed(const Borrowed&) = delete;
  Borrowed& operator=(const Borrowed&) = delete;
  const Description* operator->() const noexcept { return description_; }

 private:
  ITypeInfo* owner_;
  Description* description_;
};

using Attributes = Borrowed<TYPEATTR, &ITypeInfo::ReleaseTypeAttr>;
using Function = Borrowed<FUNCDESC, &ITypeInfo::ReleaseFuncDesc>;

Attributes AttributesOf(ITypeInfo* info) {
  TYPEATTR* attributes = nullptr;
  Check(info->GetTypeAttr(&attributes));
  return {info, attributes};
}

Function FunctionAt(ITypeInfo* info, UINT index) {
  FUNCDESC* function = nullptr;
  Check(info->GetFuncDesc(index, &function));
  return {info, function};
}

VARTYPE OutputType(const ELEMDESC& parameter) noexcept {
  const USHORT flags = parameter.paramdesc.wParamFlags;
  const bool plain_out = (flags & PARAMFLAG_FOUT) != 0 && (flags & PARAMFLAG_FIN) == 0;
  if (!plain_out || parameter.tdesc.vt != VT_PTR) return VT_EMPTY;
  switch (const VARTYPE type = parameter.tdesc.lptdesc->vt) {
    case VT_I2:
    case VT_I4:
    case VT_UI4:
      return type;
    default:
      return VT_EMPTY;
  }
}

Operation Describe(const FUNCDESC& function) {
  Operation operation{function.memid, function.invkind, {}};
  for (SHORT i = 0; i != function.cParams; ++i) {
    const ELEMDESC& parameter = function.lprgelemdescParam[i];
    if ((parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) == 0) {
      operation.outputs.push_back(OutputType(parameter));
    }
  }
  return operation;
}

// Objects of several apartments share the cache.
std::mutex g_cache_lock;
std::vector<std::unique_ptr<InterfaceInformation>> g_cache;

}  // namespace

InterfaceInformation::InterfaceInformation(REFIID iid, LCID locale)
    : iid_(iid), type_info_(LoadTypeInfo(iid, locale)) {
  AddOperations(Referenced(type_info_.get(), kVtableHalf).get());
}

void InterfaceInformation::AddOperations(ITypeInfo* vtable_interface) {
  const Attributes attributes = AttributesOf(vtable_interface);
  if (attributes->guid == IidOf<IDispatch>) return;
  AddOperations(Referenced(vtable_interface, 0).get());
  for (UINT i = 0; i != attributes->cFuncs; ++i) {
    operations_.push_back(Describe(*FunctionAt(vtable_interface, i).operator->()));
  }
}

const Operation* InterfaceInformation::Find(DISPID id, WORD flags) const noexcept {
  const int kinds = (flags & kPutFlags) != 0 ? kPutFlags : flags;
  const auto found = std::find_if(operations_.begin(), operations_.end(), [&](const Operation& operation) {
    return operation.id == id && (operation.kind & kinds) != 0;
  });
  return found == operations_.end() ? nullptr : &*found;
}

DISPID InterfaceInformation::IdOf(const OLECHAR* name) const noexcept {
  OLECHAR* names[] = {const_cast<OLECHAR*>(name)};
  DISPID id = DISPID_UNKNOWN;
  return SUCCEEDED(type_info_->GetIDsOfNames(names, 1, &id)) ? id : DISPID_UNKNOWN;
}

const InterfaceInformation& InformationOf(REFIID iid, LCID locale) {
  const std::lock_guard lock(g_cache_lock);
  const auto found =
      std::find_if(g_cache.begin(), g_cache.end(), [&](const auto& entry) { return entry->iid() == iid; });
  if (found != g_cache.end()) return **found;
  return *g_cache.emplace_back(std::make_unique<InterfaceInformation>(iid, locale));
}

void ReleaseTypeInformation() noexcept {
  const std::lock_guard lock(g_cache_lock);
  g_cache.clear();
}

}  // namespace halyard
