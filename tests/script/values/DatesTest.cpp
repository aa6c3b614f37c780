#include "script/ScriptTest.h"

namespace tavrel::script {
namespace {

class DatesTest : public ScriptTest {
protected:
  DatesTest() { host.time = 730904706.75; } // Thursday, February 29, 2024, 13:05:06.75

  std::string day(const std::string& text) {
    return result("short date string of date \"" + text + "\"");
  }
  std::string time(const std::string& text) {
    return result("time string of date \"" + text + "\"");
  }
};

TEST_F(DatesTest, NowIsAWholeSecond) {
  EXPECT_EQ(result("current date"), "date \"Thursday, February 29, 2024 at 1:05:06 PM\"");
}

TEST_F(DatesTest, WhatADateSaysCanBeReadAgain) {
  EXPECT_EQ(result("set d to current date\n(date (d as text)) = d"), "true");
  EXPECT_EQ(result("set d to current date\n(d as text as date) - d"), "0");
}

TEST_F(DatesTest, DaysAreReadInManyForms) {
  for (const char* text : {"1/31/2024", "2024-01-31", "January 31, 2024", "31 January 2024",
                           "Jan 31 2024", "Wednesday, January 31, 2024", "1/31/24"})
    EXPECT_EQ(day(text), "\"1/31/2024\"") << text;
}

TEST_F(DatesTest, TimesAreReadInManyForms) {
  for (const char* text :
       {"20:15", "8:15 PM", "8:15:00 pm", "2024-01-31T20:15:00", "January 31, 2024 at 8:15:00 PM"})
    EXPECT_EQ(time(text), "\"8:15:00 PM\"") << text;
}

TEST_F(DatesTest, MidnightAndNoonAreTwelve) {
  EXPECT_EQ(time("12:00 AM"), "\"12:00:00 AM\"");
  EXPECT_EQ(time("12:30 PM"), "\"12:30:00 PM\"");
  EXPECT_EQ(result("hours of date \"12:00 AM\""), "0");
}

TEST_F(DatesTest, ATimeAloneIsOfToday) {
  EXPECT_EQ(day("8:00"), "\"2/29/2024\"");
}

TEST_F(DatesTest, WhatIsNoDateIsAnError) {
  for (const char* text : {"", "soon", "13/1/2024", "1/32/2024", "25:00", "1:60", "13:00 PM",
                           "99999999999/1/1", "1/2/3/4", "January"})
    EXPECT_EQ(errorOf(std::string("\"").append(text).append("\" as date")), errors::cannotCoerce)
        << text;
}

TEST_F(DatesTest, DaysBeyondTheMonthCarryOver) {
  EXPECT_EQ(result("set d to date \"1/31/2024\"\nset day of d to 32\nshort date string of d"),
            "\"2/1/2024\"");
  EXPECT_EQ(
      result("set d to date \"1/31/2024\"\nset month of d to February\nshort date string of d"),
      "\"3/2/2024\"");
  EXPECT_EQ(result("set d to date \"1/1/2024\"\nset day of d to 0\nshort date string of d"),
            "\"12/31/2023\"");
}

TEST_F(DatesTest, TheLengthsOfMonthsAndLeapYearsAreRight) {
  EXPECT_EQ(result("short date string of ((date \"2/28/2023\") + 1 * days)"), "\"3/1/2023\"");
  EXPECT_EQ(result("short date string of ((date \"2/28/2024\") + 1 * days)"), "\"2/29/2024\"");
  EXPECT_EQ(result("short date string of ((date \"2/28/2100\") + 1 * days)"), "\"3/1/2100\"");
}

TEST_F(DatesTest, MonthsAndWeekdaysCompareAsConstantsAndCount) {
  EXPECT_EQ(result("set d to current date\n{month of d is February, weekday of d = Friday}"),
            "{true, false}");
  EXPECT_EQ(result("set d to current date\n{month of d as integer, (weekday of d) * 1}"), "{2, 5}");
  EXPECT_EQ(result("set d to current date\nset month of d to 12\nmonth of d"), "December");
}

TEST_F(DatesTest, DatesBefore2001Count) {
  EXPECT_EQ(result("weekday of date \"7/20/1969\""), "Sunday");
  EXPECT_EQ(result("(date \"1/1/2001\") - (date \"12/31/2000\")"), "86400");
  EXPECT_EQ(result("time string of ((date \"1/1/1970\") - 1)"), "\"11:59:59 PM\"");
}

TEST_F(DatesTest, DatesFarAwayAreNoCrash) {
  for (const char* source : {"(current date) + 1.0E+300", "(current date) - 1.0E+300",
                             "set d to current date\nset year of d to 999999\nd",
                             "set d to current date\nset year of d to -999999\nd",
                             "set d to current date\nset time of d to 9223372036854775807\nd",
                             "set d to current date\nset month of d to -9223372036854775807\nd"})
    EXPECT_EQ(errorOf(source), 0) << source;
}

TEST_F(DatesTest, OnlyDatesOfEarlierAndLaterCompare) {
  EXPECT_EQ(result("(date \"1/1/2024\") < (date \"1/2/2024\")"), "true");
  EXPECT_EQ(result("(date \"1/1/2024\") = \"1/1/2024\""), "false");
  EXPECT_EQ(result("(date \"1/1/2024\") < \"12/31/2023\""), "false");
}

TEST_F(DatesTest, APartThatDatesDoNotHaveIsAnError) {
  EXPECT_EQ(errorOf("century of (current date)"), errors::noSuchObject);
  EXPECT_EQ(errorOf("set d to current date\nset weekday of d to Monday"), errors::cannotSet);
  EXPECT_EQ(errorOf("set d to current date\nset day of d to \"x\""), errors::cannotCoerce);
}

TEST_F(DatesTest, ADayThatTheMonthDoesNotHaveIsNoDate) {
  for (const char* day : {"2/30/2024", "2/29/2023", "4/31/2024", "1/0/2024", "13/1/2024"})
    EXPECT_EQ(errorOf(std::string("date \"") + day + "\""), errors::cannotCoerce) << day;
  EXPECT_EQ(errorOf("date \"2/29/2024\""), 0);
}

TEST_F(DatesTest, ADateBeyondAllCalendarsHasATime) {
  for (const char* far : {"1.0E+300", "-1.0E+300", "1.0E+18"})
    EXPECT_EQ(result(std::string("set t to time of ((date \"1/1/2024\") + ") + far +
                     ")\nt ≥ 0 and t < 86400"),
              "true")
        << far;
}

} // namespace
} // namespace tavrel::script
