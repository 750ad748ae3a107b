#include "command/Terminal.h"

#include "command/Console.h"

#include <cstdio>

namespace command
{

Terminal::Terminal(bool showsProgress) : m_showsProgress(showsProgress && isErrorTerminal()) {}

Terminal::~Terminal()
{
    clear();
}

void Terminal::progress(const std::string& text)
{
    if (!m_showsProgress)
        return;
    std::size_t length = text.size();
    // The last column makes some terminals begin a new line.
    if (const std::size_t width = errorTerminalWidth(); length >= width)
    {
        length = width - 1;
        while (length > 0 && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U)
            --length;
    }
    if (text.compare(0, length, m_shown) == 0)
        return;
    clear();
    m_shown = text.substr(0, length);
    std::fputs(m_shown.c_str(), stderr);
    std::fflush(stderr);
}

void Terminal::message(const std::string& text)
{
    clear();
    std::fprintf(stderr, "%s\n", text.c_str());
    std::fflush(stderr);
}

void Terminal::clear()
{
    if (m_shown.empty())
        return;
    std::fprintf(stderr, "\r%*s\r", static_cast<int>(m_shown.size()), "");
    std::fflush(stderr);
    m_shown.clear();
}

} // namespace command
