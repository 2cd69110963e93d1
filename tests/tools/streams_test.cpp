// Standard streams, pipes that close, interrupts, outputs, terminals.
#include <gtest/gtest.h>

#include <csignal>

#include "tests/tools/support/run_tool.h"
#include "tests/tools/support/unit_bytes.h"

namespace halyard::test {
namespace {

TEST(Streams, AFullDeviceIsTold) {
  const Folder folder;
  const std::string file = folder.Make("a.orm", StationFile(10));
  Setting setting;
  setting.output_device = "/dev/full";
  for (const std::string verb : {"info", "defs", "cat", "doctor", "export", "manual", "--help"}) {
    std::vector<std::string> arguments = {verb};
    if (verb != "manual" && verb != "--help") arguments.push_back(file);
    const Outcome outcome = RunTool(arguments, setting);
    EXPECT_EQ(outcome.code, 3) << verb;
    EXPECT_NE(outcome.err.find("standard output: cannot be written: No space left on device"),
              std::string::npos)
        << outcome.err;
  }
}

TEST(Streams, APipeThatClosesEarlyEndsQuietly) {
  const Folder folder;
  const std::string file = folder.Make("a.orm", StationFile(20000));
  for (const std::string verb : {"cat", "cat --json", "export", "defs --layout"}) {
    const Outcome outcome = RunShell("$HALYARD " + verb + " " + file + " | head -n 1; echo ${PIPESTATUS[0]}");
    EXPECT_EQ(outcome.err, "") << verb;
    const std::string code = outcome.out.substr(outcome.out.find('\n') + 1);
    EXPECT_TRUE(code == "3\n" || (code == "0\n" && verb == "defs --layout")) << outcome.out;
  }
}

// A verb that writes a file, with a long input, and the signal that ends it.
struct Interruption {
  std::string verb;
  int signal;
};

class Interrupted : public testing::TestWithParam<Interruption> {};

TEST_P(Interrupted, LeavesWhatWasThere) {
  const Folder folder;
  std::string content = StationFile(0);
  for (unsigned i = 0; i < 200000; ++i) content += Record(StationValue(i, std::string(100, 'x')));
  const std::string file = folder.Make("a.orm", content);
  std::string input = file;
  if (GetParam().verb == "import") {
    input = folder.File("a.orm.csv");
    ASSERT_EQ(RunTool({"export", file, "-o", input}).code, 0);
  }
  const std::vector<std::string> before = [&] {
    static_cast<void>(folder.Make("old", "what was there before"));
    return folder.Names();
  }();
  Setting setting;
  setting.interrupt = GetParam().signal;
  setting.interrupt_folder = folder.path().string();
  const Outcome outcome = RunTool({GetParam().verb, input, "-o", folder.File("old")}, setting);
  EXPECT_EQ(outcome.code, 128 + GetParam().signal) << outcome.err;
  EXPECT_EQ(Content(folder.File("old")), "what was there before");
  EXPECT_EQ(folder.Names(), before);
  EXPECT_TRUE(Content(file) == content);
}

INSTANTIATE_TEST_SUITE_P(Verbs, Interrupted,
                         testing::Values(Interruption{"export", SIGINT}, Interruption{"export", SIGTERM},
                                         Interruption{"export", SIGHUP}, Interruption{"merge", SIGINT},
                                         Interruption{"filter", SIGINT}, Interruption{"import", SIGINT},
                                         Interruption{"recover", SIGINT}),
                         [](const auto& one) { return one.param.verb + std::to_string(one.param.signal); });

TEST(Streams, OutputKeepsTheModeAndFollowsLinks) {
  const Folder folder;
  const std::string real = folder.Make("real.orm", "old");
  std::filesystem::permissions(real,
                               std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
  std::filesystem::create_symlink(real, folder.File("link.orm"));
  EXPECT_EQ(RunTool({"filter", folder.Make("a.orm", StationFile(1)), "-o", folder.File("link.orm")}).code, 0);
  EXPECT_TRUE(std::filesystem::is_symlink(folder.File("link.orm")));
  EXPECT_EQ(Content(real), StationFile(1));
  EXPECT_EQ(std::filesystem::status(real).permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

// What replaces a private file may be no less private before it takes its place. A program
// that is killed leaves its unfinished file behind.
TEST(Streams, AnUnfinishedOutputIsPrivate) {
  const Folder folder;
  const std::string file = folder.Make("a.orm", StationFile(200000));
  Setting setting;
  setting.interrupt = SIGKILL;
  setting.interrupt_folder = folder.path().string();
  ASSERT_EQ(RunTool({"export", file, "-o", folder.File("out.csv")}, setting).code, 128 + SIGKILL);
  ASSERT_EQ(folder.Names(), (std::vector<std::string>{".halyard-0.part", "a.orm"}));
  EXPECT_EQ(std::filesystem::status(folder.File(".halyard-0.part")).permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST(Streams, ANewOutputHasTheModeOfNewFiles) {
  const Folder folder;
  const std::string line = "umask 027; $HALYARD filter " + folder.Make("a.orm", StationFile(1)) + " -o " +
                           folder.File("out.orm") + "; stat -c %a " + folder.File("out.orm");
  EXPECT_EQ(RunShell(line).out, "640\n");
}

TEST(Streams, WhatIsReadTwiceIsKeptWhereThePersonSays) {
  const Folder folder;
  Setting setting;
  setting.input = StationFile(1);
  setting.environment = {"TMPDIR=" + folder.path().string()};
  EXPECT_EQ(RunTool({"recover", "-", "-o", folder.File("out.orm")}, setting).code, 0);
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"out.orm"});
  setting.environment = {"TMPDIR=" + folder.File("no")};
  const Outcome outcome = RunTool({"recover", "-", "-o", folder.File("out.orm")}, setting);
  EXPECT_EQ(outcome.code, 3);
  EXPECT_EQ(
      outcome.err,
      "halyard: no temporary file can be made: No such file or directory; set TMPDIR to a folder that has "
      "room and that you may write to\n");
}

TEST(Streams, AFolderThatIsNotThereIsTold) {
  const Folder folder;
  const Outcome outcome =
      RunTool({"filter", folder.Make("a.orm", StationFile(1)), "-o", folder.File("no/out.orm")});
  EXPECT_EQ(outcome.code, 3);
  EXPECT_NE(outcome.err.find("cannot be written: No such file or directory; make the folder first"),
            std::string::npos)
      << outcome.err;
}

// `script` gives the program a terminal.
TEST(Terminal, HasColoursUnlessTheyAreForbidden) {
  const Folder folder;
  const std::string line =
      "script -qec \"$HALYARD cat " + folder.Make("a.orm", StationFile(1)) + "\" /dev/null";
  EXPECT_NE(RunShell("TERM=xterm " + line).out.find("\x1B[1m"), std::string::npos);
  EXPECT_EQ(RunShell("NO_COLOR=1 TERM=xterm " + line).out.find("\x1B["), std::string::npos);
  EXPECT_EQ(RunShell("TERM=dumb " + line).out.find("\x1B["), std::string::npos);
}

TEST(Terminal, IsNoPlaceForFilesOfUnits) {
  const Folder folder;
  const std::string file = folder.Make("a.orm", StationFile(1));
  const std::string table = folder.Make("a.csv", "a\n1\n");
  for (const std::string& verb : {"filter -o - " + file, "merge -o - " + file, "recover -o - " + file,
                                  "import -o - " + table, "export --raw Long -m Depth " + file}) {
    const Outcome outcome = RunShell("script -qec \"$HALYARD " + verb + "\" /dev/null; echo $?");
    EXPECT_EQ(
        outcome.out,
        "halyard: the result is no text and nothing for a terminal; name a file with -o or use a pipe\r\n2\n")
        << verb;
  }
}

TEST(Terminal, CutsWideCellsUnlessTold) {
  const Folder folder;
  const std::string text(60, 'x');
  const std::string file =
      folder.Make("a.orm", Header() + Record(StationDefinition()) + Record(StationValue(1, text)));
  const auto shown = [&](const std::string& more) {
    return RunShell("TERM=dumb script -qec \"$HALYARD cat " + more + file + "\" /dev/null").out;
  };
  EXPECT_NE(shown("").find(std::string(39, 'x') + "…"), std::string::npos) << shown("");
  EXPECT_NE(shown("--wide ").find(text), std::string::npos);
}

TEST(Terminal, ShowsProgressOfLongWorkOnStandardError) {
  const Folder folder;
  // Slow input, so that the work is long.
  const std::string file = folder.Make("a.orm", StationFile(20000));
  const std::string command = "(head -c 400000 " + file + "; sleep 1; tail -c +400001 " + file +
                              ") | $HALYARD doctor - > " + folder.File("out");
  const Outcome shown = RunShell("TERM=xterm script -qec '" + command + "' /dev/null");
  EXPECT_NE(shown.out.find("standard input: "), std::string::npos) << shown.out;
  const Outcome silent = RunShell(command);
  EXPECT_EQ(silent.err, "");
  EXPECT_EQ(Content(folder.File("out")).find("\x1B"), std::string::npos);
}

}  // namespace
}  // namespace halyard::test
