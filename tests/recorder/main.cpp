// The recorder: asks the automation library every request of the table and writes the
// answers, one row a line, to the file named on the command line.
#include <cstdio>
#include <fstream>
#include <set>

#include "tests/recorder/answer.h"
#include "tests/recorder/cases.h"
#include "tests/recorder/notation.h"
#include "tests/recorder/windows_answers.h"

namespace {

using namespace halyard::recorder;

// A text without a year means this year; no table can hold its answer.
bool DependsOnToday(const std::string& answer) {
  Value value;
  SYSTEMTIME today{};
  SYSTEMTIME answered{};
  GetLocalTime(&today);
  if (answer.rfind("00000000 DATE:", 0) != 0 || !ParseValue(answer.substr(9), &value)) return false;
  return VariantTimeToSystemTime(value.variant.date, &answered) != 0 && answered.wYear == today.wYear;
}

void Write(const std::string& request, const std::string& answer, std::ofstream& table) {
  table << request << '\t';
  if (const auto correction = CorrectForWindows(request, answer)) {
    table << correction->answer << "\tWindows: " << correction->reason << ". Wine: " << answer;
  } else {
    table << answer;
  }
  table << '\n';
}

int Record(const char* path) {
  Requests requests;
  AddTypePairs(&requests);
  AddVariantForms(&requests);
  AddMagnitudes(&requests);
  AddNumberTexts(&requests);
  AddDateTexts(&requests);
  AddDates(&requests);
  std::ofstream table(path, std::ios::binary);
  std::set<std::string> seen;
  for (const std::string& request : requests) {
    if (!seen.insert(request).second) continue;
    const std::string answer = Answer(request);
    if (answer.empty()) {
      std::fprintf(stderr, "not a request: %s\n", request.c_str());
      return 1;
    }
    if (DependsOnToday(answer)) continue;
    Write(request, answer, table);
  }
  return table.good() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s TABLE\n", argv[0]);
    return 2;
  }
  return Record(argv[1]);
}
