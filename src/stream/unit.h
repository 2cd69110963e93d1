// Unit: one packet of a stream, with the framing around a value or a definition.
#pragma once

#include <cstdint>

#include "halyard/definitions/value_def_base.h"
#include "halyard/stream/orm_session.h"
#include "halyard/stream/unit.h"
#include "halyard/values/value_base.h"
#include "object/cursor.h"
#include "object/object.h"

namespace halyard {

class Unit : public Object<Unit, IUnit> {
 public:
  static constexpr char kClassName[] = "Unit";

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

  // Puts a fresh value for a data unit into the slot. False when the session does not
  // know the definition, or the type has no reader.
  bool PrepareValue(std::uint16_t type, SHORT id);
  Ptr<IValueDefBase> FindDefinition(std::uint16_t type, SHORT id);

  Ptr<IValueBase> value_;
  Ptr<IValueDefBase> info_;
  std::uint16_t kind_ = kDataUnit;
  Ptr<IOrmSession> session_;
};

}  // namespace halyard
