// The message type of a sounding, for W1 and W3.
#pragma once

#include "records/sounding.h"
#include "rivals/protobuf.h"

namespace bench::protobuf {

// A file description with the message type Sounding.
google::protobuf::FileDescriptorProto DescribeSounding();

// The fields of such messages, asked for once.
class SoundingFields {
 public:
  explicit SoundingFields(const MessageType& type);

  void Fill(Message& message, const Sounding& one) const;
  void Add(const Message& message, SoundingSums& sums) const;

  const FieldDescriptor* x() const { return x_; }
  const FieldDescriptor* depth() const { return depth_; }
  const FieldDescriptor* flags() const { return flags_; }

 private:
  const FieldDescriptor* id_;
  const FieldDescriptor* x_;
  const FieldDescriptor* y_;
  const FieldDescriptor* z_;
  const FieldDescriptor* depth_;
  const FieldDescriptor* flags_;
  const FieldDescriptor* kind_;
};

}  // namespace bench::protobuf
