// The files that a random program wrote, as its text tells of them.
#pragma once

#include <string>
#include <vector>

#include "tests/support/bytes.h"

namespace halyard::test {

using Lines = std::vector<std::string>;

Lines LinesOf(const std::string& text);

// One file, from its opening until it was shown.
struct ProgramFile {
  bool is_open = false;
  std::vector<std::size_t> written;  // the lines of the calls that reported a record as written
  Bytes bytes;                       // what the text shows of it
  std::size_t size = 0;              // all of its bytes
};

std::vector<ProgramFile> FilesOf(const Lines& lines);

// Every file holds as many records as were reported as written, and nothing else.
void ExpectWhatWasReported(const std::vector<ProgramFile>& files);

// What was written by the lines up to number `line` is the same in both.
void ExpectSameRecords(const std::vector<ProgramFile>& expected, const std::vector<ProgramFile>& files,
                       std::size_t line);

}  // namespace halyard::test
