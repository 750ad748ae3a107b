#include "templates/columns/PrintFormat.h"

#include "util/text/Ascii.h"
#include "util/text/ReadableText.h"
#include "util/text/Utf8.h"

#include <array>
#include <cctype>
#include <charconv>
#include <cmath>

namespace TessaronResources
{

namespace
{

constexpr int mostPlaces = 999;

int readNumber(std::string_view text, std::size_t& at)
{
    int number = 0;
    for (; at < text.size() && util::isAsciiDigit(text[at]); ++at)
        number = std::min(number * 10 + (text[at] - '0'), mostPlaces + 1);
    return number;
}

std::string upper(std::string text)
{
    for (char& c : text)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    return text;
}

/// The digits of a finite number as printf writes them, without a sign.
std::string realDigits(double value, char conversion, int precision, bool alternate)
{
    const std::chars_format style = conversion == 'e'   ? std::chars_format::scientific
                                    : conversion == 'f' ? std::chars_format::fixed
                                                        : std::chars_format::general;
    // The longest: 309 digits before the point, and as many places as may be asked for after it.
    std::array<char, 400 + mostPlaces> buffer;
    const auto [end, error] =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value), style, precision);
    std::string digits(buffer.data(), error == std::errc() ? end : buffer.data());
    if (alternate && digits.find('.') == std::string::npos)
        digits.insert(std::min(digits.find('e'), digits.size()), ".");
    return digits;
}

} // namespace

PrintFormat::PrintFormat(std::string_view format)
{
    std::string* literal = &m_before;
    char conversion = 0;
    for (std::size_t at = 0; at < format.size(); ++at)
    {
        if (format[at] != '%')
        {
            *literal += format[at];
            continue;
        }
        if (++at < format.size() && format[at] == '%')
        {
            *literal += '%';
            continue;
        }
        for (bool flag = true; flag && at < format.size();)
        {
            switch (format[at])
            {
            case '-':
                m_left = true;
                break;
            case '0':
                m_zeros = true;
                break;
            case '+':
                m_plus = true;
                break;
            case ' ':
                m_blank = true;
                break;
            case '#':
                m_alternate = true;
                break;
            default:
                flag = false;
                continue;
            }
            ++at;
        }
        m_width = readNumber(format, at);
        if (at < format.size() && format[at] == '.')
            m_precision = readNumber(format, ++at);
        const bool known =
            at < format.size() && std::string_view("diefgEFGs").find(format[at]) != std::string_view::npos;
        if (!known || conversion != 0 || m_width > mostPlaces || m_precision > mostPlaces)
            return;
        conversion = format[at];
        literal = &m_after;
    }
    m_conversion = conversion;
}

std::string PrintFormat::finish(std::string body, bool isNumber) const
{
    const auto width = static_cast<std::size_t>(m_width);
    if (body.size() < width)
    {
        const std::size_t missing = width - body.size();
        if (m_left)
            body.append(missing, ' ');
        else if (m_zeros && isNumber)
            body.insert(body.front() == '-' || body.front() == '+' || body.front() == ' ' ? 1 : 0, missing, '0');
        else
            body.insert(0, missing, ' ');
    }
    std::string text = m_before + body + m_after;
    text.resize(util::utf8CutLength(text, longestText));
    return text;
}

bool PrintFormat::isPlainText() const
{
    return m_conversion == 's' && m_before.empty() && m_after.empty() && m_width == 0 && m_precision < 0;
}

std::string PrintFormat::print(int value) const
{
    if (m_conversion != 'd' && m_conversion != 'i')
        return {};
    std::string digits = std::to_string(value < 0 ? -static_cast<long long>(value) : value);
    if (m_precision >= 0 && digits.size() < static_cast<std::size_t>(m_precision))
        digits.insert(0, static_cast<std::size_t>(m_precision) - digits.size(), '0');
    const char* const sign = value < 0 ? "-" : m_plus ? "+" : m_blank ? " " : "";
    // A precision says how many digits there are; the zeros flag means nothing then.
    return finish(sign + digits, m_precision < 0);
}

std::string PrintFormat::print(double value) const
{
    if (m_conversion == 0 || std::string_view("efgEFG").find(m_conversion) == std::string_view::npos)
        return {};
    const bool isUpper = m_conversion < 'a';
    const char conversion = isUpper ? static_cast<char>(m_conversion - 'A' + 'a') : m_conversion;
    std::string digits = std::isnan(value) ? "nan"
                         : std::isinf(value)
                             ? "inf"
                             : realDigits(value, conversion, m_precision < 0 ? 6 : m_precision, m_alternate);
    const char* const sign = std::signbit(value) ? "-" : m_plus ? "+" : m_blank ? " " : "";
    return finish(sign + (isUpper ? upper(std::move(digits)) : digits), std::isfinite(value));
}

std::string PrintFormat::print(std::string_view value) const
{
    if (m_conversion != 's')
        return {};
    std::string text = util::readableText(value);
    if (m_precision >= 0)
        text.resize(util::utf8CutLength(text, static_cast<std::size_t>(m_precision)));
    return finish(std::move(text), false);
}

} // namespace TessaronResources
