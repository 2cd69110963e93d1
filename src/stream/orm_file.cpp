#include "stream/orm_file.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <limits>
#include <string_view>

#include "halyard/classes.h"
#include "halyard/object/bstr.h"
#include "object/activation.h"
#include "platform/text.h"
#include "stream/record_buffer.h"

namespace halyard {
namespace {

// The first bytes of a file of units, the closing zero included.
constexpr char kSignature[4] = "Orm";
constexpr float kFormatVersion = 1.0f;
constexpr std::uint32_t kLengthBytes = 4;
constexpr char kLost[] = "records that waited to be written were lost";

// Letter case is ignored, as readers have always done.
bool IsSignature(const char (&bytes)[sizeof kSignature]) noexcept {
  const std::string_view text(bytes,
                              static_cast<std::size_t>(std::find(bytes, std::end(bytes), '\0') - bytes));
  return EqualIgnoringCase(text, std::string_view(kSignature));
}

constexpr std::size_t kHeadBytes = kLengthBytes + Unit::kDataHeaderBytes;

std::uint64_t RecordSize(const ReadyBody& body) noexcept {
  return std::uint64_t{kHeadBytes} + body.head_size + body.bytes.size();
}

// Puts what leads the bytes of a value in the record of a data unit; the bytes put.
std::size_t PutHead(unsigned char* record, const ReadyBody& body) noexcept {
  // Put together in a register: what is stored in pieces cannot be copied at once.
  constexpr int kKindBit = 32;
  constexpr int kTypeBit = 48;
  std::uint64_t words = static_cast<std::uint32_t>(RecordSize(body) - kLengthBytes);
  words |= std::uint64_t{kDataUnit} << kKindBit;
  words |= std::uint64_t{static_cast<std::uint16_t>(body.type)} << kTypeBit;
  static_assert(sizeof words + sizeof body.id == kHeadBytes);
  std::memcpy(record, &words, sizeof words);
  std::memcpy(record + sizeof words, &body.id, sizeof body.id);
  if (body.head_size != 0) std::memcpy(record + kHeadBytes, body.head.data(), body.head_size);
  return kHeadBytes + body.head_size;
}

// Puts the whole record, which has room for it.
void PutReady(unsigned char* record, const ReadyBody& body) noexcept {
  std::memcpy(record + PutHead(record, body), body.bytes.data(), body.bytes.size());
}

// Whether the record is written from where the value lies: small ones through the work
// buffer, large ones only where the system takes both parts in one write.
bool IsWorthwhile(const ReadyBody& body) noexcept {
  const std::uint64_t size = RecordSize(body);
  return size <= kWorkBufferSize || (GathersWrites() && size <= std::numeric_limits<std::uint32_t>::max());
}

// Lets go of the value of a unit's earlier life when the reading into the unit ends, however
// it ends. The unit, if there is one, must be held until then.
class SpareEnd {
 public:
  explicit SpareEnd(Unit* unit) noexcept : unit_(unit) {}
  ~SpareEnd() {
    if (unit_ != nullptr) unit_->DropSpare();
  }
  SpareEnd(const SpareEnd&) = delete;
  SpareEnd& operator=(const SpareEnd&) = delete;

 private:
  Unit* unit_;
};

}  // namespace

OrmFile::OrmFile()
    : session_(ActivateAs<IOrmSession>(kOrmSessionClass)),
      buffer_(std::make_unique<unsigned char[]>(kWorkBufferSize)) {
  SetUnit(ActivateAs<IUnit>(kUnitClass));
}

HRESULT OrmFile::OpenForRead(BSTR sFileName, VARIANT_BOOL bCreateNewSession, VARIANT_BOOL* pbResult) {
  return Call("OpenForRead", [&]() -> HRESULT {
    Out(pbResult) = VARIANT_FALSE;
    CloseChannel();
    const FileHandle handle = OpenFileForRead(ViewOf(sFileName));
    if (handle == kNoFile) return S_OK;
    const HRESULT hr = AttachForRead(handle, bCreateNewSession, pbResult);
    channel_.HaveAlone(handle);
    return hr;
  });
}

HRESULT OrmFile::OpenForWrite(BSTR sFileName, VARIANT_BOOL* pbResult) {
  return Call("OpenForWrite", [&]() -> HRESULT {
    Out(pbResult) = VARIANT_FALSE;
    CloseChannel();
    const FileHandle handle = OpenFileForWrite(ViewOf(sFileName));
    if (handle == kNoFile) return S_OK;
    const HRESULT hr = AttachForWrite(handle, pbResult);
    channel_.HaveAlone(handle);
    return hr;
  });
}

HRESULT OrmFile::get_Session(IOrmSession** ppSession) {
  return Call("Session", [&] { HandOut(ppSession, Ptr(session_)); });
}

HRESULT OrmFile::put_Session(IOrmSession* pSession) {
  return Call("Session", [&] {
    Ptr<IOrmSession> session = QueryFor<IOrmSession>(pSession);
    session_ = std::move(session);
  });
}

HRESULT OrmFile::Close() {
  return Call("Close", [&] { CloseChannel(); });
}

HRESULT OrmFile::AttachForRead(LONG nHandle, VARIANT_BOOL bCreateNewSession, VARIANT_BOOL* pbResult) {
  return Call("AttachForRead", [&] {
    Out(pbResult) = VARIANT_FALSE;
    if (nHandle == kNoFile) return;
    TakeHandle(nHandle);
    if (!ReadHeader()) return;
    if (bCreateNewSession != VARIANT_FALSE || !session_) {
      session_.Reset();
      session_ = ActivateAs<IOrmSession>(kOrmSessionClass);
    }
    const Ptr<IUnit> unit = Require(unit_, "the file has no current unit");
    const Ptr<IOrmSession> session = session_;
    Check(unit->put_Session(session.get()), unit);
    *pbResult = VARIANT_TRUE;
  });
}

HRESULT OrmFile::AttachForWrite(LONG nHandle, VARIANT_BOOL* pbResult) {
  return Call("AttachForWrite", [&] {
    Out(pbResult) = VARIANT_FALSE;
    if (nHandle == kNoFile) return;
    TakeHandle(nHandle);
    *pbResult = ToResult(WriteHeader());
  });
}

HRESULT OrmFile::WriteData(IValueBase* pData, VARIANT_BOOL* pbResult) {
  return Call("WriteData", [&]() -> HRESULT {
    Out(pbResult) = VARIANT_FALSE;
    const Ptr<IUnit> unit = UnitToWrite();
    if (own_unit_ == nullptr || !own_unit_->HoldsValue(pData)) Check(unit->put_Value(pData), unit);
    // A value of a client's may have come back here when it was put.
    Unit* const own = unit_ == unit ? own_unit_ : nullptr;
    if (own == nullptr || !own->IsWhole()) return WriteUnit(unit.get(), pbResult);
    ReadyBody body;
    const bool is_ready = own->FindReadyBody(body) && IsWorthwhile(body);
    *pbResult = ToResult(is_ready ? WriteReady(body) : WriteCurrentUnit());
    return S_OK;
  });
}

HRESULT OrmFile::WriteInfo(IValueDefBase* pData, VARIANT_BOOL* pbResult) {
  return Call("WriteInfo", [&]() -> HRESULT {
    Out(pbResult) = VARIANT_FALSE;
    const Ptr<IUnit> unit = UnitToWrite();
    Check(unit->put_Info(pData), unit);
    return WriteUnit(unit.get(), pbResult);
  });
}

HRESULT OrmFile::WriteUnit(IUnit* pData, VARIANT_BOOL* pbResult) {
  return Call("WriteUnit", [&] {
    Out(pbResult) = VARIANT_FALSE;
    SetUnit(QueryFor<IUnit>(pData));
    *pbResult = ToResult(WriteRecord());
  });
}

HRESULT OrmFile::ReadUnit(IUnit** ppData) {
  return Call("ReadUnit", [&] {
    EmptyOut(ppData);
    if (ReadIntoNewUnit()) *ppData = Ptr(unit_).Detach();
  });
}

HRESULT OrmFile::ReadData(IValueBase** ppData) {
  return Call("ReadData", [&] {
    EmptyOut(ppData);
    const bool done = ReadIntoNewUnit();
    if (!unit_) return;
    if (!done) throw Error(E_POINTER, "there is no further record, or it is cut short");
    if (own_unit_ != nullptr && own_unit_->HoldsOwnValue()) {
      *ppData = own_unit_->ValueForClient().Detach();
    } else {
      const Ptr<IUnit> unit = unit_;
      Check(unit->get_Value(ppData), unit);
    }
  });
}

HRESULT OrmFile::ReadInfo(IValueDefBase** ppData) {
  return Call("ReadInfo", [&] {
    EmptyOut(ppData);
    Ptr<IUnit> unit;
    Check(ReadUnit(unit.Out()), static_cast<IOrmFile*>(this));
    if (unit) Check(unit->get_Info(ppData), unit);
  });
}

HRESULT OrmFile::get_BufferSize(LONG* pnBytes) {
  return Call("BufferSize", [&] { Out(pnBytes) = static_cast<LONG>(channel_.buffer_size()); });
}

HRESULT OrmFile::put_BufferSize(LONG nBytes) {
  return Call("BufferSize", [&] {
    if (nBytes < 0) throw Error(E_INVALIDARG, "a buffer cannot have a negative size");
    const bool whole = channel_.Flush();
    channel_.SetBufferSize(static_cast<std::uint32_t>(nBytes));
    if (!whole) throw Error(E_FAIL, kLost);
  });
}

HRESULT OrmFile::Flush(VARIANT_BOOL* pbResult) {
  return Call("Flush", [&] { Out(pbResult) = ToResult(channel_.Flush()); });
}

void OrmFile::CloseChannel() {
  if (!channel_.Close()) throw Error(E_FAIL, kLost);
}

void OrmFile::TakeHandle(FileHandle handle) {
  if (!channel_.Settle()) throw Error(E_FAIL, kLost);
  channel_.Take(handle);
  is_astray_ = false;
}

void OrmFile::SetUnit(Ptr<IUnit> unit) {
  // Asked before anything changes, and the earlier unit ends last: both may come back here.
  Unit* const own = Unit::Behind(unit.get());
  own_unit_ = own;
  std::swap(unit_, unit);
}

Ptr<IUnit> OrmFile::UnitToWrite() {
  if (buffer_ == nullptr) SetUnit(ActivateAs<IUnit>(kUnitClass));
  return Require(unit_, "the file has no current unit");
}

bool OrmFile::ReadHeader() {
  char signature[sizeof kSignature] = {};
  float version = 0.0f;
  std::uint32_t count = 0;
  if (!channel_.Read(signature, sizeof signature, &count)) return false;
  if (!channel_.Read(&version, sizeof version, &count) || count != sizeof version) return false;
  return IsSignature(signature) && !(version < kFormatVersion) && !(version > kFormatVersion);
}

bool OrmFile::WriteHeader() {
  return channel_.Write(kSignature, sizeof kSignature) &&
         channel_.Write(&kFormatVersion, sizeof kFormatVersion);
}

bool OrmFile::ReadIntoNewUnit() {
  try {
    if (ReadIntoLastValue()) return true;
    if (own_unit_ == nullptr || !own_unit_->Renew()) {
      SetUnit(nullptr);
      SetUnit(ActivateAs<IUnit>(kUnitClass));
    }
    return ReadRecord();
  } catch (...) {
    ReraiseAsOf(kClassName, "ReadUnit");
  }
}

bool OrmFile::ReadIntoLastValue() {
  if (is_astray_ || !channel_.NothingWaits()) return false;
  if (own_unit_ == nullptr || !own_unit_->HasSession(session_.get())) return false;
  const unsigned char* record = channel_.LookAhead(kLengthBytes);
  if (record == nullptr) return false;
  std::uint32_t length = 0;
  std::memcpy(&length, record, kLengthBytes);
  if (channel_.LookAhead(std::uint64_t{kLengthBytes} + length) == nullptr) return false;
  ReadCursor cursor(record + kLengthBytes, length);
  if (!own_unit_->BeginAgain(cursor)) return false;
  channel_.TakeAhead(kLengthBytes + length);
  own_unit_->DecodeAgain(cursor);
  return true;
}

bool OrmFile::ReadRecord() {
  const Ptr<IUnit> unit = Require(unit_, "the file has no current unit");
  // A session of a client's may come back here and make another unit the current one.
  Unit* const own = own_unit_;
  const SpareEnd end(own);
  const Ptr<IOrmSession> session = session_;
  if (own == nullptr || !own->HasSession(session.get())) Check(unit->put_Session(session.get()), unit);
  std::uint32_t length = 0;
  const WorkBuffer work(buffer_);
  RecordBuffer record(work);
  if (is_astray_ || !ReadLength(length)) return false;
  unsigned char* body = record.ReadBody(channel_, length);
  is_astray_ = body == nullptr;
  if (is_astray_) return false;
  // The record may be longer than what the unit uses: the next one follows its length.
  if (own != nullptr) {
    ReadCursor cursor(body, length);
    cursor.Offer(&record.own());
    return own->DecodeRecord(cursor);
  }
  ULONG used = 0;
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(unit->ReadFromBuffer(body, length, &used, &done), unit);
  return done != VARIANT_FALSE;
}

bool OrmFile::ReadLength(std::uint32_t& length) {
  if (const unsigned char* ahead = channel_.NothingWaits() ? channel_.TakeAhead(kLengthBytes) : nullptr) {
    std::memcpy(&length, ahead, kLengthBytes);
    return true;
  }
  std::uint32_t count = 0;
  const bool done = channel_.Read(&length, kLengthBytes, &count) && count == kLengthBytes;
  is_astray_ = !done && count != 0;
  return done;
}

bool OrmFile::WriteReady(const ReadyBody& body) {
  const auto total = static_cast<std::uint32_t>(RecordSize(body));
  if (total > kWorkBufferSize) {
    unsigned char head[kHeadBytes + sizeof body.head];
    return channel_.WriteInOne({head, PutHead(head, body)}, body.bytes);
  }
  if (unsigned char* room = channel_.RoomToWait(total)) {
    PutReady(room, body);
    channel_.AddToWaiting(total);
    return true;
  }
  const WorkBuffer work(buffer_);
  PutReady(work.bytes(), body);
  return channel_.Write(work.bytes(), total);
}

bool OrmFile::WriteCurrentUnit() {
  try {
    return WriteRecord();
  } catch (...) {
    ReraiseAsOf(kClassName, "WriteUnit");
  }
}

bool OrmFile::WriteRecord() {
  const Ptr<IUnit> unit = Require(unit_, "the file has no current unit");
  const WorkBuffer work(buffer_);
  ULONG length = 0;
  Check(unit->get_PacketSize(&length), unit);
  const std::uint64_t total = std::uint64_t{length} + kLengthBytes;
  if (total > std::numeric_limits<std::uint32_t>::max())
    throw Error(E_OUTOFMEMORY, "the unit is too large for a record");
  RecordBuffer record(work);
  // Values pass over bytes that they do not interpret, and a unit may use less than it
  // announced: nothing of earlier records goes out there.
  unsigned char* bytes = record.ReserveZeros(total);
  std::memcpy(bytes, &length, kLengthBytes);
  ULONG written = 0;
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(unit->WriteToBuffer(bytes + kLengthBytes, length, &written, &done), unit);
  if (done == VARIANT_FALSE) return false;
  return channel_.Write(bytes, static_cast<std::uint32_t>(total));
}

}  // namespace halyard
