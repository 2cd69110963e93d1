// Units, sessions, files and the factory when memory runs out.
#include "tests/support/streams.h"
#include <memory>

#include "halyard/stream/orm_help.h"
#include "tests/failures/each_allocation.h"
#include "tests/failures/samples.h"

namespace halyard::test {
namespace {

struct State {
  Ptr<IUnit> unit;
  Ptr<IOrmSession> session;
  Ptr<IOrmFile> file;
  Ptr<IOrmHelp> help;
  Ptr<IValueBase> value;
  Ptr<IValueDefBase> definition;
  Ptr<IDispatch> made;
  Variant argument;
  Bytes bytes;
  std::shared_ptr<TempFile> place;
};

using Each = EachAllocation<State>;

State NewState() {
  State state;
  state.unit = CreateObject<IUnit>(kUnitClass);
  state.session = CreateObject<IOrmSession>(kOrmSessionClass);
  state.file = NewFile();
  state.help = CreateObject<IOrmHelp>(kOrmHelpClass);
  state.value = EverythingValue();
  EXPECT_EQ(state.value->get_Info(state.definition.Out()), S_OK);
  state.bytes = Bytes(4096);
  return state;
}

std::string Unit(State& state) { return BytesOf(state.unit); }

// A unit in the buffer, and a unit object with a session to read it.
State BeforeReading(bool is_info) {
  State state = NewState();
  VARIANT_BOOL added = VARIANT_FALSE;
  if (is_info) {
    EXPECT_EQ(state.unit->put_Info(state.definition.get()), S_OK);
  } else {
    EXPECT_EQ(state.session->AddType(state.definition.get(), &added), S_OK);
    EXPECT_EQ(state.unit->put_Value(state.value.get()), S_OK);
  }
  EXPECT_EQ(WriteBytes(state.unit, state.bytes), S_OK);
  state.unit = CreateObject<IUnit>(kUnitClass);
  EXPECT_EQ(state.unit->put_Session(state.session.get()), S_OK);
  return state;
}

TEST(StreamMemory, ReadingAnInfoUnit) {
  Each{[] { return BeforeReading(true); }, [](State& state) { return ReadBytes(state.unit, state.bytes); },
       Unit}
      .Run();
}

TEST(StreamMemory, ReadingADataUnit) {
  Each{[] { return BeforeReading(false); }, [](State& state) { return ReadBytes(state.unit, state.bytes); },
       Unit}
      .Run();
}

TEST(StreamMemory, KeepingADefinition) {
  Each{NewState,
       [](State& state) {
         VARIANT_BOOL added = VARIANT_FALSE;
         const HRESULT hr = state.session->AddType(state.definition.get(), &added);
         return SUCCEEDED(hr) && added == VARIANT_FALSE ? E_FAIL : hr;
       },
       [](State& state) {
         Ptr<IStructureDef> found;
         EXPECT_EQ(state.session->GetStructureByName(Bstr(OLESTR("everything")).get(), found.Out()), S_OK);
         return std::string(found ? "found" : "missing");
       }}
      .Run();
}

TEST(StreamMemory, MakingAnArrayByTypeName) {
  Each{[] {
         State state = NewState();
         state.argument = Text(OLESTR("Real"));
         return state;
       },
       [](State& state) { return state.help->CreateArray(state.argument.get(), state.made.Out()); },
       [](State& state) { return ClassOf(state.made.get()); }}
      .Run();
}

TEST(StreamMemory, MakingAnArrayOfADefinition) {
  Each{[] {
         State state = NewState();
         state.argument = Variant(static_cast<IDispatch*>(state.definition.get()));
         return state;
       },
       [](State& state) { return state.help->CreateArray(state.argument.get(), state.made.Out()); },
       [](State& state) { return ClassOf(state.made.get()); }}
      .Run();
}

// A file with the definition and one value, and another one of the same open for writing.
State BeforeWriting() {
  State state = NewState();
  state.place = std::make_shared<TempFile>();
  EXPECT_TRUE(OpenForWrite(state.file, state.place->name()));
  EXPECT_TRUE(WriteInfo(state.file, state.definition.get()));
  // A text whose narrow form takes memory, as it is long and not plain ASCII.
  const Variant text = Text(OLESTR("20 \u00B0C, and too long for a string object"));
  EXPECT_EQ(state.value->put_Item(Text(OLESTR("Label")).get(), text.get()), S_OK);
  return state;
}

TEST(StreamMemory, WritingARecord) {
  Each{BeforeWriting,
       [](State& state) {
         VARIANT_BOOL done = VARIANT_FALSE;
         const HRESULT hr = state.file->WriteData(state.value.get(), &done);
         return SUCCEEDED(hr) && done == VARIANT_FALSE ? E_OUTOFMEMORY : hr;
       },
       // Whole records only, as many as were said to be written.
       [](State& state) { return ToHex(state.place->Contents()); }}
      .Run();
}

State BeforeReadingAFile() {
  State state = BeforeWriting();
  EXPECT_TRUE(WriteData(state.file, state.value.get()));
  EXPECT_EQ(state.file->Close(), S_OK);
  EXPECT_TRUE(OpenForRead(state.file, state.place->name()));
  EXPECT_TRUE(ReadInfo(state.file));
  return state;
}

// The record is taken from the file before the unit is made, so the call is not made again.
TEST(StreamMemory, ReadingARecord) {
  Each{BeforeReadingAFile, [](State& state) { return state.file->ReadUnit(state.unit.Out()); },
       [](State& state) { return state.unit ? BytesOf(state.unit) : "none"; }, false}
      .Run();
}

// A file of two records, of which the first was read and let go: the second takes its
// place, and more memory.
State BeforeReadingALaterRecord() {
  State state = NewState();
  const auto definition = StructureDefinition({{OLESTR("Text"), kString}}, 4);
  AddMember(definition, OLESTR("Samples"), SimpleArrayDefinition(kShort).get());
  Calculate(definition);
  state.place = std::make_shared<TempFile>();
  EXPECT_TRUE(OpenForWrite(state.file, state.place->name()));
  EXPECT_TRUE(WriteInfo(state.file, definition.get()));
  const auto value = NewValue(definition);
  EXPECT_TRUE(WriteData(state.file, value.get()));
  FillTree(value, 5);
  PutItem(value, OLESTR("Text"), Text(OLESTR("20 \u00B0C, and too long for a string object")));
  EXPECT_TRUE(WriteData(state.file, value.get()));
  EXPECT_EQ(state.file->Close(), S_OK);
  EXPECT_TRUE(OpenForRead(state.file, state.place->name()));
  EXPECT_TRUE(ReadInfo(state.file));
  EXPECT_TRUE(ReadData(state.file));
  return state;
}

TEST(StreamMemory, ReadingALaterRecord) {
  Each{BeforeReadingALaterRecord, [](State& state) { return state.file->ReadUnit(state.unit.Out()); },
       [](State& state) { return state.unit ? BytesOf(state.unit) : "none"; }, false}
      .Run();
}

TEST(StreamMemory, OpeningAFile) {
  Each{[] {
         State state = BeforeReadingAFile();
         state.file = NewFile();
         return state;
       },
       [](State& state) {
         VARIANT_BOOL done = VARIANT_FALSE;
         const HRESULT hr = state.file->OpenForRead(state.place->name(), VARIANT_TRUE, &done);
         return SUCCEEDED(hr) && done == VARIANT_FALSE ? E_OUTOFMEMORY : hr;
       },
       [](State& state) {
         Ptr<IUnit> unit;
         return std::string(SUCCEEDED(state.file->ReadUnit(unit.Out())) && unit ? "a unit" : "nothing");
       }}
      .Run();
}

TEST(StreamMemory, MakingEachObject) {
  for (const CLSID* clsid :
       {&kArrayInfoClass, &kSimpleValueInfoClass, &kEnumerationInfoClass, &kStructureInfoClass,
        &kStringArrayClass, &kSimpleFixedArrayClass, &kSimpleArrayClass, &kArrayClass, &kSimpleValueClass,
        &kEnumerationClass, &kSimpleFixedStructureClass, &kStructureClass, &kCollectionClass, &kUnitClass,
        &kOrmSessionClass, &kOrmFileClass, &kOrmHelpClass}) {
    Each{[] { return State(); },
         [clsid](State& state) {
           return CoCreateInstance(*clsid, nullptr, CLSCTX_ALL, IidOf<IDispatch>, state.made.OutVoid());
         },
         [](State& state) { return std::string(state.made ? "made" : "none"); }}
        .Run();
  }
}

}  // namespace
}  // namespace halyard::test
