#include "columns/halyard.h"

#include "columns/sounding_array.h"
#include "support/demand.h"

namespace bench {

using namespace halyard;

namespace {

using ArrayMaker = Ptr<IArray> (*)(std::int32_t count);

class HalyardColumns final : public ColumnTable {
 public:
  explicit HalyardColumns(ArrayMaker make) : make_(make) {}

  void Fill(std::int32_t count) override { array_ = make_(count); }

  void DepthToReals(double* numbers) override { Build(depth_, kReal, numbers); }
  void XToReals(double* numbers) override { Build(x_, kReal, numbers); }
  void FlagsToLongs(std::int32_t* numbers) override { Build(flags_, kLong, numbers); }

  void RealsToDepth(const double* numbers) override {
    VARIANT_BOOL done = VARIANT_FALSE;
    auto* const bytes = reinterpret_cast<unsigned char*>(const_cast<double*>(numbers));
    Check(array_->ReadNumericArray(depth_.get(), Number(SHORT{kReal}), bytes, &done));
    DemandTrue(done, "the array does not take the column");
  }

 private:
  template <class T>
  void Build(const Bstr& member, TypeCode type, T* numbers) {
    VARIANT_BOOL done = VARIANT_FALSE;
    auto* const bytes = reinterpret_cast<unsigned char*>(numbers);
    Check(array_->BuildNumericArray(member.get(), Number(SHORT{type}), bytes, &done));
    DemandTrue(done, "the array does not give the column");
  }

  ArrayMaker make_;
  Ptr<IArray> array_;
  const Bstr depth_ = Name("depth");
  const Bstr x_ = Name("x");
  const Bstr flags_ = Name("flags");
};

}  // namespace

std::unique_ptr<ColumnTable> MakeHalyardColumns() {
  return std::make_unique<HalyardColumns>(ReadSoundingArray);
}

std::unique_ptr<ColumnTable> MakeHalyardBuiltColumns() {
  return std::make_unique<HalyardColumns>(BuildSoundingArray);
}

}  // namespace bench
