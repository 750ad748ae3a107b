#include "util/text/FoldCase.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace TessaronResources
{

namespace
{

/// Ranges of capitals of the two-byte part of UTF-8, from the Unicode character database (simple case folding).
struct Capitals
{
    std::uint16_t first;
    std::uint16_t last;
    std::int16_t toSmall; ///< 1: capitals and small letters take turns, and the range starts with a capital
};

constexpr std::array<Capitals, 12> capitals = {{
    {0x00C0, 0x00D6, 32},
    {0x00D8, 0x00DE, 32},
    {0x0100, 0x012F, 1},
    {0x0132, 0x0137, 1},
    {0x0139, 0x0148, 1},
    {0x014A, 0x0177, 1},
    {0x0178, 0x0178, -121},
    {0x0179, 0x017E, 1},
    {0x0391, 0x03AB, 32},
    {0x0400, 0x040F, 80},
    {0x0410, 0x042F, 32},
    {0x0460, 0x0481, 1},
}};

std::uint16_t small(std::uint16_t letter)
{
    for (const Capitals& range : capitals)
        if (letter >= range.first && letter <= range.last)
        {
            const bool isSmall = range.toSmall == 1 && (letter - range.first) % 2 != 0;
            return static_cast<std::uint16_t>(isSmall ? letter : letter + range.toSmall);
        }
    return letter;
}

bool isFollower(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

} // namespace

std::string foldCase(std::string_view text)
{
    std::string folded(text);
    for (std::size_t i = 0; i < folded.size(); ++i)
    {
        const auto byte = static_cast<unsigned char>(folded[i]);
        if (byte >= 'A' && byte <= 'Z')
            folded[i] = static_cast<char>(byte - 'A' + 'a');
        else if (byte >= 0xC3 && byte <= 0xD2 && i + 1 < folded.size() && isFollower(folded[i + 1]))
        {
            const auto letter = static_cast<std::uint16_t>(((byte & 0x1FU) << 6U) |
                                                           (static_cast<unsigned char>(folded[i + 1]) & 0x3FU));
            const std::uint16_t result = small(letter);
            folded[i] = static_cast<char>(0xC0U | (result >> 6U));
            folded[i + 1] = static_cast<char>(0x80U | (result & 0x3FU));
            ++i;
        }
    }
    return folded;
}

} // namespace TessaronResources
