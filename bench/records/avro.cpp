#include "rivals/avro.h"

#include "records/rivals.h"

namespace bench {
namespace {

using avro::Require;

constexpr char kSchema[] = R"({"type": "record", "name": "Sounding", "fields": [
  {"name": "id", "type": "int"},
  {"name": "x", "type": "double"}, {"name": "y", "type": "double"}, {"name": "z", "type": "double"},
  {"name": "depth", "type": "float"},
  {"name": "flags", "type": "int"}, {"name": "kind", "type": "int"}]})";

class AvroRecords final : public RecordFile {
 public:
  void Write(const std::string& path, std::int32_t count) override {
    avro::FileWriter file(path, type_);
    for (std::int32_t i = 0; i < count; ++i) {
      Fill(SoundingAt(i));
      file.Append(record_);
    }
  }

  SoundingSums Read(const std::string& path, std::int32_t count) override {
    avro::FileReader file(path);
    SoundingSums sums;
    for (std::int32_t i = 0; i < count; ++i) {
      file.Read(record_);
      Add(sums);
    }
    return sums;
  }

 private:
  void Fill(const Sounding& one) {
    Require(avro_value_set_int(&id_, one.id));
    Require(avro_value_set_double(&x_, one.x));
    Require(avro_value_set_double(&y_, one.y));
    Require(avro_value_set_double(&z_, one.z));
    Require(avro_value_set_float(&depth_, one.depth));
    Require(avro_value_set_int(&flags_, one.flags));
    Require(avro_value_set_int(&kind_, one.kind));
  }

  void Add(SoundingSums& sums) const {
    sums.id += avro::Int(id_);
    sums.x += avro::Double(x_);
    sums.y += avro::Double(y_);
    sums.z += avro::Double(z_);
    sums.depth += avro::Float(depth_);
    sums.flags += avro::Int(flags_);
    sums.kind += avro::Int(kind_);
  }

  const avro::Type type_{kSchema};
  avro::Value record_{type_};
  // The fields of the record, asked for once.
  avro_value_t id_ = record_.Field(0);
  avro_value_t x_ = record_.Field(1);
  avro_value_t y_ = record_.Field(2);
  avro_value_t z_ = record_.Field(3);
  avro_value_t depth_ = record_.Field(4);
  avro_value_t flags_ = record_.Field(5);
  avro_value_t kind_ = record_.Field(6);
};

}  // namespace

std::unique_ptr<RecordFile> MakeAvroRecords() { return std::make_unique<AvroRecords>(); }

}  // namespace bench
