#include "command/ParameterText.h"

#include <charconv>
#include <cmath>

namespace command
{

namespace
{

template <class Number>
bool isAll(const std::string& text, Number& number)
{
    const char* const last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, number);
    return error == std::errc() && end == last && !text.empty();
}

} // namespace

util::Parameterized::Value parameterValue(const std::string& text)
{
    int whole = 0;
    if (isAll(text, whole))
        return whole;
    double number = 0;
    if (isAll(text, number) && std::isfinite(number))
        return number;
    return text;
}

} // namespace command
