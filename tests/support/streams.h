// Files of units in one line.
#pragma once

#include <string>
#include <vector>

#include "halyard/stream/orm_file.h"
#include "halyard/stream/orm_session.h"
#include "halyard/stream/unit.h"
#include "tests/support/definitions.h"
#include "tests/support/temp_file.h"

namespace halyard::test {

Ptr<IOrmFile> NewFile();

// Opens and attaches; what the call answers.
bool OpenForRead(const Ptr<IOrmFile>& file, BSTR name, bool new_session = true);
bool OpenForWrite(const Ptr<IOrmFile>& file, BSTR name);
bool AttachForRead(const Ptr<IOrmFile>& file, LONG handle, bool new_session = true);
bool AttachForWrite(const Ptr<IOrmFile>& file, LONG handle);

// Writes one record; what the call answers.
bool WriteData(const Ptr<IOrmFile>& file, IValueBase* value);
bool WriteInfo(const Ptr<IOrmFile>& file, IValueDefBase* definition);
bool WriteUnit(const Ptr<IOrmFile>& file, IUnit* unit);

// Reads one record; each call must succeed.
Ptr<IUnit> ReadUnit(const Ptr<IOrmFile>& file);
Ptr<IValueBase> ReadData(const Ptr<IOrmFile>& file);
Ptr<IValueDefBase> ReadInfo(const Ptr<IOrmFile>& file);

// The definition of a type and id in the session of a file, or null.
Ptr<IValueDefBase> FindInSession(const Ptr<IOrmFile>& file, LONG type, SHORT id);

// The header of a file of units, a record around a unit, and a file of such records.
Bytes FileHeader();
Bytes Record(std::string_view unit);
Bytes FileOf(std::initializer_list<std::string_view> units);

// The whole records of a file with such a header, each with its length; a part of one at
// the end is left out.
std::vector<Bytes> RecordsOf(const Bytes& file);

}  // namespace halyard::test
