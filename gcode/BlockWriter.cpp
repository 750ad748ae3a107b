#include "gcode/BlockWriter.h"

#include <charconv>
#include <ostream>

namespace exchange::gcode
{

namespace
{

constexpr std::size_t flushedAt = std::size_t{64} * 1024;
// NISTIR 6556, 3.3.1 and 3.3: the greatest line number, and the longest line.
constexpr int greatestLineNumber = 99999;
constexpr std::size_t longestComment = 200;

void append(std::string& text, std::int64_t number)
{
    char digits[24];
    text.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

} // namespace

BlockWriter::BlockWriter(std::ostream& stream, const GcodeSettings& settings) : m_stream(stream), m_settings(settings)
{
}

void BlockWriter::begin()
{
    if (m_inBlock)
    {
        m_text += ' ';
        return;
    }
    m_inBlock = true;
    if (m_settings.lineNumbers == 0)
        return;
    m_number += m_settings.lineNumbers;
    if (m_number > greatestLineNumber)
        m_number = m_settings.lineNumbers;
    m_text += 'N';
    append(m_text, m_number);
    m_text += ' ';
}

void BlockWriter::word(char letter, std::int64_t number)
{
    begin();
    m_text += letter;
    append(m_text, number);
}

void BlockWriter::decimal(char letter, std::int64_t units, int decimals)
{
    begin();
    m_text += letter;
    if (units < 0)
        m_text += '-';
    std::string digits;
    append(digits, units < 0 ? -units : units);
    const auto places = static_cast<std::size_t>(decimals);
    if (digits.size() <= places)
        digits.insert(0, places + 1 - digits.size(), '0');
    digits.insert(digits.size() - places, 1, '.');
    // Controls that take a number without a point for thousandths need the point.
    digits.erase(digits.find_last_not_of('0') + 1);
    m_text += digits;
}

void BlockWriter::words(std::string_view text)
{
    begin();
    m_text += text;
}

void BlockWriter::end()
{
    if (m_inBlock)
        endLine();
}

void BlockWriter::block(std::string_view text)
{
    if (text.empty())
        return;
    words(text);
    endLine();
}

void BlockWriter::comment(std::string_view word, std::string_view text)
{
    if (!m_settings.comments)
        return;
    // The word in front keeps the text from being one of those, such as "MSG,", that some controls act on.
    m_text += '(';
    m_text += word;
    m_text += ": ";
    for (const char c : text.substr(0, longestComment))
    {
        if (c == '(' || c == ')')
            m_text += c == '(' ? '[' : ']';
        else
            m_text += c >= ' ' && c <= '~' ? c : '?';
    }
    m_text += ')';
    endLine();
}

void BlockWriter::mark(std::string_view text)
{
    m_text += text;
    endLine();
}

void BlockWriter::endLine()
{
    m_text += '\n';
    m_inBlock = false;
    if (m_text.size() > flushedAt)
        flush();
}

void BlockWriter::flush()
{
    m_stream.write(m_text.data(), static_cast<std::streamsize>(m_text.size()));
    m_text.clear();
}

} // namespace exchange::gcode
