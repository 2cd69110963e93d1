#include "tools/halyard/program.h"

#include <algorithm>

#include "tools/halyard/reference.h"
#include "tools/halyard/table_options.h"

namespace halyard::tool {
namespace {

constexpr char kDescription[] =
    "halyard: see, check and convert files of units.\n"
    "'-' as a file stands for standard input or standard output.";
constexpr char kFooter[] =
    "Exit codes: 0 fine, 1 the file has faults, 2 usage, 3 cannot read or write.\n"
    "'halyard VERB --help' explains a verb, with examples.";
constexpr char kVersion[] = "halyard 1.0.0";

// A column of help that leaves room for the longest option.
constexpr std::size_t kOptionWidth = 34;

}  // namespace

Program::Program() : app_(kDescription, "halyard") {
  app_.footer(kFooter);
  app_.require_subcommand(1);
  app_.fallthrough();
  app_.get_formatter()->column_width(kOptionWidth);
  app_.set_version_flag("--version", kVersion, "Print the version and end");
  AddTextFormOption(app_, "--encoding", form_,
                    "How texts lie in the files: windows-1252 (unless given), latin-1 or utf-8");
  verbs_ = {AddInfo(app_),   AddDefs(app_),    AddCat(app_),   AddDoctor(app_), AddExport(app_),
            AddImport(app_), AddRecover(app_), AddMerge(app_), AddFilter(app_)};
  for (Verb& verb : ReferenceVerbs(app_)) verbs_.push_back(std::move(verb));
}

void Program::Parse(std::vector<std::string> arguments) {
  std::reverse(arguments.begin(), arguments.end());  // the parser takes them from the end
  app_.parse(arguments);
}

ExitCode Program::Run() {
  ChooseTextForm(form_);
  const auto chosen =
      std::find_if(verbs_.begin(), verbs_.end(), [](const Verb& verb) { return verb.command->parsed(); });
  return chosen->run();
}

}  // namespace halyard::tool
