#include "tests/failures/program_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "tests/support/streams.h"

namespace halyard::test {
namespace {

constexpr const char* kOpened = "OpenForWrite: ";
constexpr const char* kDone = ": 00000000 -1";  // a call that answered true
constexpr const char* kShown = "file: ";
constexpr const char* kOf = " of ";

bool Begins(const std::string& line, const std::string& text) { return line.rfind(text, 0) == 0; }

bool IsWrite(const std::string& line) { return Begins(line, "WriteInfo: ") || Begins(line, "WriteData: "); }

bool IsDone(const std::string& line) { return line.find(kDone) != std::string::npos; }

std::size_t RecordsUpTo(const ProgramFile& file, std::size_t line) {
  const auto is_before = [line](std::size_t written) { return written <= line; };
  return static_cast<std::size_t>(std::count_if(file.written.begin(), file.written.end(), is_before));
}

}  // namespace

Lines LinesOf(const std::string& text) {
  Lines lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

std::vector<ProgramFile> FilesOf(const Lines& lines) {
  std::vector<ProgramFile> files;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::string& line = lines[i];
    if (Begins(line, kOpened)) {
      files.emplace_back();
      files.back().is_open = IsDone(line);
    } else if (IsWrite(line) && IsDone(line)) {
      files.back().written.push_back(i);
    } else if (Begins(line, kShown)) {
      const std::size_t end = line.rfind(kOf);
      const std::size_t begin = std::string(kShown).size();
      files.back().bytes = Hex(line.substr(begin, end - begin));
      files.back().size = std::stoul(line.substr(end + std::string(kOf).size()));
    }
  }
  return files;
}

void ExpectWhatWasReported(const std::vector<ProgramFile>& files) {
  for (const ProgramFile& file : files) {
    if (!file.is_open) {
      EXPECT_TRUE(file.written.empty());
      continue;
    }
    const auto records = RecordsOf(file.bytes);
    std::size_t size = FileHeader().size();
    for (const Bytes& record : records) size += record.size();
    const bool is_shown = file.bytes.size() == file.size;
    EXPECT_TRUE(is_shown ? records.size() == file.written.size() : records.size() <= file.written.size())
        << records.size() << " records, " << file.written.size() << " reported";
    EXPECT_TRUE(!is_shown || size == file.size)
        << "a file of " << file.size << " bytes, " << size << " of records";
  }
}

void ExpectSameRecords(const std::vector<ProgramFile>& expected, const std::vector<ProgramFile>& files,
                       std::size_t line) {
  for (std::size_t i = 0; i < std::min(expected.size(), files.size()); ++i) {
    const auto wanted = RecordsOf(expected[i].bytes);
    const auto records = RecordsOf(files[i].bytes);
    const std::size_t count = std::min(RecordsUpTo(files[i], line), wanted.size());
    for (std::size_t k = 0; k < count; ++k)
      EXPECT_EQ(k < records.size() ? ToHex(records[k]) : "none", ToHex(wanted[k])) << "record " << k;
  }
}

}  // namespace halyard::test
