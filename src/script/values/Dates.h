#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavrel::script {

/// A date of the local calendar by its components.
struct DateComponents {
  int year = 2001;
  int month = 1; ///< from 1
  int day = 1;
  int hours = 0;
  int minutes = 0;
  double seconds = 0;
};

// Everywhere below `seconds` is a date as seconds since 2001-01-01 00:00 of the local calendar.

[[nodiscard]] DateComponents componentsOf(double seconds);
/// Components beyond their range carry over: day 32 of January is the first of February.
[[nodiscard]] double secondsOf(const DateComponents& components);

[[nodiscard]] std::string_view monthName(int month);        ///< from 1, "January"
[[nodiscard]] std::string_view weekdayName(double seconds); ///< "Monday"
/// From a name the number of a month, from 1, or of a weekday, from Sunday as 1; 0 for other names.
[[nodiscard]] int calendarNumber(std::string_view name);

/// "Monday, January 1, 2001 at 12:00:00 AM"
[[nodiscard]] std::string dateText(double seconds);
[[nodiscard]] std::string dateString(double seconds);      ///< "Monday, January 1, 2001"
[[nodiscard]] std::string shortDateString(double seconds); ///< "1/1/2001"
[[nodiscard]] std::string timeString(double seconds);      ///< "12:00:00 AM"

/// The seconds of a date in words: what dateText writes, "2001-01-31", "1/31/2001",
/// "31 January 2001", each with or without a time ("8:30", "8:30:15 PM"), or a time alone, which is
/// on the day of `now`. Nothing for other texts.
[[nodiscard]] std::optional<double> parseDate(std::string_view text, double now);

} // namespace tavrel::script
