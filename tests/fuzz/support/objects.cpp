#include "tests/fuzz/support/objects.h"

#include <iterator>

namespace halyard::fuzz {
namespace {

constexpr const CLSID* kClasses[] = {&kSimpleValueInfoClass, &kEnumerationInfoClass, &kStructureInfoClass,
                                     &kArrayInfoClass};

constexpr SHORT kSampleId = 1;
constexpr SHORT kTrackId = 2;
constexpr SHORT kDepthsId = 3;
constexpr SHORT kNotesId = 4;
constexpr SHORT kColourId = 5;

Ptr<IValueDefBase> Simple(SHORT type) {
  const auto definition = CreateObject<IValueDefBase>(kSimpleValueInfoClass);
  Check(definition->put_Type(type));
  return definition;
}

void AddMember(const Ptr<IStructureDef>& structure, const OLECHAR* name, IValueDefBase* member) {
  VARIANT_BOOL added = VARIANT_FALSE;
  Check(structure->AddMember(Bstr(name).get(), member, &added));
}

Ptr<IStructureDef> Extent() {
  const auto extent = CreateObject<IStructureDef>(kStructureInfoClass);
  AddMember(extent, OLESTR("X"), Simple(kReal).get());
  AddMember(extent, OLESTR("Y"), Simple(kReal).get());
  return extent;
}

Ptr<IEnumerationDef> Colour() {
  const auto colour = CreateObject<IEnumerationDef>(kEnumerationInfoClass);
  VARIANT_BOOL added = VARIANT_FALSE;
  Check(colour->put_Id(kColourId));
  Check(colour->AddMember(Bstr(OLESTR("Red")).get(), 1, &added));
  Check(colour->AddMember(Bstr(OLESTR("Blue")).get(), -1, &added));
  return colour;
}

void Add(const Ptr<IOrmSession>& session, IValueDefBase* definition) {
  VARIANT_BOOL added = VARIANT_FALSE;
  Check(session->AddType(definition, &added));
}

}  // namespace

const CLSID& DefinitionClass(std::uint8_t choice) noexcept { return *kClasses[choice % std::size(kClasses)]; }

Ptr<IStructureDef> SampleStructure() {
  const auto sample = CreateObject<IStructureDef>(kStructureInfoClass);
  Check(sample->put_Id(kSampleId));
  Check(sample->put_Name(Bstr(OLESTR("Sample")).get()));
  AddMember(sample, OLESTR("A"), Simple(kByte).get());
  AddMember(sample, OLESTR("B"), Simple(kReal).get());
  AddMember(sample, OLESTR("Texts"), ArrayOf(Simple(kString).get(), 0, 0).get());
  AddMember(sample, OLESTR("Samples"), ArrayOf(Simple(kShort).get(), 4, 0).get());
  AddMember(sample, OLESTR("Name"), Simple(kString).get());
  AddMember(sample, OLESTR("Extent"), Extent().get());
  AddMember(sample, OLESTR("When"), Simple(kDate).get());
  AddMember(sample, OLESTR("Note"), Simple(kString).get());
  Check(sample->put_CanBeNull(Variant(OLESTR("Note")).get(), VARIANT_TRUE));
  ULONG size = 0;
  Check(sample->CalculateDataSize(&size));
  return sample;
}

Ptr<IArrayDef> ArrayOf(IValueDefBase* element, LONG count, SHORT id) {
  const auto array = CreateObject<IArrayDef>(kArrayInfoClass);
  ULONG size = 0;
  Check(element->CalculateDataSize(&size));
  Check(array->put_ValueType(element));
  Check(array->put_ElementCount(count));
  Check(array->put_Id(id));
  Check(array->CalculateDataSize(&size));
  return array;
}

Ptr<IOrmSession> FilledSession() {
  const auto session = CreateObject<IOrmSession>(kOrmSessionClass);
  const auto sample = SampleStructure();
  Add(session, sample.get());
  Add(session, ArrayOf(sample.get(), 0, kTrackId).get());
  Add(session, ArrayOf(Simple(kReal).get(), 0, kDepthsId).get());
  Add(session, ArrayOf(Simple(kString).get(), 0, kNotesId).get());
  Add(session, Colour().get());
  return session;
}

}  // namespace halyard::fuzz
