// The registry as tests look at it: keys below HKEY_CLASSES_ROOT.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "halyard/platform/wide_text.h"

namespace halyard::test {

bool KeyExists(const WideString& key);

// The text of a value, null for the default value of the key; nothing where there is
// none.
std::optional<WideString> TextAt(const WideString& key, const OLECHAR* value = nullptr);

// The names of the subkeys, sorted without regard to letter case; nothing in them of
// the value names.
std::vector<WideString> Subkeys(const WideString& key);

// The number of values of a key, its default value included.
DWORD ValueCount(const WideString& key);

}  // namespace halyard::test
