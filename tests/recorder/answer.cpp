#include "tests/recorder/answer.h"

#include <array>
#include <charconv>
#include <cstring>

#include "tests/recorder/value_text.h"

namespace halyard::recorder {
namespace {

// The text up to the next blank; `text` goes on behind it.
std::string_view TakeWord(std::string_view* text) {
  const std::size_t end = text->find(' ');
  const std::string_view word = text->substr(0, end);
  text->remove_prefix(end == std::string_view::npos ? text->size() : end + 1);
  return word;
}

HRESULT ConvertInUsEnglish(VARIANT* result, VARIANT* source, VARTYPE type) {
#ifdef _WIN32
  constexpr LCID kUsEnglish = 0x0409;
  return VariantChangeTypeEx(result, source, kUsEnglish, 0, type);
#else
  return VariantChangeType(result, source, 0, type);
#endif
}

std::string Outcome(HRESULT status, const VARIANT& result) {
  const std::string code = FormatHex(static_cast<unsigned>(status), 8);
  return FAILED(status) ? code : code + ' ' + FormatValue(result);
}

std::string Convert(std::string_view rest) {
  VARTYPE type = VT_EMPTY;
  Value source;
  if (!ParseType(TakeWord(&rest), &type) || !ParseValue(rest, &source)) return "";
  Value result;
  const HRESULT status = ConvertInUsEnglish(&result.variant, &source.variant, type);
  return Outcome(status, result.variant);
}

std::string Copy(std::string_view rest) {
  Value source;
  if (!ParseValue(rest, &source)) return "";
  Value result;
  const HRESULT status = VariantCopy(&result.variant, &source.variant);
  return Outcome(status, result.variant);
}

std::string CopyInd(std::string_view rest) {
  Value source;
  if (!ParseValue(rest, &source)) return "";
  Value result;
  const HRESULT status = VariantCopyInd(&result.variant, &source.variant);
  return Outcome(status, result.variant);
}

std::string Clear(std::string_view rest) {
  Value value;
  if (!ParseValue(rest, &value)) return "";
  const HRESULT status = VariantClear(&value.variant);
  return FormatHex(static_cast<unsigned>(status), 8) + ' ' + FormatValue(value.variant);
}

std::string Split(std::string_view rest) {
  unsigned long long bits = 0;
  if (!ParseHex(rest, &bits)) return "";
  double date = 0;
  std::memcpy(&date, &bits, sizeof(date));
  SYSTEMTIME time{};
  if (!VariantTimeToSystemTime(date, &time)) return "0";
  std::string answer = "1";
  for (const WORD part : {time.wYear, time.wMonth, time.wDayOfWeek, time.wDay, time.wHour, time.wMinute,
                          time.wSecond, time.wMilliseconds}) {
    answer += ' ' + std::to_string(part);
  }
  return answer;
}

std::string Join(std::string_view rest) {
  std::array<WORD, 7> parts{};
  for (WORD& part : parts) {
    const std::string_view word = TakeWord(&rest);
    if (std::from_chars(word.data(), word.data() + word.size(), part).ec != std::errc()) return "";
  }
  SYSTEMTIME time{parts[0], parts[1], 0, parts[2], parts[3], parts[4], parts[5], parts[6]};
  double date = 0;
  if (!SystemTimeToVariantTime(&time, &date)) return "0";
  unsigned long long bits = 0;
  std::memcpy(&bits, &date, sizeof(bits));
  return "1 " + FormatHex(bits, 16);
}

}  // namespace

std::string Answer(std::string_view request) {
  std::string_view rest = request;
  const std::string_view verb = TakeWord(&rest);
  if (verb == "convert") return Convert(rest);
  if (verb == "copy") return Copy(rest);
  if (verb == "copyind") return CopyInd(rest);
  if (verb == "clear") return Clear(rest);
  if (verb == "split") return Split(rest);
  if (verb == "join") return Join(rest);
  return "";
}

}  // namespace halyard::recorder
