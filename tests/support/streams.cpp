#include "tests/support/streams.h"

namespace halyard::test {
namespace {

constexpr std::size_t kLengthBytes = 4;

VARIANT_BOOL BoolOf(bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; }

// The answer of a call, which must be one of the two automation booleans.
template <class Call>
bool Answered(Call&& call) {
  const VARIANT_BOOL result = Result<VARIANT_BOOL>(call);
  EXPECT_TRUE(result == VARIANT_TRUE || result == VARIANT_FALSE) << result;
  return result == VARIANT_TRUE;
}

}  // namespace

Ptr<IOrmFile> NewFile() { return CreateObject<IOrmFile>(kOrmFileClass); }

bool OpenForRead(const Ptr<IOrmFile>& file, BSTR name, bool new_session) {
  return Answered([&](VARIANT_BOOL* out) { return file->OpenForRead(name, BoolOf(new_session), out); });
}

bool OpenForWrite(const Ptr<IOrmFile>& file, BSTR name) {
  return Answered([&](VARIANT_BOOL* out) { return file->OpenForWrite(name, out); });
}

bool AttachForRead(const Ptr<IOrmFile>& file, LONG handle, bool new_session) {
  return Answered([&](VARIANT_BOOL* out) { return file->AttachForRead(handle, BoolOf(new_session), out); });
}

bool AttachForWrite(const Ptr<IOrmFile>& file, LONG handle) {
  return Answered([&](VARIANT_BOOL* out) { return file->AttachForWrite(handle, out); });
}

bool WriteData(const Ptr<IOrmFile>& file, IValueBase* value) {
  return Answered([&](VARIANT_BOOL* out) { return file->WriteData(value, out); });
}

bool WriteInfo(const Ptr<IOrmFile>& file, IValueDefBase* definition) {
  return Answered([&](VARIANT_BOOL* out) { return file->WriteInfo(definition, out); });
}

bool WriteUnit(const Ptr<IOrmFile>& file, IUnit* unit) {
  return Answered([&](VARIANT_BOOL* out) { return file->WriteUnit(unit, out); });
}

Ptr<IUnit> ReadUnit(const Ptr<IOrmFile>& file) { return Get(file, &IOrmFile::ReadUnit); }
Ptr<IValueBase> ReadData(const Ptr<IOrmFile>& file) { return Get(file, &IOrmFile::ReadData); }
Ptr<IValueDefBase> ReadInfo(const Ptr<IOrmFile>& file) { return Get(file, &IOrmFile::ReadInfo); }

Ptr<IValueDefBase> FindInSession(const Ptr<IOrmFile>& file, LONG type, SHORT id) {
  const auto session = Get(file, &IOrmFile::get_Session);
  return Result<IValueDefBase*>(
      [&](IValueDefBase** out) { return session->GetTypeFromId(I4(type).get(), id, out); });
}

Bytes FileHeader() { return Hex("4F 72 6D 00 00 00 80 3F"); }

Bytes Record(std::string_view unit) {
  const Bytes bytes = Hex(unit);
  return Join({LittleEndian(bytes.size(), kLengthBytes), bytes});
}

Bytes FileOf(std::initializer_list<std::string_view> units) {
  Bytes result = FileHeader();
  for (const std::string_view unit : units) result = Join({result, Record(unit)});
  return result;
}

std::vector<Bytes> RecordsOf(const Bytes& file) {
  std::vector<Bytes> records;
  std::size_t place = FileHeader().size();
  while (place + kLengthBytes <= file.size()) {
    std::size_t size = 0;
    for (std::size_t i = kLengthBytes; i-- > 0;) size = size << 8 | file[place + i];
    size += kLengthBytes;
    if (size > file.size() - place) break;
    const auto start = file.begin() + static_cast<std::ptrdiff_t>(place);
    records.emplace_back(start, start + static_cast<std::ptrdiff_t>(size));
    place += size;
  }
  return records;
}

}  // namespace halyard::test
