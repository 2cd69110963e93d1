// The options about the form of a table, which export and import share.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "tools/halyard/text.h"

namespace halyard::tool {

struct TableOptions {
  char delimiter = ',';
  TextForm form = TextForm::kUtf8;
  bool has_no_header = false;

  void AddOptions(CLI::App& verb);
};

// The choices of --encoding and --table-encoding.
CLI::Option* AddTextFormOption(CLI::App& app, const std::string& name, TextForm& form,
                               const std::string& description);

}  // namespace halyard::tool
