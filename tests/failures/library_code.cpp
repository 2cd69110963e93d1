#include "tests/failures/library_code.h"

#include <functional>

extern "C" {
extern const char __executable_start;
extern const char etext;
}

namespace halyard::test {
namespace {

bool LiesBetween(const void* place, const void* first, const void* last) {
  const std::less<const void*> less;
  return !less(place, first) && less(place, last);
}

}  // namespace

bool IsLibraryCode(const void* place) {
  return LiesBetween(place, reinterpret_cast<const void*>(&LibraryCodeBegins),
                     reinterpret_cast<const void*>(&LibraryCodeEnds));
}

bool IsProgramCode(const void* place) { return LiesBetween(place, &__executable_start, &etext); }

}  // namespace halyard::test
