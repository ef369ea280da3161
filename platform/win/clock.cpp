#include "platform/win/clock.h"

#include <cstdio>

namespace win {

namespace {

std::tm LocalTime(std::time_t when) {
    std::tm local{};
    localtime_r(&when, &local);
    return local;
}

// Three two-digit numbers with a separator, "NN?NN?NN", into a buffer of 9 bytes.
char* WriteTriple(char* buffer, char separator, int a, int b, int c) {
    const int numbers[] = {a, b, c};
    for (int i = 0; i < 3; ++i) {
        buffer[3 * i] = static_cast<char>('0' + numbers[i] / 10 % 10);
        buffer[3 * i + 1] = static_cast<char>('0' + numbers[i] % 10);
        buffer[3 * i + 2] = i < 2 ? separator : '\0';
    }
    return buffer;
}

}  // namespace

char* _strdate(char* buffer) {
    std::tm now = LocalTime(std::time(nullptr));
    return WriteTriple(buffer, '/', now.tm_mon + 1, now.tm_mday, now.tm_year % 100);
}

char* _strtime(char* buffer) {
    std::tm now = LocalTime(std::time(nullptr));
    return WriteTriple(buffer, ':', now.tm_hour, now.tm_min, now.tm_sec);
}

std::string LongDate(std::time_t when) {
    static const char* const days[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                       "Thursday", "Friday", "Saturday"};
    static const char* const months[] = {"January",   "February", "March",    "April",
                                         "May",       "June",     "July",     "August",
                                         "September", "October",  "November", "December"};
    std::tm date = LocalTime(when);
    char text[64];
    std::snprintf(text, sizeof text, "%s, %s %02d, %d", days[date.tm_wday], months[date.tm_mon],
                  date.tm_mday, date.tm_year + 1900);
    return text;
}

}  // namespace win
