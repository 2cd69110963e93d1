// The completion script for bash: verbs, the options of each verb, and files.
#include <fmt/format.h>
#include <fmt/ranges.h>

#include <CLI/CLI.hpp>

#include "tools/halyard/number_export.h"
#include "tools/halyard/reference.h"

namespace halyard::tool {
namespace {

std::string OptionWords(const CLI::App& app) {
  std::vector<std::string> words;
  for (const CLI::Option* option : app.get_options()) {
    for (const std::string& name : option->get_lnames()) words.push_back("--" + name);
    for (const std::string& name : option->get_snames()) words.push_back("-" + name);
  }
  return fmt::format("{}", fmt::join(words, " "));
}

// {0} the verbs, {1} a case for each verb with its options, {2} the program's options, {3} the
// types of raw numbers. Each line of what compgen finds is a name, which may hold spaces.
constexpr char kScript[] = R"(# bash completion for halyard
_halyard() {{
  local word="${{COMP_WORDS[COMP_CWORD]}}" before="${{COMP_WORDS[COMP_CWORD-1]}}" verb="" options="" i
  for ((i = 1; i < COMP_CWORD; ++i)); do
    case " {0} " in *" ${{COMP_WORDS[i]}} "*) verb="${{COMP_WORDS[i]}}"; break ;; esac
  done
  if [[ "$before" == --encoding || "$before" == --table-encoding ]]; then
    COMPREPLY=($(compgen -W "windows-1252 latin-1 utf-8" -- "$word"))
    return
  fi
  if [[ "$before" == --raw ]]; then
    COMPREPLY=($(compgen -W "{3}" -- "$word"))
    return
  fi
  case "$verb" in
{1}    *) options="{0} {2}" ;;
  esac
  if [[ -z "$verb" || "$word" == -* ]]; then
    COMPREPLY=($(compgen -W "$options" -- "$word"))
  else
    mapfile -t COMPREPLY < <(compgen -f -- "$word")
  fi
}}
complete -o filenames -F _halyard halyard
)";

}  // namespace

std::string BashCompletion(const CLI::App& program) {
  std::vector<std::string> verbs;
  std::string cases;
  for (const CLI::App* command : program.get_subcommands([](const CLI::App*) { return true; })) {
    verbs.push_back(command->get_name());
    cases += fmt::format("    {}) options=\"{} {}\" ;;\n", command->get_name(), OptionWords(*command),
                         OptionWords(program));
  }
  return fmt::format(kScript, fmt::join(verbs, " "), cases, OptionWords(program),
                     fmt::join(NumberTypeNames(), " "));
}

}  // namespace halyard::tool
