#include "host/ToolpathModel.h"

#include <cmath>
#include <numbers>
#include <optional>

namespace host
{

namespace
{

// Heights that differ by less are one level.
constexpr double sameHeight = 1e-6;
constexpr int chordsPerTurn = 90;
constexpr double turn = 2 * std::numbers::pi;

double length(const Point3& a, const Point3& b)
{
    return std::hypot(b[0] - a[0], b[1] - a[1], b[2] - a[2]);
}

} // namespace

// Turns records into polylines, one after the other.
class ToolpathModel::Builder : public boost::static_visitor<>
{
public:
    Builder(ToolpathModel& model, double rapidRate) : m_model(model), m_rapidRate(rapidRate) {}

    void operator()(const exchange::RapidMove& move)
    {
        ++statistics().rapidMoves;
        const double way = m_at ? length(*m_at, move.endPt) : 0.0;
        statistics().rapidLength += way;
        if (m_rapidRate > 0)
            statistics().minutes += way / m_rapidRate;
        moveTo(MoveKind::rapid, move.endPt);
    }

    void operator()(const exchange::LinearMove& move)
    {
        ++statistics().cutMoves;
        cutTo(move.endPt);
    }

    void operator()(const exchange::Arc<1>& arc) { turnTo(arc.endPt, arc.radius, true); }
    void operator()(const exchange::Arc<0>& arc) { turnTo(arc.endPt, arc.radius, false); }
    void operator()(const exchange::FeedRate& record) { m_feedrate = record.feedrate; }
    void operator()(const exchange::SpindleSpeed&) {}
    void operator()(const exchange::CustomRecord&) {}
    void operator()(const exchange::ToolAxis&) {}

private:
    ToolpathStatistics& statistics() { return m_model.m_statistics; }

    void cutTo(const Point3& end)
    {
        const double way = m_at ? length(*m_at, end) : 0.0;
        statistics().cutLength += way;
        if (m_feedrate > 0)
            statistics().minutes += way / m_feedrate;
        const bool level = m_at && std::abs((*m_at)[2] - end[2]) < sameHeight;
        moveTo(level ? MoveKind::cut : MoveKind::plunge, end);
    }

    // Chords stand for an arc; the centre lies on the side that sense and sign of the radius tell.
    void turnTo(const Point3& end, double radius, bool counterClockwise)
    {
        ++statistics().cutMoves;
        const double dx = m_at ? end[0] - (*m_at)[0] : 0.0;
        const double dy = m_at ? end[1] - (*m_at)[1] : 0.0;
        const double chord = std::hypot(dx, dy);
        if (chord == 0 || std::abs(radius) * 2 < chord)
        {
            cutTo(end);
            return;
        }
        const Point3 start = *m_at;
        const double height = std::sqrt(std::max(0.0, radius * radius - chord * chord / 4));
        const double side = (radius > 0) == counterClockwise ? 1.0 : -1.0;
        const Point2 centre(start[0] + dx / 2 - side * height * dy / chord,
                            start[1] + dy / 2 + side * height * dx / chord);
        const double from = std::atan2(start[1] - centre[1], start[0] - centre[0]);
        double sweep = std::atan2(end[1] - centre[1], end[0] - centre[0]) - from;
        if (counterClockwise && sweep <= 0)
            sweep += turn;
        if (!counterClockwise && sweep >= 0)
            sweep -= turn;
        const int chords = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / turn * chordsPerTurn)));
        for (int i = 1; i < chords; ++i)
        {
            const double angle = from + sweep * i / chords;
            cutTo(Point3(centre[0] + std::abs(radius) * std::cos(angle), centre[1] + std::abs(radius) * std::sin(angle),
                         start[2] + (end[2] - start[2]) * i / chords));
        }
        cutTo(end);
    }

    void moveTo(MoveKind kind, const Point3& end)
    {
        if (m_at)
        {
            if (m_model.m_runs.empty() || m_model.m_runs.back().kind != kind)
            {
                m_model.m_runs.push_back({kind, 0, m_model.m_points.size(), 1});
                m_model.m_points.push_back(*m_at);
            }
            m_model.m_points.push_back(end);
            ++m_model.m_runs.back().count;
        }
        m_model.m_box.include(end);
        m_at = end;
    }

    ToolpathModel& m_model;
    const double m_rapidRate;
    double m_feedrate = 0;
    /// Where the tool stands; unknown before the first move.
    std::optional<Point3> m_at;
};

ToolpathModel::ToolpathModel(const exchange::ToolpathRecords& records, double rapidRate)
{
    m_statistics.records = records.records.size();
    Builder builder(*this, rapidRate);
    for (const exchange::ToolpathRecord& record : records.records)
        boost::apply_visitor(builder, record);
    numberLevels();
}

void ToolpathModel::numberLevels()
{
    for (const Run& run : m_runs)
        if (run.kind == MoveKind::cut)
            m_levels.push_back(m_points[run.first][2]);
    std::sort(m_levels.begin(), m_levels.end(), std::greater<>());
    m_levels.erase(std::unique(m_levels.begin(), m_levels.end(), [](double a, double b) { return a - b < sameHeight; }),
                   m_levels.end());
    for (Run& run : m_runs)
        if (run.kind == MoveKind::cut)
        {
            const double z = m_points[run.first][2];
            const auto level = std::find_if(m_levels.begin(), m_levels.end(),
                                            [z](double height) { return std::abs(height - z) < sameHeight; });
            run.level = static_cast<std::size_t>(level - m_levels.begin());
        }
}

} // namespace host
