#include "rivals/protobuf.h"

#include "series/rivals.h"
#include "support/demand.h"

namespace bench {
namespace {

using namespace protobuf;

google::protobuf::FileDescriptorProto DescribeSeries() {
  google::protobuf::FileDescriptorProto file;
  file.set_name("series.proto");
  DescriptorProto& message = *file.add_message_type();
  message.set_name("Series");
  FieldDescriptorProto& numbers = AddField(message, "numbers", FieldDescriptorProto::TYPE_DOUBLE);
  numbers.set_label(FieldDescriptorProto::LABEL_REPEATED);
  numbers.mutable_options()->set_packed(true);
  return file;
}

class ProtobufSeries final : public SeriesFile {
 public:
  void Hold(const std::vector<double>& numbers) override {
    held_ = types_.NewMessage(type_);
    auto list = held_->GetReflection()->GetMutableRepeatedFieldRef<double>(held_.get(), numbers_);
    for (const double number : numbers) list.Add(number);
  }

  void Write(const std::string& path) override {
    Demand(held_->SerializeToFileDescriptor(Descriptor::ForWriting(path).number()),
           "the series cannot be written");
  }

  void Read(const std::string& path) override {
    read_ = types_.NewMessage(type_);
    Demand(read_->ParseFromFileDescriptor(Descriptor::ForReading(path).number()),
           "the series cannot be read");
  }

  double NumberRead(std::size_t position) const override {
    return read_->GetReflection()->GetRepeatedDouble(*read_, numbers_, static_cast<int>(position));
  }

  void Drop() override { read_.reset(); }

 private:
  Types types_{DescribeSeries()};
  const MessageType& type_ = types_.Find("Series");
  const FieldDescriptor* const numbers_ = type_.FindFieldByName("numbers");
  std::unique_ptr<Message> held_;
  std::unique_ptr<Message> read_;
};

}  // namespace

std::unique_ptr<SeriesFile> MakeProtobufSeries() { return std::make_unique<ProtobufSeries>(); }

}  // namespace bench
