#include "rivals/avro.h"

#include "stations/rivals.h"

namespace bench {
namespace {

using avro::Require;

constexpr char kSchema[] = R"({"type": "record", "name": "Station", "fields": [
  {"name": "id", "type": "int"},
  {"name": "name", "type": "string"},
  {"name": "note", "type": ["null", "string"]},
  {"name": "position", "type": {"type": "record", "name": "Position", "fields": [
    {"name": "x", "type": "double"}, {"name": "y", "type": "double"}, {"name": "z", "type": "double"}]}},
  {"name": "samples", "type": {"type": "array", "items": "float"}},
  {"name": "state", "type": {"type": "enum", "name": "State",
                             "symbols": ["planned", "working", "idle", "closed"]}}]})";

// The branches of the union of the note.
constexpr int kNoNote = 0;
constexpr int kANote = 1;

// A part of a record or array.
avro_value_t PartOf(const avro_value_t& whole, std::size_t position) {
  avro_value_t part;
  Require(avro_value_get_by_index(&whole, position, &part, nullptr));
  return part;
}

// Avro counts a text's closing zero.
void SetText(avro_value_t& value, const std::string& text) {
  Require(avro_value_set_string_len(&value, text.c_str(), text.size() + 1));
}

std::int64_t TextSum(const avro_value_t& value) {
  const char* text = nullptr;
  std::size_t size = 0;
  Require(avro_value_get_string(&value, &text, &size));
  return SumOfCharacters(std::string_view(text, size - 1));
}

class AvroStations final : public StationFile {
 public:
  void Write(const std::string& path, std::int32_t count) override {
    avro::FileWriter file(path, type_);
    for (std::int32_t i = 0; i < count; ++i) {
      Fill(StationAt(i));
      file.Append(record_);
    }
  }

  StationSums Read(const std::string& path, std::int32_t count) override {
    avro::FileReader file(path);
    StationSums sums;
    for (std::int32_t i = 0; i < count; ++i) {
      file.Read(record_);
      Add(sums);
    }
    return sums;
  }

 private:
  void Fill(const Station& one) {
    Require(avro_value_reset(record_.get()));
    Require(avro_value_set_int(&id_, one.id));
    SetText(name_, Names()[one.name]);
    avro_value_t note;
    Require(avro_value_set_branch(&note_, one.has_note ? kANote : kNoNote, &note));
    if (one.has_note) SetText(note, Notes()[one.note]);
    Require(avro_value_set_double(&x_, one.x));
    Require(avro_value_set_double(&y_, one.y));
    Require(avro_value_set_double(&z_, one.z));
    for (const float sample : one.samples) {
      avro_value_t element;
      Require(avro_value_append(&samples_, &element, nullptr));
      Require(avro_value_set_float(&element, sample));
    }
    Require(avro_value_set_enum(&state_, one.state));
  }

  void Add(StationSums& sums) const {
    sums.id += avro::Int(id_);
    sums.name += TextSum(name_);
    AddNote(sums);
    sums.x += avro::Double(x_);
    sums.y += avro::Double(y_);
    sums.z += avro::Double(z_);
    for (std::size_t i = 0; i < kSampleCount; ++i) sums.samples += avro::Float(PartOf(samples_, i));
    int state = 0;
    Require(avro_value_get_enum(&state_, &state));
    sums.state += state;
  }

  void AddNote(StationSums& sums) const {
    int branch = kNoNote;
    Require(avro_value_get_discriminant(&note_, &branch));
    if (branch == kNoNote) {
      ++sums.without_note;
      return;
    }
    avro_value_t note;
    Require(avro_value_get_current_branch(&note_, &note));
    sums.note += TextSum(note);
  }

  const avro::Type type_{kSchema};
  avro::Value record_{type_};
  // The fields of the record, asked for once.
  avro_value_t id_ = record_.Field(0);
  avro_value_t name_ = record_.Field(1);
  avro_value_t note_ = record_.Field(2);
  avro_value_t x_ = PartOf(record_.Field(3), 0);
  avro_value_t y_ = PartOf(record_.Field(3), 1);
  avro_value_t z_ = PartOf(record_.Field(3), 2);
  avro_value_t samples_ = record_.Field(4);
  avro_value_t state_ = record_.Field(5);
};

}  // namespace

std::unique_ptr<StationFile> MakeAvroStations() { return std::make_unique<AvroStations>(); }

}  // namespace bench
