#ifndef UTIL_TEXT_ASCII_H
#define UTIL_TEXT_ASCII_H

#include <algorithm>
#include <string_view>

namespace util
{

// Letters and blanks as ASCII has them, whatever the process's locale.

/// What counts as a blank in text that people type and in files that they edit.
inline constexpr std::string_view textBlanks = " \t\r\n\v\f";
/// What counts as a blank in XML (Extensible Markup Language 1.0, production 3: S).
inline constexpr std::string_view xmlBlanks = " \t\r\n";

/// A text without the blanks at its two ends.
constexpr std::string_view trimmed(std::string_view text, std::string_view blanks = textBlanks)
{
    const std::size_t first = text.find_first_not_of(blanks);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

constexpr bool isAsciiDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// A to Z made small; all other bytes stay as they are.
constexpr char asciiLower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Are the texts equal when the case of the letters A to Z is ignored, as file systems and initialisation files do?
constexpr bool equalIgnoringAsciiCase(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return asciiLower(x) == asciiLower(y); });
}

} // namespace util

#endif
