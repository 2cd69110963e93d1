// OrmFile: a file of units behind a handle.
#pragma once

#include <cstdint>
#include <memory>

#include "halyard/definitions/value_def_base.h"
#include "halyard/stream/orm_file.h"
#include "halyard/stream/orm_session.h"
#include "halyard/stream/unit.h"
#include "halyard/values/value_base.h"
#include "object/object.h"
#include "platform/file.h"

namespace halyard {

class OrmFile : public Object<OrmFile, IOrmFile> {
 public:
  static constexpr char kClassName[] = "OrmFile";

  OrmFile();
  ~OrmFile();

  HRESULT STDMETHODCALLTYPE OpenForRead(BSTR sFileName, VARIANT_BOOL bCreateNewSession,
                                        VARIANT_BOOL* pbResult) override;
  HRESULT STDMETHODCALLTYPE OpenForWrite(BSTR sFileName, VARIANT_BOOL* pbResult) override;
  HRESULT STDMETHODCALLTYPE get_Session(IOrmSession** ppSession) override;
  HRESULT STDMETHODCALLTYPE put_Session(IOrmSession* pSession) override;
  HRESULT STDMETHODCALLTYPE Close() override;
  HRESULT STDMETHODCALLTYPE WriteData(IValueBase* pData, VARIANT_BOOL* pbResult) override;
  HRESULT STDMETHODCALLTYPE ReadData(IValueBase** ppData) override;
  HRESULT STDMETHODCALLTYPE WriteInfo(IValueDefBase* pData, VARIANT_BOOL* pbResult) override;
  HRESULT STDMETHODCALLTYPE ReadInfo(IValueDefBase** ppData) override;
  HRESULT STDMETHODCALLTYPE WriteUnit(IUnit* pData, VARIANT_BOOL* pbResult) override;
  HRESULT STDMETHODCALLTYPE ReadUnit(IUnit** ppData) override;
  HRESULT STDMETHODCALLTYPE AttachForRead(LONG nHandle, VARIANT_BOOL bCreateNewSession,
                                          VARIANT_BOOL* pbResult) override;
  HRESULT STDMETHODCALLTYPE AttachForWrite(LONG nHandle, VARIANT_BOOL* pbResult) override;

 private:
  void CloseHandleIfAny() noexcept;
  [[nodiscard]] bool ReadHeader();
  [[nodiscard]] bool WriteHeader();

  // Reads one record into the current unit; false at the end, for a record that is cut
  // short and for a unit whose own words are.
  [[nodiscard]] bool ReadRecord();

  // Writes the current unit as one record.
  [[nodiscard]] bool WriteRecord();

  Ptr<IOrmSession> session_;
  FileHandle handle_ = kNoFile;
  Ptr<IUnit> unit_;
  std::unique_ptr<unsigned char[]> buffer_;  // kWorkBufferSize bytes, for all but large records
};

}  // namespace halyard
