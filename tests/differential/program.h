// One random program.
#pragma once

#include <cstdint>
#include <string>

namespace halyard::differential {

// Makes the program of that seed, runs it and answers what every call answered, in lines;
// the first is "program SEED".
std::string Run(std::uint64_t seed);

}  // namespace halyard::differential
