// The encoding of a unit: kind (2 bytes), type code (2), for data the definition's id
// (2), then the body as value or definition writes itself.
#include "definitions/nested_definition.h"
#include "halyard/classes.h"
#include "halyard/object/variant.h"
#include "halyard/types/type_codes.h"
#include "object/activation.h"
#include "object/buffer_calls.h"
#include "stream/unit.h"
#include "values/nested_value.h"

namespace halyard {

namespace {

// Whether values of the type are made by a definition that the session knows.
bool HasDefinition(std::uint16_t type) noexcept {
  return type == kStructure || type == kArray || type == kEnumeration;
}

}  // namespace

HRESULT Unit::WriteToBuffer(unsigned char* pBuffer, ULONG dwBufferSize, ULONG* pdwBytesWritten,
                            VARIANT_BOOL* pbResult) {
  return Call("WriteToBuffer", [&] {
    WriteBuffer(pBuffer, dwBufferSize, pdwBytesWritten, pbResult,
                [&](WriteCursor& cursor) { return Encode(cursor); });
  });
}

HRESULT Unit::ReadFromBuffer(unsigned char* pBuffer, ULONG dwBufferSize, ULONG* pdwBytesRead,
                             VARIANT_BOOL* pbResult) {
  return Call("ReadFromBuffer", [&] {
    ULONG& count = Out(pdwBytesRead);
    VARIANT_BOOL& result = Out(pbResult);
    // True from the start: readers of streams pass over units whose body they cannot
    // read, and go on with the next record.
    result = VARIANT_TRUE;
    ReadCursor cursor(pBuffer, dwBufferSize);
    const Reading reading = Decode(cursor);
    if (reading == Reading::kCutShort) result = VARIANT_FALSE;
    if (reading == Reading::kDone) count = cursor.position();
  });
}

bool Unit::DecodeRecord(ReadCursor& cursor) {
  try {
    return Decode(cursor) != Reading::kCutShort;
  } catch (...) {
    ReraiseAsOf(kClassName, "ReadFromBuffer");
  }
}

bool Unit::BeginAgain(ReadCursor& cursor) {
  if (!HeldOnce() || info_ || own_session_ == nullptr) return false;
  std::uint16_t kind = 0;
  std::uint16_t type = 0;
  SHORT id = 0;
  if (!cursor.Take(kind) || !cursor.Take(type) || !cursor.Take(id) || kind != kDataUnit) return false;
  if (!HasDefinition(type)) return false;
  if (!RenewValue(value_, own_session_->FindAgain(static_cast<SHORT>(type), id))) return false;
  ResetFrame();
  kind_ = kDataUnit;
  return true;
}

void Unit::DecodeAgain(ReadCursor& cursor) {
  try {
    // Whether the body is whole makes no difference to the reader of a record. The value
    // and its parts are those of this library, so nobody can let go of it meanwhile.
    static_cast<void>(DecodeValue(value_, cursor));
  } catch (...) {
    ReraiseAsOf(kClassName, "ReadFromBuffer");
  }
}

bool Unit::Encode(WriteCursor& cursor) {
  if (!cursor.Put(kind_)) return false;
  switch (kind_) {
    case kDataUnit:
      return EncodeData(cursor);
    case kInfoUnit:
      return EncodeInfo(cursor);
    default:
      return true;  // a unit of an unknown kind is its bare kind
  }
}

bool Unit::EncodeData(WriteCursor& cursor) {
  const HeldValue value = value_;
  if (!value.object) return false;
  SHORT type = kInvalid;
  SHORT id = 0;
  Check(value.object->get_Type(&type), value.object);
  Check(value.object->get_Id(&id), value.object);
  return cursor.Put(type) && cursor.Put(id) && EncodeValue(value, cursor);
}

bool Unit::EncodeInfo(WriteCursor& cursor) {
  const Ptr<IValueDefBase> info = info_;
  if (!info) return false;
  SHORT type = kInvalid;
  Check(info->get_Type(&type), info);
  return cursor.Put(type) && EncodeDefinition(*info, cursor);
}

Unit::Reading Unit::Decode(ReadCursor& cursor) {
  std::uint16_t type = 0;
  if (!cursor.Take(kind_) || !cursor.Take(type)) return Reading::kCutShort;
  switch (kind_) {
    case kDataUnit:
      return DecodeData(cursor, type);
    case kInfoUnit:
      return DecodeInfo(cursor, type);
    default:
      return Reading::kNoBody;
  }
}

Unit::Reading Unit::DecodeData(ReadCursor& cursor, std::uint16_t type) {
  SHORT id = 0;
  if (!cursor.Take(id)) return Reading::kCutShort;
  if (!PrepareValue(type, id)) return Reading::kNoBody;
  const HeldValue value = value_;
  Require(value.object, "the value of the data unit could not be made");
  return DecodeValue(value, cursor) ? Reading::kDone : Reading::kNoBody;
}

bool Unit::PrepareValue(std::uint16_t type, SHORT id) {
  if (HasDefinition(type)) {
    const HeldDefinition definition = FindDefinition(type, id);
    if (!definition.object) return false;
    value_ = NewValue(definition);
    return true;
  }
  if (type != kCollection) return false;
  value_ = HeldValue();
  value_ = HeldValue(ActivateAs<IValueBase>(kCollectionClass));
  return true;
}

HeldValue Unit::NewValue(const HeldDefinition& definition) {
  HeldValue spare = std::exchange(spare_, HeldValue());
  if (RenewValue(spare, definition.Known())) return spare;
  spare = HeldValue();
  Ptr<IValueBase> value;
  Check(definition.object->CreateDataObject(value.Out()), definition.object);
  return HeldValue(std::move(value));
}

HeldDefinition Unit::FindDefinition(std::uint16_t type, SHORT id) {
  if (own_session_ != nullptr) {
    const KnownDefinition found = own_session_->FindAgain(static_cast<SHORT>(type), id);
    if (found.object != nullptr) return HeldDefinition(found);
  }
  const Ptr<IOrmSession> session = Require(session_, "the unit has no session to find the definition in");
  Ptr<IValueDefBase> definition;
  VARIANT code{};
  code.vt = VT_I4;
  code.lVal = type;
  Check(session->GetTypeFromId(code, id, definition.Out()), session);
  return HeldDefinition(std::move(definition));
}

Unit::Reading Unit::DecodeInfo(ReadCursor& cursor, std::uint16_t type) {
  info_ = DefinitionForReading(type, std::move(info_));
  const Ptr<IValueDefBase> info = Require(info_, "the type of the info unit has no definition class");
  if (!DecodeDefinition(*info, cursor)) return Reading::kNoBody;
  if (type == kArray) {
    // Simple arrays take the width of their elements from the last calculation.
    ULONG size = 0;
    Check(info->CalculateDataSize(&size), info);
  }
  const Ptr<IOrmSession> session = Require(session_, "the unit has no session to register the definition in");
  VARIANT_BOOL added = VARIANT_FALSE;
  Check(session->AddType(info.get(), &added), session);
  return Reading::kDone;
}

}  // namespace halyard
