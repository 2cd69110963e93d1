#include "columns/limit.h"

#include <vector>

namespace bench {
namespace {

class PackedColumns final : public ColumnTable {
 public:
  void Fill(std::int32_t count) override {
    for (std::int32_t i = 0; i < count; ++i) soundings_.push_back(SoundingAt(i));
  }

  void DepthToReals(double* numbers) override {
    for (const Sounding& one : soundings_) *numbers++ = one.depth;
  }
  void XToReals(double* numbers) override {
    for (const Sounding& one : soundings_) *numbers++ = one.x;
  }
  void FlagsToLongs(std::int32_t* numbers) override {
    for (const Sounding& one : soundings_) *numbers++ = one.flags;
  }
  void RealsToDepth(const double* numbers) override {
    for (Sounding& one : soundings_) one.depth = static_cast<float>(*numbers++);
  }

 private:
  std::vector<Sounding> soundings_;
};

}  // namespace

std::unique_ptr<ColumnTable> MakePackedColumns() { return std::make_unique<PackedColumns>(); }

}  // namespace bench
