#ifndef COMMAND_TERMINAL_H
#define COMMAND_TERMINAL_H

#include <string>

namespace command
{

/// The terminal that errors go to, and one line on it that tells the progress. Without a terminal that line is never
/// written.
class Terminal
{
public:
    explicit Terminal(bool showsProgress);
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    ~Terminal();

    /// Whether there is anybody to show progress to.
    bool showsProgress() const { return m_showsProgress; }
    /// Puts a text in the place of the progress line, cut to the width of the terminal.
    void progress(const std::string& text);
    /// Writes a line, above the progress line.
    void message(const std::string& text);

private:
    void clear();

    bool m_showsProgress;
    std::string m_shown;
};

} // namespace command

#endif
