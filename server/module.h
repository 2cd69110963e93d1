// The module: what the DLL keeps between its loading and its unloading.
#pragma once

#include <string>
#include <vector>

#include "halyard/platform/wide_text.h"
#include "object/class_table.h"
#include "server/class_factory.h"

namespace halyard {

// One creatable class, with the class factory that is made on the first request.
struct ObjectMapEntry {
  const ClassRow* row;
  Ptr<ClassFactory> factory;
};

class Module {
 public:
  // Makes the object map from the class table, in its order.
  explicit Module(HINSTANCE instance);

  // Lets go of the class factories and of the type information of the interfaces.
  ~Module();

  Module(const Module&) = delete;
  Module& operator=(const Module&) = delete;

  [[nodiscard]] const std::vector<ObjectMapEntry>& object_map() const noexcept { return object_map_; }

  // The full path of the DLL. Raises the system's failure.
  [[nodiscard]] WideString Path() const;

  // The class factory as interface `iid`. CLASS_E_CLASSNOTAVAILABLE for a class that is
  // not in the object map.
  HRESULT GetClassObject(REFCLSID clsid, REFIID iid, void** result);

 private:
  HINSTANCE instance_;
  CriticalSection section_;  // guards the factories of the object map
  std::vector<ObjectMapEntry> object_map_;
};

}  // namespace halyard
