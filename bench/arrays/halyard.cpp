#include "arrays/halyard.h"

#include "columns/sounding_array.h"
#include "support/demand.h"

namespace bench {

using namespace halyard;

namespace {

class HalyardArray final : public ArrayFile {
 public:
  void Make(const std::string& path, std::int32_t count) override {
    const auto array = ReadSoundingArray(count);
    const auto file = NewFile(path, DefineSoundingArray());
    VARIANT_BOOL done = VARIANT_FALSE;
    Check(file->WriteData(array.get(), &done));
    DemandTrue(done, "the array cannot be written");
    Check(file->Close());
  }

  void Read(const std::string& path) override { array_ = ReadValue(OpenFile(path)).As<IArray>(); }

  void DepthToReals(double* numbers) override {
    VARIANT_BOOL done = VARIANT_FALSE;
    auto* const bytes = reinterpret_cast<unsigned char*>(numbers);
    Check(array_->BuildNumericArray(depth_.get(), Number(SHORT{kReal}), bytes, &done));
    DemandTrue(done, "the array does not give the column");
  }

  void Drop() override { array_.Reset(); }

 private:
  const Bstr depth_ = Name("depth");
  Ptr<IArray> array_;
};

}  // namespace

std::unique_ptr<ArrayFile> MakeHalyardArray() { return std::make_unique<HalyardArray>(); }

}  // namespace bench
