// A client's code that comes back to the array or file that it was called by.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

#include "tests/misuse/client_objects.h"
#include "tests/support/composites.h"
#include "tests/support/streams.h"
#include "tests/support/trees.h"

namespace halyard::test {
namespace {

constexpr double kUntouched = -7.25;

// A number type that acts before it says that it is Real.
class ActingType : public Foreign<IDispatch> {
 public:
  std::function<void()> act;

  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                   UINT*) override {
    act();
    *result = I4(kReal).Detach();
    return S_OK;
  }
};

TEST(Reentrance, NumbersGoNoFurtherThanTheElementsThatThereWere) {
  const auto array = NewArray(SimpleArrayDefinition(kReal));
  AddAll(array, {1, 2, 3});
  const Ptr<ActingType> type(new ActingType);
  type->act = [&] {
    for (LONG i = 0; i < 100; ++i) EXPECT_EQ(array->Add(I4(i).get()), S_OK);
  };
  std::vector<double> numbers(103, kUntouched);
  VARIANT_BOOL done = VARIANT_FALSE;
  EXPECT_EQ(
      array->BuildNumericArray(Bstr(OLESTR("")).get(), Variant(static_cast<IDispatch*>(type.get())).get(),
                               reinterpret_cast<unsigned char*>(numbers.data()), &done),
      S_OK);
  EXPECT_EQ(done, VARIANT_TRUE);
  EXPECT_EQ(Count(array), 103);
  EXPECT_EQ(std::vector<double>(numbers.begin(), numbers.begin() + 3), (std::vector<double>{1, 2, 3}));
  EXPECT_EQ(std::count(numbers.begin(), numbers.end(), kUntouched), 100);
}

// A value that acts when somebody lets go of it, once.
class ActingValue : public ClientValue {
 public:
  using ClientValue::ClientValue;
  std::function<void()> act;

  ULONG STDMETHODCALLTYPE Release() override {
    if (const auto action = std::exchange(act, nullptr)) action();
    return ClientValue::Release();
  }
};

class ElementThatActs : public testing::Test {
 protected:
  // Four elements of a client's, the second of which fills the array when it is let go of.
  ElementThatActs() {
    for (LONG i = 0; i < 4; ++i) {
      const Ptr<ActingValue> element(new ActingValue(NewValue(point_), std::make_shared<Mischief>()));
      Add(array_, Object(element));
      if (i == 1) second_ = element.get();
    }
    second_->act = [this] {
      for (int i = 0; i < 100; ++i) Add(array_, Object(NewValue(point_)));
    };
  }

  Ptr<IStructureDef> point_ = StructureDefinition({{OLESTR("X"), kReal}, {OLESTR("Note"), kString}});
  Ptr<IArray> array_ = NewArray(ArrayDefinition(point_.As<IValueDefBase>()));
  ActingValue* second_ = nullptr;  // held by the array
};

TEST_F(ElementThatActs, FillsTheArrayThatItIsRemovedFrom) {
  EXPECT_EQ(array_->Remove(I4(1).get()), S_OK);
  ASSERT_EQ(Count(array_), 103);
  for (LONG i = 0; i < 103; ++i) EXPECT_TRUE(At(array_, i)) << i;
}

TEST_F(ElementThatActs, FillsTheArrayThatIsEmptied) {
  EXPECT_EQ(array_->RemoveAll(), S_OK);
  ASSERT_EQ(Count(array_), 100);
  for (LONG i = 0; i < 100; ++i) EXPECT_TRUE(At(array_, i)) << i;
}

// What a file holds: the number of each record, -1 for a definition.
std::vector<LONG> NumbersIn(const TempFile& place) {
  std::vector<LONG> numbers;
  const auto file = NewFile();
  EXPECT_TRUE(OpenForRead(file, place.name()));
  while (const auto unit = ReadUnit(file)) {
    const auto value = Get(unit, &IUnit::get_Value);
    numbers.push_back(value ? Get(value, &IValueBase::get_Item, Text(OLESTR("Number")))->lVal : -1);
  }
  return numbers;
}

// A record in whose writing a client's code is called, so many times, writes a definition
// at one of these calls: both are in the file, whichever comes first.
TEST(Reentrance, RecordWrittenInsideARecordSpoilsNeither) {
  const auto note = StructureDefinition({{OLESTR("Note"), kLong}, {OLESTR("More"), kString}}, 9);
  int strikes_at = 0;
  for (int calls = 1; strikes_at < calls;) {
    SCOPED_TRACE(++strikes_at);
    const TempFile place;
    const auto mischief = std::make_shared<Mischief>();
    const Ptr<ClientDefinition> text(new ClientDefinition(SimpleDefinition(kString), mischief));
    const auto definition = StructureDefinition({{OLESTR("Number"), kLong}}, 5);
    AddMember(definition, OLESTR("Text"), text.get());
    Calculate(definition);
    const auto record = NewValue(definition);
    PutItem(record, OLESTR("Number"), I4(7));
    const auto file = NewFile();
    ASSERT_TRUE(OpenForWrite(file, place.name()));
    const auto plain = StructureDefinition({{OLESTR("Number"), kLong}, {OLESTR("Text"), kString}}, 5);
    ASSERT_TRUE(WriteInfo(file, plain.get()));
    mischief->calls = 0;
    mischief->strikes_at = strikes_at;
    mischief->act = [&] { EXPECT_TRUE(WriteInfo(file, note.get())); };
    EXPECT_TRUE(WriteData(file, record.get()));
    calls = mischief->calls;
    mischief->act = nullptr;
    EXPECT_TRUE(WriteData(file, record.get()));
    EXPECT_EQ(file->Close(), S_OK);
    auto numbers = NumbersIn(place);
    std::sort(numbers.begin(), numbers.end());
    EXPECT_EQ(numbers, (strikes_at <= calls ? std::vector<LONG>{-1, -1, 7, 7} : std::vector<LONG>{-1, 7, 7}));
  }
  EXPECT_GE(strikes_at, 3) << "the client was not asked while the record was written";
}

}  // namespace
}  // namespace halyard::test
