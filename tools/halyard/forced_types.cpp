#include "tools/halyard/forced_types.h"

#include <fmt/format.h>

#include "tools/halyard/ascii.h"
#include "tools/halyard/failure.h"
#include "tools/halyard/framing.h"

namespace halyard::tool {
namespace {

constexpr LONG kLargestMember = 32767;  // what a call with a sized member takes

[[noreturn]] void Refuse(const std::string& text, const std::string& why) {
  throw Failure(ExitCode::kUsage, fmt::format("--type '{}': {}", text, why));
}

// The elementary types that texts can become.
SHORT TypeNamed(const std::string& text, std::string_view name) {
  for (SHORT type = kString; type <= kLastElementaryType; ++type) {
    const bool fits = type != kByteArray && EqualIgnoringCase(TypeName(static_cast<USHORT>(type)), name);
    if (fits) return type;
  }
  Refuse(text,
         "there are String, FixedString(N), Char, Byte, Short, Word, Long, DWord, Int64, ShortReal, Real and "
         "Date");
}

}  // namespace

ForcedTypes::ForcedTypes(const std::vector<std::string>& texts) {
  for (const std::string& text : texts) {
    // Names of columns may hold the sign, names of types do not.
    const std::size_t sign = text.rfind('=');
    if (sign == std::string::npos) Refuse(text, "it is not of the form COLUMN=TYPE");
    Entry entry;
    entry.column = text.substr(0, sign);
    const std::string_view wanted = std::string_view(text).substr(sign + 1);
    const std::size_t open = wanted.find('(');
    entry.type = TypeNamed(text, wanted.substr(0, open));
    if ((entry.type == kFixedString) != (open != std::string_view::npos))
      Refuse(text, "only a FixedString has a size, as in FixedString(8)");
    if (open != std::string_view::npos) {
      const std::size_t close = wanted.find(')');
      const auto size =
          close + 1 == wanted.size() ? ParseInteger(wanted.substr(open + 1, close - open - 1)) : std::nullopt;
      if (!size || *size < 1 || *size > kLargestMember) Refuse(text, "its size is no number from 1 to 32767");
      entry.size = static_cast<LONG>(*size);
    }
    entries_.push_back(std::move(entry));
  }
}

bool ForcedTypes::Apply(const std::string& column, ColumnType& type) {
  for (Entry& entry : entries_) {
    if (entry.column != column) continue;
    entry.is_used = true;
    type.type = entry.type;
    type.size = entry.size;
    type.form = {};
    return true;
  }
  return false;
}

void ForcedTypes::RequireUsed(const std::string& table) const {
  for (const Entry& entry : entries_) {
    if (!entry.is_used)
      throw Failure(ExitCode::kUsage, fmt::format("{}: there is no column '{}'", table, entry.column));
  }
}

}  // namespace halyard::tool
