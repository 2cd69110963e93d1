#include "tools/halyard/command.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <charconv>

namespace halyard::tool {
namespace {

CLI::Option& Described(CLI::Option* option, const Wanted& wanted) {
  return *option->description(wanted.about)->type_name(wanted.value);
}

}  // namespace

Command::Command(CLI::App& program, const std::string& name, const std::string& about,
                 const Examples& examples)
    : app_(*program.add_subcommand(name, about)) {
  app_.get().group("Verbs");
  std::string footer = "Examples:\n";
  for (const auto& [line, meaning] : examples) footer += fmt::format("  {}\n      {}\n", line, meaning);
  footer.pop_back();
  app_.get().footer(footer);
}

void Command::Need(const Wanted& wanted, std::string& target) {
  app_.get().add_option(wanted.names, target, wanted.about)->required();
}

void Command::Need(const Wanted& wanted, std::vector<std::string>& targets) {
  app_.get().add_option(wanted.names, targets, wanted.about)->required();
}

void Command::NeedOption(const Wanted& wanted, std::string& target) {
  Described(app_.get().add_option(wanted.names, target), wanted).required();
}

void Command::Option(const Wanted& wanted, std::string& target) {
  Described(app_.get().add_option(wanted.names, target), wanted);
}

void Command::Option(const Wanted& wanted, std::vector<std::string>& targets) {
  Described(app_.get().add_option(wanted.names, targets), wanted).allow_extra_args(false);
}

void Command::Option(const Wanted& wanted, std::uint64_t& target, std::uint64_t most) {
  Option(wanted, [&target, most](const std::string& text) {
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, target);
    const bool is_number = result.ec == std::errc() && result.ptr == end && target <= most;
    return is_number ? std::string() : fmt::format("'{}' is no number from 0 to {}", text, most);
  });
}

void Command::Option(const Wanted& wanted, Take take) {
  const auto refuse = [names = wanted.names, take = std::move(take)](const std::string& text) {
    const std::string fault = take(text);
    if (!fault.empty()) throw CLI::ValidationError(names.substr(names.find("--")), fault);
  };
  Described(app_.get().add_option_function<std::string>(wanted.names, refuse), wanted);
}

void Command::Flag(const Wanted& wanted, bool& target) {
  app_.get().add_flag(wanted.names, target, wanted.about);
}

void Command::Exclude(const std::string& name, const std::vector<std::string>& others) {
  for (const std::string& other : others) app_.get().get_option(name)->excludes(app_.get().get_option(other));
}

void Command::Require(const std::string& name, const std::string& other) {
  app_.get().get_option(name)->needs(app_.get().get_option(other));
}

bool Command::IsChosen() const { return app_.get().parsed(); }

}  // namespace halyard::tool
