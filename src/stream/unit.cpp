#include "stream/unit.h"

#include <utility>

#include "types/type_names.h"

namespace halyard {
namespace {

constexpr ULONG kInfoHeaderBytes = 4;  // kind, type code
constexpr char kNoValue[] = "the data unit has no value";
constexpr char kNoInfo[] = "the info unit has no definition";

}  // namespace

HRESULT Unit::get_IsDataUnit(VARIANT_BOOL* pbResult) {
  return Call("IsDataUnit", [&] { Out(pbResult) = ToResult(kind_ == kDataUnit); });
}

HRESULT Unit::get_IsInfoUnit(VARIANT_BOOL* pbResult) {
  return Call("IsInfoUnit", [&] { Out(pbResult) = ToResult(kind_ == kInfoUnit); });
}

HRESULT Unit::get_Type(SHORT* pnType) {
  return Call("Type", [&] { Out(pnType) = BodyType(); });
}

HRESULT Unit::get_TypeString(BSTR* psType) {
  return Call("TypeString", [&] { HandOut(psType, [&] { return TypeCodeNameText(BodyType()); }); });
}

HRESULT Unit::get_Value(IValueBase** ppValue) {
  return Call("Value", [&] {
    EmptyOut(ppValue);
    *ppValue = ValueForClient().Detach();
  });
}

HRESULT Unit::put_Value(IValueBase* pValue) {
  return Call("Value", [&] {
    kind_ = kDataUnit;
    // Emptied first: the slot stays empty when the query fails.
    value_ = HeldValue();
    value_ = HeldValue(QueryFor<IValueBase>(pValue));
  });
}

HRESULT Unit::get_Info(IValueDefBase** ppInfo) {
  return Call("Info", [&] {
    EmptyOut(ppInfo);
    if (kind_ == kInfoUnit) *ppInfo = QueryFor<IValueDefBase>(Ptr(info_).get()).Detach();
  });
}

HRESULT Unit::put_Info(IValueDefBase* pInfo) {
  return Call("Info", [&] {
    kind_ = kInfoUnit;
    info_.Reset();
    info_ = QueryFor<IValueDefBase>(pInfo);
  });
}

HRESULT Unit::get_PacketSize(ULONG* pdwSize) {
  return Call("PacketSize", [&] {
    ULONG& result = Out(pdwSize);
    ULONG size = 0;
    if (kind_ == kDataUnit) {
      const Ptr<IValueBase> value = Require(value_.object, kNoValue);
      Check(value->get_PacketSize(&size), value);
      result = size + kDataHeaderBytes;
    } else {
      const Ptr<IValueDefBase> info = Require(info_, kNoInfo);
      Check(info->get_PacketSize(&size), info);
      result = size + kInfoHeaderBytes;
    }
  });
}

HRESULT Unit::get_Session(IOrmSession** ppSession) {
  return Call("Session", [&] { HandOut(ppSession, Ptr(session_)); });
}

HRESULT Unit::put_Session(IOrmSession* pSession) {
  return Call("Session", [&] {
    Ptr<IOrmSession> session = QueryFor<IOrmSession>(pSession);
    // Asked before anything changes, and the earlier session ends last: both may come back here.
    OrmSession* const own = OrmSession::Behind(session.get());
    own_session_ = own;
    std::swap(session_, session);
  });
}

Unit* Unit::Behind(IUnit* unit) noexcept {
  IInsideUnit* inside = nullptr;
  if (unit == nullptr) return nullptr;
  if (FAILED(unit->QueryInterface(IidOf<IInsideUnit>, reinterpret_cast<void**>(&inside)))) return nullptr;
  inside->Release();
  Unit* self = inside->Self();
  return static_cast<IUnit*>(self) == unit ? self : nullptr;
}

bool Unit::HoldsValue(const IValueBase* value) noexcept {
  if (value_.inside == nullptr || value_.object.get() != value) return false;
  kind_ = kDataUnit;
  return true;
}

bool Unit::Renew() {
  if (!HeldOnce()) return false;
  ResetFrame();
  info_.Reset();
  spare_ = std::exchange(value_, HeldValue());
  if (spare_.inside == nullptr) spare_ = HeldValue();
  kind_ = kDataUnit;
  return true;
}

Ptr<IValueBase> Unit::ValueForClient() const {
  if (kind_ != kDataUnit) return {};
  if (value_.inside != nullptr) return value_.object;
  return QueryFor<IValueBase>(Ptr(value_.object).get());
}

SHORT Unit::BodyType() {
  SHORT type = kInvalid;
  if (kind_ == kDataUnit) {
    const Ptr<IValueBase> value = value_.object;
    if (value) Check(value->get_Type(&type), value);
  } else if (kind_ == kInfoUnit) {
    const Ptr<IValueDefBase> info = info_;
    if (info) Check(info->get_Type(&type), info);
  }
  return type;
}

}  // namespace halyard
