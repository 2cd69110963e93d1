#include "stations/limit.h"

#include <algorithm>

#include "support/buffered_file.h"

namespace bench {
namespace {

// A unit's words in front of each record of the library's files: length, kind, type, id.
constexpr std::size_t kFrameSize = 10;
constexpr std::size_t kLargestRecord = 256;

// Puts one thing after another at a place that has room for the largest record.
class Writer {
 public:
  explicit Writer(char* place) : begin_(place), place_(place) {}

  template <class T>
  void Put(const T& value) {
    std::memcpy(place_, &value, sizeof value);
    place_ += sizeof value;
  }
  void PutText(const std::string& text) {
    Put(static_cast<std::uint16_t>(text.size()));
    std::memcpy(place_, text.data(), text.size());
    place_ += text.size();
  }
  std::size_t size() const { return static_cast<std::size_t>(place_ - begin_); }

 private:
  char* begin_;
  char* place_;
};

// Takes one thing after another.
class Reader {
 public:
  explicit Reader(const char* place) : place_(place) {}

  template <class T>
  T Take() {
    T value;
    std::memcpy(&value, place_, sizeof value);
    place_ += sizeof value;
    return value;
  }
  std::string_view TakeText() {
    const std::size_t size = Take<std::uint16_t>();
    const std::string_view text(place_, size);
    place_ += size;
    return text;
  }

 private:
  const char* place_;
};

// Encodes a record behind its length, a 16-bit word; answers the bytes of both.
std::size_t Encode(const Station& one, char* place) {
  Writer writer(place + sizeof(std::uint16_t));
  writer.Put(one.id);
  writer.PutText(Names()[one.name]);
  writer.Put(static_cast<std::uint8_t>(one.has_note ? 0 : 1));
  if (one.has_note) writer.PutText(Notes()[one.note]);
  writer.Put(one.x);
  writer.Put(one.y);
  writer.Put(one.z);
  writer.Put(one.samples);
  writer.Put(static_cast<std::uint8_t>(one.state));
  const auto size = static_cast<std::uint16_t>(writer.size());
  std::memcpy(place, &size, sizeof size);
  return sizeof size + writer.size();
}

void AddRecord(const char* place, StationSums& sums) {
  Reader reader(place);
  sums.id += reader.Take<std::int32_t>();
  sums.name += SumOfCharacters(reader.TakeText());
  if (reader.Take<std::uint8_t>() != 0) {
    ++sums.without_note;
  } else {
    sums.note += SumOfCharacters(reader.TakeText());
  }
  sums.x += reader.Take<double>();
  sums.y += reader.Take<double>();
  sums.z += reader.Take<double>();
  struct Samples {
    float samples[kSampleCount];
  };
  sums.samples += SumOfSamples(reader.Take<Samples>().samples);
  sums.state += reader.Take<std::uint8_t>();
}

// Reads records of a length word, `gap` bytes of no meaning and the encoding.
StationSums ReadRecords(const std::string& path, std::int32_t count, std::size_t gap) {
  BufferedReader file(path);
  StationSums sums;
  for (std::int32_t i = 0; i < count; ++i) {
    const char* const head = file.Take(sizeof(std::uint16_t) + gap);
    Demand(head != nullptr, "the file ends too early");
    const char* const record = file.Take(Reader(head).Take<std::uint16_t>());
    Demand(record != nullptr, "the file ends inside a record");
    AddRecord(record, sums);
  }
  return sums;
}

class BufferedStations final : public StationFile {
 public:
  void Write(const std::string& path, std::int32_t count) override {
    BufferedWriter file(path);
    char record[kLargestRecord];
    for (std::int32_t i = 0; i < count; ++i) file.Put(record, Encode(StationAt(i), record));
    file.Flush();
  }

  StationSums Read(const std::string& path, std::int32_t count) override {
    return ReadRecords(path, count, 0);
  }
};

class BareStations final : public StationFile {
 public:
  void Write(const std::string& path, std::int32_t count) override {
    const Descriptor file = Descriptor::ForWriting(path);
    char record[kGap + kLargestRecord] = {};
    for (std::int32_t i = 0; i < count; ++i) {
      const std::size_t size = Encode(StationAt(i), record + kGap);
      std::memmove(record, record + kGap, sizeof(std::uint16_t));
      file.Write(record, kGap + size);
    }
  }

  StationSums Read(const std::string& path, std::int32_t count) override {
    return ReadRecords(path, count, kGap);
  }

 private:
  // The rest of the library's frame, so that as many bytes are written.
  static constexpr std::size_t kGap = kFrameSize - sizeof(std::uint16_t);
};

}  // namespace

std::unique_ptr<StationFile> MakeBufferedStations() { return std::make_unique<BufferedStations>(); }

std::unique_ptr<StationFile> MakeBareStations() { return std::make_unique<BareStations>(); }

}  // namespace bench
