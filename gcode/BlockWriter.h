#ifndef GCODE_BLOCKWRITER_H
#define GCODE_BLOCKWRITER_H

#include <tessaron/gcode/GcodeSettings.h>

#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>

namespace exchange::gcode
{

/// Writes the blocks of a program, word by word.
class BlockWriter
{
public:
    BlockWriter(std::ostream& stream, const GcodeSettings& settings);

    /// A word of a letter and a whole number: "G1".
    void word(char letter, std::int64_t number);
    /// A word of a letter and a number that always has a point: "X12.", "Y-0.5". It is given in units of the last
    /// decimal.
    void decimal(char letter, std::int64_t units, int decimals);
    /// Words as they stand.
    void words(std::string_view text);
    /// Ends the block; does nothing when it has no words.
    void end();

    /// A block of its own; nothing for an empty text.
    void block(std::string_view text);
    /// A comment of its own, if there are to be any: a word and the text. What cannot stand in a comment is replaced.
    void comment(std::string_view word, std::string_view text);
    /// A line without a number: "%".
    void mark(std::string_view text);

    /// Hands everything to the stream.
    void flush();

private:
    void begin();
    void endLine();

    std::ostream& m_stream;
    const GcodeSettings& m_settings;
    std::string m_text;
    bool m_inBlock = false;
    int m_number = 0;
};

} // namespace exchange::gcode

#endif
