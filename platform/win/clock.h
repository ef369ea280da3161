// Today's date and the time of day as the C runtime and the component write them, in
// local time, with English names whatever the locale.
#pragma once

#include <ctime>
#include <string>

namespace win {

// Writes the date as "MM/DD/YY" into a buffer of at least 9 bytes and returns it.
char* _strdate(char* buffer);

// Writes the time as "HH:MM:SS" into a buffer of at least 9 bytes and returns it.
char* _strtime(char* buffer);

// A date written out as "%A, %B %d, %Y": "Friday, January 05, 2024".
std::string LongDate(std::time_t when = std::time(nullptr));

}  // namespace win
