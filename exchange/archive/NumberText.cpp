#include "exchange/archive/NumberText.h"

#include <array>
#include <bit>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace exchange::archive
{

namespace
{

__extension__ typedef unsigned __int128 Wide;

constexpr int digitCount = 17;
constexpr std::uint64_t tenTo16 = 10'000'000'000'000'000;
constexpr std::uint64_t tenTo17 = 10 * tenTo16;
constexpr std::uint64_t largestExactInteger = std::uint64_t{1} << 53;

constexpr int maxPowerOfFive = 27;
constexpr auto powersOfFive = []
{
    std::array<std::uint64_t, maxPowerOfFive + 1> powers{1};
    for (int i = 1; i <= maxPowerOfFive; ++i)
        powers[i] = 5 * powers[i - 1];
    return powers;
}();

constexpr auto digitPairs = []
{
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < 100; ++i)
    {
        pairs[2 * i] = static_cast<char>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}();

void writePair(char* to, std::size_t pair)
{
    std::memcpy(to, &digitPairs[2 * pair], 2);
}

void writeEightDigits(char* to, std::uint32_t number)
{
    const std::uint32_t high = number / 10'000;
    const std::uint32_t low = number % 10'000;
    writePair(to, high / 100);
    writePair(to + 2, high % 100);
    writePair(to + 4, low / 100);
    writePair(to + 6, low % 100);
}

/// value = significand * 2^exponent as a decimal: digits * 10^(power - 16), with 17 digits, rounded half to even.
struct Decimal
{
    std::uint64_t digits;
    int power;
};

/// significand * 2^exponent * 10^power; the part below the point goes to `rest`, in units of 2^-shift.
std::uint64_t scaled(std::uint64_t significand, int exponent, int power, Wide& rest, int& shift)
{
    const Wide product = static_cast<Wide>(significand) * powersOfFive[static_cast<std::size_t>(power)];
    shift = -(exponent + power);
    if (shift <= 0)
    {
        rest = 0;
        return static_cast<std::uint64_t>(product << -shift);
    }
    rest = product & ((Wide{1} << shift) - 1);
    return static_cast<std::uint64_t>(product >> shift);
}

/// Exact, by integers of 128 bits; for values from 1e-10 to below 1e17 only, where all intermediate numbers fit.
Decimal toDecimal(std::uint64_t significand, int exponent)
{
    // floor(log10(2^n)) for the value's binary magnitude n; the value may have one decimal digit more.
    int power = ((exponent + 52) * 78913) >> 18;
    Wide rest = 0;
    int shift = 0;
    std::uint64_t digits = scaled(significand, exponent, digitCount - 1 - power, rest, shift);
    if (digits >= tenTo17)
    {
        ++power;
        digits = scaled(significand, exponent, digitCount - 1 - power, rest, shift);
    }
    if (rest != 0)
    {
        const Wide half = Wide{1} << (shift - 1);
        if (rest > half || (rest == half && digits % 2 != 0))
            ++digits;
        if (digits == tenTo17)
            return {tenTo16, power + 1};
    }
    return {digits, power};
}

char* writeDecimal(char* to, Decimal decimal)
{
    char digits[digitCount];
    const auto high = static_cast<std::uint32_t>(decimal.digits / 100'000'000);
    digits[0] = static_cast<char>('0' + high / 100'000'000);
    writeEightDigits(digits + 1, high % 100'000'000);
    writeEightDigits(digits + 9, static_cast<std::uint32_t>(decimal.digits % 100'000'000));
    int count = digitCount;
    while (digits[count - 1] == '0')
        --count;

    if (decimal.power >= 0)
    {
        const int whole = decimal.power + 1;
        std::memcpy(to, digits, digitCount);
        if (count <= whole)
            return to + whole;
        to[whole] = '.';
        std::memcpy(to + whole + 1, digits + whole, static_cast<std::size_t>(digitCount - whole));
        return to + count + 1;
    }
    if (decimal.power >= -4)
    {
        static constexpr std::string_view zeros = "0.000";
        std::memcpy(to, zeros.data(), zeros.size());
        to += 1 - decimal.power;
        std::memcpy(to, digits, digitCount);
        return to + count;
    }
    *to++ = digits[0];
    if (count > 1)
    {
        *to++ = '.';
        std::memcpy(to, digits + 1, digitCount - 1);
        to += count - 1;
    }
    *to++ = 'e';
    *to++ = '-';
    writePair(to, static_cast<std::uint32_t>(-decimal.power));
    return to + 2;
}

} // namespace

char* formatDouble(char* to, double value)
{
    const double size = std::bit_cast<double>(std::bit_cast<std::uint64_t>(value) & ~(std::uint64_t{1} << 63));
    if (size >= 1e-10 && size < 1e17)
    {
        if (value < 0)
            *to++ = '-';
        const auto whole = static_cast<std::uint64_t>(size);
        if (static_cast<double>(whole) == size && whole < largestExactInteger)
            return std::to_chars(to, to + maxDoubleText, whole).ptr;
        const auto bits = std::bit_cast<std::uint64_t>(size);
        const std::uint64_t significand = (bits & ((std::uint64_t{1} << 52) - 1)) | (std::uint64_t{1} << 52);
        return writeDecimal(to, toDecimal(significand, static_cast<int>(bits >> 52) - 1075));
    }
    return std::to_chars(to, to + maxDoubleText, value, std::chars_format::general, digitCount).ptr;
}

} // namespace exchange::archive
