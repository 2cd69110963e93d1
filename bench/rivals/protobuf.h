// Protocol Buffers, as a program uses it that knows its messages at run time only:
// descriptors are put together in code and messages come from the dynamic factory.
#pragma once

#include <google/protobuf/descriptor.h>
#include <google/protobuf/descriptor.pb.h>
#include <google/protobuf/dynamic_message.h>
#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/io/zero_copy_stream_impl.h>

#include <memory>
#include <string>

#include "support/descriptor.h"

namespace bench::protobuf {

using MessageType = google::protobuf::Descriptor;
using google::protobuf::DescriptorProto;
using google::protobuf::FieldDescriptor;
using google::protobuf::FieldDescriptorProto;
using google::protobuf::Message;
using google::protobuf::Reflection;

// Appends a field with the next number to a message's description.
FieldDescriptorProto& AddField(DescriptorProto& message, const std::string& name,
                               FieldDescriptorProto::Type type);

// The message types of one participant, made from the description of a file. Descriptors
// and messages live as long as this object.
class Types {
 public:
  explicit Types(const google::protobuf::FileDescriptorProto& file);

  const MessageType& Find(const std::string& name) const;
  std::unique_ptr<Message> NewMessage(const MessageType& type);

 private:
  google::protobuf::DescriptorPool pool_;
  google::protobuf::DynamicMessageFactory factory_;
};

// A file of messages, each behind its length, through a buffer of 64 KB.
class MessageWriter {
 public:
  explicit MessageWriter(const std::string& path);
  void Write(const Message& message);
  void Close();

 private:
  Descriptor file_;
  google::protobuf::io::FileOutputStream stream_;
};

class MessageReader {
 public:
  explicit MessageReader(const std::string& path);

  // The next message takes the place of what `message` held.
  void Read(Message& message);

 private:
  Descriptor file_;
  google::protobuf::io::FileInputStream stream_;
};

}  // namespace bench::protobuf
