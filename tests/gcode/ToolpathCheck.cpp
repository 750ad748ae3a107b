#include "tests/gcode/ToolpathCheck.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <sstream>

namespace testing_support
{
namespace
{

using rs274::Motion;
using rs274::Place;
typedef std::complex<double> Plane;

Place placeOf(const geom::PointNd<3>& point)
{
    return {point[0], point[1], point[2]};
}

Plane planeOf(const Place& place)
{
    return {place[0], place[1]};
}

class Comparison : public boost::static_visitor<>
{
public:
    Comparison(const rs274::Program& program, double tolerance, int spindle)
        : m_program(program), m_tolerance(tolerance), m_spindleSense(spindle)
    {
    }

    std::string compare(const exchange::ToolpathRecords& records)
    {
        for (std::size_t i = 0; i < records.records.size() && m_fault.empty(); ++i)
        {
            boost::apply_visitor(*this, records.records[i]);
            if (!m_fault.empty())
                m_fault = "record " + std::to_string(i) + ": " + m_fault;
        }
        if (m_fault.empty() && m_next != m_program.motions.size())
            m_fault = "the program moves on";
        if (m_fault.empty() && m_dwells != m_program.dwells.size())
            m_fault = "the program dwells more often";
        return m_fault;
    }

    void operator()(const exchange::RapidMove& move)
    {
        const Place end = placeOf(move.endPt);
        int count = 0;
        while (!isThere(end))
        {
            if (!take(Motion::Kind::rapid))
                return;
            if (++count > 2)
                return fail("a rapid move of more than two blocks");
        }
        m_recordAt = end;
    }

    void operator()(const exchange::LinearMove& move)
    {
        const Place end = placeOf(move.endPt);
        if (!isThere(end))
        {
            const Motion* const motion = take(Motion::Kind::line);
            if (motion && !isThere(end))
                fail("a cut to another place");
        }
        m_recordAt = end;
    }

    void operator()(const exchange::Arc<1>& arc)
    {
        follow(placeOf(arc.endPt), arc.radius, Motion::Kind::counterClockwise);
    }
    void operator()(const exchange::Arc<0>& arc) { follow(placeOf(arc.endPt), arc.radius, Motion::Kind::clockwise); }
    void operator()(const exchange::FeedRate& record) { m_feed = record.feedrate; }
    void operator()(const exchange::SpindleSpeed& record) { m_spindle = m_spindleSense * std::round(record.speed); }
    void operator()(const exchange::ToolAxis&) {}
    void operator()(const exchange::CustomRecord& record)
    {
        std::istringstream text(record.string);
        std::string word;
        double number = 0;
        text >> word >> number;
        if (word != "Dwell" || number == 0)
            return;
        if (m_dwells >= m_program.dwells.size() || std::abs(m_program.dwells[m_dwells++] - number) > 1e-4)
            fail("another dwell");
    }

private:
    // The centre by complex numbers: seen from the middle of the chord it lies across it, as far as half the chord
    // times the cotangent of half the turn.
    void follow(const Place& end, double radius, Motion::Kind kind)
    {
        const double sense = kind == Motion::Kind::counterClockwise ? 1 : -1;
        const Plane start = planeOf(m_recordAt);
        const Plane chord = planeOf(end) - start;
        const double half = std::asin(std::min(1.0, std::abs(chord) / 2 / std::abs(radius)));
        const double turn = radius > 0 ? 2 * half : 2 * std::numbers::pi - 2 * half;
        const Plane centre = start + chord / 2.0 * Plane(1, sense / std::tan(turn / 2));
        double turned = 0;
        // An arc that rounding shrinks to nothing has no block; a long one ends where it starts, too.
        while (!(isThere(end) && turn - turned < 0.1 + 4 * m_tolerance / std::abs(radius)))
        {
            if (m_next == m_program.motions.size())
                return fail("the program ends");
            const Motion& motion = m_program.motions[m_next];
            const bool isArc = motion.isArc();
            if (!take(isArc ? kind : Motion::Kind::line))
                return;
            const double step =
                isArc ? motion.turn()
                      : 2 * std::asin(std::min(1.0, std::abs(planeOf(motion.end) - planeOf(motion.start)) / 2 /
                                                        std::abs(radius)));
            for (int i = 0; i <= 4; ++i)
            {
                const Plane from = planeOf(motion.start);
                const Plane own(motion.centre[0], motion.centre[1]);
                const Plane at = isArc ? own + (from - own) * std::polar(1.0, sense * step * i / 4)
                                       : from + (planeOf(motion.end) - from) * (i / 4.0);
                if (std::abs(std::abs(at - centre) - std::abs(radius)) > m_tolerance)
                    return fail("the arc is left by " + std::to_string(std::abs(at - centre) - std::abs(radius)));
            }
            turned += step;
            const double height = m_recordAt[2] + (end[2] - m_recordAt[2]) * std::min(1.0, turned / turn);
            // Rounding moves the ends along the arc, too.
            const double rounding = 1e-3 + 2 * m_tolerance / (turn * std::abs(radius));
            if (std::abs(motion.end[2] - height) > m_tolerance + std::abs(end[2] - m_recordAt[2]) * rounding)
                return fail("the helix has another slope");
            if (turned > turn + 0.1 + 4 * m_tolerance / std::abs(radius))
                return fail("the arc turns too far");
        }
        m_recordAt = end;
    }

    bool isThere(const Place& end) const
    {
        for (std::size_t axis = 0; axis < 3; ++axis)
            if (!(std::abs(m_at[axis] - end[axis]) <= m_tolerance))
                return false;
        // Moves shorter than the tolerance have blocks, too, unless rounding leaves them nothing.
        return m_next == m_program.motions.size() || !isNext(end);
    }

    /// Whether the next motion is nearer to where a record ends than the tool is.
    bool isNext(const Place& end) const
    {
        const auto distance = [&end](const Place& place)
        { return std::hypot(place[0] - end[0], place[1] - end[1], place[2] - end[2]); };
        return distance(m_program.motions[m_next].end) < distance(m_at);
    }

    const Motion* take(Motion::Kind kind)
    {
        if (m_next == m_program.motions.size())
            return fail("the program ends"), nullptr;
        const Motion& motion = m_program.motions[m_next++];
        if (motion.kind != kind)
            return fail("another kind of motion"), nullptr;
        if (kind != Motion::Kind::rapid && std::abs(motion.feed - m_feed) > m_tolerance)
            return fail("another feed rate"), nullptr;
        if (motion.spindle != m_spindle)
            return fail("another spindle speed"), nullptr;
        m_at = motion.end;
        return &motion;
    }

    void fail(const std::string& text)
    {
        std::ostringstream where;
        where << text << " at motion " << m_next;
        m_fault = where.str();
    }

    const rs274::Program& m_program;
    const double m_tolerance;
    const int m_spindleSense;
    std::size_t m_next = 0;
    std::size_t m_dwells = 0;
    Place m_at{rs274::unknown, rs274::unknown, rs274::unknown};
    Place m_recordAt{rs274::unknown, rs274::unknown, rs274::unknown};
    double m_feed = 0;
    double m_spindle = 0;
    std::string m_fault;
};

} // namespace

void expectSameToolpath(const exchange::ToolpathRecords& records, const rs274::Program& program, double tolerance,
                        int spindle)
{
    EXPECT_EQ(Comparison(program, tolerance, spindle).compare(records), "");
}
} // namespace testing_support
