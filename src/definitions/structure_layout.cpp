#include "definitions/structure_layout.h"

#include "platform/text.h"

namespace halyard {

LONG StructureLayout::Find(WideView name) const noexcept {
  for (std::size_t i = 0; i < members.size(); ++i) {
    if (EqualIgnoringCase(members[i].name.View(), name)) return static_cast<LONG>(i);
  }
  return -1;
}

}  // namespace halyard
