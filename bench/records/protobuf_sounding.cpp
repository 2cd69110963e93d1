#include "records/protobuf_sounding.h"

namespace bench::protobuf {

google::protobuf::FileDescriptorProto DescribeSounding() {
  google::protobuf::FileDescriptorProto file;
  file.set_name("sounding.proto");
  DescriptorProto& message = *file.add_message_type();
  message.set_name("Sounding");
  AddField(message, "id", FieldDescriptorProto::TYPE_INT32);
  for (const char* name : {"x", "y", "z"}) AddField(message, name, FieldDescriptorProto::TYPE_DOUBLE);
  AddField(message, "depth", FieldDescriptorProto::TYPE_FLOAT);
  AddField(message, "flags", FieldDescriptorProto::TYPE_INT32);
  AddField(message, "kind", FieldDescriptorProto::TYPE_UINT32);
  return file;
}

SoundingFields::SoundingFields(const MessageType& type)
    : id_(type.FindFieldByName("id")),
      x_(type.FindFieldByName("x")),
      y_(type.FindFieldByName("y")),
      z_(type.FindFieldByName("z")),
      depth_(type.FindFieldByName("depth")),
      flags_(type.FindFieldByName("flags")),
      kind_(type.FindFieldByName("kind")) {}

void SoundingFields::Fill(Message& message, const Sounding& one) const {
  const Reflection& reflection = *message.GetReflection();
  reflection.SetInt32(&message, id_, one.id);
  reflection.SetDouble(&message, x_, one.x);
  reflection.SetDouble(&message, y_, one.y);
  reflection.SetDouble(&message, z_, one.z);
  reflection.SetFloat(&message, depth_, one.depth);
  reflection.SetInt32(&message, flags_, one.flags);
  reflection.SetUInt32(&message, kind_, one.kind);
}

void SoundingFields::Add(const Message& message, SoundingSums& sums) const {
  const Reflection& reflection = *message.GetReflection();
  sums.id += reflection.GetInt32(message, id_);
  sums.x += reflection.GetDouble(message, x_);
  sums.y += reflection.GetDouble(message, y_);
  sums.z += reflection.GetDouble(message, z_);
  sums.depth += reflection.GetFloat(message, depth_);
  sums.flags += reflection.GetInt32(message, flags_);
  sums.kind += reflection.GetUInt32(message, kind_);
}

}  // namespace bench::protobuf
