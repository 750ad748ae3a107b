#ifndef UTIL_TEXT_UTF8_H
#define UTIL_TEXT_UTF8_H

#include <cstddef>
#include <string>
#include <string_view>

namespace util
{

/// Whether a byte continues a UTF-8 character, rather than starting one.
constexpr bool isUtf8Continuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// The largest length of at most `limit` bytes at which a text can end without cutting a UTF-8 character.
constexpr std::size_t utf8CutLength(std::string_view text, std::size_t limit)
{
    if (text.size() <= limit)
        return text.size();
    while (limit > 0 && isUtf8Continuation(text[limit]))
        --limit;
    return limit;
}

/// Appends the UTF-8 form of a code point (0 to 0x10FFFF).
void appendUtf8(std::string& to, char32_t codePoint);

} // namespace util

#endif
