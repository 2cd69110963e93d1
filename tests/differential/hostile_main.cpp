// halyard_hostile_differential FIRST_SEED COUNT FOLDER...: reads hostile streams and prints
// what every call answered. The streams are those that the folders keep, then changed ones
// (see hostile_streams.h). Built for both platforms; the same seeds must print the same
// text (run.sh compares).
#include <cstdio>
#include <cstdlib>

#include "tests/differential/hostile_reading.h"
#include "tests/support/com_apartment.h"
#include "tests/support/message_recorder.h"

namespace {

// The stream of a seed. Messages that show while it is made belong to nobody: several seeds
// share what some of the streams begin with, and the first of them makes it.
halyard::differential::Bytes Made(halyard::differential::HostileStreams& streams, std::uint64_t seed) {
  const halyard::test::MessageRecorder messages;
  return streams.Make(seed);
}

}  // namespace

int main(int argc, char** argv) {
  using namespace halyard;
  if (argc < 4) return 2;
  const std::uint64_t first = std::strtoull(argv[1], nullptr, 10);
  const std::uint64_t count = std::strtoull(argv[2], nullptr, 10);
  const test::ComApartment apartment;
  differential::HostileStreams streams({argv + 3, argv + argc});
  for (std::uint64_t seed = first; seed < first + count; ++seed) {
    const differential::Bytes stream = Made(streams, seed);
    differential::World world(seed);
    const test::MessageRecorder messages;
    world.text = "program " + std::to_string(seed) + "\n";
    differential::ReadHostile(world, stream);
    world.Tell("messages", messages.Shown());
    std::fwrite(world.text.data(), 1, world.text.size(), stdout);
  }
  return 0;
}
