// A table that was imported, and what the program says of the file that it became.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/tools/support/run_tool.h"

namespace halyard::test {

// Imports a table with further arguments and answers what `verb` says of the file.
class Imported {
 public:
  explicit Imported(const std::string& table, std::vector<std::string> arguments = {})
      : file_(folder_.File("t.orm")) {
    arguments.insert(arguments.begin(), {"import", folder_.Make("table.csv", table), "-o", file_});
    outcome_ = RunTool(arguments);
    EXPECT_EQ(outcome_.code, 0) << outcome_.err;
  }

  [[nodiscard]] std::string Says(std::vector<std::string> arguments) const {
    arguments.push_back(file_);
    const Outcome outcome = RunTool(arguments);
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    return outcome.out;
  }
  [[nodiscard]] std::string Exported(std::vector<std::string> arguments = {}) const {
    arguments.insert(arguments.begin(), "export");
    return Says(arguments);
  }
  [[nodiscard]] const Outcome& outcome() const noexcept { return outcome_; }
  [[nodiscard]] const std::string& file() const noexcept { return file_; }
  [[nodiscard]] const Folder& folder() const noexcept { return folder_; }

 private:
  Folder folder_;
  std::string file_;
  Outcome outcome_;
};

// Imports and exports a table, which must come out as it went in.
inline void ExpectRoundTrip(const std::string& table, const std::vector<std::string>& arguments = {}) {
  EXPECT_EQ(Imported(table, arguments).Exported(), table);
}

}  // namespace halyard::test
