#include "support/demand.h"

#include <cstdio>
#include <stdexcept>

namespace bench {

void Fail(const std::string& words) { throw std::runtime_error(words); }

std::string CodeText(HRESULT code) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%08X", static_cast<unsigned>(code));
  return text;
}

}  // namespace bench
