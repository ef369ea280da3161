#include "platform/win/clock.h"

#include <clocale>
#include <ctime>
#include <string>

#include "platform/testing/sandbox.h"

namespace win {
namespace {

using ClockTest = velorand::testing::SandboxTest;

std::time_t LocalNoon(int year, int month, int day) {
    std::tm date{};
    date.tm_year = year - 1900;
    date.tm_mon = month - 1;
    date.tm_mday = day;
    date.tm_hour = 12;
    date.tm_isdst = -1;
    return std::mktime(&date);
}

TEST_F(ClockTest, LongDateIsEnglishWithZeroPaddedDay) {
    EXPECT_EQ(LongDate(LocalNoon(2024, 1, 5)), "Friday, January 05, 2024");
    EXPECT_EQ(LongDate(LocalNoon(1999, 12, 31)), "Friday, December 31, 1999");
    EXPECT_EQ(LongDate(LocalNoon(2025, 9, 14)), "Sunday, September 14, 2025");
}

TEST_F(ClockTest, ShortDateAndTimeMatchTheClock) {
    char date[9], time[9];
    for (;;) {
        std::time_t before = std::time(nullptr);
        _strdate(date);
        _strtime(time);
        if (std::time(nullptr) != before)
            continue;
        std::tm now{};
        localtime_r(&before, &now);
        char expectDate[16], expectTime[16];
        std::strftime(expectDate, sizeof expectDate, "%m/%d/%y", &now);
        std::strftime(expectTime, sizeof expectTime, "%H:%M:%S", &now);
        EXPECT_EQ(std::string(date), expectDate);
        EXPECT_EQ(std::string(time), expectTime);
        break;
    }
}

}  // namespace
}  // namespace win
