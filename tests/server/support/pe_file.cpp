#include "tests/server/support/pe_file.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "halyard/object/error.h"

namespace halyard::test {
namespace {

constexpr std::size_t kSignatureSize = sizeof(DWORD);

}  // namespace

PeFile::PeFile(const WideString& path) {
  std::ifstream file(std::filesystem::path(path), std::ios::binary);
  bytes_.assign(std::istreambuf_iterator<char>(file), {});
  if (bytes_.size() < sizeof(IMAGE_DOS_HEADER)) throw Error(E_FAIL, "the file cannot be read");
  if (At<DWORD>(FileHeader() - kSignatureSize) != IMAGE_NT_SIGNATURE) throw Error(E_FAIL, "no program file");
}

template <class T>
T PeFile::At(std::size_t offset) const {
  if (offset > bytes_.size() || bytes_.size() - offset < sizeof(T))
    throw Error(E_FAIL, "the file is too short");
  T value;
  std::memcpy(&value, bytes_.data() + offset, sizeof value);
  return value;
}

std::string PeFile::TextAt(std::size_t offset) const {
  const auto start = bytes_.begin() + static_cast<std::ptrdiff_t>(std::min(offset, bytes_.size()));
  return std::string(start, std::find(start, bytes_.end(), '\0'));
}

std::size_t PeFile::FileHeader() const {
  return static_cast<std::size_t>(At<IMAGE_DOS_HEADER>(0).e_lfanew) + kSignatureSize;
}

std::size_t PeFile::SectionCount() const { return At<IMAGE_FILE_HEADER>(FileHeader()).NumberOfSections; }

std::size_t PeFile::Section(std::size_t index) const {
  const std::size_t optional_header = At<IMAGE_FILE_HEADER>(FileHeader()).SizeOfOptionalHeader;
  return FileHeader() + sizeof(IMAGE_FILE_HEADER) + optional_header + index * sizeof(IMAGE_SECTION_HEADER);
}

std::size_t PeFile::Place(std::uint32_t address) const {
  for (std::size_t i = 0; i != SectionCount(); ++i) {
    const auto section = At<IMAGE_SECTION_HEADER>(Section(i));
    if (address >= section.VirtualAddress && address - section.VirtualAddress < section.SizeOfRawData) {
      return address - section.VirtualAddress + section.PointerToRawData;
    }
  }
  throw Error(E_FAIL, "an address lies outside of the file");
}

std::uint32_t PeFile::Directory(std::size_t index) const {
  const std::size_t header = FileHeader() + sizeof(IMAGE_FILE_HEADER);
  const bool is_64 = At<WORD>(header) == IMAGE_NT_OPTIONAL_HDR64_MAGIC;
  const std::size_t directories = is_64 ? offsetof(IMAGE_OPTIONAL_HEADER64, DataDirectory)
                                        : offsetof(IMAGE_OPTIONAL_HEADER32, DataDirectory);
  return At<IMAGE_DATA_DIRECTORY>(header + directories + index * sizeof(IMAGE_DATA_DIRECTORY)).VirtualAddress;
}

std::uint16_t PeFile::machine() const { return At<IMAGE_FILE_HEADER>(FileHeader()).Machine; }

std::vector<std::string> PeFile::Exports() const {
  const auto table = At<IMAGE_EXPORT_DIRECTORY>(Place(Directory(IMAGE_DIRECTORY_ENTRY_EXPORT)));
  std::vector<std::string> names;
  for (DWORD i = 0; i != table.NumberOfNames; ++i) {
    names.push_back(TextAt(Place(At<DWORD>(Place(table.AddressOfNames) + i * sizeof(DWORD)))));
  }
  return names;
}

std::vector<std::string> PeFile::Imports() const {
  std::vector<std::string> names;
  std::size_t place = Place(Directory(IMAGE_DIRECTORY_ENTRY_IMPORT));
  for (auto entry = At<IMAGE_IMPORT_DESCRIPTOR>(place); entry.Name != 0;
       entry = At<IMAGE_IMPORT_DESCRIPTOR>(place)) {
    std::string name = TextAt(Place(entry.Name));
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    names.push_back(name);
    place += sizeof entry;
  }
  std::sort(names.begin(), names.end());
  return names;
}

bool PeFile::IsStripped() const {
  if (At<IMAGE_FILE_HEADER>(FileHeader()).NumberOfSymbols != 0) return false;
  for (std::size_t i = 0; i != SectionCount(); ++i) {
    // Long section names, as those of debug sections are, stand in a string table.
    if (TextAt(Section(i)).starts_with("/") || TextAt(Section(i)).starts_with(".debug")) return false;
  }
  return true;
}

}  // namespace halyard::test
