#include "tests/fuzz/support/writing.h"

#include "tests/fuzz/support/encoding.h"

namespace halyard::fuzz {

UnitWriter::UnitWriter(ULONG most) : most_(most), file_(CreateObject<IOrmFile>(kOrmFileClass)) {
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(file_->AttachForWrite(content_.NewHandle(), &done));
  Hold(done != VARIANT_FALSE, "an empty file takes a header");
}

void UnitWriter::WriteUnit(const Ptr<IUnit>& unit) {
  bool fits = false;
  if (!IsTried(unit, fits)) return;
  VARIANT_BOOL done = VARIANT_FALSE;
  const HRESULT hr = file_->WriteUnit(unit.get(), &done);
  Note(hr, done, fits);
}

void UnitWriter::WriteBody(const Ptr<IUnit>& unit) {
  bool fits = false;
  if (!IsTried(unit, fits)) return;
  Ptr<IValueBase> value;
  Check(unit->get_Value(value.Out()));
  Ptr<IValueDefBase> definition;
  Check(unit->get_Info(definition.Out()));
  VARIANT_BOOL done = VARIANT_FALSE;
  const HRESULT hr = value ? file_->WriteData(value.get(), &done) : file_->WriteInfo(definition.get(), &done);
  Note(hr, done, fits);
}

Bytes UnitWriter::Close() {
  Check(file_->Close());
  return content_.Content();
}

bool UnitWriter::IsTried(const Ptr<IUnit>& unit, bool& fits) const {
  ULONG size = 0;
  if (FAILED(unit->get_PacketSize(&size)) || size > most_) return false;
  fits = WriteInto(unit, size).has_value();
  return true;
}

void UnitWriter::Note(HRESULT hr, VARIANT_BOOL done, bool fits) {
  const bool written = SUCCEEDED(hr) && done != VARIANT_FALSE;
  Hold(written == fits, "a file takes the units that fit into a buffer of their size");
  count_ += written ? 1 : 0;
}

}  // namespace halyard::fuzz
