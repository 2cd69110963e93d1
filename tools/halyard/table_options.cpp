#include "tools/halyard/table_options.h"

namespace halyard::tool {

CLI::Option* AddTextFormOption(CLI::App& app, const std::string& name, TextForm& form,
                               const std::string& description) {
  const std::vector<std::pair<std::string, TextForm>> forms = {
      {"windows-1252", TextForm::kWindows1252}, {"latin-1", TextForm::kLatin1}, {"utf-8", TextForm::kUtf8}};
  return app.add_option(name, form, description)
      ->transform(CLI::CheckedTransformer(forms, CLI::ignore_case).description(""))
      ->type_name("NAME");
}

void TableOptions::AddOptions(CLI::App& verb) {
  verb.add_option_function<std::string>(
          "--delimiter",
          [this](const std::string& text) {
            const std::string wanted = text == "tab" ? "\t" : text;
            if (wanted.size() != 1 || wanted == "\"" || wanted == "\r" || wanted == "\n") {
              throw CLI::ValidationError("--delimiter",
                                         "'" + text + "' is no single character or the word tab");
            }
            delimiter = wanted.front();
          },
          "What separates the fields of the table: one character, or the word tab (a comma unless given)")
      ->type_name("CHAR");
  verb.add_flag("--no-header", has_no_header, "The table has no row with the names of its columns");
  AddTextFormOption(verb, "--table-encoding", form,
                    "How texts lie in the table: utf-8 (unless given), windows-1252 or latin-1");
}

}  // namespace halyard::tool
