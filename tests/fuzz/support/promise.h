// How a fuzz target says what must hold whatever the input is.
#pragma once

namespace halyard::fuzz {

// Ends the process with the promise that was broken, as the fuzzer expects of a finding.
void Hold(bool held, const char* promise);

}  // namespace halyard::fuzz
