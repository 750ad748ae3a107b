#include "util/text/Utf8.h"

namespace util
{

void appendUtf8(std::string& to, char32_t codePoint)
{
    const auto continuation = [codePoint](unsigned shift)
    { return static_cast<char>(0x80U | ((codePoint >> shift) & 0x3FU)); };
    if (codePoint < 0x80)
        to += static_cast<char>(codePoint);
    else if (codePoint < 0x800)
        to += {static_cast<char>(0xC0U | (codePoint >> 6U)), continuation(0)};
    else if (codePoint < 0x10000)
        to += {static_cast<char>(0xE0U | (codePoint >> 12U)), continuation(6), continuation(0)};
    else
        to += {static_cast<char>(0xF0U | (codePoint >> 18U)), continuation(12), continuation(6), continuation(0)};
}

} // namespace util
