// Defines a record of one number, fills it and reads it back: enough to show that the
// headers, the library and its classes arrived together.
#include <halyard/halyard.h>

#include <cstdio>

namespace {

LONG DepthThroughARecord(LONG depth) {
  using namespace halyard;
  const auto definition = CreateObject<IStructureInfo>(kStructureInfoClass);
  VARIANT_BOOL added = VARIANT_FALSE;
  Check(definition->AddSimpleMember(Bstr(OLESTR("Depth")).get(), kLong, &added), definition);
  ULONG size = 0;
  Check(definition->CalculateDataSize(&size), definition);

  Ptr<IValueBase> record;
  Check(definition->CreateDataObject(record.Out()), definition);
  const Variant member(OLESTR("Depth"));
  Check(record->put_Item(member.get(), Variant(depth).get()), record);
  Variant result;
  Check(record->get_Item(member.get(), result.Out()), record);
  return result->lVal;
}

}  // namespace

int main() {
  try {
    const LONG depth = DepthThroughARecord(10935);
    std::printf("the record holds %d\n", static_cast<int>(depth));
    return depth == 10935 ? 0 : 1;
  } catch (const halyard::Error& error) {
    std::printf("failed with %08x\n", static_cast<unsigned>(error.code()));
    return 1;
  }
}
