// Writes values and definitions as records of a file.
#pragma once

#include <vector>

#include "halyard/halyard.h"
#include "tools/halyard/record_writer.h"

namespace halyard::tool {

class UnitWriter {
 public:
  // The output is not owned; finishing it is the caller's.
  explicit UnitWriter(Output& output);

  void Definition(const Ptr<IValueDefBase>& definition);
  void Value(const Ptr<IValueBase>& value);

 private:
  void WriteUnit();

  RecordWriter records_;
  Ptr<IUnit> unit_;
  std::vector<unsigned char> buffer_;
};

}  // namespace halyard::tool
