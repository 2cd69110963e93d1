#include "definitions/structure_layout.h"

#include "platform/text.h"

namespace halyard {

namespace {

// Names end at their first zero where they are compared.
WideView ToZero(WideView text) noexcept { return text.substr(0, text.find(OLECHAR{0})); }

}  // namespace

LONG StructureLayout::Find(WideView name) const noexcept {
  for (std::size_t i = 0; i < members.size(); ++i) {
    if (EqualIgnoringCase(ToZero(members[i].name.View()), ToZero(name))) return static_cast<LONG>(i);
  }
  return -1;
}

}  // namespace halyard
