#include "rivals/protobuf.h"

#include "records/rivals.h"

namespace bench {
namespace {

using namespace protobuf;

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

class ProtobufRecords final : public RecordFile {
 public:
  void Write(const std::string& path, std::int32_t count) override {
    MessageWriter file(path);
    for (std::int32_t i = 0; i < count; ++i) {
      Fill(SoundingAt(i));
      file.Write(*message_);
    }
    file.Close();
  }

  SoundingSums Read(const std::string& path, std::int32_t count) override {
    MessageReader file(path);
    SoundingSums sums;
    for (std::int32_t i = 0; i < count; ++i) {
      file.Read(*message_);
      Add(sums);
    }
    return sums;
  }

 private:
  void Fill(const Sounding& one) {
    reflection_.SetInt32(message_.get(), id_, one.id);
    reflection_.SetDouble(message_.get(), x_, one.x);
    reflection_.SetDouble(message_.get(), y_, one.y);
    reflection_.SetDouble(message_.get(), z_, one.z);
    reflection_.SetFloat(message_.get(), depth_, one.depth);
    reflection_.SetInt32(message_.get(), flags_, one.flags);
    reflection_.SetUInt32(message_.get(), kind_, one.kind);
  }

  void Add(SoundingSums& sums) const {
    sums.id += reflection_.GetInt32(*message_, id_);
    sums.x += reflection_.GetDouble(*message_, x_);
    sums.y += reflection_.GetDouble(*message_, y_);
    sums.z += reflection_.GetDouble(*message_, z_);
    sums.depth += reflection_.GetFloat(*message_, depth_);
    sums.flags += reflection_.GetInt32(*message_, flags_);
    sums.kind += reflection_.GetUInt32(*message_, kind_);
  }

  const FieldDescriptor* Field(const char* name) const { return type_.FindFieldByName(name); }

  Types types_{DescribeSounding()};
  const MessageType& type_ = types_.Find("Sounding");
  const std::unique_ptr<Message> message_ = types_.NewMessage(type_);
  const Reflection& reflection_ = *message_->GetReflection();
  const FieldDescriptor* const id_ = Field("id");
  const FieldDescriptor* const x_ = Field("x");
  const FieldDescriptor* const y_ = Field("y");
  const FieldDescriptor* const z_ = Field("z");
  const FieldDescriptor* const depth_ = Field("depth");
  const FieldDescriptor* const flags_ = Field("flags");
  const FieldDescriptor* const kind_ = Field("kind");
};

}  // namespace

std::unique_ptr<RecordFile> MakeProtobufRecords() { return std::make_unique<ProtobufRecords>(); }

}  // namespace bench
