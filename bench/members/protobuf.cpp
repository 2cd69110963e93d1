#include "rivals/protobuf.h"

#include "members/rivals.h"

namespace bench {
namespace {

using namespace protobuf;

google::protobuf::FileDescriptorProto DescribeRecord() {
  google::protobuf::FileDescriptorProto file;
  file.set_name("record.proto");
  DescriptorProto& message = *file.add_message_type();
  message.set_name("Record");
  for (const std::string& name : kMemberNames) AddField(message, name, FieldDescriptorProto::TYPE_INT32);
  return file;
}

class ProtobufMembers final : public MemberAccess {
 public:
  void PutByPosition(std::int32_t calls) override {
    ForEachCall(calls, [&](std::int32_t member, std::int32_t k) { Put(type_.field(member), k); });
  }
  void PutByName(std::int32_t calls) override {
    ForEachCall(calls, [&](std::int32_t member, std::int32_t k) { Put(Called(member), k); });
  }
  std::int64_t GetByPosition(std::int32_t calls) override {
    std::int64_t sum = 0;
    ForEachCall(calls, [&](std::int32_t member, std::int32_t) { sum += Get(type_.field(member)); });
    return sum;
  }
  std::int64_t GetByName(std::int32_t calls) override {
    std::int64_t sum = 0;
    ForEachCall(calls, [&](std::int32_t member, std::int32_t) { sum += Get(Called(member)); });
    return sum;
  }

 private:
  const FieldDescriptor* Called(std::int32_t member) const {
    return type_.FindFieldByName(kMemberNames[static_cast<std::size_t>(member)]);
  }
  void Put(const FieldDescriptor* field, std::int32_t number) {
    reflection_.SetInt32(record_.get(), field, number);
  }
  std::int32_t Get(const FieldDescriptor* field) const { return reflection_.GetInt32(*record_, field); }

  Types types_{DescribeRecord()};
  const MessageType& type_ = types_.Find("Record");
  const std::unique_ptr<Message> record_ = types_.NewMessage(type_);
  const Reflection& reflection_ = *record_->GetReflection();
};

}  // namespace

std::unique_ptr<MemberAccess> MakeProtobufMembers() { return std::make_unique<ProtobufMembers>(); }

}  // namespace bench
