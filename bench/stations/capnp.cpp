#include "rivals/capnp.h"

#include "stations/rivals.h"

namespace bench {
namespace {

using capnp::DynamicEnum;
using capnp::DynamicList;
using capnp::DynamicStruct;

constexpr char kSchemaText[] = R"(
struct Station {
  id @0 :Int32; name @1 :Text; note @2 :Text; position @3 :Position;
  samples @4 :List(Float32); state @5 :State;
}
struct Position { x @0 :Float64; y @1 :Float64; z @2 :Float64; }
enum State { planned @0; working @1; idle @2; closed @3; }
)";

// Room for one message; it is reused, so that no record allocates.
constexpr std::size_t kScratchWords = 128;

class CapnpStations final : public StationFile {
 public:
  void Write(const std::string& path, std::int32_t count) override {
    capnproto::MessageWriter file(path);
    capnp::word scratch[kScratchWords] = {};
    for (std::int32_t i = 0; i < count; ++i) {
      capnp::MallocMessageBuilder message(kj::arrayPtr(scratch, kScratchWords));
      Fill(message.initRoot<DynamicStruct>(schema_.type()), StationAt(i));
      file.Write(message);
    }
    file.Close();
  }

  StationSums Read(const std::string& path, std::int32_t count) override {
    capnproto::MessageFile file(path);
    capnp::word scratch[kScratchWords];
    StationSums sums;
    for (std::int32_t i = 0; i < count; ++i) {
      capnp::InputStreamMessageReader message(file.stream(), {}, kj::arrayPtr(scratch, kScratchWords));
      Add(message.getRoot<DynamicStruct>(schema_.type()), sums);
    }
    return sums;
  }

 private:
  static capnp::Text::Reader Text(const std::string& text) { return {text.c_str(), text.size()}; }

  void Fill(DynamicStruct::Builder record, const Station& one) {
    record.set(id_, one.id);
    record.set(name_, Text(Names()[one.name]));
    if (one.has_note) record.set(note_, Text(Notes()[one.note]));
    auto position = record.init(position_).as<DynamicStruct>();
    position.set(x_, one.x);
    position.set(y_, one.y);
    position.set(z_, one.z);
    auto samples = record.init(samples_, kSampleCount).as<DynamicList>();
    for (unsigned i = 0; i < kSampleCount; ++i) samples.set(i, one.samples[i]);
    record.set(state_, DynamicEnum(state_type_, static_cast<std::uint16_t>(one.state)));
  }

  void Add(DynamicStruct::Reader record, StationSums& sums) {
    sums.id += record.get(id_).as<std::int32_t>();
    sums.name += SumOfCharacters(record.get(name_).as<capnp::Text>());
    if (record.has(note_)) {
      sums.note += SumOfCharacters(record.get(note_).as<capnp::Text>());
    } else {
      ++sums.without_note;
    }
    const auto position = record.get(position_).as<DynamicStruct>();
    sums.x += position.get(x_).as<double>();
    sums.y += position.get(y_).as<double>();
    sums.z += position.get(z_).as<double>();
    const auto samples = record.get(samples_).as<DynamicList>();
    for (unsigned i = 0; i < samples.size(); ++i) sums.samples += samples[i].as<float>();
    sums.state += record.get(state_).as<DynamicEnum>().getRaw();
  }

  const capnproto::Schema schema_{kSchemaText, "Station"};
  const capnp::StructSchema::Field id_ = schema_.Field("id");
  const capnp::StructSchema::Field name_ = schema_.Field("name");
  const capnp::StructSchema::Field note_ = schema_.Field("note");
  const capnp::StructSchema::Field position_ = schema_.Field("position");
  const capnp::StructSchema::Field samples_ = schema_.Field("samples");
  const capnp::StructSchema::Field state_ = schema_.Field("state");
  const capnp::StructSchema position_type_ = position_.getType().asStruct();
  const capnp::StructSchema::Field x_ = position_type_.getFieldByName("x");
  const capnp::StructSchema::Field y_ = position_type_.getFieldByName("y");
  const capnp::StructSchema::Field z_ = position_type_.getFieldByName("z");
  const capnp::EnumSchema state_type_ = state_.getType().asEnum();
};

}  // namespace

std::unique_ptr<StationFile> MakeCapnpStations() { return std::make_unique<CapnpStations>(); }

}  // namespace bench
