// OrmFile: a file of units behind a handle.
#pragma once

#include <cstdint>
#include <memory>

#include "halyard/definitions/value_def_base.h"
#include "halyard/stream/orm_file.h"
#include "halyard/stream/orm_file_buffering.h"
#include "halyard/stream/orm_session.h"
#include "halyard/stream/unit.h"
#include "halyard/values/value_base.h"
#include "object/object.h"
#include "stream/file_channel.h"
#include "stream/unit.h"

namespace halyard {

class OrmFile : public Object<OrmFile, IOrmFile, IOrmFileBuffering> {
 public:
  static constexpr char kClassName[] = "OrmFile";

  OrmFile();

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

  HRESULT STDMETHODCALLTYPE get_BufferSize(LONG* pnBytes) override;
  HRESULT STDMETHODCALLTYPE put_BufferSize(LONG nBytes) override;
  HRESULT STDMETHODCALLTYPE Flush(VARIANT_BOOL* pbResult) override;

 private:
  // Raises E_FAIL where records that waited to be written were lost.
  void CloseChannel();

  // Takes over a handle of the caller; the one held before is left open. Raises the same,
  // and takes nothing then.
  void TakeHandle(FileHandle handle);

  [[nodiscard]] bool ReadHeader();
  [[nodiscard]] bool WriteHeader();

  // Reads one record into a new current unit; false as ReadRecord. Failures are those of
  // ReadUnit.
  [[nodiscard]] bool ReadIntoNewUnit();

  // The same where the record was read ahead and goes into the value of the last one. False,
  // and nothing read, where that cannot be.
  [[nodiscard]] bool ReadIntoLastValue();

  // Reads one record into the current unit; false at the end, for a record that is cut
  // short and for a unit whose own words are.
  [[nodiscard]] bool ReadRecord();

  // Reads the length of the next record; false at the end.
  [[nodiscard]] bool ReadLength(std::uint32_t& length);

  // Writes the current unit as one record. Failures of the second are those of WriteUnit.
  [[nodiscard]] bool WriteRecord();
  [[nodiscard]] bool WriteCurrentUnit();

  // Writes a data unit whose value lies ready as one record.
  [[nodiscard]] bool WriteReady(const ReadyBody& body);

  // Makes this the current unit.
  void SetUnit(Ptr<IUnit> unit);

  // The unit that is to take what a client writes: the current one, or where that is at
  // work because the client's code came back, a new one that becomes the current one.
  // Raises E_POINTER where there is none.
  Ptr<IUnit> UnitToWrite();

  Ptr<IOrmSession> session_;
  Ptr<IUnit> unit_;
  Unit* own_unit_ = nullptr;                 // the current unit, if it is one of this library
  std::unique_ptr<unsigned char[]> buffer_;  // the work buffer; none while it is in use

  // Whether reading stopped inside a record. What follows there would be taken for something
  // else, so nothing more is read from the handle.
  bool is_astray_ = false;

  FileChannel channel_;  // last, so that it ends before what clients may see end
};

}  // namespace halyard
