// The program as its arguments see it: the verbs and the options that all of them share.
#pragma once

#include <string>
#include <vector>

#include "tools/halyard/text.h"
#include "tools/halyard/verb.h"

namespace halyard::tool {

class Program {
 public:
  Program();

  // Throws CLI::ParseError where the arguments make no sense or ask for help.
  void Parse(std::vector<std::string> arguments);

  // Does what the arguments say.
  ExitCode Run();

  [[nodiscard]] CLI::App& app() noexcept { return app_; }

 private:
  CLI::App app_;
  std::vector<Verb> verbs_;
  TextForm form_ = TextForm::kWindows1252;
};

}  // namespace halyard::tool
