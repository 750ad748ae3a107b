#include "templates/columns/SortKey.h"

#include "util/text/Ascii.h"
#include "util/text/FoldCase.h"
#include "util/text/ReadableText.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace TessaronResources
{

namespace
{

// A number in a text is led by its count of digits, of which a byte tells so many.
constexpr std::size_t mostDigitsTold = 200;

/// A text that compares byte by byte as the original does letter by letter: case folded, and each number in it led by
/// its count of digits, so that a longer number is a larger one.
std::string comparableText(std::string_view text)
{
    const std::string folded = util::foldCase(util::readableText(text));
    std::string key;
    key.reserve(folded.size() + 8);
    for (std::size_t i = 0; i < folded.size();)
    {
        if (!util::isAsciiDigit(folded[i]))
        {
            key += folded[i++];
            continue;
        }
        while (i + 1 < folded.size() && folded[i] == '0' && util::isAsciiDigit(folded[i + 1]))
            ++i;
        std::size_t end = i;
        while (end < folded.size() && util::isAsciiDigit(folded[end]))
            ++end;
        // A digit in front, so that numbers sort between '/' and ':' as they did.
        key += '0';
        key += static_cast<char>(std::min(end - i, mostDigitsTold));
        key.append(folded, i, end - i);
        i = end;
    }
    return key;
}

/// A text's first bytes as a number.
std::uint64_t leadingBytes(const std::string& text)
{
    std::uint64_t order = 0;
    for (std::size_t i = 0; i < sizeof order; ++i)
        order = order << 8U | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0U);
    return std::max<std::uint64_t>(order, 1);
}

} // namespace

SortKey numberSortKey(double number)
{
    if (std::isnan(number))
        return {};
    // The bits of a real as an unsigned number that compares alike, from 1 on.
    constexpr std::uint64_t signBit = std::uint64_t(1) << 63U;
    number += 0.0; // there are two zeros, which are equal
    std::uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return {(bits & signBit) != 0 ? ~bits : bits | signBit, {}};
}

SortKey numberSortKey(const util::Parameterized::Value& value)
{
    if (const int* const whole = boost::get<int>(&value))
        return numberSortKey(static_cast<double>(*whole));
    const double* const real = boost::get<double>(&value);
    return real ? numberSortKey(*real) : SortKey();
}

SortKey textSortKey(std::string_view text)
{
    std::string comparable = comparableText(text);
    const std::uint64_t order = leadingBytes(comparable);
    return {order, std::move(comparable)};
}

} // namespace TessaronResources
