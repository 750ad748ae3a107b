#include "tests/gcode/Interpreter.h"

#include <cmath>
#include <cstdlib>
#include <map>
#include <numbers>
#include <optional>
#include <set>
#include <sstream>

namespace rs274
{

namespace
{

constexpr std::size_t longestLine = 256;
const std::set<int> motionCodes{0, 1, 2, 3};
const std::set<int> otherCodes{4, 17, 20, 21, 40, 43, 53, 80, 90, 94};
const std::set<int> machineCodes{2, 3, 4, 5, 6, 7, 8, 9, 30};

struct Block
{
    std::map<char, double> words;
    std::vector<int> g;
    std::vector<int> m;
    std::vector<std::string> comments;
};

/// A number as section 3.3.2.1 has it: sign, digits, at most one point, at least one digit. No exponent, no comma.
double readNumber(const std::string& line, std::size_t& at)
{
    const std::size_t first = at;
    if (at < line.size() && (line[at] == '+' || line[at] == '-'))
        ++at;
    int digits = 0;
    int points = 0;
    double value = 0;
    double scale = 1;
    for (; at < line.size() && (std::isdigit(static_cast<unsigned char>(line[at])) || line[at] == '.'); ++at)
    {
        if (line[at] == '.')
        {
            ++points;
            continue;
        }
        ++digits;
        value = value * 10 + (line[at] - '0');
        if (points > 0)
            scale *= 10;
    }
    if (digits == 0 || points > 1)
        throw Error("no number after a letter");
    return (line[first] == '-' ? -value : value) / scale;
}

Block readBlock(const std::string& line)
{
    if (line.size() > longestLine)
        throw Error("the line is too long");
    Block block;
    for (std::size_t at = 0; at < line.size();)
    {
        const char c = line[at++];
        if (c == ' ')
            continue;
        if (c == '(')
        {
            const std::size_t close = line.find_first_of("()", at);
            if (close == std::string::npos || line[close] == '(')
                throw Error("a comment is not closed, or has another one inside");
            block.comments.push_back(line.substr(at, close - at));
            at = close + 1;
            continue;
        }
        if (c < 'A' || c > 'Z')
            throw Error(std::string("the character '") + c + "'");
        const double value = readNumber(line, at);
        if (c == 'G')
            block.g.push_back(static_cast<int>(std::lround(value)));
        else if (c == 'M')
            block.m.push_back(static_cast<int>(std::lround(value)));
        else if (!block.words.emplace(c, value).second)
            throw Error(std::string("two words ") + c);
    }
    return block;
}

class Control
{
public:
    explicit Control(bool absoluteCentres) : m_absoluteCentres(absoluteCentres) {}

    /// \returns whether the program goes on
    bool execute(Block block)
    {
        m_program.comments.insert(m_program.comments.end(), block.comments.begin(), block.comments.end());
        const auto take = [&block](char letter) -> std::optional<double>
        {
            const auto word = block.words.find(letter);
            if (word == block.words.end())
                return std::nullopt;
            const double value = word->second;
            block.words.erase(word);
            return value;
        };
        if (const auto number = take('N'))
            m_program.lineNumbers.push_back(static_cast<int>(*number));
        if (const auto feed = take('F'))
            m_state.feed = *feed;
        if (const auto speed = take('S'))
            m_speed = *speed;
        const auto tool = take('T');
        if (tool)
            m_selected = static_cast<int>(*tool);
        std::optional<int> motion;
        std::set<int> codes;
        for (const int code : block.g)
        {
            if (!motionCodes.contains(code) && !otherCodes.contains(code))
                throw Error("G" + std::to_string(code) + " is not known");
            if (motionCodes.contains(code) && motion)
                throw Error("two motions in one block");
            if (motionCodes.contains(code))
                motion = code;
            codes.insert(code);
        }
        bool ends = false;
        for (const int code : block.m)
            ends = machineCode(code) || ends;
        if (codes.contains(20) || codes.contains(21))
            m_program.inches = codes.contains(20);
        m_hasUnits = m_hasUnits || codes.contains(20) || codes.contains(21);
        if (codes.contains(43) && take('H') != m_state.tool)
            throw Error("the length offset of another tool");
        if (codes.contains(4))
            m_program.dwells.push_back(take('P').value());
        else if (motion)
            move(*motion, codes.contains(53), take);
        if (!block.words.empty())
            throw Error(std::string("the word ") + block.words.begin()->first + " is not used");
        return !ends;
    }

    Program& program()
    {
        m_program.spindleAtEnd = m_state.spindle;
        m_program.coolantAtEnd = m_state.coolant;
        return m_program;
    }

private:
    bool machineCode(int code)
    {
        if (!machineCodes.contains(code))
            throw Error("M" + std::to_string(code) + " is not known");
        if (code == 3 || code == 4)
            m_state.spindle = code == 3 ? m_speed : -m_speed;
        else if (code == 5)
            m_state.spindle = 0;
        else if (code == 6)
        {
            m_state.tool = m_selected;
            m_program.tools.push_back(m_selected);
            // The machine goes where it changes tools.
            m_place = {unknown, unknown, unknown};
        }
        else if (code >= 7 && code <= 9)
            m_state.coolant = code;
        return code == 2 || code == 30;
    }

    template <class Take>
    void move(int code, bool inMachineCoordinates, const Take& take)
    {
        if (!m_hasUnits)
            throw Error("a motion before the unit is set");
        Motion motion = m_state;
        motion.start = m_place;
        constexpr char letters[] = {'X', 'Y', 'Z'};
        bool named = false;
        for (std::size_t axis = 0; axis < 3; ++axis)
            if (const auto value = take(letters[axis]))
            {
                named = true;
                m_place[axis] = inMachineCoordinates ? unknown : *value;
            }
        if (!named)
            throw Error("a motion without coordinates");
        if (inMachineCoordinates)
        {
            if (code > 1)
                throw Error("G53 with an arc");
            return;
        }
        motion.end = m_place;
        if (code != 0 && motion.feed <= 0)
            throw Error("a cut with a feed rate of zero");
        motion.kind = static_cast<Motion::Kind>(code);
        if (code > 1)
        {
            const std::array<double, 2> offset{take('I').value(), take('J').value()};
            for (std::size_t axis = 0; axis < 2; ++axis)
                motion.centre[axis] = offset[axis] + (m_absoluteCentres ? 0 : motion.start[axis]);
            const double first = std::hypot(motion.start[0] - motion.centre[0], motion.start[1] - motion.centre[1]);
            const double last = std::hypot(motion.end[0] - motion.centre[0], motion.end[1] - motion.centre[1]);
            if (!(std::abs(first - last) <= (m_program.inches ? 0.0002 : 0.002)))
                throw Error("the radii of an arc differ");
        }
        m_program.motions.push_back(motion);
    }

    const bool m_absoluteCentres;
    Program m_program;
    Motion m_state;
    Place m_place{unknown, unknown, unknown};
    bool m_hasUnits = false;
    double m_speed = 0;
    int m_selected = 0;
};

} // namespace

double Motion::turn() const
{
    const double from = std::atan2(start[1] - centre[1], start[0] - centre[0]);
    const double to = std::atan2(end[1] - centre[1], end[0] - centre[0]);
    const double turned = kind == Kind::counterClockwise ? to - from : from - to;
    return turned > 0 ? turned : turned + 2 * std::numbers::pi;
}

Program interpret(const std::string& text, bool absoluteCentres)
{
    Control control(absoluteCentres);
    std::istringstream lines(text);
    int number = 0;
    int percents = 0;
    bool goesOn = true;
    for (std::string line; std::getline(lines, line);)
        try
        {
            ++number;
            if (line == "%")
                ++percents;
            else if (!goesOn)
                throw Error("a block after the end");
            else
                goesOn = control.execute(readBlock(line));
        }
        catch (const std::exception& error)
        {
            throw Error("line " + std::to_string(number) + " \"" + line + "\": " + error.what());
        }
    if (goesOn)
        throw Error("the program has no end");
    if (percents != 0 && percents != 2)
        throw Error("a line % has no other");
    return control.program();
}

} // namespace rs274
