// Unit: one packet of a stream, with the framing around a value or a definition.
#pragma once

#include <cstdint>

#include "halyard/definitions/value_def_base.h"
#include "halyard/stream/unit.h"
#include "halyard/values/value_base.h"
#include "object/cursor.h"
#include "object/object.h"
#include "stream/orm_session.h"
#include "values/nested_value.h"

namespace halyard {

class Unit;

// Answered by the units of this library only, and only inside it.
struct IInsideUnit : IUnknown {
  using Base = IUnknown;
  static constexpr IID kIid = {0x3C6D8A51, 0x2E0F, 0x4D93, {0xA4, 0x7B, 0x19, 0xC5, 0x6E, 0x80, 0xF2, 0x3D}};

  virtual Unit* Self() noexcept = 0;
};

class Unit : public Object<Unit, IUnit, IInsideUnit> {
 public:
  static constexpr char kClassName[] = "Unit";
  static constexpr ULONG kDataHeaderBytes = 6;  // kind, type code, id

  HRESULT STDMETHODCALLTYPE get_IsDataUnit(VARIANT_BOOL* pbResult) override;
  HRESULT STDMETHODCALLTYPE get_IsInfoUnit(VARIANT_BOOL* pbResult) override;
  HRESULT STDMETHODCALLTYPE get_Type(SHORT* pnType) override;
  HRESULT STDMETHODCALLTYPE get_TypeString(BSTR* psType) override;
  HRESULT STDMETHODCALLTYPE get_Value(IValueBase** ppValue) override;
  HRESULT STDMETHODCALLTYPE put_Value(IValueBase* pValue) override;
  HRESULT STDMETHODCALLTYPE get_Info(IValueDefBase** ppInfo) override;
  HRESULT STDMETHODCALLTYPE put_Info(IValueDefBase* pInfo) override;
  HRESULT STDMETHODCALLTYPE get_PacketSize(ULONG* pdwSize) override;
  HRESULT STDMETHODCALLTYPE get_Session(IOrmSession** ppSession) override;
  HRESULT STDMETHODCALLTYPE put_Session(IOrmSession* pSession) override;
  HRESULT STDMETHODCALLTYPE ReadFromBuffer(unsigned char* pBuffer, ULONG dwBufferSize, ULONG* pdwBytesRead,
                                           VARIANT_BOOL* pbResult) override;
  HRESULT STDMETHODCALLTYPE WriteToBuffer(unsigned char* pBuffer, ULONG dwBufferSize, ULONG* pdwBytesWritten,
                                          VARIANT_BOOL* pbResult) override;

  Unit* Self() noexcept override { return this; }

  // The unit behind an interface; null where it is not one of this library.
  static Unit* Behind(IUnit* unit) noexcept;

  // Whether the unit holds this value, and the value is one of this library. It is a data
  // unit then, as after a put of the value.
  bool HoldsValue(const IValueBase* value) noexcept;

  // Whether it is a data unit with a value of this library.
  [[nodiscard]] bool HoldsOwnValue() const noexcept { return kind_ == kDataUnit && value_.inside != nullptr; }

  // Whether the bytes of the value that the unit holds lie ready.
  [[nodiscard]] bool FindReadyBody(ReadyBody& body) {
    return kind_ == kDataUnit && value_.inside != nullptr && value_.inside->FindReadyBody(body);
  }

  // What Value answers to a client: none in a unit of another kind. Raises what a value of
  // a client's answers to the query.
  [[nodiscard]] Ptr<IValueBase> ValueForClient() const;

  // Becomes a new unit again, with the session that it had, where nobody but the caller
  // holds it; false otherwise. A value that it held may serve a second time.
  bool Renew();

  // Lets go of the value of an earlier life.
  void DropSpare() noexcept { spare_ = HeldValue(); }

  // Takes the unit's own words from a record of a file and becomes a new data unit whose
  // value is the one that it held, renewed. False, and the unit as it was, where that takes
  // more than a glance; the value may be used for nothing but renewal then.
  [[nodiscard]] bool BeginAgain(ReadCursor& cursor);

  // Reads the value that was renewed, from what follows.
  void DecodeAgain(ReadCursor& cursor);

  // Whether the unit is no part of another object, so that it answers for itself.
  [[nodiscard]] bool IsWhole() const noexcept { return !IsPart(); }

  // As ReadFromBuffer for a record of a file, whose memory the cursor may offer.
  [[nodiscard]] bool DecodeRecord(ReadCursor& cursor);

  [[nodiscard]] bool HasSession(const IOrmSession* session) const noexcept {
    return session_.get() == session;
  }

 private:
  // How the reading of a unit ended.
  enum class Reading {
    kCutShort,  // the unit's own words are not all there
    kNoBody,    // the words are there, but no body was read
    kDone,
  };

  // The type code of the body that the kind selects; 0 without one.
  SHORT BodyType();

  [[nodiscard]] bool Encode(WriteCursor& cursor);
  [[nodiscard]] bool EncodeData(WriteCursor& cursor);
  [[nodiscard]] bool EncodeInfo(WriteCursor& cursor);

  Reading Decode(ReadCursor& cursor);
  Reading DecodeData(ReadCursor& cursor, std::uint16_t type);
  Reading DecodeInfo(ReadCursor& cursor, std::uint16_t type);

  // Makes a value for a data unit of that definition, or renews the spare one.
  HeldValue NewValue(const HeldDefinition& definition);

  // Puts a fresh value for a data unit into the slot. False when the session does not
  // know the definition, or the type has no reader.
  bool PrepareValue(std::uint16_t type, SHORT id);
  HeldDefinition FindDefinition(std::uint16_t type, SHORT id);

  HeldValue value_;
  HeldValue spare_;  // of an earlier life, for the value that is read next
  Ptr<IValueDefBase> info_;
  std::uint16_t kind_ = kDataUnit;
  Ptr<IOrmSession> session_;
  OrmSession* own_session_ = nullptr;  // the session, if it is one of this library
};

}  // namespace halyard
