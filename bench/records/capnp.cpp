#include "rivals/capnp.h"

#include "records/rivals.h"

namespace bench {
namespace {

using capnproto::Schema;

constexpr char kSchemaText[] = R"(struct Sounding {
  id @0 :Int32; x @1 :Float64; y @2 :Float64; z @3 :Float64;
  depth @4 :Float32; flags @5 :Int16; kind @6 :UInt8;
})";

// Room for one message; it is reused, so that no record allocates.
constexpr std::size_t kScratchWords = 32;

class CapnpRecords final : public RecordFile {
 public:
  void Write(const std::string& path, std::int32_t count) override {
    capnproto::MessageWriter file(path);
    capnp::word scratch[kScratchWords] = {};
    for (std::int32_t i = 0; i < count; ++i) {
      capnp::MallocMessageBuilder message(kj::arrayPtr(scratch, kScratchWords));
      Fill(message.initRoot<capnp::DynamicStruct>(schema_.type()), SoundingAt(i));
      file.Write(message);
    }
    file.Close();
  }

  SoundingSums Read(const std::string& path, std::int32_t count) override {
    capnproto::MessageFile file(path);
    capnp::word scratch[kScratchWords];
    SoundingSums sums;
    for (std::int32_t i = 0; i < count; ++i) {
      capnp::InputStreamMessageReader message(file.stream(), {}, kj::arrayPtr(scratch, kScratchWords));
      Add(message.getRoot<capnp::DynamicStruct>(schema_.type()), sums);
    }
    return sums;
  }

 private:
  void Fill(capnp::DynamicStruct::Builder record, const Sounding& one) {
    record.set(id_, one.id);
    record.set(x_, one.x);
    record.set(y_, one.y);
    record.set(z_, one.z);
    record.set(depth_, one.depth);
    record.set(flags_, one.flags);
    record.set(kind_, one.kind);
  }

  void Add(capnp::DynamicStruct::Reader record, SoundingSums& sums) {
    sums.id += record.get(id_).as<std::int32_t>();
    sums.x += record.get(x_).as<double>();
    sums.y += record.get(y_).as<double>();
    sums.z += record.get(z_).as<double>();
    sums.depth += record.get(depth_).as<float>();
    sums.flags += record.get(flags_).as<std::int16_t>();
    sums.kind += record.get(kind_).as<std::uint8_t>();
  }

  const Schema schema_{kSchemaText, "Sounding"};
  const capnp::StructSchema::Field id_ = schema_.Field("id");
  const capnp::StructSchema::Field x_ = schema_.Field("x");
  const capnp::StructSchema::Field y_ = schema_.Field("y");
  const capnp::StructSchema::Field z_ = schema_.Field("z");
  const capnp::StructSchema::Field depth_ = schema_.Field("depth");
  const capnp::StructSchema::Field flags_ = schema_.Field("flags");
  const capnp::StructSchema::Field kind_ = schema_.Field("kind");
};

}  // namespace

std::unique_ptr<RecordFile> MakeCapnpRecords() { return std::make_unique<CapnpRecords>(); }

}  // namespace bench
