#include "records/protobuf_sounding.h"
#include "records/rivals.h"

namespace bench {
namespace {

using namespace protobuf;

class ProtobufRecords final : public RecordFile {
 public:
  void Write(const std::string& path, std::int32_t count) override {
    MessageWriter file(path);
    for (std::int32_t i = 0; i < count; ++i) {
      fields_.Fill(*message_, SoundingAt(i));
      file.Write(*message_);
    }
    file.Close();
  }

  SoundingSums Read(const std::string& path, std::int32_t count) override {
    MessageReader file(path);
    SoundingSums sums;
    for (std::int32_t i = 0; i < count; ++i) {
      file.Read(*message_);
      fields_.Add(*message_, sums);
    }
    return sums;
  }

 private:
  Types types_{DescribeSounding()};
  const MessageType& type_ = types_.Find("Sounding");
  const SoundingFields fields_{type_};
  const std::unique_ptr<Message> message_ = types_.NewMessage(type_);
};

}  // namespace

std::unique_ptr<RecordFile> MakeProtobufRecords() { return std::make_unique<ProtobufRecords>(); }

}  // namespace bench
