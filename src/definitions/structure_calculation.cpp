// The layout of a structure definition, worked out from the members' own definitions.
#include "definitions/structure_info.h"
#include "object/nesting.h"
#include "types/number_fields.h"

namespace halyard {
namespace {

struct MemberMeasure {
  ULONG size;
  SHORT type;
};

// Size and type of a member, from its definition, which calculates itself anew.
MemberMeasure Measure(Ptr<IValueDefBase> definition) {
  Require(definition, "a member has no definition");
  MemberMeasure measure{};
  Check(definition->CalculateDataSize(&measure.size), definition);
  Check(definition->get_Type(&measure.type), definition);
  return measure;
}

// Gives members their places one after another: elementary ones of known size that
// cannot be null side by side in the block, the others a slot each.
class MemberPlacer {
 public:
  void Place(MemberLayout& member, const MemberMeasure& measure) noexcept {
    const auto size = static_cast<std::uint16_t>(measure.size);
    const bool fixed = size != 0 && !member.can_be_null && measure.type <= kLastElementaryType;
    member.type = static_cast<std::uint16_t>(measure.type);
    member.number = NumberFormOf(measure.type);
    member.size = fixed ? size : std::uint16_t{0};
    member.offset = fixed ? offset_ : slot_;
    if (fixed) {
      offset_ = static_cast<std::uint16_t>(offset_ + size);
    } else {
      ++slot_;
    }
  }

 private:
  std::uint16_t offset_ = 0;
  std::uint16_t slot_ = 0;
};

}  // namespace

void StructureInfo::CalculateLayout() {
  const WalkingLevel level;
  StructureLayout& layout = layout_;
  layout.data_size = 0;
  layout.fixed = true;
  MemberPlacer placer;
  // By position: a definition of the client's may change the table while it is asked.
  for (std::size_t i = 0; i < layout.members.size(); ++i) {
    const MemberMeasure measure = Measure(layout.members[i].definition.object);
    if (i >= layout.members.size()) break;
    placer.Place(layout.members[i], measure);
    if (layout.members[i].size == 0) layout.fixed = false;
    layout.data_size = static_cast<std::uint16_t>(layout.data_size + measure.size);
  }
  if (layout.LacksMembers()) Measure(nullptr);
}

}  // namespace halyard
