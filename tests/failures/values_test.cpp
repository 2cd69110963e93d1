// Values when memory runs out.
#include "tests/failures/each_allocation.h"
#include "tests/failures/samples.h"
#include "tests/support/raised.h"
#include "tests/support/streams.h"

namespace halyard::test {
namespace {

// A value and what a call needs.
struct State {
  Ptr<IValueBase> value;
  Ptr<IValueBase> other;
  Ptr<IValueDefBase> definition;
  Variant index;
  Variant content;
  Bytes bytes;
};

std::string Value(State& state) { return BytesOf(state.value); }
std::string Other(State& state) { return state.other ? BytesOf(state.other) : "none"; }

const OLECHAR* kLongText = OLESTR("a text that is too long for any place inside an object");

State Everything() {
  State state;
  state.value = EverythingValue();
  state.bytes = Bytes(4096);
  return state;
}

State ArrayOfEverything() {
  State state;
  const auto definition = EverythingDefinition();
  const auto array = NewArray(ArrayDefinition(definition));
  for (int i = 0; i < 4; ++i) Add(array, Object(NewValue(definition)));
  state.value = array;
  state.other = EverythingValue();
  state.bytes = Bytes(4096);
  return state;
}

State Texts() {
  State state;
  const auto texts = NewArray(SimpleArrayDefinition(kString));
  Add(texts, Text(kLongText));
  state.value = texts;
  state.content = Text(kLongText);
  return state;
}

State Numbers() {
  State state;
  const auto numbers = NewArray(SimpleArrayDefinition(kReal));
  AddAll(numbers, {1, 2, 3});
  state.value = numbers;
  return state;
}

// Numbers of which so many have been removed that the next one gives memory back.
State NumbersBeforeTheyShrink() {
  State state;
  state.value = NewArray(SimpleArrayDefinition(kReal));
  for (LONG i = 0; i < 20; ++i) EXPECT_EQ(state.value->Add(I4(i).get()), S_OK);
  for (int i = 0; i < 8; ++i) EXPECT_EQ(state.value->Remove(I4(0).get()), S_OK);
  return state;
}

// The same as the value of a large record, in whose memory it lies.
State NumbersOfARecordBeforeTheyShrink() {
  constexpr ULONG kCount = 40000;
  Bytes encoding = LittleEndian(kCount, 4);
  for (ULONG i = 0; i < 2 * kCount; ++i) encoding.push_back(static_cast<unsigned char>(i * 7 + i / 251));
  const TempFile disk;
  const auto definition = SimpleArrayDefinition(kShort, 0, 5);
  const auto writer = NewFile();
  EXPECT_TRUE(OpenForWrite(writer, disk.name()));
  EXPECT_TRUE(WriteInfo(writer, definition.get()));
  const auto numbers = NewArray(definition);
  EXPECT_EQ(ReadFrom(numbers, encoding), Moved(2 * kCount + 4));
  EXPECT_TRUE(WriteData(writer, numbers.get()));
  EXPECT_EQ(writer->Close(), S_OK);
  const auto reader = NewFile();
  EXPECT_TRUE(OpenForRead(reader, disk.name()));
  EXPECT_TRUE(ReadInfo(reader));
  State state;
  state.value = ReadData(reader);
  for (int i = 0; i < 8; ++i) EXPECT_EQ(state.value->Remove(I4(0).get()), S_OK);
  return state;
}

using Each = EachAllocation<State>;

State WithItem(State state, Variant index, Variant content) {
  state.index = std::move(index);
  state.content = std::move(content);
  return state;
}

HRESULT Put(State& state) { return state.value->put_Item(state.index.get(), state.content.get()); }

TEST(ValueMemory, PuttingATextMember) {
  Each{[] { return WithItem(Everything(), Text(OLESTR("Label")), Text(kLongText)); }, Put, Value}.Run();
}

TEST(ValueMemory, PuttingATextThatIsANumber) {
  Each{[] { return WithItem(Everything(), Text(OLESTR("Number")), Text(OLESTR("-77"))); }, Put, Value}.Run();
}

TEST(ValueMemory, PuttingAnElementOfTexts) {
  Each{[] { return WithItem(Texts(), I4(0), Text(OLESTR("another text that is too long for any object"))); },
       Put, Value}
      .Run();
}

TEST(ValueMemory, GettingATextMember) {
  Each{[] {
         State state = WithItem(Everything(), Text(OLESTR("Label")), Text(kLongText));
         EXPECT_EQ(Put(state), S_OK);
         return state;
       },
       [](State& state) { return state.value->get_Item(state.index.get(), state.content.Out()); },
       [](State& state) { return Describe(state.content); }}
      .Run();
}

TEST(ValueMemory, PuttingATextByItself) {
  Each{[] {
         State state;
         state.value = SimpleValue(kString);
         state.content = Text(kLongText);
         return state;
       },
       [](State& state) {
         const HRESULT hr = state.value->put_Value(state.content.get());
         if (FAILED(hr)) {
           EXPECT_EQ(LeftWords().rfind("Halyard.SimpleValue: SimpleValue.Value: ", 0), 0u);
         }
         return hr;
       },
       Value}
      .Run();
}

TEST(ValueMemory, TakingADefinition) {
  const auto untyped = [](const CLSID& value_class, const Ptr<IValueDefBase>& definition) {
    State state;
    state.value = CreateObject<IValueBase>(value_class);
    state.definition = definition;
    return state;
  };
  const auto take = [](State& state) { return state.value->put_Info(state.definition.get()); };
  Each{[&] { return untyped(kStructureClass, EverythingDefinition()); }, take, Value}.Run();
  Each{[&] { return untyped(kSimpleValueClass, SimpleDefinition(kFixedString, 10)); }, take, Value}.Run();
}

TEST(ValueMemory, Reading) {
  Each{[] {
         State state = Everything();
         EXPECT_EQ(WriteBytes(state.value, state.bytes), S_OK);
         state.value = NewValue(EverythingDefinition());
         return state;
       },
       [](State& state) { return ReadBytes(state.value, state.bytes); }, Value}
      .Run();
}

TEST(ValueMemory, ReadingAnArray) {
  Each{[] {
         State state = ArrayOfEverything();
         EXPECT_EQ(WriteBytes(state.value, state.bytes), S_OK);
         state.value = NewArray(ArrayDefinition(EverythingDefinition()));
         return state;
       },
       [](State& state) { return ReadBytes(state.value, state.bytes); }, Value}
      .Run();
}

TEST(ValueMemory, Copying) {
  Each{Everything, [](State& state) { return state.value->Copy(state.other.Out()); }, Other}.Run();
}

TEST(ValueMemory, CopyingAnArray) {
  Each{ArrayOfEverything, [](State& state) { return state.value->Copy(state.other.Out()); }, Other}.Run();
}

TEST(ValueMemory, CopyingNumbers) {
  Each{Numbers, [](State& state) { return state.value->Copy(state.other.Out()); }, Other}.Run();
}

// An element may be there although its content did not fit any more, so the call is not
// made again.
TEST(ValueMemory, AddingAText) {
  Each{Texts, [](State& state) { return state.value->Add(state.content.get()); }, Value, false}.Run();
}

TEST(ValueMemory, AddingANumber) {
  Each{[] { return WithItem(Numbers(), Variant(), Text(OLESTR("4.5"))); },
       [](State& state) { return state.value->Add(state.content.get()); }, Value, false}
      .Run();
}

// How many allocations a call makes, which must succeed.
std::size_t AllocationsOf(const std::function<HRESULT()>& call) {
  const FailingAllocation counting(kNoAllocation);
  const HRESULT status = call();
  const std::size_t count = counting.Count();
  EXPECT_EQ(status, S_OK);
  return count;
}

TEST(ValueMemory, NumbersGrowByTenSlotsAndGiveBackNine) {
  const auto array = NewArray(SimpleArrayDefinition(kLong));
  const auto add = [&] { return array->Add(I4(1).get()); };
  const auto remove = [&] { return array->Remove(I4(0).get()); };
  for (int i = 1; i <= 30; ++i) EXPECT_EQ(AllocationsOf(add), i % 10 == 1 ? 1u : 0u) << "Add number " << i;
  for (int i = 1; i <= 8; ++i) EXPECT_EQ(AllocationsOf(remove), 0u) << "Remove number " << i;
  EXPECT_EQ(AllocationsOf(remove), 1u);
  EXPECT_EQ(Count(array), 21);
  EXPECT_EQ(AllocationsOf(add), 1u);
  EXPECT_EQ(AllocationsOf(add), 0u);
}

// Removing never needs memory, although the array asks for a smaller block.
TEST(ValueMemory, RemovingANumber) {
  for (State (*make)() : {NumbersBeforeTheyShrink, NumbersOfARecordBeforeTheyShrink}) {
    State state = make();
    const LONG count = Get(state.value, &IValueBase::get_Count);
    {
      const FailingAllocation failing(1);
      EXPECT_EQ(state.value->Remove(I4(0).get()), S_OK);
      EXPECT_TRUE(failing.Happened());
    }
    EXPECT_EQ(Get(state.value, &IValueBase::get_Count), count - 1);
    EXPECT_EQ(state.value->Add(I4(99).get()), S_OK);
    EXPECT_EQ(state.value->Remove(I4(0).get()), S_OK);
    const auto numbers = state.value.As<IArray>();
    EXPECT_EQ(Item(numbers, 0), Item(make().value.As<IArray>(), 2));
    EXPECT_EQ(Item(numbers, count - 2).substr(2), " 99");
  }
}

TEST(ValueMemory, AddingAnObject) {
  Each{[] {
         State state = ArrayOfEverything();
         state.content = Object(state.other);
         return state;
       },
       [](State& state) { return state.value->Add(state.content.get()); }, Value}
      .Run();
}

TEST(ValueMemory, MovingNumbersByPath) {
  Each{[] {
         State state = ArrayOfEverything();
         state.content = Text(OLESTR("Place.X[Y]"));
         return state;
       },
       [](State& state) {
         double numbers[8] = {};
         VARIANT_BOOL done = VARIANT_FALSE;
         const auto array = state.value.As<IArray>();
         const HRESULT hr = array->BuildNumericArray(state.content->bstrVal, I4(kReal).get(),
                                                     reinterpret_cast<unsigned char*>(numbers), &done);
         return SUCCEEDED(hr) && done == VARIANT_FALSE ? E_FAIL : hr;
       },
       Value}
      .Run();
}

}  // namespace
}  // namespace halyard::test
