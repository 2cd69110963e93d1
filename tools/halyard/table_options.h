// The options about the form of a table, which export and import share.
#pragma once

#include <string>

#include "tools/halyard/command.h"
#include "tools/halyard/text.h"

namespace halyard::tool {

struct TableOptions {
  char delimiter = ',';
  TextForm form = TextForm::kUtf8;
  bool has_no_header = false;

  void AddOptions(Command& verb);
};

// The choices of --encoding and --table-encoding.
void AddTextFormOption(Command& command, const std::string& name, TextForm& form, const std::string& about);

}  // namespace halyard::tool
