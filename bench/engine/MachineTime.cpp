#include "bench/engine/MachineTime.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace bench
{

namespace
{

using Vector = std::array<double, 3>;

/// In mm/s^2 and mm.
constexpr double acceleration = 2000;
constexpr double cornerDeviation = 0.01;

/// A move with the greatest speed on it, in mm/s, and its directions at both ends.
struct Piece
{
    double length;
    double speed;
    Vector in;
    Vector out;
};

double dot(const Vector& a, const Vector& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

/// The speed at a corner that a machine takes on an arc of the acceleration, within the deviation.
double cornerSpeed(const Vector& in, const Vector& out)
{
    const double cosine = std::clamp(dot(in, out), -1.0, 1.0);
    const double sineOfHalf = std::sqrt((1 + cosine) / 2);
    if (sineOfHalf > 1 - 1e-9)
        return std::numeric_limits<double>::infinity();
    return std::sqrt(acceleration * cornerDeviation * sineOfHalf / (1 - sineOfHalf));
}

/// The time over a length between two speeds with a greatest speed on the way.
double secondsFor(double length, double from, double to, double greatest)
{
    const double peak = std::min(greatest, std::sqrt(acceleration * length + (from * from + to * to) / 2));
    const double ramps = (2 * peak * peak - from * from - to * to) / (2 * acceleration);
    return (2 * peak - from - to) / acceleration + std::max(0.0, length - ramps) / peak;
}

double secondsFor(const std::vector<Piece>& pieces)
{
    // The speeds at the ends: what corners allow, what can be braked to, what can be reached.
    std::vector<double> speeds(pieces.size() + 1, 0.0);
    for (std::size_t i = 1; i < pieces.size(); ++i)
        speeds[i] = std::min({pieces[i - 1].speed, pieces[i].speed, cornerSpeed(pieces[i - 1].out, pieces[i].in)});
    for (std::size_t i = pieces.size(); i-- > 0;)
        speeds[i] = std::min(speeds[i], std::sqrt(speeds[i + 1] * speeds[i + 1] + 2 * acceleration * pieces[i].length));
    double seconds = 0;
    for (std::size_t i = 0; i < pieces.size(); ++i)
    {
        speeds[i + 1] = std::min(speeds[i + 1], std::sqrt(speeds[i] * speeds[i] + 2 * acceleration * pieces[i].length));
        seconds += secondsFor(pieces[i].length, speeds[i], speeds[i + 1], pieces[i].speed);
    }
    return seconds;
}

class Reader : public boost::static_visitor<void>
{
public:
    Reader(ToolpathFigures& figures, double top, double rapidRate)
        : m_figures(figures), m_top(top), m_rapid(rapidRate / 60)
    {
    }

    void operator()(const exchange::RapidMove& move)
    {
        const Vector way = wayTo(move.endPt);
        if (m_started && way[2] > 0 && m_at[2] < m_top)
            ++m_figures.retracts;
        m_figures.rapidLength += addLine(way, m_rapid);
        moveTo(move.endPt);
    }
    void operator()(const exchange::LinearMove& move)
    {
        const Vector way = wayTo(move.endPt);
        if (way[2] < 0 && way[0] == 0 && way[1] == 0)
            ++m_figures.plunges;
        m_figures.cutLength += addLine(way, m_feed);
        moveTo(move.endPt);
    }
    void operator()(const exchange::Arc<1>& arc) { addArc(arc.endPt, arc.radius, 1); }
    void operator()(const exchange::Arc<0>& arc) { addArc(arc.endPt, arc.radius, -1); }
    void operator()(const exchange::FeedRate& feed) { m_feed = feed.feedrate / 60; }
    template <class Other>
    void operator()(const Other&)
    {
    }

    const std::vector<Piece>& pieces() const { return m_pieces; }

private:
    Vector wayTo(const geom::PointNd<3>& to) const { return {to[0] - m_at[0], to[1] - m_at[1], to[2] - m_at[2]}; }
    void moveTo(const geom::PointNd<3>& to)
    {
        m_at = to;
        m_started = true;
    }

    double addLine(const Vector& way, double speed)
    {
        const double length = std::sqrt(dot(way, way));
        if (!m_started || length == 0)
            return 0;
        const Vector unit = {way[0] / length, way[1] / length, way[2] / length};
        m_pieces.push_back({length, speed, unit, unit});
        return length;
    }

    void addArc(const geom::PointNd<3>& end, double radius, double sense)
    {
        const Vector way = wayTo(end);
        const double chord = std::hypot(way[0], way[1]);
        const double sweep = 2 * std::asin(std::min(1.0, chord / (2 * radius)));
        const double length = std::hypot(radius * sweep, way[2]);
        const double rise = way[2] / length;
        const double level = std::sqrt(1 - rise * rise);
        // Both tangents lie half the sweep off the chord.
        const auto tangent = [&](double angle)
        {
            const double c = std::cos(angle) / chord * level;
            const double s = std::sin(angle) / chord * level;
            return Vector{way[0] * c - way[1] * s, way[0] * s + way[1] * c, rise};
        };
        m_pieces.push_back({length, std::min(m_feed, std::sqrt(acceleration * radius)), tangent(-sense * sweep / 2),
                            tangent(sense * sweep / 2)});
        m_figures.cutLength += length;
        moveTo(end);
    }

    ToolpathFigures& m_figures;
    const double m_top;
    const double m_rapid;
    double m_feed = 1;
    geom::PointNd<3> m_at;
    bool m_started = false;
    std::vector<Piece> m_pieces;
};

} // namespace

ToolpathFigures figuresOf(const exchange::ToolpathRecords& toolpath, double top, double rapidRate)
{
    ToolpathFigures figures;
    figures.records = toolpath.records.size();
    Reader reader(figures, top, rapidRate);
    for (const exchange::ToolpathRecord& record : toolpath.records)
        boost::apply_visitor(reader, record);
    figures.minutes = secondsFor(reader.pieces()) / 60;
    return figures;
}

} // namespace bench
