// Members as raw numbers, through the library's numeric transfer.
#pragma once

#include <string>

#include "tools/halyard/decoder.h"
#include "tools/halyard/output.h"
#include "tools/halyard/record_reader.h"

namespace halyard::tool {

// Writes one number for each value, or for each element of values that are arrays:
// little-endian, without gaps, converted as C++ converts numbers.
class NumberExport {
 public:
  // The path as the transfer takes it, and one of its number types by name. The output is
  // not owned. Throws Failure (usage) for a type that is none.
  NumberExport(Output& output, std::string path, const std::string& number_type);

  // Throws Failure where the path does not fit the value's definition.
  void Value(const DecodedUnit& unit);

  // Writes what is still held back.
  void Finish();

 private:
  void Prepare(const DefinitionPtr& definition);
  void RequirePath(const Ptr<IArray>& probe) const;
  void Transfer(const Ptr<IArray>& array);

  Output& output_;
  std::string path_;
  SHORT number_type_;
  std::size_t width_;
  DefinitionPtr definition_;
  Ptr<IArray> batch_;  // gathers values that are no arrays
  std::vector<unsigned char> buffer_;
};

}  // namespace halyard::tool
