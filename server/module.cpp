#include "server/module.h"

#include <algorithm>

#include "object/boundary.h"
#include "object/windows/type_information.h"

namespace halyard {
namespace {

// The longest path that the system knows, in characters, with its final zero.
constexpr std::size_t kLongestPath = 32768;

}  // namespace

Module::Module(HINSTANCE instance) : instance_(instance) {
  for (const ClassRow& row : ClassTable()) object_map_.push_back({&row, nullptr});
}

Module::~Module() { ReleaseTypeInformation(); }

WideString Module::Path() const {
  WideString path(kLongestPath, L'\0');
  const DWORD length = GetModuleFileNameW(instance_, path.data(), static_cast<DWORD>(path.size()));
  if (length == 0) throw Error(HRESULT_FROM_WIN32(GetLastError()));
  path.resize(length);
  return path;
}

HRESULT Module::GetClassObject(REFCLSID clsid, REFIID iid, void** result) {
  Out(result) = nullptr;
  const CriticalSectionHold hold(section_);
  const auto entry = std::find_if(object_map_.begin(), object_map_.end(),
                                  [&](const ObjectMapEntry& e) { return e.row->clsid == clsid; });
  if (entry == object_map_.end()) return CLASS_E_CLASSNOTAVAILABLE;
  if (!entry->factory) entry->factory = Ptr<ClassFactory>(new ClassFactory(*entry->row));
  return entry->factory->QueryInterface(iid, result);
}

}  // namespace halyard
