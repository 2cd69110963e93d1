#include "definitions/structure_layout.h"

#include <new>

#include "platform/text.h"

namespace halyard {

namespace {

// Names end at their first zero where they are compared.
WideView ToZero(WideView text) noexcept { return text.substr(0, text.find(OLECHAR{0})); }

}  // namespace

LONG StructureLayout::Find(WideView name) const noexcept {
  const bool knows = names_.size() == members.size() || LearnNames();
  const LONG position = knows ? names_.Find(name) : Search(name);
  // Members that never came have the empty name.
  return position < 0 && LacksMembers() && ToZero(name).empty() ? static_cast<LONG>(members.size())
                                                                : position;
}

bool StructureLayout::LearnNames() const noexcept {
  try {
    while (names_.size() < members.size()) names_.Add(members[names_.size()].name.View());
    return true;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

LONG StructureLayout::Search(WideView name) const noexcept {
  for (std::size_t i = 0; i < members.size(); ++i) {
    if (EqualIgnoringCase(ToZero(members[i].name.View()), ToZero(name))) return static_cast<LONG>(i);
  }
  return -1;
}

void StructureLayout::MakeAnnounced() {
  if (announced > members.size()) members.resize(announced);
  announced = 0;
}

}  // namespace halyard
