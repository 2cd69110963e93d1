#include "platform/native/parse_date.h"

#include <utility>

#include "platform/native/date_order.h"
#include "platform/native/text_cursor.h"

namespace halyard {
namespace {

constexpr std::string_view kMonths[] = {"january",   "february", "march",    "april",
                                        "may",       "june",     "july",     "august",
                                        "september", "october",  "november", "december"};
constexpr std::string_view kWeekdays[] = {"sunday",   "monday", "tuesday", "wednesday",
                                          "thursday", "friday", "saturday"};
constexpr std::size_t kShortName = 3;

// The number of the name, from 1, whole or by its first three letters; 0 for none.
template <std::size_t kCount>
int FindName(WideView word, const std::string_view (&names)[kCount]) noexcept {
  for (std::size_t i = 0; i < kCount; ++i) {
    if (IsWord(word, names[i]) || IsWord(word, names[i].substr(0, kShortName)))
      return static_cast<int>(i) + 1;
  }
  return 0;
}

class DateParser {
 public:
  explicit DateParser(WideView text) noexcept : text_(text) {}

  bool Run(CalendarTime* time) noexcept {
    for (SkipGap(); !text_.AtEnd(); SkipGap()) {
      if (!Item()) return false;
    }
    if (after_time_separator_ || after_date_separator_) return false;
    const bool has_date = date_.count != 0 || date_.named_month != 0;
    if (!has_date && time_count_ == 0) return false;
    return (!has_date || OrderDate(date_, time)) && (time_count_ == 0 || FinishTime(time));
  }

 private:
  enum class HalfOfDay { kNone, kMorning, kAfternoon };

  // Commas stand where blanks may, but not within a time.
  void SkipGap() noexcept {
    text_.SkipBlanks();
    while (!after_time_separator_ && text_.Take(u',')) text_.SkipBlanks();
  }

  bool Item() noexcept {
    if (IsDigit(text_.Next())) return Number();
    return IsLetter(text_.Next()) && !after_time_separator_ && Name();
  }

  // A number is one of a time where a colon or point or a half of the day touches it.
  bool Number() noexcept {
    int value = 0;
    if (!Digits(&value)) return false;
    const bool within_time = std::exchange(after_time_separator_, false);
    text_.SkipBlanks();
    after_time_separator_ = text_.Take(u':') || text_.Take(u'.');
    const bool ends_time = !after_time_separator_ && TakeHalfOfDay();
    if (within_time || after_time_separator_ || ends_time) return AddToTime(value, within_time);
    if (date_.count == DateNumbers::kMax) return false;
    date_.numbers[date_.count++] = value;
    TakeDateSeparator();
    return true;
  }

  bool Digits(int* value) noexcept {
    for (; IsDigit(text_.Next()); text_.Skip()) {
      *value = *value * 10 + (text_.Next() - u'0');
      if (*value > kLastYear) return false;
    }
    return true;
  }

  bool TakeHalfOfDay() noexcept {
    TextCursor ahead = text_;
    const WideView word = ahead.TakeLetters();
    const bool morning = IsWord(word, "am") || IsWord(word, "a");
    if (!morning && !IsWord(word, "pm") && !IsWord(word, "p")) return false;
    half_of_day_ = morning ? HalfOfDay::kMorning : HalfOfDay::kAfternoon;
    text_ = ahead;
    return true;
  }

  // There is one time, of hour, minute and second at most.
  bool AddToTime(int value, bool within_time) noexcept {
    if (after_date_separator_ || (!within_time && time_count_ != 0) || time_count_ == kTimeNumbers)
      return false;
    time_[time_count_++] = value;
    return true;
  }

  void TakeDateSeparator() noexcept {
    text_.SkipBlanks();
    after_date_separator_ = text_.Take(u'/') || text_.Take(u'-');
  }

  bool Name() noexcept {
    const WideView word = text_.TakeLetters();
    if (FindName(word, kWeekdays) != 0) return !after_date_separator_;
    const int month = FindName(word, kMonths);
    if (month == 0 || date_.named_month != 0) return false;
    date_.named_month = month;
    date_.begins_with_name = date_.count == 0;
    TakeDateSeparator();
    return true;
  }

  bool FinishTime(CalendarTime* time) const noexcept {
    time->hour = time_[0];
    time->minute = time_[1];
    time->second = time_[2];
    if (half_of_day_ == HalfOfDay::kMorning && time->hour == kNoon) time->hour = 0;
    if (half_of_day_ == HalfOfDay::kAfternoon && time->hour < kNoon) time->hour += kNoon;
    return time->hour < 24 && time->minute < 60 && time->second < 60;
  }

  static constexpr int kTimeNumbers = 3;
  static constexpr int kNoon = 12;

  TextCursor text_;
  DateNumbers date_;
  int time_[kTimeNumbers] = {};
  int time_count_ = 0;
  HalfOfDay half_of_day_ = HalfOfDay::kNone;
  bool after_time_separator_ = false;
  bool after_date_separator_ = false;
};

}  // namespace

HRESULT ParseDate(WideView text, DATE* date) noexcept {
  CalendarTime time;
  if (!DateParser(text).Run(&time)) return DISP_E_TYPEMISMATCH;
  *date = JoinDate(time);
  return S_OK;
}

}  // namespace halyard
