// Array lengths: one to a hundred million numbers, one to ten million structures. Work is
// counted per element.
#include <cstring>

#include "columns/sounding_array.h"
#include "growth/point.h"
#include "support/demand.h"
#include "support/scratch.h"

namespace bench {

using namespace halyard;

namespace {

constexpr LONG kMostNumbers = 100000000;
constexpr LONG kMostStructures = 10000000;
constexpr LONG kMostAdded = 1000000;  // one call an element

Ptr<IArrayDef> DefineNumbers() {
  const auto definition = CreateObject<IArrayDef>(kArrayInfoClass);
  Check(definition->put_Id(1));
  Check(definition->put_DataType(kReal));
  Calculate(definition);
  return definition;
}

// An array whose numbers are all 0, read from bytes.
Ptr<IValueBase> NewNumbers(const Ptr<IArrayDef>& definition, LONG count) {
  std::vector<unsigned char> bytes(sizeof count + static_cast<std::size_t>(count) * sizeof(double));
  std::memcpy(bytes.data(), &count, sizeof count);
  const auto array = NewValue(definition);
  ULONG taken = 0;
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(array->ReadFromBuffer(bytes.data(), static_cast<ULONG>(bytes.size()), &taken, &done));
  DemandTrue(done, "the array cannot be read");
  return array;
}

// Writes a value as the only one of a file.
void Write(const std::string& path, const Ptr<IArrayDef>& definition, const Ptr<IValueBase>& value) {
  RemoveFile(path);
  const auto file = NewFile(path, definition);
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(file->WriteData(value.get(), &done));
  DemandTrue(done, "the array cannot be written");
  Check(file->Close());
}

Ptr<IValueBase> AddedOneByOne(const Ptr<IArrayDef>& definition, LONG count) {
  const auto array = NewValue(definition);
  for (LONG i = 0; i < count; ++i) Check(array->Add(Number(1.5)));
  return array;
}

void AddNumberPoints(Curve& curve, LONG count) {
  const std::string path = ScratchFile("growing numbers");
  const auto definition = DefineNumbers();
  const auto array = NewNumbers(definition, count);
  curve.Add("write numbers", count, count, [&] {
    Write(path, definition, array);
    return std::any();
  });
  curve.Add("read numbers", count, count, [&] { return std::any(ReadValue(OpenFile(path))); });
  if (count <= kMostAdded) {
    curve.Add("add numbers", count, count, [&] { return std::any(AddedOneByOne(definition, count)); });
  }
  RemoveFile(path);
}

void AddStructurePoints(Curve& curve, LONG count) {
  const std::string path = ScratchFile("growing structures");
  const auto array = ReadSoundingArray(count);
  const Bstr depth = Name("depth");
  std::vector<double> depths(static_cast<std::size_t>(count));
  Write(path, DefineSoundingArray(), array);
  curve.Add("read structures", count, count, [&] { return std::any(ReadValue(OpenFile(path))); });
  curve.Add("take a column", count, count, [&] {
    VARIANT_BOOL done = VARIANT_FALSE;
    auto* const bytes = reinterpret_cast<unsigned char*>(depths.data());
    Check(array->BuildNumericArray(depth.get(), Number(SHORT{kReal}), bytes, &done));
    DemandTrue(done, "the column cannot be taken");
    return std::any();
  });
  if (count <= kMostAdded) {
    curve.Add("add structures", count, count, [&] { return std::any(BuildSoundingArray(count)); });
  }
  RemoveFile(path);
}

}  // namespace

std::vector<Point> GrowArrays() {
  Curve curve("arrays");
  for (LONG count = 1; count <= kMostNumbers; count *= 10) AddNumberPoints(curve, count);
  for (LONG count = 1; count <= kMostStructures; count *= 10) AddStructurePoints(curve, count);
  return curve.points();
}

}  // namespace bench
