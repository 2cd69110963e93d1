#include "tests/tools/support/run_tool.h"

#include <fcntl.h>
#include <linux/audit.h>
#include <linux/capability.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <thread>

namespace halyard::test {
namespace {

constexpr int kCannotRun = 126;
constexpr unsigned kLongestRun = 60;  // seconds
constexpr auto kPause = std::chrono::milliseconds(5);

std::vector<std::string> Words(const std::string& line) {
  std::istringstream stream(line);
  return {std::istream_iterator<std::string>(stream), std::istream_iterator<std::string>()};
}

std::string ToolCommand() {
  const char* command = std::getenv("HALYARD_TOOL");
  return command != nullptr ? command : HALYARD_TOOL_PROGRAM;
}

void Redirect(int descriptor, const std::string& file, int flags) {
  const int opened = open(file.c_str(), flags, 0666);
  if (opened < 0 || dup2(opened, descriptor) < 0) _exit(kCannotRun);
}

void Limit(int resource, unsigned long long most) {
  const rlimit limit{most, most};
  if (most != 0 && setrlimit(static_cast<__rlimit_resource>(resource), &limit) != 0) _exit(kCannotRun);
}

// Takes from root what lets it pass over permissions; others never had it.
void ObeyPermissions() {
  if (geteuid() != 0) return;
  for (const int right : {CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH}) {
    if (prctl(PR_CAPBSET_DROP, right, 0, 0, 0) != 0) _exit(kCannotRun);
  }
}

// From here on the system answers every write to a descriptor beyond the standard streams
// with "no space left".
void FillDisk() {
  constexpr unsigned kNumberAt = offsetof(seccomp_data, nr);
  constexpr unsigned kDescriptorAt = offsetof(seccomp_data, args);
  sock_filter rules[] = {
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, kNumberAt),
      BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_write, 0, 3),
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, kDescriptorAt),
      BPF_JUMP(BPF_JMP | BPF_JGT | BPF_K, STDERR_FILENO, 0, 1),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | ENOSPC),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
  };
  const sock_fprog program{sizeof rules / sizeof *rules, rules};
  const bool is_done = prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
                       prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
  if (!is_done) _exit(kCannotRun);
}

void WriteToClosedPipe() {
  int ends[2];
  if (pipe(ends) != 0 || dup2(ends[1], STDOUT_FILENO) < 0) _exit(kCannotRun);
  close(ends[0]);
  close(ends[1]);
}

// Between fork and exec.
void Prepare(const Setting& setting) {
  alarm(kLongestRun);
  Limit(RLIMIT_FSIZE, setting.largest_file);
  Limit(RLIMIT_AS, setting.memory);
  for (const std::string& entry : setting.environment) {
    const std::size_t sign = entry.find('=');
    setenv(entry.substr(0, sign).c_str(), entry.substr(sign + 1).c_str(), 1);
  }
  if (setting.has_closed_pipe) WriteToClosedPipe();
  // What a shell in the background ignores, the program under test must not.
  if (setting.interrupt != 0) std::signal(setting.interrupt, SIG_DFL);
  if (setting.obeys_permissions) ObeyPermissions();
  if (setting.has_full_disk) FillDisk();
}

// Whether the program has begun to write a file in the folder.
bool HasBegun(const std::string& folder) {
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    const bool is_unfinished = entry.path().extension() == ".part";
    if (is_unfinished && entry.file_size() != 0) return true;
  }
  return false;
}

// Sends the signal when there is something to interrupt; a program that ends before is
// not interrupted.
void Interrupt(pid_t child, const Setting& setting) {
  for (siginfo_t ended{}; !HasBegun(setting.interrupt_folder); std::this_thread::sleep_for(kPause)) {
    const auto id = static_cast<id_t>(child);
    if (waitid(P_PID, id, &ended, WEXITED | WNOHANG | WNOWAIT) != 0 || ended.si_pid == child) return;
  }
  kill(child, setting.interrupt);
}

Outcome Execute(std::vector<std::string> words, const Setting& setting) {
  const Folder folder;
  const std::string in = folder.Make("in", setting.input);
  const std::string out = setting.output_device.empty() ? folder.File("out") : setting.output_device;
  const std::string err = folder.File("err");
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("cannot start a process");
  if (child == 0) {
    Redirect(STDIN_FILENO, in, O_RDONLY);
    Redirect(STDOUT_FILENO, out, O_WRONLY | O_CREAT | O_TRUNC);
    Redirect(STDERR_FILENO, err, O_WRONLY | O_CREAT | O_TRUNC);
    Prepare(setting);
    execvp(arguments.front(), arguments.data());
    _exit(kCannotRun);
  }
  if (setting.interrupt != 0) Interrupt(child, setting);
  int status = 0;
  if (waitpid(child, &status, 0) != child) throw std::runtime_error("lost a process");
  Outcome outcome;
  outcome.code = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  outcome.out = setting.output_device.empty() ? Content(out) : "";
  outcome.err = Content(err);
  return outcome;
}

}  // namespace

Outcome RunTool(const std::vector<std::string>& arguments, const Setting& setting) {
  std::vector<std::string> words = Words(ToolCommand());
  words.insert(words.end(), arguments.begin(), arguments.end());
  return Execute(std::move(words), setting);
}

Outcome RunShell(const std::string& line) {
  Setting setting;
  setting.environment = {"HALYARD=" + ToolCommand()};
  return Execute({"bash", "-c", line}, setting);
}

bool IsWindowsTool() { return ToolCommand().find(".exe") != std::string::npos; }

Folder::Folder() {
  std::string name = (std::filesystem::temp_directory_path() / "halyard-tool-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("cannot make a folder");
  path_ = name;
}

Folder::~Folder() {
  std::error_code error;
  std::filesystem::remove_all(path_, error);
}

std::string Folder::Make(const std::string& name, const std::string& content) const {
  std::string file = File(name);
  std::ofstream(file, std::ios::binary) << content;
  return file;
}

std::vector<std::string> Folder::Names() const {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(path_))
    names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

std::string Content(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

}  // namespace halyard::test
