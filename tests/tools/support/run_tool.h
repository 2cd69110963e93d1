// Runs the real program `halyard` and catches what it says.
//
// The program is the one of this build, or the command in the environment variable
// HALYARD_TOOL: the same tests run the Windows program through Wine.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace halyard::test {

struct Outcome {
  int code = -1;  // the exit code; 128 and the signal's number where one ended the program
  std::string out;
  std::string err;
};

// How to run it, beyond its arguments.
struct Setting {
  std::string input;                     // what standard input holds
  std::vector<std::string> environment;  // "NAME=value", added to the test's own
  std::string output_device;             // a file to send standard output to, such as /dev/full
  bool has_closed_pipe = false;          // standard output is a pipe that nobody reads
  unsigned long long largest_file = 0;   // bytes that the program may write to a file; 0: any number
  unsigned long long memory = 0;         // bytes of address space that it may take; 0: any number
  bool obeys_permissions = false;        // without root's right to read everything
  bool has_full_disk = false;            // every write to a file fails for want of space
  int interrupt = 0;                     // a signal to send once the program has begun to write a file
  std::string interrupt_folder;          // the folder of that file
};

// A program that takes longer than a minute is ended (code 142): nothing may hang.
Outcome RunTool(const std::vector<std::string>& arguments, const Setting& setting = {});

// Runs a line of shell with the program as $HALYARD.
Outcome RunShell(const std::string& line);

// Whether the program under test is the Windows one.
bool IsWindowsTool();

// A folder that is empty at first and goes with the object.
class Folder {
 public:
  Folder();
  ~Folder();
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  // The full name of a file in it, which need not exist.
  [[nodiscard]] std::string File(const std::string& name) const { return (path_ / name).string(); }
  [[nodiscard]] const std::filesystem::path& path() const noexcept { return path_; }

  // Makes a file with that content and answers its full name.
  [[nodiscard]] std::string Make(const std::string& name, const std::string& content) const;

  // The names of all files in it, hidden ones too, in order.
  [[nodiscard]] std::vector<std::string> Names() const;

 private:
  std::filesystem::path path_;
};

// The content of a file; empty where there is none.
std::string Content(const std::string& file);

}  // namespace halyard::test
