#include "util/text/ReadDouble.h"

#include "util/text/Ascii.h"

#include <algorithm>
#include <limits>
#include <string_view>
#include <system_error>

namespace util
{

namespace
{

/// Whether a decimal text without a sign, which no double holds, is too small rather than too large.
bool isTooSmall(std::string_view text)
{
    long long exponent = 0;
    if (const std::size_t mark = text.find_first_of("eE"); mark != std::string_view::npos)
    {
        std::string_view digits = text.substr(mark + 1);
        const bool negative = digits.starts_with('-');
        if (!digits.empty() && !isAsciiDigit(digits.front()))
            digits.remove_prefix(1);
        if (std::from_chars(digits.data(), digits.data() + digits.size(), exponent).ec != std::errc())
            return negative;
        exponent = negative ? -exponent : exponent;
        text = text.substr(0, mark);
    }
    const std::size_t firstDigit = text.find_first_of("123456789");
    if (firstDigit == std::string_view::npos)
        return true;
    // The power of ten of the first digit that is not zero.
    const std::size_t point = std::min(text.find('.'), text.size());
    return exponent + static_cast<long long>(point) - static_cast<long long>(firstDigit) < 0;
}

} // namespace

std::from_chars_result readDouble(const char* first, const char* last, double& value)
{
    const std::from_chars_result result = std::from_chars(first, last, value);
    if (result.ec == std::errc::result_out_of_range)
    {
        const bool negative = *first == '-';
        const char* const digits = first + (negative ? 1 : 0);
        const double size = isTooSmall({digits, static_cast<std::size_t>(result.ptr - digits)})
                                ? 0.0
                                : std::numeric_limits<double>::infinity();
        value = negative ? -size : size;
    }
    return result;
}

} // namespace util
