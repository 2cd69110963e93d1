// Everything that can be done with a definition of a client's and with its values.
#pragma once

#include <string>
#include <vector>

#include "halyard/stream/orm_session.h"
#include "tests/support/composites.h"
#include "tests/support/streams.h"

namespace halyard::test {

// What a scenario works on; a mischief may reach for it in the middle of a call.
struct Stage {
  Ptr<IValueDefBase> definition;  // the client's
  Ptr<IStructureDef> structure = CreateObject<IStructureDef>(kStructureInfoClass);
  Ptr<IArrayDef> array = CreateObject<IArrayDef>(kArrayInfoClass);
  Ptr<IOrmSession> session = CreateObject<IOrmSession>(kOrmSessionClass);
  Ptr<IUnit> unit = CreateObject<IUnit>(kUnitClass);
  Ptr<IOrmFile> file = NewFile();
  Ptr<IValueBase> record;    // of the structure
  Ptr<IValueBase> elements;  // of the array
  TempFile place;
  bool has_room = true;  // whether records as large as the definition says may be written

  // The names of the records that were reported as written to the file, in that order.
  std::vector<std::string> written;

  // Notes a record of that name, if the call that writes it says that it did.
  void Note(const char* name, HRESULT status, VARIANT_BOOL done);

  // Writes a definition to the file, and notes it.
  HRESULT WriteInfo(const char* name, IValueDefBase* info, VARIANT_BOOL* done);
};

// What a play writes to the file, in this order.
inline constexpr const char* kRecordNames[] = {"definition", "structure", "record"};

// Makes every call and tells what each answered, a line a call. The definition is a
// member's, an array's elements', a session's, a unit's and a file's.
std::vector<std::string> Play(Stage& stage);

}  // namespace halyard::test
