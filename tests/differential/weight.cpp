// How large the values of a definition would be.
#include <algorithm>

#include "tests/differential/world.h"

namespace halyard::differential {
namespace {

constexpr std::uint32_t kTooHeavy = 2000;
constexpr int kDeepest = 12;

std::uint32_t Weight(const Ptr<IValueDefBase>& definition, int depth);

std::uint32_t StructureWeight(const Ptr<IStructureDef>& structure, int depth) {
  LONG count = 0;
  static_cast<void>(structure->get_MemberCount(&count));
  std::uint32_t weight = 1;
  for (LONG i = 0; i < count && weight < kTooHeavy; ++i) {
    Ptr<IValueDefBase> member;
    static_cast<void>(structure->get_Members(Variant(i).get(), member.Out()));
    weight += Weight(member, depth + 1);
  }
  return std::min(weight, kTooHeavy);
}

std::uint32_t ArrayWeight(const Ptr<IArrayDef>& array, int depth) {
  LONG count = 0;
  static_cast<void>(array->get_ElementCount(&count));
  Ptr<IValueDefBase> element;
  static_cast<void>(array->get_ValueType(element.Out()));
  const auto elements = static_cast<std::uint32_t>(std::clamp(count, LONG{1}, LONG{kTooHeavy}));
  return std::min(elements * Weight(element, depth + 1), kTooHeavy);
}

// How many elementary parts a value has, kTooHeavy for many and for a definition that
// holds itself.
std::uint32_t Weight(const Ptr<IValueDefBase>& definition, int depth) {
  if (depth > kDeepest) return kTooHeavy;
  if (const auto structure = definition.As<IStructureDef>()) return StructureWeight(structure, depth);
  if (const auto array = definition.As<IArrayDef>()) return ArrayWeight(array, depth);
  return 1;
}

Ptr<IValueDefBase> DefinitionOf(const Ptr<IValueBase>& value) {
  Ptr<IValueDefBase> info;
  if (FAILED(value->get_Info(info.Out()))) static_cast<void>(info.Detach());
  return info;
}

}  // namespace

bool IsHeavy(const Ptr<IValueDefBase>& definition) { return Weight(definition, 0) >= kTooHeavy; }

Ptr<IValueDefBase> World::Heavy() const {
  constexpr SHORT kMostIds = 7;
  for (const auto& definition : definitions) {
    if (IsHeavy(definition)) return definition;
  }
  for (const auto& value : values) {
    const auto definition = DefinitionOf(value);
    if (IsHeavy(definition)) return definition;
  }
  for (SHORT type = kStructure; session && type <= kEnumeration; ++type) {
    for (SHORT id = 1; id < kMostIds; ++id) {
      Ptr<IValueDefBase> found;
      static_cast<void>(session->GetTypeFromId(Variant(type).get(), id, found.Out()));
      if (IsHeavy(found)) return found;
    }
  }
  return {};
}

}  // namespace halyard::differential
