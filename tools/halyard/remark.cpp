#include "tools/halyard/remark.h"

#include "tools/halyard/platform/system.h"
#include "tools/halyard/unicode.h"

namespace halyard::tool {

void Remark(const std::string& text) {
  const std::string line = "halyard: " + Printable(text) + "\n";
  for (std::size_t done = 0; done < line.size();) {
    const std::ptrdiff_t count = WriteSome(kStandardError, line.data() + done, line.size() - done);
    if (count <= 0) return;  // there is nobody left to tell
    done += static_cast<std::size_t>(count);
  }
}

}  // namespace halyard::tool
