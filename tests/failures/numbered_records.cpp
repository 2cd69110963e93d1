#include "tests/failures/numbered_records.h"

#include <algorithm>
#include <numeric>
#include <optional>

#include "tests/support/composites.h"

namespace halyard::test {
namespace {

constexpr LONG kTextLengths = 50;
constexpr OLECHAR kLetters = 26;

constexpr LONG kFirstSamples = 2;     // a position
constexpr LONG kMostSamples = 50000;  // in one array

WideString TextOf(LONG number) {
  return WideString(static_cast<std::size_t>(number % kTextLengths),
                    static_cast<OLECHAR>(u'a' + number % kLetters));
}

// Every sample of a record is the same, and none is zero.
double SampleOf(LONG number) { return number + 1; }

// The arrays of samples of a record, which are the members behind the first two.
std::vector<Ptr<IArray>> SamplesOf(const Ptr<IValueBase>& record) {
  std::vector<Ptr<IArray>> arrays;
  const LONG members = Get(record, &IValueBase::get_Count);
  for (LONG i = kFirstSamples; i < members; ++i)
    arrays.push_back(Get(record, &IValueBase::get_At, I4(i)).As<IArray>());
  return arrays;
}

using Numbers = std::vector<double>;
using NumericCall = HRESULT (STDMETHODCALLTYPE IArray::*)(BSTR, VARIANT, unsigned char*, VARIANT_BOOL*);

// Moves all samples of an array in or out.
void Move(const Ptr<IArray>& samples, NumericCall call, Numbers& numbers) {
  VARIANT_BOOL done = VARIANT_FALSE;
  EXPECT_EQ((samples.get()->*call)(Bstr(OLESTR("")).get(), I4(kReal).get(),
                                   reinterpret_cast<unsigned char*>(numbers.data()), &done),
            S_OK);
  EXPECT_EQ(done, VARIANT_TRUE);
}

void PutSamples(const Ptr<IValueBase>& record, LONG number) {
  for (const auto& samples : SamplesOf(record)) {
    Numbers numbers(static_cast<std::size_t>(Count(samples)), SampleOf(number));
    Move(samples, &IArray::ReadNumericArray, numbers);
  }
}

bool HasSamples(const Ptr<IValueBase>& record, LONG number) {
  const auto is_right = [&](double sample) { return sample == SampleOf(number); };
  for (const auto& samples : SamplesOf(record)) {
    Numbers numbers(static_cast<std::size_t>(Count(samples)));
    Move(samples, &IArray::BuildNumericArray, numbers);
    if (numbers.empty() || !std::all_of(numbers.begin(), numbers.end(), is_right)) return false;
  }
  return true;
}

// The number of a record of which all is as it was written; none for anything else.
std::optional<LONG> NumberOf(const Ptr<IUnit>& unit) {
  const auto record = Get(unit, &IUnit::get_Value);
  if (!record) return std::nullopt;
  const Variant number = Get(record, &IValueBase::get_Item, Text(OLESTR("Number")));
  const Variant text = Get(record, &IValueBase::get_Item, Text(OLESTR("Text")));
  if (number.type() != VT_I4 || number->lVal < 0 || text.type() != VT_BSTR) return std::nullopt;
  const bool is_whole = ViewOf(text->bstrVal) == TextOf(number->lVal) && HasSamples(record, number->lVal);
  return is_whole ? std::optional(number->lVal) : std::nullopt;
}

}  // namespace

Ptr<IStructureDef> NumberedDefinition(LONG samples) {
  const auto definition = StructureDefinition({{OLESTR("Number"), kLong}, {OLESTR("Text"), kString}}, 1);
  for (LONG rest = samples; rest > 0; rest -= kMostSamples) {
    const LONG count = std::min(rest, kMostSamples);
    AddMember(definition, OLESTR("Samples"), SimpleArrayDefinition(kReal, count).get());
  }
  Calculate(definition);
  return definition;
}

LONG WriteNumbered(const Ptr<IOrmFile>& file, const Ptr<IStructureDef>& definition, LONG first, LONG count) {
  const auto record = NewValue(definition);
  for (LONG i = 0; i < count; ++i) {
    PutItem(record, OLESTR("Number"), I4(first + i));
    PutItem(record, OLESTR("Text"), Variant(WideView(TextOf(first + i))));
    PutSamples(record, first + i);
    VARIANT_BOOL done = VARIANT_FALSE;
    if (FAILED(file->WriteData(record.get(), &done)) || done == VARIANT_FALSE) return i;
  }
  return count;
}

std::vector<LONG> FirstNumbers(LONG count) {
  std::vector<LONG> numbers(static_cast<std::size_t>(count));
  std::iota(numbers.begin(), numbers.end(), LONG{0});
  return numbers;
}

std::vector<LONG> ReadNumbered(const Ptr<IOrmFile>& file) {
  std::vector<LONG> numbers;
  for (;;) {
    const auto unit = ReadUnit(file);
    if (!unit) return numbers;
    if (Get(unit, &IUnit::get_IsInfoUnit) != VARIANT_FALSE) continue;
    const auto number = NumberOf(unit);
    if (!number) ADD_FAILURE() << "a record was given that is not whole, behind " << numbers.size();
    numbers.push_back(number.value_or(-1));
  }
}

std::vector<LONG> NumbersIn(const TempFile& place) {
  const auto file = NewFile();
  return OpenForRead(file, place.name()) ? ReadNumbered(file) : std::vector<LONG>();
}

WholeRecords RecordsWithin(const Bytes& contents, std::size_t size) {
  const Bytes part = Prefix(contents, size);
  const auto records = RecordsOf(part);
  std::size_t whole = FileHeader().size();
  for (const Bytes& record : records) whole += record.size();
  const auto count = static_cast<LONG>(records.size());
  return {std::max(count - 1, LONG{0}), part.size() > whole ? part.size() - whole : 0};
}

}  // namespace halyard::test
