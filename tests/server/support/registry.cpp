#include "tests/server/support/registry.h"

#include <algorithm>

namespace halyard::test {
namespace {

constexpr DWORD kLongestText = 1024;

class Key {
 public:
  explicit Key(const WideString& path) {
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_READ, &key_) != ERROR_SUCCESS) key_ = nullptr;
  }
  ~Key() {
    if (key_ != nullptr) RegCloseKey(key_);
  }
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;
  [[nodiscard]] HKEY get() const { return key_; }

 private:
  HKEY key_ = nullptr;
};

}  // namespace

bool KeyExists(const WideString& key) { return Key(key).get() != nullptr; }

std::optional<WideString> TextAt(const WideString& key, const OLECHAR* value) {
  const Key opened(key);
  WideString text(kLongestText, L'\0');
  DWORD bytes = kLongestText * sizeof(OLECHAR);
  if (opened.get() == nullptr || RegGetValueW(opened.get(), nullptr, value, RRF_RT_REG_SZ, nullptr,
                                              text.data(), &bytes) != ERROR_SUCCESS) {
    return std::nullopt;
  }
  text.resize(bytes / sizeof(OLECHAR) - 1);
  return text;
}

std::vector<WideString> Subkeys(const WideString& key) {
  const Key opened(key);
  std::vector<WideString> names;
  WideString name(kLongestText, L'\0');
  DWORD length = kLongestText;
  for (DWORD i = 0; opened.get() != nullptr && RegEnumKeyExW(opened.get(), i, name.data(), &length, nullptr,
                                                             nullptr, nullptr, nullptr) == ERROR_SUCCESS;
       ++i, length = kLongestText) {
    names.push_back(name.substr(0, length));
  }
  std::sort(names.begin(), names.end(),
            [](const WideString& a, const WideString& b) { return _wcsicmp(a.c_str(), b.c_str()) < 0; });
  return names;
}

DWORD ValueCount(const WideString& key) {
  const Key opened(key);
  DWORD count = 0;
  RegQueryInfoKeyW(opened.get(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &count, nullptr,
                   nullptr, nullptr, nullptr);
  return count;
}

}  // namespace halyard::test
