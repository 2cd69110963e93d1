#include "tools/halyard/program.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <sstream>

#include "tools/halyard/input.h"
#include "tools/halyard/output.h"
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
constexpr char kVersion[] = "halyard " HALYARD_VERSION;

// An option with a sign and nothing behind it, for which the parser would take the next
// argument as its value; null where there is none.
const std::string* EmptyOption(const std::vector<std::string>& arguments) {
  for (const std::string& argument : arguments) {
    if (argument == "--") break;
    if (argument.starts_with("--") && argument.find('=') == argument.size() - 1) return &argument;
  }
  return nullptr;
}

// A column of help that leaves room for the longest option.
constexpr std::size_t kOptionWidth = 34;

// "info, defs, ... or completion"
std::string VerbNames(const CLI::App& program) {
  const auto verbs = program.get_subcommands([](const CLI::App*) { return true; });
  std::string names;
  for (const CLI::App* verb : verbs) {
    if (!names.empty()) names += verb == verbs.back() ? " or " : ", ";
    names += verb->get_name();
  }
  return names;
}

// What is wrong where no verb was given, or something else in its place.
std::string VerbFault(const CLI::App& program) {
  if (program.remaining_size() == 0)
    return "the verb is missing: " + VerbNames(program) + "; 'halyard --help' explains them";
  const std::string first = program.remaining().front();
  const bool is_option = first.size() > 1 && first.front() == '-';
  return "there is no " + std::string(is_option ? "option" : "verb") + " '" + first +
         "'; 'halyard --help' lists them";
}

// Prints what --help and --version ask for, or what is wrong with the arguments.
ExitCode Answer(const CLI::App& program, const CLI::ParseError& error) {
  const bool lacks_verb =
      program.remaining_size() != 0 || dynamic_cast<const CLI::RequiredError*>(&error) != nullptr;
  if (program.get_subcommands().empty() && lacks_verb) {
    Remark(VerbFault(program));
    return ExitCode::kUsage;
  }
  std::ostringstream out;
  std::ostringstream err;
  const bool is_fault = program.exit(error, out, err) != 0;
  Output output(kStandardStream);
  output.Write(out.str());
  output.Finish();
  if (!is_fault) return ExitCode::kFine;
  std::string text = err.str();
  while (!text.empty() && text.back() == '\n') text.pop_back();
  for (std::size_t end = 0; (end = text.find('\n')) != std::string::npos;) text.replace(end, 1, "; ");
  Remark(text);
  return ExitCode::kUsage;
}

}  // namespace

Program::Program() : app_(std::make_unique<CLI::App>(kDescription, "halyard")) {
  app_->footer(kFooter);
  app_->require_subcommand(1);
  app_->fallthrough();
  // What begins with a slash is a file, on every system.
  app_->allow_windows_style_options(false);
  app_->get_formatter()->column_width(kOptionWidth);
  app_->get_formatter()->label("SUBCOMMAND", "VERB");
  app_->set_version_flag("--version", kVersion, "Print the version and end");
  Command common(*app_);
  AddTextFormOption(common, "--encoding", form_,
                    "How texts lie in the files: windows-1252 (unless given), latin-1 or utf-8");
  verbs_ = {AddInfo(*app_),   AddDefs(*app_),    AddCat(*app_),   AddDoctor(*app_), AddExport(*app_),
            AddImport(*app_), AddRecover(*app_), AddMerge(*app_), AddFilter(*app_)};
  for (Verb& verb : ReferenceVerbs(*app_)) verbs_.push_back(std::move(verb));
}

Program::~Program() = default;

ExitCode Program::Run(std::vector<std::string> arguments) {
  if (const std::string* empty = EmptyOption(arguments)) {
    Remark("there is no value in '" + *empty + "'");
    return ExitCode::kUsage;
  }
  std::reverse(arguments.begin(), arguments.end());  // the parser takes them from the end
  try {
    app_->parse(arguments);
  } catch (const CLI::ParseError& error) {
    return Answer(*app_, error);
  }
  ChooseTextForm(form_);
  const auto chosen =
      std::find_if(verbs_.begin(), verbs_.end(), [](const Verb& verb) { return verb.command.IsChosen(); });
  return chosen->run();
}

}  // namespace halyard::tool
