// A file of a test's own, in the system's folder for temporary files, gone at the end.
#pragma once

#include <filesystem>
#include <string>

#include "halyard/object/bstr.h"
#include "tests/support/bytes.h"

namespace halyard::test {

class TempFile {
 public:
  // A name that no file has yet; nothing is created.
  TempFile();
  // The file with these contents.
  explicit TempFile(const Bytes& contents);
  ~TempFile();
  TempFile(const TempFile&) = delete;
  TempFile& operator=(const TempFile&) = delete;

  [[nodiscard]] BSTR name() const { return name_.get(); }
  [[nodiscard]] const std::filesystem::path& path() const { return path_; }
  [[nodiscard]] bool Exists() const;

  // What the file holds now.
  [[nodiscard]] Bytes Contents() const;
  void Write(const Bytes& contents) const;

 private:
  std::filesystem::path path_;
  Bstr name_;
};

// A path as an argument of the library.
Bstr NameOf(const std::filesystem::path& path);

}  // namespace halyard::test
