// One fuzz target as libFuzzer calls it; FUZZ_TARGET is its function.
#include "halyard/platform/messages.h"
#include "tests/fuzz/targets.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  halyard::SetMessageHandler([](const char*, const char*) {});
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  halyard::fuzz::FUZZ_TARGET({data, size});
  return 0;
}
