// What the doctor finds in one file, printed as it is found: a line each, or a JSON
// document each.
#pragma once

#include <cstdint>
#include <string>

#include "tools/halyard/output.h"
#include "tools/halyard/style.h"

namespace halyard::tool {

// Faults make a reader lose or misread something; remarks are legal and worth knowing.
enum class Severity { kRemark, kFault };

struct FindingsForm {
  bool as_json = false;
  std::uint64_t limit = 1000;  // findings that are printed; further ones are counted
};

class Findings {
 public:
  // Neither output nor form are copied; both must outlive this object.
  Findings(Output& output, const FindingsForm& form, std::string file);

  // A finding at an offset, in a record (0: in none); `what` is the end of a sentence.
  void Add(Severity severity, std::uint64_t offset, std::uint64_t record, const std::string& what);

  // The last line, about the file as a whole; true where it is sound.
  bool Close(std::uint64_t records, std::uint64_t bytes);

 private:
  void Show(Severity severity, std::uint64_t offset, std::uint64_t record, const std::string& what);
  void ShowJson(Severity severity, std::uint64_t offset, std::uint64_t record, const std::string& what);

  Output& output_;
  const FindingsForm& form_;
  Style style_;
  std::string file_;
  std::uint64_t faults_ = 0;
  std::uint64_t remarks_ = 0;
};

}  // namespace halyard::tool
