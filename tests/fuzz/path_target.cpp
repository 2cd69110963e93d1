#include <algorithm>
#include <array>
#include <string>

#include "tests/fuzz/support/encoding.h"
#include "tests/fuzz/support/memory_bound.h"
#include "tests/fuzz/support/objects.h"
#include "tests/fuzz/targets.h"

namespace halyard::fuzz {
namespace {

constexpr LONG kElements = 3;

// The most numbers that a path can select, for each element.
constexpr std::size_t kMostSelected = 512;

using Numbers = std::array<double, kElements * kMostSelected + 1>;

Ptr<IArray> Filled(const Ptr<IArrayDef>& definition, const Ptr<IValueDefBase>& element) {
  Ptr<IValueBase> value;
  Check(definition->CreateDataObject(value.Out()));
  for (LONG i = 0; i < kElements; ++i) {
    Ptr<IValueBase> part;
    Check(element->CreateDataObject(part.Out()));
    Check(value->Add(Variant(static_cast<IDispatch*>(part.get())).get()));
  }
  return QueryFor<IArray>(value.get());
}

// Numbers that were taken out and put back change nothing; the last number of the buffer,
// which is more than any path selects, is left alone.
void MoveBothWays(const Ptr<IArray>& array, const Bstr& path) {
  constexpr double kMark = -7.25;
  Numbers numbers{};
  numbers.back() = kMark;
  auto* buffer = reinterpret_cast<unsigned char*>(numbers.data());
  const Variant type(LONG{kReal});
  VARIANT_BOOL built = VARIANT_FALSE;
  if (FAILED(array->BuildNumericArray(path.get(), type.get(), buffer, &built)) || built == VARIANT_FALSE)
    return;
  const auto before = Encoded(array);
  VARIANT_BOOL read = VARIANT_FALSE;
  Hold(SUCCEEDED(array->ReadNumericArray(path.get(), type.get(), buffer, &read)) && read != VARIANT_FALSE,
       "numbers that a path gives can be put back");
  Hold(Encoded(array) == before, "numbers that were taken and put back are the same");
  Hold(numbers.back() == kMark, "a transfer stays within its buffer");
}

}  // namespace

void PathTarget(InputBytes bytes) {
  const MemoryBound bound(bytes.size());
  const std::basic_string<OLECHAR> text(bytes.begin(), bytes.end());
  const Bstr path(std::basic_string_view<OLECHAR>{text});
  const auto sample = SampleStructure();
  const auto track = ArrayOf(sample.get(), 0, 0);
  MoveBothWays(Filled(track, sample), path);
  const auto tracks = ArrayOf(track.get(), 0, 0);
  MoveBothWays(Filled(tracks, track), path);
}

}  // namespace halyard::fuzz
