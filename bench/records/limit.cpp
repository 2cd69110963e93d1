#include "records/limit.h"

#include <new>

#include "support/buffered_file.h"
#include "support/demand.h"

namespace bench {
namespace {

// A unit's words in front of each record of the library's files: length, kind, type, id.
constexpr std::size_t kFrameSize = 10;

// The record that lies at a place of a buffer. Packed structs may lie anywhere; copying one
// as a whole would only make its members wait for the copy.
const Sounding& SoundingFrom(const char* place) { return *reinterpret_cast<const Sounding*>(place); }

void PutSounding(char* place, std::int32_t position) { new (place) Sounding(SoundingAt(position)); }

class BufferedRecords final : public RecordFile {
 public:
  void Write(const std::string& path, std::int32_t count) override {
    BufferedWriter file(path);
    for (std::int32_t i = 0; i < count; ++i) PutSounding(file.Room(sizeof(Sounding)), i);
    file.Flush();
  }

  SoundingSums Read(const std::string& path, std::int32_t count) override {
    BufferedReader file(path);
    SoundingSums sums;
    for (std::int32_t i = 0; i < count; ++i) {
      const char* const place = file.Take(sizeof(Sounding));
      Demand(place != nullptr, "the file ends too early");
      sums.Add(SoundingFrom(place));
    }
    return sums;
  }
};

class BareRecords final : public RecordFile {
 public:
  void Write(const std::string& path, std::int32_t count) override {
    const Descriptor file = Descriptor::ForWriting(path);
    char record[kFrameSize + sizeof(Sounding)] = {};
    for (std::int32_t i = 0; i < count; ++i) {
      PutSounding(record + kFrameSize, i);
      file.Write(record, sizeof record);
    }
  }

  SoundingSums Read(const std::string& path, std::int32_t count) override {
    BufferedReader file(path);
    SoundingSums sums;
    for (std::int32_t i = 0; i < count; ++i) {
      const char* const place = file.Take(kFrameSize + sizeof(Sounding));
      Demand(place != nullptr, "the file ends too early");
      sums.Add(SoundingFrom(place + kFrameSize));
    }
    return sums;
  }
};

}  // namespace

std::unique_ptr<RecordFile> MakeBufferedRecords() { return std::make_unique<BufferedRecords>(); }

std::unique_ptr<RecordFile> MakeBareRecords() { return std::make_unique<BareRecords>(); }

}  // namespace bench
