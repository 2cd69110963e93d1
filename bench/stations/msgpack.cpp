#include "rivals/msgpack.h"

#include "stations/rivals.h"

namespace bench {
namespace {

constexpr std::uint32_t kMemberCount = 6;
constexpr std::uint32_t kAxisCount = 3;

void PackText(messagepack::Packer& packer, const std::string& text) {
  packer.pack_str(static_cast<std::uint32_t>(text.size()));
  packer.pack_str_body(text.data(), static_cast<std::uint32_t>(text.size()));
}

void Pack(messagepack::Packer& packer, const Station& one) {
  packer.pack_array(kMemberCount);
  packer.pack_int32(one.id);
  PackText(packer, Names()[one.name]);
  if (one.has_note) {
    PackText(packer, Notes()[one.note]);
  } else {
    packer.pack_nil();
  }
  packer.pack_array(kAxisCount);
  packer.pack_double(one.x);
  packer.pack_double(one.y);
  packer.pack_double(one.z);
  packer.pack_array(kSampleCount);
  for (const float sample : one.samples) packer.pack_float(sample);
  packer.pack_int32(one.state);
}

std::int64_t TextSum(const msgpack::object& text) {
  Demand(text.type == msgpack::type::STR, "a text is none");
  return SumOfCharacters(std::string_view(text.via.str.ptr, text.via.str.size));
}

// The elements of an array of that size.
const msgpack::object* Elements(const msgpack::object& array, std::uint32_t size) {
  Demand(array.type == msgpack::type::ARRAY && array.via.array.size == size,
         "an array is not as it was written");
  return array.via.array.ptr;
}

void Add(const msgpack::object& record, StationSums& sums) {
  const msgpack::object* const members = Elements(record, kMemberCount);
  sums.id += members[0].as<std::int32_t>();
  sums.name += TextSum(members[1]);
  if (members[2].is_nil()) {
    ++sums.without_note;
  } else {
    sums.note += TextSum(members[2]);
  }
  const msgpack::object* const position = Elements(members[3], kAxisCount);
  sums.x += position[0].as<double>();
  sums.y += position[1].as<double>();
  sums.z += position[2].as<double>();
  const msgpack::object* const samples = Elements(members[4], kSampleCount);
  for (std::size_t i = 0; i < kSampleCount; ++i) sums.samples += samples[i].as<float>();
  sums.state += members[5].as<std::int32_t>();
}

class MsgpackStations final : public StationFile {
 public:
  void Write(const std::string& path, std::int32_t count) override {
    messagepack::Output file(path);
    messagepack::Packer packer(file);
    for (std::int32_t i = 0; i < count; ++i) Pack(packer, StationAt(i));
    file.Close();
  }

  StationSums Read(const std::string& path, std::int32_t count) override {
    messagepack::Input file(path);
    StationSums sums;
    for (std::int32_t i = 0; i < count; ++i) Add(file.Next(), sums);
    return sums;
  }
};

}  // namespace

std::unique_ptr<StationFile> MakeMsgpackStations() { return std::make_unique<MsgpackStations>(); }

}  // namespace bench
