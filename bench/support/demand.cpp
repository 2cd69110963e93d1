#include "support/demand.h"

#include <cstdio>
#include <stdexcept>

namespace bench {

void Demand(bool condition, const std::string& otherwise) {
  if (!condition) throw std::runtime_error(otherwise);
}

void DemandTrue(VARIANT_BOOL outcome, const std::string& otherwise) {
  Demand(outcome != VARIANT_FALSE, otherwise);
}

std::string CodeText(HRESULT code) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%08X", static_cast<unsigned>(code));
  return text;
}

}  // namespace bench
