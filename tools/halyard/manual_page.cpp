// The manual page in the language of man(7).
#include <fmt/format.h>
#include <fmt/ranges.h>

#include <CLI/CLI.hpp>
#include <set>

#include "tools/halyard/reference.h"

namespace halyard::tool {
namespace {

// Text that the formatter takes as it is: no escapes, no requests, dashes that can be
// copied.
std::string Roff(std::string_view text) {
  std::string result;
  bool starts_line = true;
  for (const char c : text) {
    if (starts_line && (c == '.' || c == '\'')) result += "\\&";
    starts_line = c == '\n';
    if (c == '\\') {
      result += "\\e";
    } else if (c == '-') {
      result += "\\-";
    } else {
      result += c;
    }
  }
  return result;
}

std::string Names(const CLI::Option& option) {
  std::vector<std::string> names;
  for (const std::string& name : option.get_snames()) names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) names.push_back("--" + name);
  std::string text = fmt::format("{}", fmt::join(names, ", "));
  if (option.get_items_expected_max() > 0 && !option.get_type_name().empty())
    text += " " + option.get_type_name();
  return text;
}

// The long names of options, in the order of the alphabet.
std::string LongNames(const std::set<CLI::Option*>& options) {
  std::set<std::string> names;
  for (const CLI::Option* option : options) names.insert("--" + option->get_lnames().front());
  return fmt::format("{}", fmt::join(names, ", "));
}

// What the option goes with and what it does not go with.
std::string Company(const CLI::Option& option) {
  std::string text;
  if (!option.get_needs().empty()) text += ". Only with " + LongNames(option.get_needs());
  if (!option.get_excludes().empty()) text += ". Not with " + LongNames(option.get_excludes());
  return text;
}

std::string Options(const CLI::App& app) {
  std::string text;
  for (const CLI::Option* option : app.get_options()) {
    const std::string name = option->get_positional() ? option->get_name(true) : Names(*option);
    text += fmt::format(".TP\n.B {}\n{}\n", Roff(name), Roff(option->get_description() + Company(*option)));
  }
  return text;
}

std::string Synopsis(const CLI::App& command) {
  std::string line = fmt::format(".B halyard {}\n[\\fIOPTION\\fR]...", Roff(command.get_name()));
  for (const CLI::Option* option :
       command.get_options([](const CLI::Option* o) { return o->get_positional(); })) {
    line += fmt::format(" \\fI{}\\fR{}", Roff(option->get_name(true)),
                        option->get_items_expected_max() > 1 ? "..." : "");
  }
  return line + "\n.br\n";
}

std::string VerbSection(const CLI::App& command) {
  return fmt::format(".SS {}\n{}.\n{}.PP\n.nf\n{}\n.fi\n", Roff(command.get_name()),
                     Roff(command.get_description()), Options(command), Roff(command.get_footer()));
}

}  // namespace

std::string ManualPage(const CLI::App& program) {
  const auto commands = program.get_subcommands([](const CLI::App*) { return true; });
  std::string text =
      ".TH HALYARD 1 \"\" \"Halyard\" \"User Commands\"\n"
      ".SH NAME\nhalyard \\- see, check and convert files of units\n.SH SYNOPSIS\n";
  for (const CLI::App* command : commands) text += Synopsis(*command);
  text +=
      ".SH DESCRIPTION\nFiles of units carry data and its definitions. This program shows what such files "
      "hold, "
      "checks them, saves what is whole in damaged ones, and converts them from and to tables. Results go to "
      "standard "
      "output, remarks to standard error. The file \\fB\\-\\fR stands for standard input or standard output. "
      "Output "
      "files are written beside their place and take it when they are whole: a failure or an interrupt "
      "leaves what "
      "was there.\n.SH OPTIONS\n";
  text += Options(program) + ".SH VERBS\n";
  for (const CLI::App* command : commands) text += VerbSection(*command);
  text +=
      ".SH EXIT STATUS\n.TP\n.B 0\nEverything is fine.\n.TP\n.B 1\nThe file has faults.\n.TP\n.B 2\nThe "
      "arguments make "
      "no sense, or not for this file.\n.TP\n.B 3\nSomething cannot be read or written. A pipe that closes "
      "early ends "
      "the program with this status and without a word.\n"
      ".SH ENVIRONMENT\n.TP\n.B NO_COLOR\nNo colours, also on a terminal.\n.TP\n.B TMPDIR\nWhere input from "
      "a pipe that "
      "has to be read twice is kept meanwhile; \\fI/tmp\\fR unless set. On Windows \\fBTMP\\fR names that "
      "folder.\n";
  return text;
}

}  // namespace halyard::tool
