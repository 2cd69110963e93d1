#include "tests/differential/world.h"

#include <bit>

namespace halyard::differential {
namespace {

constexpr std::size_t kKept = 8;

template <class T>
void KeepFew(std::vector<T>& things, T thing) {
  if (things.size() == kKept) things.erase(things.begin());
  things.push_back(std::move(thing));
}

std::string Hexadecimal(std::uint64_t bits, int digits) {
  std::string result;
  for (int i = digits - 1; i >= 0; --i) result += "0123456789ABCDEF"[(bits >> (4 * i)) & 15];
  return result;
}

Bytes Noise(Random& random) {
  Bytes bytes(random.Below(40));
  for (auto& byte : bytes)
    byte = static_cast<unsigned char>(random.OneIn(3) ? random.Below(256) : random.Below(18));
  return bytes;
}

}  // namespace

void World::Tell(const std::string& call, const std::string& outcome) {
  text += call + ": " + outcome + "\n";
}

Ptr<IValueDefBase> World::AnyDefinition() {
  if (definitions.empty()) return {};
  return definitions[random.Below(static_cast<std::uint32_t>(definitions.size()))];
}

Ptr<IValueBase> World::AnyValue() {
  if (values.empty()) return {};
  return values[random.Below(static_cast<std::uint32_t>(values.size()))];
}

void World::Keep(Ptr<IValueDefBase> definition) {
  if (definition) KeepFew(definitions, std::move(definition));
}

void World::Keep(Ptr<IValueBase> value) {
  if (value) KeepFew(values, std::move(value));
}

void World::Keep(Bytes encoding) { KeepFew(encodings, std::move(encoding)); }

Bytes World::AnyBytes() {
  if (encodings.empty() || random.OneIn(12)) return Noise(random);
  return Damaged(encodings[random.Below(static_cast<std::uint32_t>(encodings.size()))]);
}

Bytes World::Damaged(Bytes bytes) {
  if (random.OneIn(4)) bytes.resize(random.Below(static_cast<std::uint32_t>(bytes.size()) + 1));
  if (random.OneIn(4) && !bytes.empty()) {
    for (auto changes = random.Below(3) + 1; changes > 0; --changes) {
      auto& byte = bytes[random.Below(static_cast<std::uint32_t>(bytes.size()))];
      byte = static_cast<unsigned char>(random.OneIn(2) ? random.Below(256) : random.Below(18));
    }
  }
  if (random.OneIn(6)) {
    const auto filler = static_cast<unsigned char>(random.Below(256));
    bytes.insert(bytes.end(), random.Below(9), filler);
  }
  return bytes;
}

std::string Status(HRESULT status) { return Hexadecimal(static_cast<std::uint32_t>(status), 8); }

std::string ShowNumber(long long number) { return std::to_string(number); }

std::string Joined(std::initializer_list<std::string> outcomes) {
  std::string result;
  for (const auto& outcome : outcomes) result += (result.empty() ? "" : " ") + outcome;
  return result;
}

std::string Show(BSTR text) {
  if (text == nullptr) return "(null)";
  std::string result = "'";
  for (const OLECHAR unit : ViewOf(text)) {
    const auto code = static_cast<std::uint32_t>(unit) & 0xFFFFu;
    if (code >= 0x20 && code < 0x7F) {
      result += static_cast<char>(code);
    } else {
      result += "\\" + Hexadecimal(code, 4);
    }
  }
  return result + "'";
}

std::string Show(const VARIANT& value) {
  switch (value.vt) {
    case VT_I2:
      return "I2 " + ShowNumber(value.iVal);
    case VT_I4:
      return "I4 " + ShowNumber(value.lVal);
    case VT_UI1:
      return "UI1 " + ShowNumber(value.bVal);
    case VT_BOOL:
      return "BOOL " + ShowNumber(value.boolVal);
    case VT_ERROR:
      return "ERROR " + Status(value.scode);
    case VT_R4:
      return "R4 " + Hexadecimal(std::bit_cast<std::uint32_t>(value.fltVal), 8);
    case VT_R8:
      return "R8 " + Hexadecimal(std::bit_cast<std::uint64_t>(value.dblVal), 16);
    case VT_DATE:
      return "DATE " + Hexadecimal(std::bit_cast<std::uint64_t>(value.date), 16);
    case VT_BSTR:
      return Show(value.bstrVal);
    case VT_DISPATCH:
      return value.pdispVal == nullptr ? "no object" : "object";
    default:
      return "type " + ShowNumber(value.vt);
  }
}

}  // namespace halyard::differential
