#include "halyard/stream/orm_session.h"

#include <gtest/gtest.h>

#include "tests/support/definitions.h"
#include "tests/support/encoding.h"
#include "tests/support/foreign_definition.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

Ptr<IOrmSession> NewSession() { return CreateObject<IOrmSession>(kOrmSessionClass); }

Ptr<IStructureDef> Named(const OLECHAR* name, SHORT id) {
  return StructureDefinition({{OLESTR("a"), kLong}}, id, name);
}

Ptr<ForeignDefinition> ForeignOf(SHORT type, SHORT id, const OLECHAR* name = OLESTR("")) {
  const auto foreign = NewForeign<ForeignDefinition>();
  foreign->type.value = type;
  foreign->id.value = id;
  foreign->name = name;
  return foreign;
}

VARIANT_BOOL Add(const Ptr<IOrmSession>& session, IValueDefBase* definition) {
  return Result<VARIANT_BOOL>([&](VARIANT_BOOL* out) { return session->AddType(definition, out); });
}

Ptr<IValueDefBase> Find(const Ptr<IOrmSession>& session, const Variant& type, SHORT id) {
  return Result<IValueDefBase*>(
      [&](IValueDefBase** out) { return session->GetTypeFromId(type.get(), id, out); });
}

Ptr<IStructureDef> FindByName(const Ptr<IOrmSession>& session, const OLECHAR* name) {
  return Get(session, &IOrmSession::GetStructureByName, Bstr(name).get());
}

TEST(OrmSession, NewSessionFindsNothing) {
  const auto session = NewSession();
  EXPECT_FALSE(Find(session, I4(14), 1));
  EXPECT_FALSE(FindByName(session, OLESTR("")));
}

TEST(OrmSession, FindsADefinitionByTypeAndId) {
  const auto session = NewSession();
  const auto definition = Named(OLESTR("S"), 3);
  EXPECT_EQ(Add(session, definition.get()), VARIANT_TRUE);
  for (const Variant& type : {I4(14), I2(14), Ui1(14), R8(14.0), Text(OLESTR("Structure")),
                              Text(OLESTR("structure")), Text(OLESTR("STRUCTURE"))}) {
    EXPECT_TRUE(SameObject(Find(session, type, 3).get(), definition.get())) << Describe(type);
    EXPECT_FALSE(Find(session, type, 4)) << Describe(type);
  }
  EXPECT_FALSE(Find(session, I4(15), 3));
}

TEST(OrmSession, TypeNameIgnoresLetterCase) {
  const auto session = NewSession();
  const auto definition = Named(OLESTR("S"), 3);
  Add(session, definition.get());
  EXPECT_TRUE(SameObject(Find(session, Text(OLESTR("structure")), 3).get(), definition.get()));
}

TEST(OrmSession, UnknownNamesAndCodeZeroFindNothing) {
  const auto session = NewSession();
  Add(session, ForeignOf(0, 3).get());
  for (const Variant& type :
       {Text(OLESTR("Unknown")), Text(OLESTR("Invalid")), Text(OLESTR("")), I4(0), I2(0), Variant()}) {
    EXPECT_FALSE(Find(session, type, 3)) << Describe(type);
  }
}

TEST(OrmSession, DigitsInATypeNameAreNoCode) {
  const auto session = NewSession();
  Add(session, Named(OLESTR("S"), 3).get());
  EXPECT_FALSE(Find(session, Text(OLESTR("14")), 3));
}

TEST(OrmSession, TypeTextByReferenceIsConverted) {
  const auto session = NewSession();
  Add(session, Named(OLESTR("S"), 3).get());
  Bstr digits(OLESTR("14"));
  Bstr name(OLESTR("Structure"));
  BSTR text = digits.get();
  EXPECT_TRUE(Find(session, ByReference(&text), 3));
  text = name.get();
  Ptr<IValueDefBase> found;
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH,
                     [&] { return session->GetTypeFromId(ByReference(&text).get(), 3, found.Out()); }));
}

TEST(OrmSession, TypeThatDoesNotConvertIsRaised) {
  const auto session = NewSession();
  Ptr<IValueDefBase> found;
  EXPECT_TRUE(
      Raises(DISP_E_OVERFLOW, [&] { return session->GetTypeFromId(I4(70000).get(), 3, found.Out()); }));
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH,
                     [&] { return session->GetTypeFromId(Variant::Null().get(), 3, found.Out()); }));
}

TEST(OrmSession, DefinitionWithoutAnIdIsRefused) {
  const auto session = NewSession();
  EXPECT_EQ(Add(session, Named(OLESTR("S"), 0).get()), VARIANT_FALSE);
  EXPECT_EQ(Add(session, SimpleDefinition(kLong).get()), VARIANT_FALSE);
  EXPECT_FALSE(Find(session, I4(14), 0));
  EXPECT_FALSE(FindByName(session, OLESTR("S")));
}

TEST(OrmSession, NullIsRefused) { EXPECT_EQ(Add(NewSession(), nullptr), VARIANT_FALSE); }

TEST(OrmSession, SomethingElseThanADefinitionIsRefused) {
  const auto foreign = ForeignOf(14, 3);
  foreign->query_status = E_NOINTERFACE;
  EXPECT_EQ(Add(NewSession(), foreign.get()), VARIANT_FALSE);
}

TEST(OrmSession, FailedQueryIsRaised) {
  const auto session = NewSession();
  const auto foreign = ForeignOf(14, 3);
  foreign->query_status = E_ABORT;
  VARIANT_BOOL result = VARIANT_FALSE;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return session->AddType(foreign.get(), &result); }));
}

TEST(OrmSession, DefinitionsOfAnyKindAndSignAreKept) {
  const auto session = NewSession();
  const auto simple = ForeignOf(8, 3);
  const auto negative = ForeignOf(14, -3);
  const auto strange = ForeignOf(99, 3);
  for (const auto& definition : {simple, negative, strange})
    EXPECT_EQ(Add(session, definition.get()), VARIANT_TRUE);
  EXPECT_TRUE(SameObject(Find(session, I4(8), 3).get(), simple.get()));
  EXPECT_TRUE(SameObject(Find(session, I4(14), -3).get(), negative.get()));
  EXPECT_TRUE(SameObject(Find(session, I4(99), 3).get(), strange.get()));
}

TEST(OrmSession, SameIdWithAnotherTypeLivesBeside) {
  const auto session = NewSession();
  const auto structure = Named(OLESTR("S"), 3);
  const auto enumeration = ForeignOf(17, 3);
  Add(session, structure.get());
  Add(session, enumeration.get());
  EXPECT_TRUE(SameObject(Find(session, I4(14), 3).get(), structure.get()));
  EXPECT_TRUE(SameObject(Find(session, I4(17), 3).get(), enumeration.get()));
}

TEST(OrmSession, SameTypeAndIdIsReplacedInItsPlace) {
  const auto session = NewSession();
  const auto first = Named(OLESTR("S"), 1);
  const auto second = Named(OLESTR("S"), 2);
  const auto replacement = Named(OLESTR("S"), 1);
  for (const auto& definition : {first, second, replacement})
    EXPECT_EQ(Add(session, definition.get()), VARIANT_TRUE);
  EXPECT_TRUE(SameObject(Find(session, I4(14), 1).get(), replacement.get()));
  EXPECT_TRUE(SameObject(FindByName(session, OLESTR("S")).get(), replacement.get()));
  EXPECT_TRUE(SameObject(Find(session, I4(14), 2).get(), second.get()));
}

TEST(OrmSession, KeysAreReadAtEachLookUp) {
  const auto session = NewSession();
  const auto definition = Named(OLESTR("old"), 3);
  Add(session, definition.get());
  EXPECT_EQ(definition->put_Id(4), S_OK);
  EXPECT_EQ(definition->put_Name(Bstr(OLESTR("new")).get()), S_OK);
  EXPECT_FALSE(Find(session, I4(14), 3));
  EXPECT_TRUE(Find(session, I4(14), 4));
  EXPECT_FALSE(FindByName(session, OLESTR("old")));
  EXPECT_TRUE(FindByName(session, OLESTR("new")));
  const auto retyped = ForeignOf(17, 5);
  Add(session, retyped.get());
  retyped->type.value = 15;
  EXPECT_FALSE(Find(session, I4(17), 5));
  EXPECT_TRUE(Find(session, I4(15), 5));
}

TEST(OrmSession, FirstOfTwoEqualKeysWins) {
  const auto session = NewSession();
  const auto first = Named(OLESTR("A"), 1);
  const auto second = Named(OLESTR("B"), 2);
  Add(session, first.get());
  Add(session, second.get());
  EXPECT_EQ(second->put_Id(1), S_OK);
  EXPECT_TRUE(SameObject(Find(session, I4(14), 1).get(), first.get()));
}

TEST(OrmSession, KeyThatArrivesInABufferIsSeen) {
  const auto session = NewSession();
  const auto definition = Named(OLESTR("A"), 1);
  Add(session, definition.get());
  EXPECT_TRUE(Find(session, I4(14), 1));
  EXPECT_EQ(ReadFrom(definition, Encoded(Named(OLESTR("B"), 9))).status, S_OK);
  EXPECT_FALSE(Find(session, I4(14), 1));
  EXPECT_TRUE(SameObject(Find(session, I4(14), 9).get(), definition.get()));
}

TEST(OrmSession, EverySessionOfADefinitionSeesItsKeyChange) {
  const auto definition = Named(OLESTR("A"), 1);
  const auto session = NewSession();
  const auto other = NewSession();
  Add(session, definition.get());
  Add(other, definition.get());
  EXPECT_EQ(definition->put_Id(0), S_OK);
  EXPECT_TRUE(Find(session, I4(14), 0));
  EXPECT_EQ(definition->put_Id(2), S_OK);
  for (const auto& each : {session, other}) {
    EXPECT_FALSE(Find(each, I4(14), 1));
    EXPECT_FALSE(Find(each, I4(14), 0));
    EXPECT_TRUE(Find(each, I4(14), 2));
  }
}

TEST(OrmSession, ForeignAndOwnDefinitionsAreSearchedInTheirOrder) {
  const auto session = NewSession();
  const auto first = Named(OLESTR("A"), 1);
  const auto foreign = ForeignOf(14, 2);
  const auto last = Named(OLESTR("C"), 3);
  Add(session, first.get());
  EXPECT_TRUE(Find(session, I4(14), 1));
  Add(session, foreign.get());
  Add(session, last.get());
  EXPECT_TRUE(SameObject(Find(session, I4(14), 2).get(), foreign.get()));
  EXPECT_TRUE(SameObject(Find(session, I4(14), 3).get(), last.get()));
  foreign->id.value = 3;
  EXPECT_TRUE(SameObject(Find(session, I4(14), 3).get(), foreign.get()));
  EXPECT_EQ(first->put_Id(3), S_OK);
  EXPECT_TRUE(SameObject(Find(session, I4(14), 3).get(), first.get()));
}

TEST(OrmSession, StructureIsFoundByItsNameInAnyCase) {
  const auto session = NewSession();
  const auto definition = Named(OLESTR("Point"), 3);
  Add(session, definition.get());
  for (const OLECHAR* name : {OLESTR("Point"), OLESTR("point"), OLESTR("POINT")}) {
    EXPECT_TRUE(SameObject(FindByName(session, name).get(), definition.get()));
  }
  for (const OLECHAR* name : {OLESTR("Poin"), OLESTR("Points"), OLESTR(""), OLESTR("Point ")}) {
    EXPECT_FALSE(FindByName(session, name));
  }
}

TEST(OrmSession, NameOfAnotherKindIsPassedOver) {
  const auto session = NewSession();
  const auto structure = Named(OLESTR("Colour"), 4);
  Add(session, ForeignOf(17, 3, OLESTR("Colour")).get());
  Add(session, structure.get());
  EXPECT_TRUE(SameObject(FindByName(session, OLESTR("colour")).get(), structure.get()));
}

TEST(OrmSession, StructureWithoutItsInterfaceIsNotFoundByName) {
  const auto session = NewSession();
  Add(session, ForeignOf(14, 3, OLESTR("S")).get());
  Add(session, Named(OLESTR("S"), 4).get());
  EXPECT_FALSE(FindByName(session, OLESTR("S")));
}

TEST(OrmSession, FailuresOfADefinitionAreRaised) {
  const auto session = NewSession();
  const auto foreign = ForeignOf(14, 3, OLESTR("S"));
  Add(session, foreign.get());
  Ptr<IValueDefBase> found;
  Ptr<IStructureDef> structure;
  VARIANT_BOOL result = VARIANT_FALSE;
  const auto other = Named(OLESTR("T"), 3);
  const auto by_id = [&] { return session->GetTypeFromId(I4(14).get(), 3, found.Out()); };
  const auto by_name = [&] { return session->GetStructureByName(Bstr(OLESTR("S")).get(), structure.Out()); };
  const auto add = [&] { return session->AddType(other.get(), &result); };

  foreign->id.status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, by_id));
  EXPECT_TRUE(Raises(E_ABORT, add));
  EXPECT_TRUE(Raises(E_ABORT, [&] { return session->AddType(foreign.get(), &result); }));
  foreign->id.status = S_OK;
  foreign->type.status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, by_id));
  EXPECT_TRUE(Raises(E_ABORT, by_name));
  EXPECT_TRUE(Raises(E_ABORT, add));
  foreign->type.status = S_OK;
  foreign->name_status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, by_name));
}

TEST(OrmSession, TypeIsReadOnlyWhereTheIdMatches) {
  const auto session = NewSession();
  const auto foreign = ForeignOf(14, 3, OLESTR("S"));
  Add(session, foreign.get());
  foreign->type.status = E_ABORT;
  EXPECT_FALSE(Find(session, I4(14), 4));
  EXPECT_FALSE(FindByName(session, OLESTR("T")));
}

TEST(OrmSession, FailedQueryOfTheFoundDefinitionIsTheStatus) {
  const auto session = NewSession();
  const auto foreign = ForeignOf(14, 3);
  Add(session, foreign.get());
  foreign->query_status = E_ABORT;
  IValueDefBase* found = nullptr;
  EXPECT_EQ(session->GetTypeFromId(I4(14).get(), 3, &found), E_ABORT);
  EXPECT_EQ(found, nullptr);
}

TEST(OrmSession, ReplacedDefinitionsAreReleased) {
  const auto session = NewSession();
  auto foreign = ForeignOf(14, 3);
  const auto life = foreign->Life();
  Add(session, foreign.get());
  foreign.Reset();
  EXPECT_FALSE(life.expired());
  Add(session, Named(OLESTR("S"), 3).get());
  EXPECT_TRUE(life.expired());
}

// A definition that notes its id when it ends.
class MortalDefinition : public ForeignDefinition {
 public:
  explicit MortalDefinition(std::vector<SHORT>* ended) : ended_(ended) { type.value = kStructure; }
  ~MortalDefinition() override { ended_->push_back(id.value); }

 private:
  std::vector<SHORT>* ended_;
};

TEST(OrmSession, DefinitionsAreReleasedWithTheSessionInTheirOrder) {
  auto session = NewSession();
  std::vector<SHORT> ended;
  for (const SHORT id : {SHORT{2}, SHORT{7}, SHORT{1}, SHORT{4}}) {
    const Ptr<MortalDefinition> definition(new MortalDefinition(&ended));
    definition->id.value = id;
    EXPECT_EQ(Add(session, definition.get()), VARIANT_TRUE);
  }
  EXPECT_TRUE(ended.empty());
  session.Reset();
  EXPECT_EQ(ended, (std::vector<SHORT>{2, 7, 1, 4}));
}

TEST(OrmSession, NullOutPointersAreRejected) {
  const auto session = NewSession();
  EXPECT_EQ(session->GetTypeFromId(I4(14).get(), 3, nullptr), E_POINTER);
  EXPECT_EQ(session->AddType(Named(OLESTR("S"), 3).get(), nullptr), E_POINTER);
  EXPECT_EQ(session->GetStructureByName(Bstr(OLESTR("S")).get(), nullptr), E_POINTER);
}

}  // namespace
}  // namespace halyard::test
