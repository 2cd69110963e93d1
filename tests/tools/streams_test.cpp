// Standard streams, full disks, pipes that close, interrupts, files that are being
// written, terminals.
#include <gtest/gtest.h>

#include "tests/tools/support/run_tool.h"
#include "tests/tools/support/unit_bytes.h"

namespace halyard::test {
namespace {

TEST(Streams, AFullDiskIsToldAndLeavesNothing) {
  const Folder folder;
  const std::string file = folder.Make("a.orm", StationFile(20000));
  const std::string old = folder.Make("old.orm", "what was there before");
  Setting setting;
  setting.largest_file = 100000;
  for (const std::vector<std::string>& verb :
       {std::vector<std::string>{"filter", file}, {"recover", file}, {"merge", file}, {"export", file}}) {
    std::vector<std::string> arguments = verb;
    arguments.insert(arguments.end(), {"-o", old});
    const Outcome outcome = RunTool(arguments, setting);
    EXPECT_EQ(outcome.code, 3) << verb.front();
    EXPECT_NE(outcome.err.find(
                  "old.orm: cannot be written: File too large; free some space or choose another folder"),
              std::string::npos)
        << outcome.err;
    EXPECT_EQ(Content(old), "what was there before");
    EXPECT_EQ(folder.Names(), (std::vector<std::string>{"a.orm", "old.orm"}));
  }
}

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

TEST(Streams, AFullFileSystemIsTold) {
  const Folder folder;
  const std::string file = folder.Make("a.orm", StationFile(20000));
  const std::string mount = folder.File("small");
  std::filesystem::create_directory(mount);
  const Outcome made = RunShell("mount -t tmpfs -o size=64k none " + mount);
  if (made.code != 0) GTEST_SKIP() << "a small file system needs the right to mount one";
  const Outcome outcome = RunTool({"filter", file, "-o", mount + "/out.orm"});
  EXPECT_EQ(outcome.code, 3);
  EXPECT_NE(outcome.err.find("No space left on device; free some space or choose another folder"),
            std::string::npos)
      << outcome.err;
  EXPECT_TRUE(std::filesystem::is_empty(mount));
  EXPECT_EQ(RunShell("umount " + mount).code, 0);
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

TEST(Streams, AnInterruptLeavesNothing) {
  const Folder folder;
  const std::string old = folder.Make("old.orm", "what was there before");
  // The input never ends, so the output is unfinished when the interrupt comes.
  const std::string line = "mkfifo " + folder.File("pipe") + "; exec 9<>" + folder.File("pipe") + "; cat " +
                           folder.Make("a.orm", StationFile(5)) + " >&9; $HALYARD filter " +
                           folder.File("pipe") + " -o " + old + " & tool=$!; for i in $(seq 100); do ls -A " +
                           folder.path().string() + " | grep -q part && break; sleep 0.05; done; ls -A " +
                           folder.path().string() + " | grep -c part; kill -TERM $tool; wait $tool; echo $?";
  const Outcome outcome = RunShell(line);
  EXPECT_EQ(outcome.out, "1\n143\n") << outcome.err;
  EXPECT_EQ(Content(old), "what was there before");
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"a.orm", "old.orm", "pipe"}));
}

TEST(Streams, AFileThatIsBeingWrittenIsTold) {
  const Folder folder;
  const std::string whole = StationFile(2);
  const std::string file = folder.Make("a.orm", whole.substr(0, whole.size() - 5));
  const Outcome outcome = RunShell("exec 9<>" + file + "; flock -x 9; $HALYARD cat --json -m Depth " + file);
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.out, "{\"Depth\":5}\n");
  EXPECT_NE(outcome.err.find("; the file is still being written, try again when that is done"),
            std::string::npos)
      << outcome.err;
}

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
