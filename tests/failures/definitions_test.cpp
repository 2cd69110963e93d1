// Definitions when memory runs out.
#include "tests/failures/each_allocation.h"
#include "tests/failures/samples.h"

namespace halyard::test {
namespace {

// A definition and what a call needs.
struct State {
  Ptr<ISimpleValueDef> simple;
  Ptr<IStructureDef> structure;
  Ptr<IEnumerationDef> enumeration;
  Ptr<IArrayDef> array;
  Bstr name;
  Bytes bytes;
  Ptr<IValueBase> made;
};

// A definition with a range and a script.
Ptr<ISimpleValueDef> RangedDefinition() {
  const auto definition = SimpleDefinition(kLong);
  EXPECT_EQ(definition->put_Validation(VARIANT_TRUE), S_OK);
  EXPECT_EQ(definition->put_MaxValue(Text(OLESTR("100")).get()), S_OK);
  EXPECT_EQ(definition->put_ValidationScript(Bstr(OLESTR("value > 0 and value < a limit of ours")).get()),
            S_OK);
  return definition;
}

State NewState() {
  State state;
  state.simple = RangedDefinition();
  state.structure = EverythingDefinition();
  state.enumeration = EnumerationDefinition(kLong, {{OLESTR("Red"), 1}, {OLESTR("Blue"), 2}}, 4);
  state.array = ArrayDefinition(state.structure, 0, 5);
  state.name = Bstr(OLESTR("a name that is too long for any place inside an object"));
  state.bytes = Bytes(4096);
  return state;
}

std::string Simple(State& state) { return BytesOf(state.simple); }
std::string Structure(State& state) { return BytesOf(state.structure); }
std::string Enumeration(State& state) { return BytesOf(state.enumeration); }
std::string Array(State& state) { return BytesOf(state.array); }

using Each = EachAllocation<State>;

TEST(DefinitionMemory, PuttingABound) {
  const Variant bound = Text(OLESTR("42"));
  Each{NewState, [&](State& state) { return state.simple->put_MinValue(bound.get()); }, Simple}.Run();
}

TEST(DefinitionMemory, AskingForABound) {
  Variant bound;
  Each{NewState, [&](State& state) { return state.simple->get_MaxValue(bound.Out()); },
       [&](State&) {
         const std::string shown = Describe(bound);
         bound = Variant();
         return shown;
       }}
      .Run();
}

TEST(DefinitionMemory, PuttingAScript) {
  Each{NewState, [](State& state) { return state.simple->put_ValidationScript(state.name.get()); }, Simple}
      .Run();
}

TEST(DefinitionMemory, WritingASimpleDefinition) {
  Each{NewState, [](State& state) { return WriteBytes(state.simple, state.bytes); },
       [](State& state) { return ToHex(state.bytes); }}
      .Run();
}

TEST(DefinitionMemory, ReadingASimpleDefinition) {
  Each{[] {
         State state = NewState();
         EXPECT_EQ(WriteBytes(state.simple, state.bytes), S_OK);
         state.simple = CreateObject<ISimpleValueDef>(kSimpleValueInfoClass);
         return state;
       },
       [](State& state) { return ReadBytes(state.simple, state.bytes); }, Simple}
      .Run();
}

TEST(DefinitionMemory, AddingAMember) {
  Each{NewState,
       [](State& state) {
         VARIANT_BOOL added = VARIANT_FALSE;
         const HRESULT hr = state.structure->AddSimpleMember(state.name.get(), kDate, &added);
         return SUCCEEDED(hr) && added == VARIANT_FALSE ? E_FAIL : hr;
       },
       Structure}
      .Run();
}

TEST(DefinitionMemory, AddingAnArrayMember) {
  Each{NewState,
       [](State& state) {
         VARIANT_BOOL added = VARIANT_FALSE;
         return state.structure->AddSimpleArrayMember(state.name.get(), kReal, 3, &added);
       },
       Structure}
      .Run();
}

TEST(DefinitionMemory, NamingAMember) {
  Each{NewState, [](State& state) { return state.structure->put_MemberName(1, state.name.get()); }, Structure}
      .Run();
}

TEST(DefinitionMemory, NamingADefinition) {
  Each{NewState, [](State& state) { return state.structure->put_Name(state.name.get()); }, Structure}.Run();
}

TEST(DefinitionMemory, AskingForAName) {
  Each{NewState, [](State& state) { return state.structure->get_Name(state.name.Out()); },
       [](State& state) { return Plain(state.name.get()); }}
      .Run();
}

TEST(DefinitionMemory, AddingAnElement) {
  Each{NewState,
       [](State& state) {
         VARIANT_BOOL added = VARIANT_FALSE;
         return state.enumeration->AddMember(state.name.get(), 7, &added);
       },
       Enumeration}
      .Run();
}

TEST(DefinitionMemory, ChoosingTheElementsOfAnArray) {
  Each{[] {
         State state;
         state.array = CreateObject<IArrayDef>(kArrayInfoClass);
         return state;
       },
       [](State& state) { return state.array->put_DataType(kLong); }, Array}
      .Run();
}

TEST(DefinitionMemory, ReadingAStructure) {
  Each{[] {
         State state = NewState();
         EXPECT_EQ(WriteBytes(state.structure, state.bytes), S_OK);
         state.structure = CreateObject<IStructureDef>(kStructureInfoClass);
         return state;
       },
       [](State& state) { return ReadBytes(state.structure, state.bytes); }, Structure}
      .Run();
}

TEST(DefinitionMemory, ReadingAnArray) {
  Each{[] {
         State state = NewState();
         EXPECT_EQ(WriteBytes(state.array, state.bytes), S_OK);
         state.array = CreateObject<IArrayDef>(kArrayInfoClass);
         return state;
       },
       [](State& state) { return ReadBytes(state.array, state.bytes); }, Array}
      .Run();
}

TEST(DefinitionMemory, ReadingAnEnumeration) {
  Each{[] {
         State state = NewState();
         EXPECT_EQ(WriteBytes(state.enumeration, state.bytes), S_OK);
         state.enumeration = CreateObject<IEnumerationDef>(kEnumerationInfoClass);
         return state;
       },
       [](State& state) { return ReadBytes(state.enumeration, state.bytes); }, Enumeration}
      .Run();
}

TEST(DefinitionMemory, MakingAValue) {
  Each{NewState, [](State& state) { return state.structure->CreateDataObject(state.made.Out()); },
       [](State& state) { return state.made ? ShowTree(state.made) : "none"; }}
      .Run();
}

TEST(DefinitionMemory, MakingAnArrayValue) {
  Each{NewState, [](State& state) { return state.array->CreateDataObject(state.made.Out()); },
       [](State& state) { return state.made ? ShowTree(state.made) : "none"; }}
      .Run();
}

}  // namespace
}  // namespace halyard::test
