// A program file of Windows, as far as the tests look into it: 32 and 64 bits alike.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "halyard/platform/wide_text.h"

namespace halyard::test {

class PeFile {
 public:
  // Reads the file; raises E_FAIL where it cannot be read or is no program file.
  explicit PeFile(const WideString& path);

  [[nodiscard]] std::size_t size() const { return bytes_.size(); }

  // IMAGE_FILE_MACHINE_AMD64 or IMAGE_FILE_MACHINE_I386.
  [[nodiscard]] std::uint16_t machine() const;

  // The names by which functions are exported, in the order of the file.
  [[nodiscard]] std::vector<std::string> Exports() const;

  // The DLLs that are needed, in lower case and sorted.
  [[nodiscard]] std::vector<std::string> Imports() const;

  // Whether neither a symbol table nor debug sections are left.
  [[nodiscard]] bool IsStripped() const;

 private:
  template <class T>
  [[nodiscard]] T At(std::size_t offset) const;
  [[nodiscard]] std::string TextAt(std::size_t offset) const;

  [[nodiscard]] std::size_t FileHeader() const;
  [[nodiscard]] std::size_t Section(std::size_t index) const;
  [[nodiscard]] std::size_t SectionCount() const;

  // The place in the file of an address in the loaded image.
  [[nodiscard]] std::size_t Place(std::uint32_t address) const;

  // The address of a directory of the image.
  [[nodiscard]] std::uint32_t Directory(std::size_t index) const;

  std::vector<char> bytes_;
};

}  // namespace halyard::test
