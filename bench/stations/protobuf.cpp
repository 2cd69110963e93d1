#include "rivals/protobuf.h"

#include "stations/rivals.h"

namespace bench {
namespace {

using namespace protobuf;

void DescribePosition(DescriptorProto& message) {
  message.set_name("Position");
  for (const char* axis : {"x", "y", "z"}) AddField(message, axis, FieldDescriptorProto::TYPE_DOUBLE);
}

void DescribeState(google::protobuf::EnumDescriptorProto& states) {
  states.set_name("State");
  for (const char* name : {"PLANNED", "WORKING", "IDLE", "CLOSED"}) {
    auto& state = *states.add_value();
    state.set_name(name);
    state.set_number(states.value_size() - 1);
  }
}

google::protobuf::FileDescriptorProto DescribeStation() {
  google::protobuf::FileDescriptorProto file;
  file.set_name("station.proto");
  DescribePosition(*file.add_message_type());
  DescribeState(*file.add_enum_type());
  DescriptorProto& message = *file.add_message_type();
  message.set_name("Station");
  AddField(message, "id", FieldDescriptorProto::TYPE_INT32);
  AddField(message, "name", FieldDescriptorProto::TYPE_STRING);
  AddField(message, "note", FieldDescriptorProto::TYPE_STRING);
  AddField(message, "position", FieldDescriptorProto::TYPE_MESSAGE).set_type_name(".Position");
  FieldDescriptorProto& samples = AddField(message, "samples", FieldDescriptorProto::TYPE_FLOAT);
  samples.set_label(FieldDescriptorProto::LABEL_REPEATED);
  samples.mutable_options()->set_packed(true);
  AddField(message, "state", FieldDescriptorProto::TYPE_ENUM).set_type_name(".State");
  return file;
}

class ProtobufStations final : public StationFile {
 public:
  void Write(const std::string& path, std::int32_t count) override {
    MessageWriter file(path);
    for (std::int32_t i = 0; i < count; ++i) {
      Fill(StationAt(i));
      file.Write(*message_);
    }
    file.Close();
  }

  StationSums Read(const std::string& path, std::int32_t count) override {
    MessageReader file(path);
    StationSums sums;
    for (std::int32_t i = 0; i < count; ++i) {
      file.Read(*message_);
      Add(sums);
    }
    return sums;
  }

 private:
  void Fill(const Station& one) {
    Message* const message = message_.get();
    message->Clear();
    reflection_.SetInt32(message, id_, one.id);
    reflection_.SetString(message, name_, Names()[one.name]);
    if (one.has_note) reflection_.SetString(message, note_, Notes()[one.note]);
    Message* const position = reflection_.MutableMessage(message, position_);
    position_reflection_.SetDouble(position, x_, one.x);
    position_reflection_.SetDouble(position, y_, one.y);
    position_reflection_.SetDouble(position, z_, one.z);
    auto samples = reflection_.GetMutableRepeatedFieldRef<float>(message, samples_);
    for (const float sample : one.samples) samples.Add(sample);
    reflection_.SetEnumValue(message, state_, one.state);
  }

  void Add(StationSums& sums) const {
    std::string scratch;
    sums.id += reflection_.GetInt32(*message_, id_);
    sums.name += SumOfCharacters(reflection_.GetStringReference(*message_, name_, &scratch));
    if (reflection_.HasField(*message_, note_)) {
      sums.note += SumOfCharacters(reflection_.GetStringReference(*message_, note_, &scratch));
    } else {
      ++sums.without_note;
    }
    const Message& position = reflection_.GetMessage(*message_, position_);
    sums.x += position_reflection_.GetDouble(position, x_);
    sums.y += position_reflection_.GetDouble(position, y_);
    sums.z += position_reflection_.GetDouble(position, z_);
    sums.samples += SumOfSamples(reflection_.GetRepeatedFieldRef<float>(*message_, samples_));
    sums.state += reflection_.GetEnumValue(*message_, state_);
  }

  const FieldDescriptor* Field(const char* name) const { return type_.FindFieldByName(name); }
  const FieldDescriptor* Axis(const char* name) const { return position_type_.FindFieldByName(name); }

  Types types_{DescribeStation()};
  const MessageType& type_ = types_.Find("Station");
  const MessageType& position_type_ = types_.Find("Position");
  const std::unique_ptr<Message> message_ = types_.NewMessage(type_);
  const Reflection& reflection_ = *message_->GetReflection();
  const Reflection& position_reflection_ =
      *reflection_.MutableMessage(message_.get(), Field("position"))->GetReflection();
  const FieldDescriptor* const id_ = Field("id");
  const FieldDescriptor* const name_ = Field("name");
  const FieldDescriptor* const note_ = Field("note");
  const FieldDescriptor* const position_ = Field("position");
  const FieldDescriptor* const x_ = Axis("x");
  const FieldDescriptor* const y_ = Axis("y");
  const FieldDescriptor* const z_ = Axis("z");
  const FieldDescriptor* const samples_ = Field("samples");
  const FieldDescriptor* const state_ = Field("state");
};

}  // namespace

std::unique_ptr<StationFile> MakeProtobufStations() { return std::make_unique<ProtobufStations>(); }

}  // namespace bench
