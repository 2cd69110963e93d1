#include "tools/halyard/client.h"

#include <fmt/format.h>

#include "tools/halyard/unicode.h"

namespace halyard::tool {

std::string Explanation(const Error& error) {
  if (error.code() == REGDB_E_CLASSNOTREG) {
    return "the classes of Halyard are not registered on this system; run 'regsvr32 halyard.dll' where the "
           "DLL is";
  }
  if (error.code() == E_OUTOFMEMORY) return "there is not enough memory";
  if (!error.reason().empty()) return error.reason();
  if (error.info()) {
    Bstr description;
    if (SUCCEEDED(error.info()->GetDescription(description.Out()))) return Utf8Of(description.View());
  }
  return fmt::format("the library answered {:#010x}", static_cast<std::uint32_t>(error.code()));
}

}  // namespace halyard::tool
