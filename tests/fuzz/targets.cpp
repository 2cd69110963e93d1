#include "tests/fuzz/targets.h"

namespace halyard::fuzz {
namespace {

constexpr TargetRow kTargets[] = {
    {"file", FileTarget},   {"records", FileTarget}, {"unit", UnitTarget}, {"definition", DefinitionTarget},
    {"value", ValueTarget}, {"path", PathTarget},    {"text", TextTarget}, {"csv", CsvTarget, true},
};

}  // namespace

std::span<const TargetRow> Targets() noexcept { return kTargets; }

}  // namespace halyard::fuzz
