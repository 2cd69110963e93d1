#include "records/halyard.h"

#include "support/buffered_file.h"
#include "support/demand.h"

namespace bench {

using namespace halyard;

namespace {

constexpr SHORT kSoundingId = 1;

// Positions of the members.
enum Member : LONG { kId, kX, kY, kZ, kDepth, kFlags, kKind };

class HalyardRecords final : public RecordFile {
 public:
  // With a buffer of 0 bytes each record is written at once.
  explicit HalyardRecords(LONG buffer_size) : buffer_size_(buffer_size) {}

  void Write(const std::string& path, std::int32_t count) override {
    const auto definition = DefineSounding();
    const auto file = NewBufferedFile(path, definition, buffer_size_);
    const auto record = NewValue(definition);
    VARIANT_BOOL done = VARIANT_FALSE;
    for (std::int32_t i = 0; i < count; ++i) {
      FillSounding(*record, SoundingAt(i));
      Check(file->WriteData(record.get(), &done));
      DemandTrue(done, "a record cannot be written");
    }
    Check(file->Close());
  }

  SoundingSums Read(const std::string& path, std::int32_t count) override {
    const auto file = OpenFile(path);
    SoundingSums sums;
    for (std::int32_t i = 0; i < count; ++i) Add(*ReadValue(file), sums);
    return sums;
  }

 private:
  static VARIANT Item(IValueBase& record, Member member) { return NumberOf(record, Position(member)); }

  static void Add(IValueBase& record, SoundingSums& sums) {
    sums.id += Item(record, kId).lVal;
    sums.x += Item(record, kX).dblVal;
    sums.y += Item(record, kY).dblVal;
    sums.z += Item(record, kZ).dblVal;
    sums.depth += Item(record, kDepth).fltVal;
    sums.flags += Item(record, kFlags).iVal;
    sums.kind += Item(record, kKind).bVal;
  }

  const LONG buffer_size_;
};

}  // namespace

Ptr<IStructureDef> DefineSounding() {
  const auto definition = NewStructure(kSoundingId);
  AddMember(definition, "id", kLong);
  for (const char* name : {"x", "y", "z"}) AddMember(definition, name, kReal);
  AddMember(definition, "depth", kShortReal);
  AddMember(definition, "flags", kShort);
  AddMember(definition, "kind", kByte);
  Calculate(definition);
  return definition;
}

void FillSounding(IValueBase& record, const Sounding& content) {
  Check(record.put_Item(Position(kId), Number(LONG{content.id})));
  Check(record.put_Item(Position(kX), Number(content.x)));
  Check(record.put_Item(Position(kY), Number(content.y)));
  Check(record.put_Item(Position(kZ), Number(content.z)));
  Check(record.put_Item(Position(kDepth), Number(content.depth)));
  Check(record.put_Item(Position(kFlags), Number(SHORT{content.flags})));
  Check(record.put_Item(Position(kKind), Number(BYTE{content.kind})));
}

std::unique_ptr<RecordFile> MakeHalyardRecords() { return std::make_unique<HalyardRecords>(0); }

std::unique_ptr<RecordFile> MakeHalyardBufferedRecords() {
  return std::make_unique<HalyardRecords>(static_cast<LONG>(kFileBufferSize));
}

}  // namespace bench
