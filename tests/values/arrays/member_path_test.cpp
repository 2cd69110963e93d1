// The parser of member paths, seen from inside: the ways that it finds and its messages.
#include "values/arrays/member_path.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "halyard/classes.h"
#include "halyard/definitions/simple_value_def.h"
#include "halyard/definitions/structure_def.h"
#include "halyard/object/bstr.h"
#include "halyard/types/type_codes.h"
#include "object/class_table.h"
#include "values/arrays/path_text.h"

namespace halyard {
namespace {

Ptr<IArrayDef> ArrayOf(const Ptr<IValueDefBase>& element, LONG count = 0) {
  Ptr<IArrayDef> definition = ConstructAs<IArrayDef>(kArrayInfoClass);
  Check(definition->put_ValueType(element.get()));
  Check(definition->put_ElementCount(count));
  return definition;
}

Ptr<IArrayDef> ArrayOfSimple(SHORT type, LONG count = 0) {
  const Ptr<ISimpleValueDef> element = ConstructAs<ISimpleValueDef>(kSimpleValueInfoClass);
  Check(element->put_Type(type));
  return ArrayOf(element, count);
}

void AddMember(const Ptr<IStructureDef>& structure, const OLECHAR* name,
               const Ptr<IValueDefBase>& definition) {
  VARIANT_BOOL added = VARIANT_FALSE;
  Check(structure->AddMember(Bstr(name).get(), definition.get(), &added));
}

// {a Byte, b Real, names[] String, samples[4] Short, self: this structure again}
Ptr<IStructureDef> Record() {
  Ptr<IStructureDef> record = ConstructAs<IStructureDef>(kStructureInfoClass);
  VARIANT_BOOL added = VARIANT_FALSE;
  Check(record->AddSimpleMember(Bstr(OLESTR("a")).get(), kByte, &added));
  Check(record->AddSimpleMember(Bstr(OLESTR("b")).get(), kReal, &added));
  AddMember(record, OLESTR("names"), ArrayOfSimple(kString));
  AddMember(record, OLESTR("samples"), ArrayOfSimple(kShort, 4));
  AddMember(record, OLESTR("self"), record);
  return record;
}

// The structure holds itself; without this it would never end.
struct RecordArray {
  explicit RecordArray(LONG count = 0) : record(Record()), definition(ArrayOf(record, count)) {}
  ~RecordArray() { record->RemoveAll(); }

  Ptr<IStructureDef> record;
  Ptr<IArrayDef> definition;
};

// The short way must come to the same, or know nothing.
void ExpectSameByTheShortWay(const std::string& path, const Ptr<IArrayDef>& definition,
                             const MemberPath& parsed) {
  Ptr<IValueDefBase> element;
  Check(definition->get_ValueType(element.Out()));
  const auto plain = FindPlainMember(WideString(path.begin(), path.end()), element);
  if (!plain) return;
  ASSERT_EQ(plain->members.size(), 1u) << path;
  ASSERT_EQ(parsed.members.size(), 1u) << path;
  ASSERT_EQ(plain->members.front().steps.size(), 1u) << path;
  EXPECT_EQ(plain->members.front().steps.front().position, parsed.members.front().steps.front().position);
  EXPECT_EQ(plain->members.front().type, parsed.members.front().type);
  EXPECT_EQ(plain->fault, parsed.fault);
}

// The selected members as text: their steps, ".2" a member and "[3]" an element, and
// behind a colon the type at the end; a fault as its message.
std::string Parsed(const std::string& path, const Ptr<IArrayDef>& definition) {
  const MemberPath parsed = ParseMemberPath(path, *definition);
  EXPECT_EQ(parsed.members.empty(), !parsed.fault.empty()) << path;
  ExpectSameByTheShortWay(path, definition, parsed);
  if (!parsed.fault.empty()) return parsed.fault;
  std::string text;
  for (const SelectedMember& member : parsed.members) {
    if (!text.empty()) text += " ";
    for (const PathStep& step : member.steps) {
      const std::string position = std::to_string(step.position);
      text += step.kind == PathStep::Kind::kMember ? "." + position : "[" + position + "]";
    }
    text += ":" + std::to_string(member.type);
  }
  return text;
}

std::string InRecord(const std::string& path, LONG count = 0) {
  const RecordArray array(count);
  return Parsed(path, array.definition);
}

// The code that parsing raises; S_OK for none.
HRESULT RaisedBy(const std::string& path, const Ptr<IArrayDef>& definition) {
  try {
    static_cast<void>(ParseMemberPath(path, *definition));
    return S_OK;
  } catch (const Error& error) {
    return error.code();
  }
}

TEST(MemberPath, EmptyPathIsTheElement) {
  EXPECT_EQ(Parsed("", ArrayOfSimple(kShort)), ":6");
  EXPECT_EQ(InRecord(""), ":14");
}

TEST(MemberPath, NamesAndIndicesAreSteps) {
  EXPECT_EQ(InRecord("a"), ".0:5");
  EXPECT_EQ(InRecord(".B"), ".1:12");
  EXPECT_EQ(InRecord("samples[3]"), ".3[3]:6");
  EXPECT_EQ(InRecord("self.self.samples[0]"), ".4.4.3[0]:6");
}

TEST(MemberPath, FurtherNumbersOfAnIndexAreOnlyChecked) {
  EXPECT_EQ(InRecord("samples[1,2]"), ".3[1]:6");
  EXPECT_EQ(InRecord("samples[1,x]"), ".3[1]:6");
  EXPECT_EQ(InRecord("samples[1,4]"), "Invalid array index");
}

TEST(MemberPath, ListBehindANameAddsMembersOfTheSameStructure) {
  EXPECT_EQ(InRecord("a[b]"), ".0:5 .1:12");
  EXPECT_EQ(InRecord("b[a,a]"), ".1:12 .0:5 .0:5");
  EXPECT_EQ(InRecord("self.a[b]"), ".4.0:5 .4.1:12");
}

TEST(MemberPath, ListWithoutANameSelectsMembersOfTheStructureThere) {
  EXPECT_EQ(InRecord("[a,b]"), ".0:5 .1:12");
  EXPECT_EQ(InRecord("[2][a,b]"), ".0:5 .1:12");
  const RecordArray array;
  EXPECT_EQ(Parsed("[1][a,b]", ArrayOf(array.definition)), "[1].0:5 [1].1:12");
  EXPECT_EQ(Parsed("[a]", ArrayOfSimple(kShort)), "Invalid structure");
}

TEST(MemberPath, StepsBehindAListApplyToEachOfItsMembers) {
  EXPECT_EQ(InRecord("self[self].a"), ".4.0:5 .4.0:5");
  EXPECT_EQ(InRecord("samples[samples][2]"), ".3[2]:6 .3[2]:6");
  EXPECT_EQ(InRecord("self[a].a"), "Invalid structure");
}

TEST(MemberPath, ListsThatMultiplyEndSomewhere) {
  std::string path = "a";
  for (int i = 0; i < 9; ++i) path = "self[self]." + path;
  EXPECT_EQ(std::count(path.begin(), path.end(), '['), 9);
  const RecordArray array;
  EXPECT_EQ(ParseMemberPath(path, *array.definition).members.size(), 512u);
  path = "self[self]." + path;
  EXPECT_EQ(Parsed(path, array.definition), "Invalid index");
  for (int i = 0; i < 30; ++i) path = "self[self]." + path;
  EXPECT_EQ(Parsed(path, array.definition), "Invalid index");
}

TEST(MemberPath, IndexOfTheArrayItselfIsNoStep) {
  EXPECT_EQ(InRecord("[3].a"), ".0:5");
  EXPECT_EQ(Parsed("[3]", ArrayOfSimple(kLong)), ":8");
  EXPECT_EQ(Parsed("[1][3]", ArrayOf(ArrayOfSimple(kLong))), "[3]:8");
}

TEST(MemberPath, IndexOfTheArrayItselfMayBeLeftOut) {
  const auto cube = ArrayOf(ArrayOf(ArrayOfSimple(kLong, 4), 3), 2);
  EXPECT_EQ(Parsed("[2][3]", cube), "[2][3]:8");
  EXPECT_EQ(Parsed("[1][2][3]", cube), "[2][3]:8");
  EXPECT_EQ(Parsed("[2][2][3]", cube), "Invalid array index");
  EXPECT_EQ(Parsed("[1][2][3][0]", cube), "Invalild array (type Long)");
  EXPECT_EQ(Parsed("[2]", cube), "[2]:15");
}

TEST(MemberPath, ArrayThatHoldsItselfIsParsed) {
  const auto array = ArrayOf(nullptr);
  EXPECT_EQ(array->put_ValueType(array.get()), S_OK);
  EXPECT_EQ(Parsed("[1][2]", array), "[1][2]:15");
  EXPECT_EQ(array->put_ValueType(nullptr), S_OK);
}

TEST(MemberPath, EachFaultHasItsMessage) {
  EXPECT_EQ(Parsed("a", ArrayOfSimple(kString)), "Cannot iterate over string array");
  EXPECT_EQ(InRecord("[2].a", 2), "Invalid array index");
  EXPECT_EQ(InRecord("samples[-1]"), "Invalid array index");
  EXPECT_EQ(InRecord("samples[]"), "Invalid array index");
  EXPECT_EQ(InRecord("a.b"), "Invalid structure");
  EXPECT_EQ(InRecord("c"), "Invalid index");
  EXPECT_EQ(InRecord("c[d]"), "Invalid structure member:d");
  EXPECT_EQ(InRecord("b[0]"), "Invalild array b(type Real)");
  EXPECT_EQ(InRecord("names[0]"), "Can't iterate over strings");
  EXPECT_EQ(PathFaultText(PathFault::kIndexOutOfRange, "", ""), "Index out of range");
}

TEST(MemberPath, IndexBehindAListBlamesTheListedMember) {
  EXPECT_EQ(InRecord("samples[a][0]"), "Invalild array a(type Byte)");
  EXPECT_EQ(InRecord("samples[samples,b][0]"), "Invalild array b(type Real)");
  EXPECT_EQ(InRecord("[0][samples,B][0]"), "Invalild array b(type Real)");
  EXPECT_EQ(InRecord("SELF[A][0]"), "Invalild array self(type Structure)");
}

TEST(MemberPath, PlacesOfAMessageInsideANameStayAsTheyAre) {
  EXPECT_EQ(PathFaultText(PathFault::kNoArray, "%s", "Long"), "Invalild array %s(type Long)");
}

TEST(MemberPath, MissingDefinitionOnTheWayIsRaised) {
  EXPECT_EQ(RaisedBy("", ArrayOf(nullptr)), E_POINTER);
  EXPECT_EQ(RaisedBy("[0]", ArrayOf(ArrayOf(nullptr))), E_POINTER);
}

TEST(MemberPath, PathOfFiveHundredTenCharactersIsTheLongest) {
  EXPECT_TRUE(CutMemberPath(std::string(510, 'n')));
  EXPECT_FALSE(CutMemberPath(std::string(511, 'n')));
  EXPECT_TRUE(CutMemberPath("." + std::string(510, 'n')));
  EXPECT_FALSE(CutMemberPath("[" + std::string(511, '1')));
}

TEST(MemberPath, NumbersInBracketsEndAtTheEndsOfTheirRange) {
  const auto parts = CutMemberPath("[ 7,-3,+2,99999999999999999999,-99999999999999999999,4x,y]");
  ASSERT_TRUE(parts);
  ASSERT_EQ(parts->size(), 1u);
  EXPECT_EQ(parts->front().indices, (std::vector<LONG>{7, -3, 2, 2147483647, -2147483647 - 1, 4, 0}));
}

TEST(FindPlainMember, KnowsNamesOfMembersOnly) {
  const RecordArray array;
  Ptr<IValueDefBase> element;
  Check(array.definition->get_ValueType(element.Out()));
  for (const OLECHAR* path : {OLESTR("b"), OLESTR("B"), OLESTR("names"), OLESTR("self")})
    EXPECT_TRUE(FindPlainMember(path, element));
  for (const OLECHAR* path : {OLESTR(""), OLESTR("c"), OLESTR(".b"), OLESTR("b."), OLESTR("self.b"),
                              OLESTR("samples[1]"), OLESTR("[0]"), OLESTR(" b"), OLESTR("\u00E9")})
    EXPECT_FALSE(FindPlainMember(path, element));
  EXPECT_FALSE(FindPlainMember(OLESTR("b"), nullptr));
  EXPECT_FALSE(FindPlainMember(OLESTR("b"), array.definition));
}

}  // namespace
}  // namespace halyard
