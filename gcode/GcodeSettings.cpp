#include <tessaron/gcode/GcodeSettings.h>

#include "gcode/SettingsCheck.h"
#include <tessaron/gcode/GcodeWriter.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <span>

namespace exchange
{

namespace
{

typedef GcodeSettings Settings;

constexpr int greatestNumber = 99999;
// NISTIR 6556, 3.3: a line is at most 256 characters long.
constexpr std::size_t longestText = 200;

/// How a kind of setting is read and shown; one object for each setting.
class Value
{
public:
    Value() = default;
    Value(const Value&) = delete;
    Value& operator=(const Value&) = delete;
    virtual ~Value() = default;

    /// \returns whether the text is a value; the settings are untouched otherwise
    virtual bool read(Settings& settings, std::string_view text) const = 0;
    virtual std::string show(const Settings& settings) const = 0;
    virtual bool isValid(const Settings& settings) const
    {
        Settings copy = settings;
        return read(copy, show(settings));
    }
};

class Whole : public Value
{
public:
    Whole(int Settings::*member, int least, int most, bool orZero = false)
        : m_member(member), m_least(least), m_most(most), m_orZero(orZero)
    {
    }
    bool read(Settings& settings, std::string_view text) const override
    {
        int number = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        const bool inRange = (number >= m_least && number <= m_most) || (m_orZero && number == 0);
        if (error != std::errc() || end != text.data() + text.size() || !inRange)
            return false;
        settings.*m_member = number;
        return true;
    }
    std::string show(const Settings& settings) const override { return std::to_string(settings.*m_member); }

private:
    int Settings::*m_member;
    int m_least;
    int m_most;
    bool m_orZero;
};

class Flag : public Value
{
public:
    explicit Flag(bool Settings::*member) : m_member(member) {}
    bool read(Settings& settings, std::string_view text) const override
    {
        if (text != "yes" && text != "no")
            return false;
        settings.*m_member = text == "yes";
        return true;
    }
    std::string show(const Settings& settings) const override { return settings.*m_member ? "yes" : "no"; }

private:
    bool Settings::*m_member;
};

/// One of several names, in the order of the enumeration.
template <class Choices>
class Choice : public Value
{
public:
    Choice(Choices Settings::*member, std::vector<const char*> names) : m_member(member), m_names(std::move(names)) {}
    bool read(Settings& settings, std::string_view text) const override
    {
        const auto found = std::find(m_names.begin(), m_names.end(), text);
        if (found == m_names.end())
            return false;
        settings.*m_member = static_cast<Choices>(found - m_names.begin());
        return true;
    }
    std::string show(const Settings& settings) const override
    {
        const auto place = static_cast<std::size_t>(settings.*m_member);
        return place < m_names.size() ? m_names[place] : "?";
    }

private:
    Choices Settings::*m_member;
    std::vector<const char*> m_names;
};

/// A block, or a text on one line.
class Text : public Value
{
public:
    explicit Text(std::string Settings::*member, bool isBlock = true) : m_member(member), m_isBlock(isBlock) {}
    bool read(Settings& settings, std::string_view text) const override
    {
        const bool fits = text.size() <= longestText &&
                          std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
        if (m_isBlock && (!fits || text.find('%') != std::string_view::npos))
            return false;
        settings.*m_member = text;
        return true;
    }
    std::string show(const Settings& settings) const override { return settings.*m_member; }

private:
    std::string Settings::*m_member;
    bool m_isBlock;
};

struct Row
{
    GcodeSetting shown;
    const Value& value;
};

const Choice units(&Settings::units, {"mm", "inch"});
const Whole decimals(&Settings::decimals, 3, 8, true);
const Whole lineNumbers(&Settings::lineNumbers, 0, 1000);
const Choice arcCentres(&Settings::arcCentres, {"relative", "absolute"});
const Whole centreDecimals(&Settings::centreDecimals, 0, 2);
const Whole arcAngle(&Settings::arcAngle, 10, 180);
const Flag splitRapids(&Settings::splitRapids);
const Flag comments(&Settings::comments);
const Flag percent(&Settings::percent);
const Whole programNumber(&Settings::programNumber, 0, greatestNumber);
const Text title(&Settings::title, false);
const Whole tool(&Settings::tool, 0, greatestNumber);
const Choice spindle(&Settings::spindle, {"cw", "ccw"});
const Choice coolant(&Settings::coolant, {"off", "mist", "flood"});
const Choice dwell(&Settings::dwell, {"s", "ms"});
const Choice freeText(&Settings::freeText, {"refuse", "comment", "block"});
const Text start(&Settings::start);
const Text retract(&Settings::retract);
const Text end(&Settings::end);

const std::array rows{
    Row{{"units", "mm, inch", "G21 or G20; the unit of the toolpath, which is not converted"}, units},
    Row{{"decimals", "3 to 8, in inches 4 to 8; 0", "places after the point; 0 for 4 in mm and 5 in inches"}, decimals},
    Row{{"line numbers", "0 to 1000", "from one N word to the next; 0 for none"}, lineNumbers},
    Row{{"arc centres", "relative, absolute", "what I and J count from: the start of the arc, or zero"}, arcCentres},
    Row{{"centre decimals", "0 to 2", "places that I and J have more than X and Y"}, centreDecimals},
    Row{{"arc angle", "10 to 180", "degrees that one G2 or G3 turns at most; longer arcs are split"}, arcAngle},
    Row{{"split rapids", "yes, no", "a rapid that changes height and place takes two blocks, upwards first"},
        splitRapids},
    Row{{"comments", "yes, no", "whether comments are written"}, comments},
    Row{{"percent", "yes, no", "whether a line % stands before and behind the program"}, percent},
    Row{{"program number", "0 to 99999", "the O word at the beginning; 0 for none"}, programNumber},
    Row{{"title", "text", "a comment at the beginning"}, title},
    Row{{"tool", "0 to 99999", "T, M6 and G43 at the beginning; 0 for the tool in the spindle"}, tool},
    Row{{"spindle", "cw, ccw", "M3 or M4"}, spindle},
    Row{{"coolant", "off, mist, flood", "M7 or M8 when the spindle starts, M9 at the end"}, coolant},
    Row{{"dwell", "s, ms", "the unit of P in G4"}, dwell},
    Row{{"free text", "refuse, comment, block", "what becomes of custom records with a text of their own"}, freeText},
    Row{{"start", "a block", "the block behind G20 or G21"}, start},
    Row{{"retract", "a block, or nothing",
         "takes the tool to a safe height at the beginning, for a tool change and "
         "at the end"},
        retract},
    Row{{"end", "a block", "the last block"}, end},
};

const Row& rowOf(std::string_view name)
{
    const auto* const row =
        std::find_if(rows.begin(), rows.end(), [name](const Row& one) { return name == one.shown.name; });
    if (row == rows.end())
    {
        std::string names;
        for (const Row& one : rows)
            names += (names.empty() ? "" : ", ") + std::string(one.shown.name);
        throw GcodeError("\"" + std::string(name) + "\" is no G-code setting; there are: " + names + ".");
    }
    return *row;
}

[[noreturn]] void refuse(const Row& row, const std::string& value)
{
    throw GcodeError("The G-code setting \"" + std::string(row.shown.name) + "\" cannot be \"" + value +
                     "\"; it takes " + row.shown.values + ".");
}

} // namespace

const std::vector<GcodeSetting>& gcodeSettings()
{
    static const std::vector<GcodeSetting> settings = []
    {
        std::vector<GcodeSetting> shown;
        shown.reserve(rows.size());
        for (const Row& row : rows)
            shown.push_back(row.shown);
        return shown;
    }();
    return settings;
}

void setGcodeSetting(GcodeSettings& settings, std::string_view name, std::string_view value)
{
    const Row& row = rowOf(name);
    if (!row.value.read(settings, value))
        refuse(row, std::string(value));
}

std::string gcodeSetting(const GcodeSettings& settings, std::string_view name)
{
    return rowOf(name).value.show(settings);
}

namespace gcode
{

void checkSettings(const GcodeSettings& settings)
{
    for (const Row& row : rows)
        if (!row.value.isValid(settings))
            refuse(row, row.value.show(settings));
    if (settings.units == GcodeSettings::Units::inches && settings.decimals == 3)
        refuse(rowOf("decimals"), "3");
}

} // namespace gcode

} // namespace exchange
