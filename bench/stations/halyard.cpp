#include "stations/halyard.h"

#include <span>

#include "support/buffered_file.h"
#include "support/client.h"

namespace bench {

using namespace halyard;

namespace {

constexpr SHORT kStationId = 1;
constexpr SHORT kPositionId = 2;
constexpr SHORT kStateId = 3;

// Positions of the members, and of those of the nested record.
enum Member : LONG { kId, kName, kNote, kPosition, kSamples, kState };
enum Axis : LONG { kX, kY, kZ };

Ptr<IStructureDef> DefinePosition() {
  const auto definition = NewStructure(kPositionId);
  for (const char* name : {"x", "y", "z"}) AddMember(definition, name, kReal);
  return definition;
}

Ptr<IEnumerationDef> DefineState() {
  VARIANT_BOOL done = VARIANT_FALSE;
  const auto definition = CreateObject<IEnumerationDef>(kEnumerationInfoClass);
  Check(definition->put_Id(kStateId));
  Check(definition->put_DataType(kChar));
  LONG number = 0;
  for (const char* name : {"planned", "working", "idle", "closed"}) {
    Check(definition->AddMember(Name(name).get(), number++, &done));
  }
  return definition;
}

Ptr<IStructureDef> DefineStation() {
  VARIANT_BOOL done = VARIANT_FALSE;
  const auto definition = NewStructure(kStationId);
  AddMember(definition, "id", kLong);
  AddMember(definition, "name", kString);
  AddMember(definition, "note", kString);
  Check(definition->put_CanBeNull(Position(kNote), VARIANT_TRUE));
  Check(definition->AddMember(Name("position").get(), DefinePosition().get(), &done));
  Check(definition->AddSimpleArrayMember(Name("samples").get(), kShortReal, LONG{kSampleCount}, &done));
  Check(definition->AddMember(Name("state").get(), DefineState().get(), &done));
  Calculate(definition);
  return definition;
}

std::vector<Variant> AsVariants(const std::vector<std::string>& texts) {
  std::vector<Variant> result;
  for (const std::string& text : texts) result.push_back(TextValue(text));
  return result;
}

Ptr<IValueBase> At(IValueBase& record, Member member) {
  Ptr<IValueBase> object;
  Check(record.get_At(Position(member), object.Out()));
  return object;
}

// The samples of a record, where they lie.
std::span<float, kSampleCount> SamplesOf(IValueBase& record) {
  LONG_PTR address = 0;
  Check(At(record, kSamples).As<ISimpleArray>()->get_GetDataPointer(&address));
  return std::span<float, kSampleCount>(reinterpret_cast<float*>(address), kSampleCount);
}

// One record that is filled again and again, with the parts that are asked for once.
class Filled {
 public:
  explicit Filled(const Ptr<IStructureDef>& definition)
      : record_(NewValue(definition)), position_(At(*record_, kPosition)), samples_(SamplesOf(*record_)) {}

  void Fill(const Station& content) {
    Check(record_->put_Item(Position(kId), Number(LONG{content.id})));
    Check(record_->put_Item(Position(kName), names_[content.name].get()));
    Check(record_->put_Item(Position(kNote), content.has_note ? notes_[content.note].get() : null_.get()));
    Check(position_->put_Item(Position(kX), Number(content.x)));
    Check(position_->put_Item(Position(kY), Number(content.y)));
    Check(position_->put_Item(Position(kZ), Number(content.z)));
    std::copy(std::begin(content.samples), std::end(content.samples), samples_.begin());
    Check(record_->put_Item(Position(kState), Number(LONG{content.state})));
  }

  IValueBase* get() const { return record_.get(); }

 private:
  const std::vector<Variant> names_ = AsVariants(Names());
  const std::vector<Variant> notes_ = AsVariants(Notes());
  const Variant null_ = Variant::Null();
  Ptr<IValueBase> record_;
  Ptr<IValueBase> position_;
  std::span<float, kSampleCount> samples_;
};

VARIANT Item(IValueBase& record, LONG member) { return NumberOf(record, Position(member)); }

// The sum of a text member's characters; the text is freed.
std::int64_t TextSum(IValueBase& record, Member member) {
  Variant text;
  Check(record.get_Item(Position(member), text.Out()));
  return SumOfCharacters(ViewOf(text->bstrVal));
}

void AddNote(IValueBase& record, StationSums& sums) {
  Variant note;
  Check(record.get_Item(Position(kNote), note.Out()));
  if (note.type() == VT_NULL) {
    ++sums.without_note;
  } else {
    sums.note += SumOfCharacters(ViewOf(note->bstrVal));
  }
}

void AddRecord(IValueBase& record, StationSums& sums) {
  sums.id += Item(record, kId).lVal;
  sums.name += TextSum(record, kName);
  AddNote(record, sums);
  const Ptr<IValueBase> position = At(record, kPosition);
  sums.x += Item(*position, kX).dblVal;
  sums.y += Item(*position, kY).dblVal;
  sums.z += Item(*position, kZ).dblVal;
  sums.samples += SumOfSamples(SamplesOf(record));
  sums.state += Item(record, kState).lVal;
}

class HalyardStations final : public StationFile {
 public:
  // With a buffer of 0 bytes each record is written at once.
  explicit HalyardStations(LONG buffer_size) : buffer_size_(buffer_size) {}

  void Write(const std::string& path, std::int32_t count) override {
    const auto definition = DefineStation();
    const auto file = NewBufferedFile(path, definition, buffer_size_);
    Filled record(definition);
    VARIANT_BOOL done = VARIANT_FALSE;
    for (std::int32_t i = 0; i < count; ++i) {
      record.Fill(StationAt(i));
      Check(file->WriteData(record.get(), &done));
      DemandTrue(done, "a record cannot be written");
    }
    Check(file->Close());
  }

  StationSums Read(const std::string& path, std::int32_t count) override {
    const auto file = OpenFile(path);
    StationSums sums;
    for (std::int32_t i = 0; i < count; ++i) AddRecord(*ReadValue(file), sums);
    return sums;
  }

 private:
  const LONG buffer_size_;
};

}  // namespace

std::unique_ptr<StationFile> MakeHalyardStations() { return std::make_unique<HalyardStations>(0); }

std::unique_ptr<StationFile> MakeHalyardBufferedStations() {
  return std::make_unique<HalyardStations>(static_cast<LONG>(kFileBufferSize));
}

}  // namespace bench
