// The shell session that README.md shows: its commands are run and must say what is
// printed there.
#include <gtest/gtest.h>

#include <sstream>

#include "tests/tools/support/run_tool.h"

namespace halyard::test {
namespace {

constexpr char kOpening[] = "```console\n";

// The session of a document, from its first block of that kind.
std::string SessionIn(const std::string& document) {
  const std::size_t start = document.find(kOpening);
  if (start == std::string::npos) return {};
  const std::size_t first = start + sizeof kOpening - 1;
  return document.substr(first, document.find("```", first) - first);
}

TEST(Readme, ShowsWhatTheToolSays) {
  const std::string session = SessionIn(Content(HALYARD_SOURCE_DIR "/README.md"));
  ASSERT_NE(session, "");
  const Folder folder;
  std::string script = "halyard() { $HALYARD \"$@\"; }; cd " + folder.path().string() + "\n";
  std::istringstream lines(session);
  std::size_t commands = 0;
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind("$ ", 0) != 0) continue;
    ++commands;
    script += "cat <<'END'\n" + line + "\nEND\n" + line.substr(2) + " 2>&1\n";
  }
  EXPECT_GE(commands, 3U);
  EXPECT_EQ(RunShell(script).out, session);
}

}  // namespace
}  // namespace halyard::test
