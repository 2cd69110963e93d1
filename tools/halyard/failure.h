// How the program ends: its exit codes, and the failure that carries one to main().
#pragma once

#include <exception>
#include <string>
#include <utility>

namespace halyard::tool {

enum class ExitCode : int {
  kFine = 0,         // everything that was asked for is done
  kFaults = 1,       // the file has faults
  kUsage = 2,        // the arguments make no sense, or not for this file
  kInputOutput = 3,  // something cannot be read or written
};

// Ends a verb. The text is a whole sentence that names the file and, where there is one,
// the place and the remedy; an empty text ends the program without a word.
class Failure : public std::exception {
 public:
  Failure(ExitCode code, std::string text) : code_(code), text_(std::move(text)) {}

  [[nodiscard]] ExitCode code() const noexcept { return code_; }
  [[nodiscard]] const char* what() const noexcept override { return text_.c_str(); }

 private:
  ExitCode code_;
  std::string text_;
};

}  // namespace halyard::tool
