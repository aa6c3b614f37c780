#include "script/values/Dates.h"

#include "base/Ascii.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <vector>

namespace tavrel::script {
namespace {

namespace chrono = std::chrono;

constexpr auto months =
    std::to_array<std::string_view>({"January", "February", "March", "April", "May", "June", "July",
                                     "August", "September", "October", "November", "December"});
constexpr auto weekdayNames = std::to_array<std::string_view>(
    {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"});

constexpr chrono::sys_days epoch{chrono::year{2001} / 1 / 1};
constexpr double secondsOfDay = 86400;
// In seconds: years of five digits and more are beyond what the calendar can show.
constexpr double farthest = 8000 * 366.0 * secondsOfDay;

chrono::sys_days dayOf(double seconds) {
  const double kept = std::isnan(seconds) ? 0 : std::clamp(seconds, -farthest / 5, farthest);
  return epoch + chrono::days(static_cast<int>(std::floor(kept / secondsOfDay)));
}

// A word or a number in the text of a date; of what stands between them only a colon matters.
struct DateToken {
  std::string_view text;
  int number = -1;   ///< -1 for a word
  char before = ' '; ///< the character before it
};

std::optional<std::vector<DateToken>> dateTokens(std::string_view text) {
  std::vector<DateToken> result;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t start = at;
    const auto take = [&](auto accepts) {
      while (at < text.size() && accepts(text[at]))
        ++at;
    };
    take(isDigit);
    if (at == start)
      take(isLetter);
    if (at == start) {
      ++at;
      continue;
    }
    DateToken token{text.substr(start, at - start), -1, start > 0 ? text[start - 1] : ' '};
    if (isDigit(token.text[0]) &&
        std::from_chars(text.data() + start, text.data() + at, token.number).ec != std::errc())
      return std::nullopt;
    result.push_back(token);
  }
  return result;
}

bool isName(std::string_view word, std::string_view name) {
  return word.size() >= 3 && word.size() <= name.size() &&
         std::equal(word.begin(), word.end(), name.begin(),
                    [](char a, char b) { return (a | 0x20) == (b | 0x20); });
}

template <typename Names> int indexOfName(const Names& names, std::string_view word) {
  for (std::size_t i = 0; i < names.size(); ++i)
    if (isName(word, names[i]))
      return static_cast<int>(i);
  return -1;
}

// What the tokens of a date's text say.
struct ParsedDate {
  std::vector<int> days;  ///< the numbers that are no time, in their order
  std::vector<int> times; ///< those of the time
  int month = 0;          ///< that is named; 0 for none
  bool isIso = false;     ///< the first number has four digits: year, month, day
  int meridiem = 0;       ///< 1 for AM, 2 for PM, 0 for neither
};

bool isMeridiem(std::string_view word, char first) {
  return word.size() == 2 && (word[0] | 0x20) == first && (word[1] | 0x20) == 'm';
}

bool readWord(ParsedDate& parsed, std::string_view word) {
  const int month = indexOfName(months, word);
  if (month >= 0)
    parsed.month = month + 1;
  if (isMeridiem(word, 'a') || isMeridiem(word, 'p'))
    parsed.meridiem = isMeridiem(word, 'a') ? 1 : 2;
  else if (month < 0 && indexOfName(weekdayNames, word) < 0)
    return word == "at" || word == "T" || word == "t" || word == "of";
  return true;
}

// A number belongs to the time when a colon stands before or behind it.
std::optional<ParsedDate> parsedDate(std::string_view text) {
  const auto all = dateTokens(text);
  if (!all || all->empty())
    return std::nullopt;
  ParsedDate parsed;
  for (std::size_t i = 0; i < all->size(); ++i) {
    const DateToken& token = (*all)[i];
    const bool isTime = token.before == ':' || (i + 1 < all->size() && (*all)[i + 1].before == ':');
    if (token.number < 0 && !readWord(parsed, token.text))
      return std::nullopt;
    if (token.number >= 0)
      (isTime ? parsed.times : parsed.days).push_back(token.number);
    parsed.isIso = parsed.isIso || (parsed.days.size() == 1 && token.text.size() == 4);
  }
  return parsed;
}

bool setDay(DateComponents& components, const ParsedDate& parsed) {
  const std::vector<int>& days = parsed.days;
  if (days.empty())
    return parsed.month == 0;
  if (parsed.month > 0 && days.size() == 2)
    components = {days[1], parsed.month, days[0]};
  else if (parsed.month == 0 && days.size() == 3)
    components = parsed.isIso ? DateComponents{days[0], days[1], days[2]}
                              : DateComponents{days[2], days[0], days[1]};
  else
    return false;
  components.year += components.year < 100 ? 2000 : 0;
  const chrono::year_month_day date{chrono::year{components.year},
                                    chrono::month{static_cast<unsigned>(components.month)},
                                    chrono::day{static_cast<unsigned>(components.day)}};
  return date.ok() && components.month <= 12 && components.day <= 31 && components.year < 10000;
}

bool setTime(DateComponents& components, const ParsedDate& parsed) {
  const std::vector<int>& times = parsed.times;
  components.hours = !times.empty() ? times[0] : 0;
  components.minutes = times.size() > 1 ? times[1] : 0;
  components.seconds = times.size() > 2 ? times[2] : 0;
  if (parsed.meridiem != 0 && components.hours > 12)
    return false;
  if (parsed.meridiem != 0)
    components.hours = components.hours % 12 + (parsed.meridiem == 2 ? 12 : 0);
  return times.size() <= 3 && components.hours < 24 && components.minutes < 60 &&
         components.seconds < 60;
}

} // namespace

DateComponents componentsOf(double seconds) {
  const chrono::sys_days day = dayOf(seconds);
  const chrono::year_month_day date(day);
  const double inDay = std::fmod(std::fmod(seconds, secondsOfDay) + secondsOfDay, secondsOfDay);
  const int whole = std::isfinite(inDay) ? static_cast<int>(inDay) : 0;
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          whole / 3600,
          whole / 60 % 60,
          static_cast<double>(whole % 60)};
}

double secondsOf(const DateComponents& components) {
  const auto month = chrono::year{std::clamp(components.year, 0, 9999)} / chrono::January / 1 +
                     chrono::months(std::clamp(components.month, -9999, 9999) - 1);
  const auto first = static_cast<double>((chrono::sys_days(month) - epoch).count());
  const double days = first + components.day - 1.0;
  return days * secondsOfDay + components.hours * 3600.0 + components.minutes * 60.0 +
         components.seconds;
}

std::string_view monthName(int month) {
  return months[static_cast<std::size_t>(std::clamp(month, 1, 12) - 1)];
}

std::string_view weekdayName(double seconds) {
  return weekdayNames[chrono::weekday(dayOf(seconds)).c_encoding()];
}

int calendarNumber(std::string_view name) {
  const auto month = std::find(months.begin(), months.end(), name);
  if (month != months.end())
    return static_cast<int>(month - months.begin()) + 1;
  const auto weekday = std::find(weekdayNames.begin(), weekdayNames.end(), name);
  return weekday != weekdayNames.end() ? static_cast<int>(weekday - weekdayNames.begin()) + 1 : 0;
}

std::string dateString(double seconds) {
  const DateComponents components = componentsOf(seconds);
  std::string result(weekdayName(seconds));
  result.append(", ").append(monthName(components.month)).append(" ");
  return result.append(std::to_string(components.day))
      .append(", ")
      .append(std::to_string(components.year));
}

std::string shortDateString(double seconds) {
  const DateComponents components = componentsOf(seconds);
  std::string result = std::to_string(components.month);
  result.append("/").append(std::to_string(components.day));
  return result.append("/").append(std::to_string(components.year));
}

std::string timeString(double seconds) {
  const DateComponents components = componentsOf(seconds);
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%d:%02d:%02d %s", (components.hours + 11) % 12 + 1,
                components.minutes, static_cast<int>(components.seconds),
                components.hours < 12 ? "AM" : "PM");
  return text.data();
}

std::string dateText(double seconds) {
  return dateString(seconds).append(" at ").append(timeString(seconds));
}

std::optional<double> parseDate(std::string_view text, double now) {
  const auto parsed = parsedDate(text);
  if (!parsed || (parsed->days.empty() && parsed->times.empty()))
    return std::nullopt;
  DateComponents components = componentsOf(now);
  if (!setDay(components, *parsed) || !setTime(components, *parsed))
    return std::nullopt;
  return secondsOf(components);
}

} // namespace tavrel::script
