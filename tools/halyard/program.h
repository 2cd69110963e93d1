// The program as its arguments see it: the verbs and the options that all of them share.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tools/halyard/text.h"
#include "tools/halyard/verb.h"

namespace halyard::tool {

class Program {
 public:
  Program();
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  // Does what the arguments say, or prints what they ask for (--help, --version), or says
  // what is wrong with them. Throws Failure where a verb has to stop.
  ExitCode Run(std::vector<std::string> arguments);

 private:
  std::unique_ptr<CLI::App> app_;
  std::vector<Verb> verbs_;
  TextForm form_ = TextForm::kWindows1252;
};

}  // namespace halyard::tool
