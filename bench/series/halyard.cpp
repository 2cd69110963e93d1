#include "series/halyard.h"

#include <cstring>

#include "support/client.h"
#include "support/demand.h"

namespace bench {

using namespace halyard;

namespace {

constexpr SHORT kSeriesId = 1;

Ptr<IArrayDef> DefineSeries() {
  const auto definition = CreateObject<IArrayDef>(kArrayInfoClass);
  Check(definition->put_Id(kSeriesId));
  Check(definition->put_DataType(kReal));
  Calculate(definition);
  return definition;
}

// The array as a buffer holds it: the count and the numbers.
std::vector<unsigned char> Encoded(const std::vector<double>& numbers) {
  const auto count = static_cast<ULONG>(numbers.size());
  std::vector<unsigned char> bytes(sizeof count + numbers.size() * sizeof(double));
  std::memcpy(bytes.data(), &count, sizeof count);
  std::memcpy(bytes.data() + sizeof count, numbers.data(), numbers.size() * sizeof(double));
  return bytes;
}

class HalyardSeries final : public SeriesFile {
 public:
  void Hold(const std::vector<double>& numbers) override {
    held_ = NewValue(definition_);
    std::vector<unsigned char> bytes = Encoded(numbers);
    ULONG taken = 0;
    VARIANT_BOOL done = VARIANT_FALSE;
    Check(held_->ReadFromBuffer(bytes.data(), static_cast<ULONG>(bytes.size()), &taken, &done));
    DemandTrue(done, "the array does not take the numbers");
  }

  void Write(const std::string& path) override {
    const auto file = NewFile(path, definition_);
    VARIANT_BOOL done = VARIANT_FALSE;
    Check(file->WriteData(held_.get(), &done));
    DemandTrue(done, "the array cannot be written");
    Check(file->Close());
  }

  void Read(const std::string& path) override {
    read_ = ReadValue(OpenFile(path));
    LONG_PTR address = 0;
    Check(read_.As<ISimpleArray>()->get_GetDataPointer(&address));
    numbers_ = reinterpret_cast<const double*>(address);
  }

  double NumberRead(std::size_t position) const override { return numbers_[position]; }

  void Drop() override { read_.Reset(); }

 private:
  const Ptr<IArrayDef> definition_ = DefineSeries();
  Ptr<IValueBase> held_;
  Ptr<IValueBase> read_;
  const double* numbers_ = nullptr;
};

}  // namespace

std::unique_ptr<SeriesFile> MakeHalyardSeries() { return std::make_unique<HalyardSeries>(); }

}  // namespace bench
