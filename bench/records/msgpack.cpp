#include "rivals/msgpack.h"

#include "records/rivals.h"

namespace bench {
namespace {

constexpr std::uint32_t kMemberCount = 7;

// Both forms are read alike.
class MsgpackRecords : public RecordFile {
 public:
  void Write(const std::string& path, std::int32_t count) override {
    messagepack::Output file(path);
    messagepack::Packer packer(file);
    for (std::int32_t i = 0; i < count; ++i) Pack(packer, SoundingAt(i));
    file.Close();
  }

  SoundingSums Read(const std::string& path, std::int32_t count) override {
    messagepack::Input file(path);
    SoundingSums sums;
    for (std::int32_t i = 0; i < count; ++i) Add(file.Next(), sums);
    return sums;
  }

 private:
  virtual void Pack(messagepack::Packer& packer, const Sounding& one) {
    packer.pack_array(kMemberCount);
    packer.pack_int32(one.id);
    packer.pack_double(one.x);
    packer.pack_double(one.y);
    packer.pack_double(one.z);
    packer.pack_float(one.depth);
    packer.pack_int16(one.flags);
    packer.pack_uint8(one.kind);
  }

  static void Add(const msgpack::object& record, SoundingSums& sums) {
    Demand(record.type == msgpack::type::ARRAY && record.via.array.size == kMemberCount,
           "a record is no array of seven");
    const msgpack::object* const members = record.via.array.ptr;
    sums.id += members[0].as<std::int32_t>();
    sums.x += members[1].as<double>();
    sums.y += members[2].as<double>();
    sums.z += members[3].as<double>();
    sums.depth += members[4].as<float>();
    sums.flags += members[5].as<std::int16_t>();
    sums.kind += members[6].as<std::uint8_t>();
  }
};

class MsgpackObjectRecords final : public MsgpackRecords {
 private:
  void Pack(messagepack::Packer& packer, const Sounding& one) override {
    msgpack::object members[kMemberCount];
    members[0] = msgpack::object(one.id);
    members[1] = msgpack::object(one.x);
    members[2] = msgpack::object(one.y);
    members[3] = msgpack::object(one.z);
    members[4] = msgpack::object(one.depth);
    members[5] = msgpack::object(one.flags);
    members[6] = msgpack::object(one.kind);
    msgpack::object record;
    record.type = msgpack::type::ARRAY;
    record.via.array.size = kMemberCount;
    record.via.array.ptr = members;
    packer.pack(record);
  }
};

}  // namespace

std::unique_ptr<RecordFile> MakeMsgpackRecords() { return std::make_unique<MsgpackRecords>(); }

std::unique_ptr<RecordFile> MakeMsgpackObjectRecords() { return std::make_unique<MsgpackObjectRecords>(); }

}  // namespace bench
