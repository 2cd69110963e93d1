// Members as raw numbers, through the library's numeric transfer.
#pragma once

#include <string>
#include <vector>

#include "tools/halyard/decoder.h"
#include "tools/halyard/member_path.h"
#include "tools/halyard/output.h"
#include "tools/halyard/record_reader.h"

namespace halyard::tool {

// The types of raw numbers, by which a person chooses one.
std::vector<std::string> NumberTypeNames();

// Writes the numbers of each value, or of each element of values that are arrays:
// little-endian, without gaps, converted as C++ converts numbers. Several members follow
// one another for each of them.
class NumberExport {
 public:
  // Paths as the transfer takes them, none for values that are numbers themselves, and one
  // of its number types by name. Nothing is owned. Throws Failure (usage) for a type that
  // is none.
  NumberExport(Output& output, const std::vector<std::string>& members, const std::string& number_type);

  // Throws Failure where a path leads to no number of the value.
  void Value(const std::string& file, const Record& record, const DecodedUnit& unit);

  // Writes what is still held back.
  void Finish();

 private:
  void Prepare(const DefinitionPtr& definition);
  void RequireNumbers(const std::string& file, const Record& record, const DecodedUnit& unit) const;
  void Transfer(const Ptr<IArray>& array);

  Output& output_;
  const std::vector<std::string>& members_;
  SHORT number_type_;
  std::size_t width_;
  DefinitionPtr definition_;
  std::vector<MemberPath> paths_;
  bool can_be_missing_ = false;
  Ptr<IArray> batch_;  // gathers values that are no arrays
  std::size_t batch_bytes_ = 0;
};

}  // namespace halyard::tool
