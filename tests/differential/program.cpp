#include "tests/differential/program.h"

#include "tests/differential/world.h"
#include "tests/support/message_recorder.h"

namespace halyard::differential {
namespace {

// A program begins with definitions, so that the rest has something to work on.
constexpr int kFirstSteps = 8;
constexpr int kSteps = 40;

void Step(World& world) {
  using Kind = void (*)(World&);
  constexpr Kind kKinds[] = {DefinitionStep, DefinitionStep, DefinitionStep, ValueStep, ValueStep, ValueStep,
                             ValueStep,      TransferStep,   TransferStep,   RowsStep,  StreamStep};
  world.random.Of(kKinds)(world);
}

// Lets go of definitions that may hold one another.
void TakeApart(const Ptr<IValueDefBase>& definition) {
  if (const auto structure = definition.As<IStructureDef>()) static_cast<void>(structure->RemoveAll());
  if (const auto array = definition.As<IArrayDef>()) static_cast<void>(array->put_ValueType(nullptr));
}

// The calls that must end well even on a definition that holds itself.
void EndWith(World& world, const Ptr<IValueDefBase>& heavy) {
  world.Tell("heavy.CalculateDataSize",
             Number<ULONG>([&](ULONG* out) { return heavy->CalculateDataSize(out); }));
  world.Tell("heavy.PacketSize", Number<ULONG>([&](ULONG* out) { return heavy->get_PacketSize(out); }));
  WriteAnything(world, "heavy", heavy.get());
  world.Keep(heavy);
}

}  // namespace

std::string Run(std::uint64_t seed) {
  World world(seed);
  world.text = "program " + std::to_string(seed) + "\n";
  const test::MessageRecorder messages;
  std::string shown;
  for (int step = 0; step < kFirstSteps + kSteps; ++step) {
    step < kFirstSteps ? DefinitionStep(world) : Step(world);
    if (const auto heavy = world.Heavy()) {
      EndWith(world, heavy);
      break;
    }
    const std::string all = messages.Shown();
    if (all.size() > shown.size()) world.Tell("message", all.substr(shown.size()));
    shown = all;
  }
  for (const auto& definition : world.definitions) TakeApart(definition);
  return world.text;
}

}  // namespace halyard::differential
