#include "tools/halyard/table_options.h"

#include <array>

#include "tools/halyard/ascii.h"

namespace halyard::tool {
namespace {

constexpr std::array<std::pair<const char*, TextForm>, 3> kForms = {
    {{"windows-1252", TextForm::kWindows1252}, {"latin-1", TextForm::kLatin1}, {"utf-8", TextForm::kUtf8}}};

}  // namespace

void AddTextFormOption(Command& command, const std::string& name, TextForm& form, const std::string& about) {
  command.Option({name, "NAME", about}, [&form](const std::string& text) {
    for (const auto& [form_name, named] : kForms) {
      if (!EqualIgnoringCase(text, form_name)) continue;
      form = named;
      return std::string();
    }
    return "'" + text + "' is none of windows-1252, latin-1 and utf-8";
  });
}

void TableOptions::AddOptions(Command& verb) {
  verb.Option(
      {"--delimiter", "CHAR",
       "What separates the fields of the table: one character, or the word tab (a comma unless given)"},
      [this](const std::string& text) {
        const std::string wanted = text == "tab" ? "\t" : text;
        if (wanted.size() != 1 || wanted == "\"" || wanted == "\r" || wanted == "\n")
          return "'" + text + "' is no single character or the word tab";
        delimiter = wanted.front();
        return std::string();
      });
  verb.Flag({"--no-header", "", "The table has no row with the names of its columns"}, has_no_header);
  AddTextFormOption(verb, "--table-encoding", form,
                    "How texts lie in the table: utf-8 (unless given), windows-1252 or latin-1");
}

}  // namespace halyard::tool
