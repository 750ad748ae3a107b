#ifndef UTIL_TEXT_READDOUBLE_H
#define UTIL_TEXT_READDOUBLE_H

#include <charconv>

namespace util
{

/// Reads the number at the start of a text as std::from_chars does, whatever the process's locale, and also tells on
/// which side a number is that no double holds: `value` is then a zero or an infinity with the number's sign, and the
/// error is std::errc::result_out_of_range as there.
std::from_chars_result readDouble(const char* first, const char* last, double& value);

} // namespace util

#endif
