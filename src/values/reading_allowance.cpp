#include "values/reading_allowance.h"

#include "definitions/structure_layout.h"
#include "object/nesting.h"

namespace halyard {

std::uint64_t ObjectsOf(const KnownDefinition& definition) {
  std::uint64_t objects = 1;
  const auto source = QueryFor<IStructureLayoutSource>(definition.inside);
  if (!source) return objects;
  const WalkingLevel level;
  for (const MemberLayout& member : source->Layout().members)
    if (member.size == 0) objects += ObjectsOf(member.definition.Known());
  return objects;
}

}  // namespace halyard
