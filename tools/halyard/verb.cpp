#include "tools/halyard/verb.h"

#include <fmt/format.h>

namespace halyard::tool {

CLI::App* AddCommand(CLI::App& program, const std::string& name, const std::string& description,
                     const std::vector<std::pair<std::string, std::string>>& examples) {
  CLI::App* command = program.add_subcommand(name, description);
  std::string footer = "Examples:\n";
  for (const auto& [line, meaning] : examples) footer += fmt::format("  {}\n      {}\n", line, meaning);
  footer.pop_back();
  command->footer(footer);
  return command;
}

}  // namespace halyard::tool
