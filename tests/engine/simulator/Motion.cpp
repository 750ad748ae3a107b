#include "tests/engine/simulator/Motion.h"

#include <algorithm>
#include <cmath>

namespace simulator
{

double Motion::lengthAcross() const
{
    return sense != 0 ? radius * sweep : std::hypot(end[0] - start[0], end[1] - start[1]);
}

double Motion::length() const
{
    return std::hypot(lengthAcross(), descent());
}

Point3 Motion::at(double part) const
{
    const double z = start[2] - descent() * part;
    if (part <= 0)
        return start;
    if (part >= 1)
        return end;
    if (sense == 0)
        return Point3(start[0] + (end[0] - start[0]) * part, start[1] + (end[1] - start[1]) * part, z);
    const double angle = std::atan2(start[1] - centre[1], start[0] - centre[0]) + sense * sweep * part;
    return Point3(centre[0] + radius * std::cos(angle), centre[1] + radius * std::sin(angle), z);
}

namespace
{

class Reader : public boost::static_visitor<void>
{
public:
    explicit Reader(Motions& motions) : m_motions(motions) {}

    void operator()(const exchange::RapidMove& move)
    {
        Motion motion;
        motion.rapid = true;
        add(motion, move.endPt);
    }
    void operator()(const exchange::LinearMove& move) { addCut({}, move.endPt); }
    void operator()(const exchange::Arc<1>& arc) { addArc(arc.endPt, arc.radius, 1); }
    void operator()(const exchange::Arc<0>& arc) { addArc(arc.endPt, arc.radius, -1); }
    void operator()(const exchange::FeedRate& feed) { m_feed = feed.feedrate; }
    void operator()(const exchange::SpindleSpeed& spindle) { m_speed = spindle.speed; }
    void operator()(const exchange::CustomRecord&) {}
    void operator()(const exchange::ToolAxis&) { fault("a tool axis in a 2-D toolpath"); }

    void next() { ++m_motions.records; }

private:
    void addArc(const Point3& end, double radius, int sense)
    {
        const double chord = std::hypot(end[0] - m_at[0], end[1] - m_at[1]);
        if (!(radius > 0) || !(chord > 0) || chord > 2 * radius * (1 + 1e-9))
            return fault("an arc that its radius cannot reach");
        // The centre lies on the left of the chord when an arc of less than half a turn turns left.
        const double height = std::sqrt(std::max(0.0, radius * radius - chord * chord / 4));
        Motion motion;
        motion.sense = sense;
        motion.radius = radius;
        motion.centre = Point2((m_at[0] + end[0]) / 2 - sense * height * (end[1] - m_at[1]) / chord,
                               (m_at[1] + end[1]) / 2 + sense * height * (end[0] - m_at[0]) / chord);
        motion.sweep = 2 * std::asin(std::min(1.0, chord / (2 * radius)));
        addCut(motion, end);
    }
    void addCut(Motion motion, const Point3& end)
    {
        if (!(m_feed > 0) || !(m_speed > 0))
            fault("a cut before feed rate and spindle speed");
        if (!m_started)
            fault("a cut before any rapid");
        motion.feed = m_feed;
        add(motion, end);
    }
    void add(Motion motion, const Point3& end)
    {
        if (!std::isfinite(end[0]) || !std::isfinite(end[1]) || !std::isfinite(end[2]))
            return fault("a place that is no number");
        motion.start = m_at;
        motion.end = end;
        motion.record = m_motions.records;
        if (m_started)
            m_motions.all.push_back(motion);
        m_at = end;
        m_started = true;
    }
    void fault(const std::string& what)
    {
        m_motions.faults.push_back("record " + std::to_string(m_motions.records) + ": " + what);
    }

    Motions& m_motions;
    Point3 m_at;
    bool m_started = false;
    double m_feed = 0;
    double m_speed = 0;
};

} // namespace

Motions motionsOf(const exchange::ToolpathRecords& toolpath)
{
    Motions motions;
    Reader reader(motions);
    for (const exchange::ToolpathRecord& record : toolpath.records)
    {
        boost::apply_visitor(reader, record);
        reader.next();
    }
    return motions;
}

} // namespace simulator
