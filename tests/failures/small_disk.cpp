#include "tests/failures/small_disk.h"

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tests/support/temp_file.h"

namespace halyard::test {
namespace {

constexpr const char* kSize = "size=64k";

// Answers whether the system took the text.
bool Tell(const char* place, const std::string& text) {
  std::ofstream file(place);
  file << text;
  file.close();
  return file.good();
}

// Becomes the master of file systems that no other process sees. No rights are needed for
// that, unless the system keeps it from everybody.
bool LeaveForOwnFiles() {
  const std::string user = std::to_string(getuid());
  const std::string group = std::to_string(getgid());
  return unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 && Tell("/proc/self/setgroups", "deny") &&
         Tell("/proc/self/uid_map", "0 " + user + " 1") && Tell("/proc/self/gid_map", "0 " + group + " 1");
}

// Lets the temporary files of this process lie on a disk in the folder.
bool MountSmallDisk(const std::string& folder) {
  return LeaveForOwnFiles() && mount("none", folder.c_str(), "tmpfs", 0, kSize) == 0 &&
         setenv("TMPDIR", folder.c_str(), 1) == 0;
}

[[noreturn]] void RunAndLeave(const std::string& folder, const std::function<void()>& part) {
  DiskOutcome outcome = DiskOutcome::kNoDisk;
  if (MountSmallDisk(folder)) {
    part();
    outcome = testing::Test::HasFailure() ? DiskOutcome::kFailed : DiskOutcome::kPassed;
  }
  std::fflush(nullptr);
  _exit(static_cast<int>(outcome));
}

}  // namespace

DiskOutcome OnSmallDisk(const std::function<void()>& part) {
  const TempFile folder;  // removed like a file, once it is empty
  std::filesystem::create_directory(folder.path());
  std::fflush(nullptr);  // or the other process prints it, too
  const pid_t process = fork();
  if (process == 0) RunAndLeave(folder.path().string(), part);
  int status = 0;
  EXPECT_EQ(waitpid(process, &status, 0), process);
  EXPECT_TRUE(WIFEXITED(status)) << "the process on the small disk did not end by itself";
  return WIFEXITED(status) ? static_cast<DiskOutcome>(WEXITSTATUS(status)) : DiskOutcome::kFailed;
}

}  // namespace halyard::test
