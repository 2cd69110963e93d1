#include "columns/sounding_array.h"

#include <cstring>

#include "records/halyard.h"
#include "support/demand.h"

namespace bench {

using namespace halyard;

namespace {

constexpr SHORT kArrayId = 2;

}  // namespace

Ptr<IArrayDef> DefineSoundingArray() {
  const auto definition = CreateObject<IArrayDef>(kArrayInfoClass);
  Check(definition->put_Id(kArrayId));
  Check(definition->put_ValueType(DefineSounding().get()));
  Calculate(definition);
  return definition;
}

std::vector<unsigned char> EncodedSoundings(std::int32_t count) {
  std::vector<unsigned char> bytes(sizeof count + static_cast<std::size_t>(count) * sizeof(Sounding));
  std::memcpy(bytes.data(), &count, sizeof count);
  for (std::int32_t i = 0; i < count; ++i) {
    const Sounding one = SoundingAt(i);
    std::memcpy(bytes.data() + sizeof count + static_cast<std::size_t>(i) * sizeof one, &one, sizeof one);
  }
  return bytes;
}

Ptr<IArray> ReadSoundingArray(std::int32_t count) {
  const auto array = NewValue(DefineSoundingArray());
  std::vector<unsigned char> bytes = EncodedSoundings(count);
  ULONG taken = 0;
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(array->ReadFromBuffer(bytes.data(), static_cast<ULONG>(bytes.size()), &taken, &done));
  Demand(done != VARIANT_FALSE && taken == bytes.size(), "the array cannot be read");
  return array.As<IArray>();
}

Ptr<IArray> BuildSoundingArray(std::int32_t count) {
  const auto definition = DefineSoundingArray();
  Ptr<IValueDefBase> element;
  Check(definition->get_ValueType(element.Out()));
  const auto array = NewValue(definition);
  for (std::int32_t i = 0; i < count; ++i) {
    const auto one = NewValue(element);
    FillSounding(*one, SoundingAt(i));
    Check(array->Add(Variant(static_cast<IDispatch*>(one.get())).get()));
  }
  return array.As<IArray>();
}

}  // namespace bench
