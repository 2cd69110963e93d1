// Replays the recorded answers of the real automation library: every row of
// tests/golden/conversions.txt must be answered alike here.
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "tests/recorder/answer.h"

namespace halyard {
namespace {

constexpr std::size_t kLeastRows = 30000;
constexpr int kShownDifferences = 50;

struct Row {
  int line;
  std::string request;
  std::string answer;
  std::string note;  // why the answer is that of Windows and not of Wine; mostly empty
};

// Request, answer and note, with tabs between them.
Row ParseRow(int line, const std::string& text) {
  const std::size_t answer = text.find('\t') + 1;
  const std::size_t end = text.find('\t', answer);
  return {line, text.substr(0, answer - 1), text.substr(answer, end - answer),
          end == std::string::npos ? "" : text.substr(end + 1)};
}

std::vector<Row> ReadTable() {
  std::ifstream file(HALYARD_TEST_DATA "/conversions.txt", std::ios::binary);
  std::vector<Row> rows;
  std::string text;
  for (int line = 1; std::getline(file, text); ++line) rows.push_back(ParseRow(line, text));
  return rows;
}

TEST(Conversions, AnswerAsTheRealLibraryDoes) {
  const std::vector<Row> rows = ReadTable();
  ASSERT_GE(rows.size(), kLeastRows);
  int differences = 0;
  for (const Row& row : rows) {
    const std::string answer = recorder::Answer(row.request);
    if (answer == row.answer) continue;
    if (++differences > kShownDifferences) continue;
    ADD_FAILURE() << "row " << row.line << ": " << row.request << "\n  recorded: " << row.answer
                  << "\n  answered: " << answer << "\n  " << row.note;
  }
  EXPECT_EQ(differences, 0) << "of " << rows.size() << " rows";
  RecordProperty("rows", static_cast<int>(rows.size()));
}

TEST(Conversions, CorrectionsSayWhy) {
  int corrected = 0;
  for (const Row& row : ReadTable()) {
    if (row.note.empty()) continue;
    ++corrected;
    EXPECT_EQ(row.note.rfind("Windows: ", 0), 0u) << "row " << row.line;
    EXPECT_NE(row.note.find(". Wine: "), std::string::npos) << "row " << row.line;
  }
  EXPECT_GT(corrected, 0);
}

TEST(Conversions, WhatIsNoRequestHasNoAnswer) {
  for (const char* text : {"", "convert", "convert I4", "convert X4 I4:5", "convert I4 I4:x", "split 12G",
                           "join 1", "convert I4 BSTR:\"a", "convert I4 DISPATCH:{", "forget I4:5"}) {
    EXPECT_EQ(recorder::Answer(text), "") << text;
  }
}

}  // namespace
}  // namespace halyard
