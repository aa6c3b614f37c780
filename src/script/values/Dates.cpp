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
// Years of five digits and more are beyond the calendar.
constexpr double farthest = 8000 * 366.0 * secondsOfDay;

chrono::sys_days dayOf(double seconds) {
  const double kept = std::isnan(seconds) ? 0 : std::clamp(seconds, -farthest / 5, farthest);
  return epoch + chrono::days(static_cast<int>(std::floor(kept / secondsOfDay)));
}

// Words and numbers of a date's text; what stands between them does not matter.
struct Piece {
  std::string_view text;
  int number = -1; ///< -1 for a word
  char before = ' ';
};

std::optional<std::vector<Piece>> pieces(std::string_view text) {
  std::vector<Piece> result;
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
    Piece piece{text.substr(start, at - start), -1, start > 0 ? text[start - 1] : ' '};
    if (isDigit(piece.text[0]) &&
        std::from_chars(text.data() + start, text.data() + at, piece.number).ec != std::errc())
      return std::nullopt;
    result.push_back(piece);
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

struct Reading {
  std::vector<int> days; ///< numbers of the date as they come
  std::vector<int> times;
  int month = 0;
  bool isIso = false;
  int half = 0; ///< 1 AM, 2 PM
};

bool isHalf(std::string_view word, char first) {
  return word.size() == 2 && (word[0] | 0x20) == first && (word[1] | 0x20) == 'm';
}

bool readWord(Reading& reading, std::string_view word) {
  const int month = indexOfName(months, word);
  if (month >= 0)
    reading.month = month + 1;
  if (isHalf(word, 'a') || isHalf(word, 'p'))
    reading.half = isHalf(word, 'a') ? 1 : 2;
  else if (month < 0 && indexOfName(weekdayNames, word) < 0)
    return word == "at" || word == "T" || word == "t" || word == "of";
  return true;
}

// A number belongs to the time when a colon stands before or behind it.
std::optional<Reading> readingOf(std::string_view text) {
  const auto all = pieces(text);
  if (!all || all->empty())
    return std::nullopt;
  Reading reading;
  for (std::size_t i = 0; i < all->size(); ++i) {
    const Piece& piece = (*all)[i];
    const bool isTime = piece.before == ':' || (i + 1 < all->size() && (*all)[i + 1].before == ':');
    if (piece.number < 0 && !readWord(reading, piece.text))
      return std::nullopt;
    if (piece.number >= 0)
      (isTime ? reading.times : reading.days).push_back(piece.number);
    reading.isIso = reading.isIso || (reading.days.size() == 1 && piece.text.size() == 4);
  }
  return reading;
}

bool setDay(DateParts& parts, const Reading& reading) {
  const std::vector<int>& days = reading.days;
  if (days.empty())
    return reading.month == 0;
  if (reading.month > 0 && days.size() == 2)
    parts = {days[1], reading.month, days[0]};
  else if (reading.month == 0 && days.size() == 3)
    parts =
        reading.isIso ? DateParts{days[0], days[1], days[2]} : DateParts{days[2], days[0], days[1]};
  else
    return false;
  parts.year += parts.year < 100 ? 2000 : 0;
  const chrono::year_month_day date{chrono::year{parts.year},
                                    chrono::month{static_cast<unsigned>(parts.month)},
                                    chrono::day{static_cast<unsigned>(parts.day)}};
  return date.ok() && parts.month <= 12 && parts.day <= 31 && parts.year < 10000;
}

bool setTime(DateParts& parts, const Reading& reading) {
  const std::vector<int>& times = reading.times;
  parts.hours = !times.empty() ? times[0] : 0;
  parts.minutes = times.size() > 1 ? times[1] : 0;
  parts.seconds = times.size() > 2 ? times[2] : 0;
  if (reading.half != 0 && parts.hours > 12)
    return false;
  if (reading.half != 0)
    parts.hours = parts.hours % 12 + (reading.half == 2 ? 12 : 0);
  return times.size() <= 3 && parts.hours < 24 && parts.minutes < 60 && parts.seconds < 60;
}

} // namespace

DateParts partsOf(double seconds) {
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

double secondsOf(const DateParts& parts) {
  const auto month = chrono::year{std::clamp(parts.year, 0, 9999)} / chrono::January / 1 +
                     chrono::months(std::clamp(parts.month, -9999, 9999) - 1);
  const auto first = static_cast<double>((chrono::sys_days(month) - epoch).count());
  const double days = first + parts.day - 1.0;
  return days * secondsOfDay + parts.hours * 3600.0 + parts.minutes * 60.0 + parts.seconds;
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
  const DateParts parts = partsOf(seconds);
  std::string result(weekdayName(seconds));
  result.append(", ").append(monthName(parts.month)).append(" ");
  return result.append(std::to_string(parts.day)).append(", ").append(std::to_string(parts.year));
}

std::string shortDateString(double seconds) {
  const DateParts parts = partsOf(seconds);
  std::string result = std::to_string(parts.month);
  result.append("/").append(std::to_string(parts.day));
  return result.append("/").append(std::to_string(parts.year));
}

std::string timeString(double seconds) {
  const DateParts parts = partsOf(seconds);
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%d:%02d:%02d %s", (parts.hours + 11) % 12 + 1,
                parts.minutes, static_cast<int>(parts.seconds), parts.hours < 12 ? "AM" : "PM");
  return text.data();
}

std::string dateText(double seconds) {
  return dateString(seconds).append(" at ").append(timeString(seconds));
}

std::optional<double> dateIn(std::string_view text, double now) {
  const auto reading = readingOf(text);
  if (!reading || (reading->days.empty() && reading->times.empty()))
    return std::nullopt;
  DateParts parts = partsOf(now);
  if (!setDay(parts, *reading) || !setTime(parts, *reading))
    return std::nullopt;
  return secondsOf(parts);
}

} // namespace tavrel::script
