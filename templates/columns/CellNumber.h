#ifndef TEMPLATES_COLUMNS_CELLNUMBER_H
#define TEMPLATES_COLUMNS_CELLNUMBER_H

#include "util/text/Ascii.h"
#include <tessaron/util/Parameterized.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string_view>

namespace TessaronResources
{

/// The number that a text starts with, if any; blanks and a plus sign may stand before it.
template <class Number>
std::optional<Number> leadingNumber(std::string_view text)
{
    const std::size_t start = text.find_first_not_of(util::textBlanks);
    text = start == std::string_view::npos ? std::string_view() : text.substr(start);
    if (text.size() > 1 && text[0] == '+' && text[1] != '-')
        text.remove_prefix(1);
    Number number{};
    if (std::from_chars(text.data(), text.data() + text.size(), number).ec != std::errc())
        return std::nullopt;
    return number;
}

/// The integer that a value tells. Other programs store whole numbers as reals at times.
inline std::optional<int> integerOf(const util::Parameterized::Value* value)
{
    if (const int* const whole = boost::get<int>(value))
        return *whole;
    const double* const real = boost::get<double>(value);
    if (real && std::trunc(*real) == *real && std::fabs(*real) <= std::numeric_limits<int>::max())
        return static_cast<int>(*real);
    return std::nullopt;
}

} // namespace TessaronResources

#endif
