#include "tests/support/temp_file.h"

#include <random>

#include "tests/support/files.h"

namespace halyard::test {
namespace {

std::filesystem::path FreshPath() {
  static std::mt19937_64 random{std::random_device{}()};
  return std::filesystem::temp_directory_path() / ("halyard-test-" + std::to_string(random()));
}

}  // namespace

Bstr NameOf(const std::filesystem::path& path) {
  const std::u16string text = path.u16string();
  return Bstr(WideString(text.begin(), text.end()));
}

TempFile::TempFile() : path_(FreshPath()), name_(NameOf(path_)) {}

TempFile::TempFile(const Bytes& contents) : TempFile() { Write(contents); }

TempFile::~TempFile() {
  std::error_code ignored;
  std::filesystem::remove(path_, ignored);
}

bool TempFile::Exists() const { return std::filesystem::exists(path_); }

Bytes TempFile::Contents() const { return ContentOf(path_); }

void TempFile::Write(const Bytes& contents) const { MakeFile(path_, contents); }

}  // namespace halyard::test
