#include <vector>

#include "columns/rivals.h"
#include "records/protobuf_sounding.h"

namespace bench {
namespace {

using namespace protobuf;

class ProtobufColumns final : public ColumnTable {
 public:
  void Fill(std::int32_t count) override {
    for (std::int32_t i = 0; i < count; ++i) {
      soundings_.push_back(types_.NewMessage(type_));
      fields_.Fill(*soundings_.back(), SoundingAt(i));
    }
    reflection_ = soundings_.front()->GetReflection();
  }

  void DepthToReals(double* numbers) override {
    for (const auto& one : soundings_) *numbers++ = reflection_->GetFloat(*one, fields_.depth());
  }
  void XToReals(double* numbers) override {
    for (const auto& one : soundings_) *numbers++ = reflection_->GetDouble(*one, fields_.x());
  }
  void FlagsToLongs(std::int32_t* numbers) override {
    for (const auto& one : soundings_) *numbers++ = reflection_->GetInt32(*one, fields_.flags());
  }
  void RealsToDepth(const double* numbers) override {
    for (const auto& one : soundings_) {
      reflection_->SetFloat(one.get(), fields_.depth(), static_cast<float>(*numbers++));
    }
  }

 private:
  Types types_{DescribeSounding()};
  const MessageType& type_ = types_.Find("Sounding");
  const SoundingFields fields_{type_};
  std::vector<std::unique_ptr<Message>> soundings_;
  const Reflection* reflection_ = nullptr;
};

}  // namespace

std::unique_ptr<ColumnTable> MakeProtobufColumns() { return std::make_unique<ProtobufColumns>(); }

}  // namespace bench
