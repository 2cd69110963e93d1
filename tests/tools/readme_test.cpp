// The shell sessions that documents show: their commands are run and must say what is
// printed there.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "tests/tools/support/run_tool.h"

namespace halyard::test {
namespace {

constexpr char kOpening[] = "```console\n";

// The session of a document: all its blocks of that kind, in their order.
std::string SessionIn(const std::string& document) {
  std::string session;
  for (std::size_t at = 0; (at = document.find(kOpening, at)) != std::string::npos;) {
    at += sizeof kOpening - 1;
    const std::size_t end = document.find("```", at);
    session += document.substr(at, end - at);
    at = end;
  }
  return session;
}

// Runs the lines that begin with a prompt and puts each before what it says.
std::string Replayed(const std::string& session, const Folder& folder) {
  std::string script = "halyard() { $HALYARD \"$@\"; }; cd " + folder.path().string() + "\n";
  std::istringstream lines(session);
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind("$ ", 0) != 0) continue;
    script += "cat <<'END'\n" + line + "\nEND\n" + line.substr(2) + " 2>&1\n";
  }
  return RunShell(script).out;
}

class Document : public testing::TestWithParam<std::string> {};

TEST_P(Document, ShowsWhatTheToolSays) {
  const std::string session = SessionIn(Content(HALYARD_SOURCE_DIR "/" + GetParam()));
  EXPECT_GE(std::count(session.begin(), session.end(), '$'), 5) << "there is hardly a session";
  EXPECT_EQ(Replayed(session, Folder()), session);
}

INSTANTIATE_TEST_SUITE_P(Documents, Document, testing::Values("README.md", "docs/tool.md"),
                         [](const auto& name) { return name.index == 0 ? "Readme" : "Manual"; });

}  // namespace
}  // namespace halyard::test
