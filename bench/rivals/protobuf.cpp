#include "rivals/protobuf.h"

#include <google/protobuf/util/delimited_message_util.h>

#include "support/buffered_file.h"
#include "support/demand.h"

namespace bench::protobuf {
namespace {

constexpr int kBlockSize = static_cast<int>(kFileBufferSize);

}  // namespace

FieldDescriptorProto& AddField(DescriptorProto& message, const std::string& name,
                               FieldDescriptorProto::Type type) {
  FieldDescriptorProto& field = *message.add_field();
  field.set_name(name);
  field.set_number(message.field_size());
  field.set_type(type);
  field.set_label(FieldDescriptorProto::LABEL_OPTIONAL);
  return field;
}

Types::Types(const google::protobuf::FileDescriptorProto& file) : factory_(&pool_) {
  Demand(pool_.BuildFile(file) != nullptr, "the message descriptions are not accepted");
}

const MessageType& Types::Find(const std::string& name) const {
  const MessageType* const type = pool_.FindMessageTypeByName(name);
  if (type == nullptr) Fail("there is no message type " + name);
  return *type;
}

std::unique_ptr<Message> Types::NewMessage(const MessageType& type) {
  return std::unique_ptr<Message>(factory_.GetPrototype(&type)->New());
}

MessageWriter::MessageWriter(const std::string& path)
    : file_(Descriptor::ForWriting(path)), stream_(file_.number(), kBlockSize) {}

void MessageWriter::Write(const Message& message) {
  Demand(google::protobuf::util::SerializeDelimitedToZeroCopyStream(message, &stream_),
         "a message cannot be written");
}

void MessageWriter::Close() { Demand(stream_.Flush(), "the file cannot be written"); }

MessageReader::MessageReader(const std::string& path)
    : file_(Descriptor::ForReading(path)), stream_(file_.number(), kBlockSize) {}

void MessageReader::Read(Message& message) {
  bool clean_end = false;
  message.Clear();
  Demand(google::protobuf::util::ParseDelimitedFromZeroCopyStream(&message, &stream_, &clean_end),
         "a message cannot be read");
}

}  // namespace bench::protobuf
