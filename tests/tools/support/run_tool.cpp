#include "tests/tools/support/run_tool.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace halyard::test {
namespace {

constexpr unsigned kNobody = 65534;
constexpr int kCannotRun = 126;

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

// Between fork and exec.
void Prepare(const Setting& setting) {
  if (setting.largest_file != 0) {
    const rlimit limit{setting.largest_file, setting.largest_file};
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) _exit(kCannotRun);
  }
  for (const std::string& entry : setting.environment) {
    const std::size_t sign = entry.find('=');
    setenv(entry.substr(0, sign).c_str(), entry.substr(sign + 1).c_str(), 1);
  }
  if (setting.as_nobody && (setgid(kNobody) != 0 || setuid(kNobody) != 0)) _exit(kCannotRun);
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
