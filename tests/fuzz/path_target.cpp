#include <array>
#include <iterator>

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

// More than any path selects, so that nothing may touch it.
constexpr double kMark = -7.25;

constexpr SHORT kNumberTypes[] = {kChar, kByte, kShort, kWord, kLong, kDWord, kShortReal, kReal};

Ptr<IValueBase> PartOf(const Ptr<IValueBase>& value, const OLECHAR* name) {
  Ptr<IValueBase> part;
  Check(value->get_At(Variant(name).get(), part.Out()));
  return part;
}

// A sample whose numbers are all different, small and whole: every number type holds them.
Ptr<IValueBase> SampleOf(const Ptr<IValueDefBase>& definition, LONG first) {
  Ptr<IValueBase> sample;
  Check(definition->CreateDataObject(sample.Out()));
  const auto put = [&](const Ptr<IValueBase>& value, const Variant& which) {
    Check(value->put_Item(which.get(), Variant(++first).get()));
  };
  put(sample, Variant(OLESTR("A")));
  put(sample, Variant(OLESTR("B")));
  const auto samples = PartOf(sample, OLESTR("Samples"));
  for (LONG i = 0; i < 4; ++i) put(samples, Variant(i));
  put(PartOf(sample, OLESTR("Extent")), Variant(OLESTR("X")));
  put(PartOf(sample, OLESTR("Extent")), Variant(OLESTR("Y")));
  return sample;
}

// An array of so many elements, each made by `make(position)`.
template <class Make>
Ptr<IValueBase> ArrayWith(const Ptr<IArrayDef>& definition, Make&& make) {
  Ptr<IValueBase> array;
  Check(definition->CreateDataObject(array.Out()));
  for (LONG i = 0; i < kElements; ++i)
    Check(array->Add(Variant(static_cast<IDispatch*>(make(i).get())).get()));
  return array;
}

bool Build(const Ptr<IArray>& array, const Bstr& path, SHORT type, Numbers& numbers) {
  VARIANT_BOOL built = VARIANT_FALSE;
  const HRESULT hr = array->BuildNumericArray(path.get(), Variant(LONG{type}).get(),
                                              reinterpret_cast<unsigned char*>(numbers.data()), &built);
  Hold(numbers.back() == kMark, "a transfer stays within its buffer");
  return SUCCEEDED(hr) && built != VARIANT_FALSE;
}

void PutBack(const Ptr<IArray>& array, const Bstr& path, SHORT type, Numbers& numbers) {
  VARIANT_BOOL read = VARIANT_FALSE;
  const HRESULT hr = array->ReadNumericArray(path.get(), Variant(LONG{type}).get(),
                                             reinterpret_cast<unsigned char*>(numbers.data()), &read);
  Hold(SUCCEEDED(hr) && read != VARIANT_FALSE, "numbers that a path gives can be put back");
}

Numbers Blank() {
  Numbers numbers{};
  numbers.back() = kMark;
  return numbers;
}

// Numbers that were taken out and put back change nothing, whatever their type is.
void MoveBothWays(const Ptr<IArray>& array, const Bstr& path, SHORT type) {
  Numbers numbers = Blank();
  if (!Build(array, path, type, numbers)) return;
  const auto before = Encoded(array);
  PutBack(array, path, type, numbers);
  Hold(Encoded(array) == before, "numbers that were taken and put back are the same");
}

// Other numbers that were put are there when they are taken again. Where the path selects
// nothing that is a number, nothing is moved and the buffer stays as it is.
void MoveOthers(const Ptr<IArray>& array, const Bstr& path) {
  Numbers numbers = Blank();
  if (!Build(array, path, kReal, numbers)) return;
  for (std::size_t i = 0; i + 1 < numbers.size(); ++i) numbers[i] += 1;
  Numbers again = numbers;
  PutBack(array, path, kReal, numbers);
  Hold(Build(array, path, kReal, again), "a path gives numbers as often as it is asked");
  Hold(again == numbers, "numbers that were put are there");
}

void Move(const Ptr<IValueBase>& value, const Bstr& path, std::size_t choice) {
  const auto array = QueryFor<IArray>(value.get());
  MoveBothWays(array, path, kReal);
  MoveBothWays(array, path, kNumberTypes[choice % std::size(kNumberTypes)]);
  MoveOthers(array, path);
}

}  // namespace

void PathTarget(InputBytes bytes) {
  const MemoryBound bound(bytes.size());
  const WideString text = Input(bytes).Text();
  const Bstr path(WideView{text});
  const auto sample = SampleStructure();
  const auto track = ArrayOf(sample.get(), 0, 0);
  constexpr LONG kNumbersOfSample = 8;
  const auto new_track = [&](LONG place) {
    return ArrayWith(track,
                     [&](LONG i) { return SampleOf(sample, (place * kElements + i) * kNumbersOfSample); });
  };
  Move(new_track(0), path, text.size());
  Move(ArrayWith(ArrayOf(track.get(), 0, 0), new_track), path, text.size());
}

}  // namespace halyard::fuzz
