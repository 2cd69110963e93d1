// The registered type library, compared with the C++ headers slot by slot.
#include <gtest/gtest.h>

#include "tests/server/support/class_rows.h"
#include "tests/server/support/component.h"
#include "tests/server/support/type_info.h"
#include "tests/support/variants.h"

namespace halyard::test {
namespace {

constexpr USHORT kDirection = PARAMFLAG_FIN | PARAMFLAG_FOUT | PARAMFLAG_FRETVAL;

// The interfaces of the two classes that are declared without an implementation.
constexpr std::size_t kDeclaredOnlyInterfaces = 2;
constexpr std::size_t kDeclaredOnlyClasses = 2;

class TypeLibrary : public RegisteredComponent {
 protected:
  void SetUp() override {
    RegisteredComponent::SetUp();
    library_ = RegisteredLibrary();
  }
  void TearDown() override {
    library_.Reset();
    RegisteredComponent::TearDown();
  }

  Ptr<ITypeLib> library_;
};

bool IsBooleanName(const std::string& name) { return name.starts_with("pb") || name.starts_with("b"); }

// Booleans and short numbers are one C++ type; the names of the arguments tell them apart.
ArgumentType Expected(ArgumentType header, const std::string& name) {
  if (header.type == VT_I2 && IsBooleanName(name)) header.type = VT_BOOL;
  return header;
}

void ExpectSameSlot(const FunctionDescription& function, const Slot& slot) {
  EXPECT_EQ(function.name, Plain(slot.name));
  EXPECT_EQ(function.id, slot.id);
  EXPECT_EQ(function.kind, slot.kind);
  EXPECT_EQ(function.vtable_offset, slot.vtable_offset);
  EXPECT_FALSE(function.help.empty());
  ASSERT_EQ(function.parameters.size(), slot.arguments.size());
  for (std::size_t i = 0; i != slot.arguments.size(); ++i) {
    const Parameter& parameter = function.parameters[i];
    EXPECT_EQ(parameter.type, Expected(slot.arguments[i], parameter.name))
        << parameter.name << ": " << Describe(parameter.type) << " and " << Describe(slot.arguments[i]);
  }
}

// The result is the last argument, and the only one marked so.
void ExpectResultLast(const FunctionDescription& function) {
  for (std::size_t i = 0; i != function.parameters.size(); ++i) {
    const bool is_result = (function.parameters[i].flags & PARAMFLAG_FRETVAL) != 0;
    const bool can_be = i + 1 == function.parameters.size() && function.parameters[i].name.starts_with("p");
    EXPECT_TRUE(!is_result || can_be) << function.parameters[i].name;
    EXPECT_NE(function.parameters[i].flags & kDirection, 0) << function.parameters[i].name;
  }
}

TEST_F(TypeLibrary, IsTheOneThatTheClassesName) {
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(library_->GetLibAttr(&attributes), S_OK);
  const TLIBATTR found = *attributes;
  library_->ReleaseTLibAttr(attributes);
  EXPECT_EQ(found.guid, LibraryId());
  EXPECT_EQ(found.wMajorVerNum, 1);
  EXPECT_EQ(found.wMinorVerNum, 0);
  EXPECT_EQ(found.syskind, sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32);

  Bstr name;
  Bstr help;
  ASSERT_EQ(library_->GetDocumentation(-1, name.Out(), help.Out(), nullptr, nullptr), S_OK);
  EXPECT_EQ(Plain(name.View()), "HALYARDLib");
  EXPECT_EQ(Plain(help.View()), "Halyard 1.0 Type Library");
}

TEST_F(TypeLibrary, HasTheSlotsOfTheHeaders) {
  for (const InterfaceSlots& header : HeaderInterfaces()) {
    SCOPED_TRACE(Plain(header.name));
    const Ptr<ITypeInfo> dispatch = DispatchHalf(library_, header.iid);
    const Ptr<ITypeInfo> vtable = VtableHalf(dispatch);
    EXPECT_EQ(DocumentationOf(vtable).name, Plain(header.name));
    EXPECT_EQ(FactsOf(vtable).guid, header.iid);
    EXPECT_EQ(FactsOf(Implemented(vtable, 0)).guid, header.base);
    EXPECT_NE(FactsOf(dispatch).flags & TYPEFLAG_FDUAL, 0);

    const std::vector<FunctionDescription> functions = Functions(vtable);
    ASSERT_EQ(functions.size(), header.slots.size());
    for (std::size_t i = 0; i != functions.size(); ++i) {
      SCOPED_TRACE(functions[i].name);
      ExpectSameSlot(functions[i], header.slots[i]);
      ExpectResultLast(functions[i]);
    }
  }
}

TEST_F(TypeLibrary, LeavesNoSlotOut) {
  constexpr std::size_t kDispatchSlots = 7;
  for (const InterfaceSlots& header : HeaderInterfaces()) {
    SCOPED_TRACE(Plain(header.name));
    const std::vector<FunctionDescription> functions =
        AllFunctions(VtableHalf(DispatchHalf(library_, header.iid)));
    for (std::size_t i = 0; i != functions.size(); ++i) {
      EXPECT_EQ(functions[i].vtable_offset, (kDispatchSlots + i) * sizeof(void*)) << functions[i].name;
    }
  }
}

TEST_F(TypeLibrary, HasOneOptionalArgument) {
  std::size_t optional = 0;
  for (const InterfaceSlots& header : HeaderInterfaces()) {
    for (const FunctionDescription& function : Functions(VtableHalf(DispatchHalf(library_, header.iid)))) {
      for (const Parameter& parameter : function.parameters) {
        if ((parameter.flags & PARAMFLAG_FOPT) == 0) continue;
        ++optional;
        EXPECT_EQ(function.name, "OpenForRead");
        EXPECT_EQ(parameter.name, "bCreateNewSession");
        EXPECT_EQ(parameter.default_value, "BOOL -1");
      }
    }
  }
  EXPECT_EQ(optional, 1u);
}

TEST_F(TypeLibrary, HasTheClassesWithTheirDefaultInterfaces) {
  for (const ClassRowExpected& row : kExpectedClasses) {
    SCOPED_TRACE(Plain(row.name));
    const Ptr<ITypeInfo> info = DispatchHalf(library_, ClassId(row));
    EXPECT_EQ(FactsOf(info).kind, TKIND_COCLASS);
    EXPECT_NE(FactsOf(info).flags & TYPEFLAG_FCANCREATE, 0);
    EXPECT_EQ(DocumentationOf(info).name, Plain(row.name));
    EXPECT_EQ(DocumentationOf(info).help, Plain(row.name) + " Class");
    int flags = 0;
    ASSERT_EQ(info->GetImplTypeFlags(0, &flags), S_OK);
    EXPECT_EQ(flags & (IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE), IMPLTYPEFLAG_FDEFAULT);
    EXPECT_EQ(FactsOf(Implemented(info, 0)).guid, row.default_interface);
  }
}

// A slot that no header declares.
struct DeclaredSlot {
  const char* name;
  INVOKEKIND kind;
  DISPID id;
  std::vector<ArgumentType> arguments;
};

constexpr IID kItemDefinition = {
    0x3A109DDD, 0x72D5, 0x4204, {0xAF, 0x14, 0xBF, 0x40, 0xCF, 0xA2, 0xFF, 0x7C}};

std::vector<DeclaredSlot> ItemDefinitionSlots() {
  constexpr INVOKEKIND kGet = INVOKE_PROPERTYGET;
  constexpr INVOKEKIND kPut = INVOKE_PROPERTYPUT;
  constexpr INVOKEKIND kMethod = INVOKE_FUNC;
  const ArgumentType index{VT_VARIANT};
  const ArgumentType item{VT_USERDEFINED, 1, kItemDefinition};
  const ArgumentType item_result{VT_USERDEFINED, 2, kItemDefinition};
  std::vector<DeclaredSlot> slots;
  const auto property = [&](const char* name, DISPID id, VARTYPE type) {
    slots.push_back({name, kGet, id, {{type, 1}}});
    slots.push_back({name, kPut, id, {{type}}});
  };
  property("Type", 1, VT_BSTR);
  property("Name", 2, VT_BSTR);
  property("Description", 3, VT_BSTR);
  property("Count", 4, VT_I4);
  property("SourceLine", 5, VT_I4);
  property("MinVer", 6, VT_R8);
  property("MaxVer", 7, VT_R8);
  slots.push_back({"Members", kGet, 8, {index, item_result}});
  slots.push_back({"Members", kPut, 8, {index, item}});
  slots.push_back({"InsertMember", kMethod, 9, {index, item}});
  slots.push_back({"Remove", kMethod, 10, {index}});
  slots.push_back({"RemoveAll", kMethod, 11, {}});
  slots.push_back({"IsStructureDefinition", kGet, 12, {{VT_BOOL, 1}}});
  slots.push_back({"IsMemberDeclaration", kGet, 13, {{VT_BOOL, 1}}});
  return slots;
}

struct DeclaredOnlyClass {
  const OLECHAR* clsid;
  const char* name;
  const char* interface_name;
  std::vector<DeclaredSlot> slots;
};

void ExpectDeclaredSlots(const std::vector<FunctionDescription>& functions,
                         const std::vector<DeclaredSlot>& slots) {
  ASSERT_EQ(functions.size(), slots.size());
  for (std::size_t i = 0; i != slots.size(); ++i) {
    SCOPED_TRACE(slots[i].name);
    EXPECT_EQ(functions[i].name, slots[i].name);
    EXPECT_EQ(functions[i].kind, slots[i].kind);
    EXPECT_EQ(functions[i].id, slots[i].id);
    std::vector<ArgumentType> arguments;
    for (const Parameter& parameter : functions[i].parameters) arguments.push_back(parameter.type);
    EXPECT_EQ(arguments, slots[i].arguments);
    ExpectResultLast(functions[i]);
  }
}

TEST_F(TypeLibrary, DeclaresTwoClassesWithoutAnImplementation) {
  const DeclaredOnlyClass classes[] = {
      {L"{165A2855-5FDA-4B1E-909C-C54CFFB9CAD6}", "ItemDefVD", "IItemDefVD", ItemDefinitionSlots()},
      {L"{5BFAC742-AC9E-4811-8C23-13F17FCB39FC}", "SessionVD", "ISessionVD", {}}};
  for (const DeclaredOnlyClass& expected : classes) {
    SCOPED_TRACE(expected.name);
    const Ptr<ITypeInfo> info = DispatchHalf(library_, GuidOf(expected.clsid));
    EXPECT_EQ(DocumentationOf(info).name, expected.name);
    EXPECT_EQ(FactsOf(info).flags & TYPEFLAG_FCANCREATE, 0);
    const Ptr<ITypeInfo> main = Implemented(info, 0);
    EXPECT_EQ(DocumentationOf(main).name, expected.interface_name);
    ExpectDeclaredSlots(Functions(VtableHalf(main)), expected.slots);
  }
}

TEST_F(TypeLibrary, CallsTheAppendingOfAnElementAddElement) {
  const Ptr<ITypeInfo> info = VtableHalf(DispatchHalf(library_, IidOf<IEnumerationDef>));
  std::string help;
  for (const FunctionDescription& function : Functions(info)) {
    if (function.name == "AddMember") help = function.help;
  }
  EXPECT_EQ(help, "AddElement");
}

TEST_F(TypeLibrary, HelpsWithEverything) {
  std::size_t interfaces = 0;
  std::size_t classes = 0;
  for (UINT i = 0; i != library_->GetTypeInfoCount(); ++i) {
    Ptr<ITypeInfo> info;
    ASSERT_EQ(library_->GetTypeInfo(i, info.Out()), S_OK);
    EXPECT_FALSE(DocumentationOf(info).help.empty()) << DocumentationOf(info).name;
    (FactsOf(info).kind == TKIND_COCLASS ? classes : interfaces) += 1;
  }
  EXPECT_EQ(classes, kExpectedClasses.size() + kDeclaredOnlyClasses);
  EXPECT_EQ(interfaces, HeaderInterfaces().size() + kDeclaredOnlyInterfaces);
}

}  // namespace
}  // namespace halyard::test
