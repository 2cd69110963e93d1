#include "tools/halyard/unit_writer.h"

#include <algorithm>
#include <limits>

#include "tools/halyard/client.h"
#include "tools/halyard/failure.h"

namespace halyard::tool {
namespace {

constexpr std::size_t kSmallestBuffer = std::size_t{1} << 16;
constexpr std::size_t kLargestUnit = std::numeric_limits<ULONG>::max();

}  // namespace

UnitWriter::UnitWriter(Output& output)
    : records_(output), unit_(CreateObject<IUnit>(kUnitClass)), buffer_(kSmallestBuffer) {}

void UnitWriter::Definition(const Ptr<IValueDefBase>& definition) {
  Check(unit_->put_Info(definition.get()), unit_);
  WriteUnit();
}

void UnitWriter::Value(const Ptr<IValueBase>& value) {
  Check(unit_->put_Value(value.get()), unit_);
  WriteUnit();
}

void UnitWriter::WriteUnit() {
  // An array of structures with texts needs more than it announces, so the room grows
  // until it is enough.
  for (;;) {
    ULONG written = 0;
    VARIANT_BOOL done = VARIANT_FALSE;
    const auto room = static_cast<ULONG>(std::min(buffer_.size(), kLargestUnit));
    Check(unit_->WriteToBuffer(buffer_.data(), room, &written, &done), unit_);
    if (done != VARIANT_FALSE) {
      records_.Write(std::span(buffer_).first(written));
      return;
    }
    if (room == kLargestUnit) {
      throw Failure(ExitCode::kUsage,
                    "a value takes more than 4 GB, and a record cannot hold it; import without --array");
    }
    buffer_.resize(std::min(buffer_.size() * 2, kLargestUnit));
  }
}

}  // namespace halyard::tool
