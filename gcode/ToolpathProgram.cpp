#include "gcode/ToolpathProgram.h"

#include "gcode/ArcGeometry.h"
#include "gcode/BlockWriter.h"
#include "gcode/CustomText.h"
#include <tessaron/exchange/ToolpathRecords.h>
#include <tessaron/gcode/GcodeWriter.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <optional>

namespace exchange::gcode
{

namespace
{

typedef GcodeSettings Settings;
typedef std::array<std::int64_t, 3> Place;

constexpr char axes[] = {'X', 'Y', 'Z'};
constexpr const char* kinds[] = {"RapidMove", "LinearMove",   "Arc<1>",       "Arc<0>",
                                 "FeedRate",  "SpindleSpeed", "CustomRecord", "ToolAxis"};
constexpr double greatestNumber = 1e7;
constexpr std::size_t longestQuote = 60;
/// The greatest difference of the radii at both ends of an arc: NISTIR 6556, 3.5.3.
constexpr double radiusToleranceMillimetres = 0.002;
constexpr double radiusToleranceInches = 0.0002;
/// How far the tool axis may lean, as a share of its length.
constexpr double axisTolerance = 1e-6;

double powerOfTen(int exponent)
{
    return std::round(std::pow(10.0, exponent));
}

/// Writes a toolpath record by record, and keeps what the control keeps: where the tool stands, feed rate, spindle.
class Program : public boost::static_visitor<>
{
public:
    Program(std::ostream& stream, const Settings& settings)
        : m_settings(settings), m_isInch(settings.units == Settings::Units::inches),
          m_decimals(settings.decimals != 0 ? settings.decimals
                     : m_isInch             ? 5
                                            : 4),
          m_unitsPerLength(powerOfTen(m_decimals)), m_centreUnits(powerOfTen(settings.centreDecimals)),
          m_blocks(stream, settings)
    {
    }

    void write(const ToolpathRecords& toolpath)
    {
        begin();
        for (const ToolpathRecord& record : toolpath.records)
        {
            m_kind = kinds[record.which()];
            boost::apply_visitor(*this, record);
            ++m_index;
        }
        finish();
    }

    void operator()(const RapidMove& move)
    {
        const Place end = rounded(move.endPt);
        if (!m_at)
        {
            // The retract block has taken the tool up; what lies between here and there is not known.
            if (m_settings.retract.empty())
                go(0, end, {true, true, true});
            else
            {
                go(0, end, {true, true, false});
                go(0, end, {false, false, true});
            }
        }
        else
        {
            const bool across = end[0] != m_place[0] || end[1] != m_place[1];
            const bool split = m_settings.splitRapids && across && end[2] != m_place[2];
            if (split && end[2] > m_place[2])
                go(0, end, {false, false, true});
            if (split && end[2] < m_place[2])
                go(0, end, {true, true, false});
            goChanged(0, end);
        }
        arrive(move.endPt, end);
    }

    void operator()(const LinearMove& move)
    {
        beginCut();
        const Place end = rounded(move.endPt);
        goChanged(1, end);
        arrive(move.endPt, end);
    }

    void operator()(const Arc<1>& arc) { turnTo(arc.endPt, arc.radius, true); }
    void operator()(const Arc<0>& arc) { turnTo(arc.endPt, arc.radius, false); }

    void operator()(const FeedRate& record)
    {
        m_feed = rounded(record.feedrate, "the feed rate");
        if (m_feed <= 0)
            fail(record.feedrate > 0 ? "the feed rate is rounded to 0" : "the feed rate is not positive");
    }

    void operator()(const SpindleSpeed& record)
    {
        const double speed = checked(record.speed, "the spindle speed");
        if (speed < 0)
            fail("the spindle speed is negative");
        m_speed = std::llround(speed);
        if (speed > 0 && m_speed == 0)
            fail("the spindle speed is less than half a turn");
        if (m_speed == 0)
        {
            m_blocks.block("M5");
            return;
        }
        startSpindle();
    }

    void operator()(const CustomRecord& record)
    {
        std::visit([&](const auto& meaning) { follow(meaning, record.string); }, customText(record.string));
    }

    void operator()(const ToolAxis& record)
    {
        const auto& axis = record.axis.coord;
        for (const double component : axis)
            checked(component, "the tool axis");
        const double length = std::hypot(axis[0], axis[1], axis[2]);
        if (length == 0 || std::hypot(axis[0], axis[1]) > axisTolerance * length || axis[2] < 0)
            fail("the tool axis is not the z axis, which a program for three axes needs");
    }

private:
    void begin()
    {
        if (m_settings.percent)
            m_blocks.mark("%");
        if (m_settings.programNumber != 0)
            m_blocks.mark("O" + std::to_string(m_settings.programNumber));
        if (!m_settings.title.empty())
            m_blocks.comment("Toolpath", m_settings.title);
        m_blocks.word('G', m_isInch ? 20 : 21);
        if (!m_settings.start.empty())
            m_blocks.words(m_settings.start);
        m_blocks.end();
        m_blocks.block(m_settings.retract);
        if (m_settings.tool != 0)
            loadTool(m_settings.tool);
        m_coolant = m_settings.coolant;
    }

    void finish()
    {
        stop();
        m_blocks.block(m_settings.retract);
        m_blocks.block(m_settings.end);
        if (m_settings.percent)
            m_blocks.mark("%");
        m_blocks.flush();
    }

    // What custom records ask for.
    void follow(const Dwell& dwell, const std::string&)
    {
        const bool milliseconds = m_settings.dwell == Settings::DwellUnit::milliseconds;
        const double time = checked(milliseconds ? dwell.seconds * 1000 : dwell.seconds, "the dwell");
        if (time == 0)
            return;
        m_blocks.word('G', 4);
        if (milliseconds)
            m_blocks.word('P', std::max(1LL, std::llround(time)));
        else
            m_blocks.decimal('P', std::max(1LL, std::llround(time * m_unitsPerLength)), m_decimals);
        m_blocks.end();
    }

    void follow(const ToolChange& change, const std::string&)
    {
        if (change.tool == m_tool)
            return;
        stop();
        m_blocks.block(m_settings.retract);
        loadTool(change.tool);
        m_at.reset();
        m_toolChanged = true;
        if (m_speed > 0)
            startSpindle();
    }

    void follow(const CoolantChange& change, const std::string&)
    {
        m_coolant = change.coolant;
        switchCoolant();
    }

    void follow(const Misspelt& text, const std::string& all)
    {
        fail("\"" + all.substr(0, longestQuote) + "\" should be " + text.expected);
    }

    void follow(const OtherText&, const std::string& all)
    {
        switch (m_settings.freeText)
        {
        case Settings::FreeText::refuse:
            fail("the text \"" + all.substr(0, longestQuote) +
                 "\" has no meaning here; the setting \"free text\" tells what becomes of such texts");
        case Settings::FreeText::comment:
            m_blocks.comment("Text", all);
            break;
        case Settings::FreeText::block:
            if (!std::all_of(all.begin(), all.end(), [](char c) { return c >= ' ' && c <= '~'; }))
                fail("the text is not one line of plain characters");
            m_blocks.block(all);
            break;
        }
    }

    void loadTool(int tool)
    {
        m_tool = tool;
        m_blocks.word('T', tool);
        m_blocks.word('M', 6);
        m_blocks.end();
        m_blocks.word('G', 43);
        m_blocks.word('H', tool);
        m_blocks.end();
    }

    void startSpindle()
    {
        m_blocks.word('S', m_speed);
        m_blocks.word('M', m_settings.spindle == Settings::Spindle::clockwise ? 3 : 4);
        m_blocks.end();
        switchCoolant();
    }

    void switchCoolant()
    {
        if (m_coolant == m_running)
            return;
        // Mist and flood are switched on one by one, and off together.
        if (m_running != Settings::Coolant::off)
            m_blocks.block("M9");
        if (m_coolant != Settings::Coolant::off)
            m_blocks.block(m_coolant == Settings::Coolant::mist ? "M7" : "M8");
        m_running = m_coolant;
    }

    /// Stops spindle and coolant.
    void stop()
    {
        if (m_running != Settings::Coolant::off)
            m_blocks.block("M9");
        m_running = Settings::Coolant::off;
        m_blocks.block("M5");
    }

    void beginCut()
    {
        if (!m_at)
            fail(m_toolChanged ? "a cut follows a tool change without a rapid move between"
                               : "the toolpath begins with a cut, and where the tool stands is not known");
        if (m_feed == 0)
            fail("a cut comes before the first feed rate");
    }

    void turnTo(const geom::PointNd<3>& endPoint, double radius, bool counterClockwise)
    {
        beginCut();
        const Place last = rounded(endPoint);
        checked(radius, "the radius");
        const geom::PointNd<3> from = *m_at;
        const PlanePoint start{from[0], from[1]};
        const double tolerance = m_isInch ? radiusToleranceInches : radiusToleranceMillimetres;
        const auto way = turnedWay(start, {endPoint[0], endPoint[1]}, radius, counterClockwise, tolerance);
        if (!way)
            fail(radius == 0 ? "the radius is 0"
                 : from[0] == endPoint[0] && from[1] == endPoint[1]
                     ? "the arc ends above or where it starts, which leaves its centre open"
                     : "the ends of the arc are farther apart than its circle is wide");
        const double greatest = m_settings.arcAngle * std::numbers::pi / 180;
        // A half turn is one block, whatever the last bits of its numbers are.
        const auto pieces = std::max<std::int64_t>(1, std::llround(std::ceil(way->turn / greatest - 1e-6)));
        const bool straight = way->sagitta(1.0 / static_cast<double>(pieces)) * m_unitsPerLength < 0.5;
        for (std::int64_t i = 1; i <= pieces; ++i)
        {
            const double share = static_cast<double>(i) / static_cast<double>(pieces);
            const PlanePoint point = way->at(start, share);
            const Place end =
                i == pieces ? last
                            : rounded(geom::PointNd<3>(point.x, point.y, from[2] + (endPoint[2] - from[2]) * share));
            // Where both ends are the same, a control would turn once round.
            if (straight || (end[0] == m_place[0] && end[1] == m_place[1]))
                goChanged(1, end);
            else
                goRound(*way, end);
            m_place = end;
        }
        arrive(endPoint, last);
    }

    void goRound(const TurnedWay& way, const Place& end)
    {
        const auto plane = [this](const Place& place)
        {
            return PlanePoint{static_cast<double>(place[0]) / m_unitsPerLength,
                              static_cast<double>(place[1]) / m_unitsPerLength};
        };
        const PlanePoint centre = evenlyFar(way.centre, plane(m_place), plane(end));
        const bool relative = m_settings.arcCentres == Settings::ArcCentres::relative;
        m_blocks.word('G', way.counterClockwise ? 3 : 2);
        m_blocks.decimal('X', end[0], m_decimals);
        m_blocks.decimal('Y', end[1], m_decimals);
        if (end[2] != m_place[2])
            m_blocks.decimal('Z', end[2], m_decimals);
        for (const std::size_t axis : {0, 1})
        {
            const double place = (axis == 0 ? centre.x : centre.y) * m_unitsPerLength;
            const double from = relative ? static_cast<double>(m_place[axis]) : 0;
            m_blocks.decimal(axis == 0 ? 'I' : 'J', std::llround((place - from) * m_centreUnits),
                             m_decimals + m_settings.centreDecimals);
        }
        endCut();
    }

    /// A straight move with those coordinates that change; none for a move without a way.
    void goChanged(int code, const Place& end)
    {
        go(code, end, {end[0] != m_place[0], end[1] != m_place[1], end[2] != m_place[2]});
    }

    void go(int code, const Place& end, const std::array<bool, 3>& named)
    {
        if (!named[0] && !named[1] && !named[2])
            return;
        m_blocks.word('G', code);
        for (std::size_t axis = 0; axis < 3; ++axis)
            if (named[axis])
            {
                m_blocks.decimal(axes[axis], end[axis], m_decimals);
                m_place[axis] = end[axis];
            }
        if (code == 0)
            m_blocks.end();
        else
            endCut();
    }

    void endCut()
    {
        if (m_feed != m_feedWritten)
            m_blocks.decimal('F', m_feed, m_decimals);
        m_feedWritten = m_feed;
        m_blocks.end();
    }

    void arrive(const geom::PointNd<3>& point, const Place& place)
    {
        m_at = point;
        m_place = place;
    }

    double checked(double number, const char* what) const
    {
        if (!std::isfinite(number))
            fail(std::string(what) + " is not a finite number");
        if (std::abs(number) > greatestNumber)
            fail(std::string(what) + " is beyond 10000000");
        return number;
    }

    std::int64_t rounded(double number, const char* what) const
    {
        return std::llround(checked(number, what) * m_unitsPerLength);
    }

    Place rounded(const geom::PointNd<3>& point) const
    {
        return {rounded(point[0], "X of the end point"), rounded(point[1], "Y of the end point"),
                rounded(point[2], "Z of the end point")};
    }

    [[noreturn]] void fail(const std::string& text) const
    {
        throw GcodeError("Record " + std::to_string(m_index) + " (" + m_kind + "): " + text + ".", m_index);
    }

    const Settings& m_settings;
    const bool m_isInch;
    const int m_decimals;
    const double m_unitsPerLength;
    const double m_centreUnits; ///< of I and J, in a unit of X and Y
    BlockWriter m_blocks;

    std::size_t m_index = 0;
    const char* m_kind = "";
    /// Where the tool stands; unknown at first and after a tool change.
    std::optional<geom::PointNd<3>> m_at;
    /// The same as the program has it.
    Place m_place{};
    std::int64_t m_feed = 0;
    std::int64_t m_feedWritten = 0;
    std::int64_t m_speed = 0;
    int m_tool = 0;
    bool m_toolChanged = false;
    Settings::Coolant m_coolant = Settings::Coolant::off; ///< wanted while the spindle turns
    Settings::Coolant m_running = Settings::Coolant::off;
};

} // namespace

void writeProgram(std::ostream& stream, const ToolpathRecords& toolpath, const GcodeSettings& settings)
{
    Program(stream, settings).write(toolpath);
}

} // namespace exchange::gcode
