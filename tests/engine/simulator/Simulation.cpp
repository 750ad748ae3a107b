#include "tests/engine/simulator/Simulation.h"

#include "tests/engine/simulator/Workpiece.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <sstream>
#include <utility>

namespace simulator
{

namespace
{

/// Of each kind of fault, how many are kept with their place.
constexpr int enoughOfAKind = 3;

class Simulation
{
public:
    Simulation(const exchange::Tessaron2dInput& input, const Options& options)
        : m_options(options), m_operation(input.parameters), m_piece(input, m_operation, options.cell),
          m_walls(m_piece.wallChords, m_operation.clearance + m_operation.radius),
          m_speck(1e-9 * std::max(std::fabs(m_operation.top), std::fabs(m_operation.floor)))
    {
    }

    Report run(const Motions& motions)
    {
        m_report.records = motions.records;
        m_report.unsoundRecords = motions.faults.size();
        for (const std::string& fault : motions.faults)
            note(fault, {});
        const std::vector<double> seconds = secondsOf(motions.all, m_options.machine);
        for (std::size_t i = 0; i < motions.all.size(); ++i)
            move(motions.all[i], seconds[i]);
        if (m_options.coverage)
            findUncut();
        for (const Point2& place : m_options.places)
            if (m_piece.height[m_piece.raster.cellAt(place)] > m_operation.floor + m_speck)
                noteUncut(place);
        return m_report;
    }

private:
    /// A straight piece of a motion.
    struct Piece
    {
        Chord track;
        double from;
        double to;
        double length;
    };

    std::vector<Piece> piecesOfMotion(const Motion& motion) const
    {
        const double across = motion.lengthAcross();
        double longest = m_operation.radius / 2;
        if (motion.sense != 0)
            longest = std::min(longest, std::sqrt(8 * motion.radius * m_operation.tolerance / 4));
        const int count = std::max(1, static_cast<int>(std::ceil(across / longest)));
        std::vector<Piece> pieces;
        Point3 last = motion.start;
        for (int i = 1; i <= count; ++i)
        {
            const Point3 next = motion.at(static_cast<double>(i) / count);
            pieces.push_back({{Point2(last[0], last[1]), Point2(next[0], next[1])}, last[2], next[2], across / count});
            last = next;
        }
        return pieces;
    }

    void move(const Motion& motion, double seconds)
    {
        (motion.rapid ? m_report.rapidLength : m_report.feedLength) += motion.length();
        const double lowest = std::min(motion.start[2], motion.end[2]);
        if (motion.rapid && motion.descent() < 0 && motion.start[2] < m_operation.top - m_speck)
            ++(motion.end[2] > m_operation.top ? m_report.retracts : m_report.hops);
        if (lowest < m_operation.floor - m_speck)
            gouge("below the floor", motion, motion.end);

        if (motion.rapid && motion.lengthAcross() > 0 && lowest < m_operation.top - m_speck)
        {
            ++m_report.lowRapids;
            note("rapid across below the top", motion);
        }

        double airLength = 0;
        if (lowest >= m_operation.top - m_speck)
            airLength = motion.lengthAcross();
        else
        {
            bool clear = true;
            m_stride = {};
            for (const Piece& piece : piecesOfMotion(motion))
            {
                clear = clear && keepsClear(piece, motion);
                if (motion.rapid)
                {
                    if (!isFree(piece))
                    {
                        ++m_report.rapidsThroughMaterial;
                        note("rapid through material", motion);
                        break;
                    }
                    continue;
                }
                if (isSteep(motion) && shareOfMaterial(piece) > 0.05)
                {
                    ++m_report.plunges;
                    note("plunge into material", motion);
                }
                cut(piece, motion, airLength);
            }
            closeStride(motion, airLength);
        }
        account(motion, seconds, airLength);
    }

    void account(const Motion& motion, double seconds, double airLength)
    {
        Report::Seconds& sum = m_report.seconds;
        const double across = motion.lengthAcross();
        if (motion.rapid)
            sum.rapid += seconds;
        else if (across == 0)
            sum.plunge += seconds;
        else if (motion.descent() > m_speck)
            sum.ramp += seconds;
        else
        {
            const double air = std::min(1.0, airLength / across) * seconds;
            sum.air += air;
            sum.cut += seconds - air;
        }
    }

    bool keepsClear(const Piece& piece, const Motion& motion)
    {
        const double least = m_operation.clearance - m_operation.tolerance;
        const Point2 middle((piece.track.start[0] + piece.track.end[0]) / 2,
                            (piece.track.start[1] + piece.track.end[1]) / 2);
        const std::size_t cell = m_piece.raster.cellAt(middle);
        const Point2 known = m_piece.raster.middle(cell);
        const double away = std::hypot(known[0] - middle[0], known[1] - middle[1]);
        if (m_piece.wallDistance[cell] - away - piece.length / 2 > least && m_piece.inPart[cell] == 0)
            return true;
        const double room = m_walls.distanceTo(piece.track);
        const bool beside = away > 2 * m_piece.raster.cell();
        if (room >= least && (m_piece.inPart[cell] == 0 || beside))
            return true;
        std::ostringstream what;
        what << "gouge of " << m_operation.clearance - room;
        gouge(what.str(), motion, Point3(piece.track.start[0], piece.track.start[1], piece.from));
        return false;
    }

    /// Whether no material is where a rapid runs.
    bool isFree(const Piece& piece) const
    {
        bool free = true;
        const double z = std::min(piece.from, piece.to) + m_speck;
        m_piece.raster.visitNear(piece.track, shy(),
                                 [&](std::size_t cell, double)
                                 { free = free && (m_piece.height[cell] <= z || m_piece.inPart[cell] != 0); });
        return free;
    }

    bool isSteep(const Motion& motion) const
    {
        return motion.descent() > m_speck &&
               motion.descent() > motion.lengthAcross() * m_operation.slope * (1 + 1e-6) + m_speck;
    }

    /// How much of the disc at the end of a piece is material.
    double shareOfMaterial(const Piece& piece) const
    {
        std::size_t all = 0;
        std::size_t solid = 0;
        m_piece.raster.visitNear({piece.track.end, piece.track.end}, shy(),
                                 [&](std::size_t cell, double)
                                 {
                                     ++all;
                                     solid += m_piece.height[cell] > piece.to + m_speck && m_piece.inPart[cell] == 0;
                                 });
        return all > 0 ? static_cast<double>(solid) / static_cast<double>(all) : 0;
    }

    void cut(const Piece& piece, const Motion& motion, double& airLength)
    {
        const double z = std::min(piece.from, piece.to);
        const bool level = std::fabs(motion.descent()) <= m_speck;
        const double highest = m_operation.depthOfCut + z + m_speck;
        bool deep = false;
        m_piece.raster.visitNear(piece.track, m_operation.radius,
                                 [&](std::size_t cell, double)
                                 {
                                     double& height = m_piece.height[cell];
                                     if (height <= z + m_speck || m_piece.inPart[cell] != 0)
                                         return;
                                     deep = deep || (level && height > highest);
                                     height = z;
                                     ++m_stride.cells;
                                 });
        if (deep)
        {
            ++m_report.deepCuts;
            note("too deep a cut", motion);
        }
        m_stride.length += piece.length;
        if (m_stride.length >= m_operation.radius / 2)
            closeStride(motion, airLength);
    }

    /// Tells how wide the last stretch of a motion was cut.
    void closeStride(const Motion& motion, double& airLength)
    {
        if (m_stride.length > 0 && !motion.rapid)
        {
            const double cell = m_piece.raster.cell();
            const double width = static_cast<double>(m_stride.cells) * cell * cell / m_stride.length;
            const double part = width / (2 * m_operation.radius);
            constexpr std::array<double, 5> borders = {0.005, 0.25, 0.5, 0.75, 0.95};
            const auto bin =
                static_cast<std::size_t>(std::upper_bound(borders.begin(), borders.end(), part) - borders.begin());
            if (part > 0.1 && motion.feed > 1.5 * m_operation.feed)
            {
                ++m_report.fastCuts;
                note("cut at high feed", motion);
            }
            if (bin == 0)
                airLength += m_stride.length;
            if (std::fabs(motion.descent()) <= m_speck)
            {
                m_report.engagement[bin] += m_stride.length;
                if (bin > 0)
                    m_report.cutAt[motion.end[2]] += m_stride.length;
            }
        }
        m_stride = {};
    }

    void findUncut()
    {
        const double enough = m_operation.clearance + m_operation.tolerance;
        std::vector<char> places(m_piece.raster.size(), 0);
        for (std::size_t i = 0; i < places.size(); ++i)
            places[i] = m_piece.inStock[i] != 0 && m_piece.inPart[i] == 0 && m_piece.wallDistance[i] >= enough;
        const std::vector<float> away = m_piece.raster.squaredDistances(places);
        const double reach = shy() / m_piece.raster.cell();
        for (std::size_t i = 0; i < places.size(); ++i)
        {
            if (m_piece.inStock[i] == 0 || m_piece.inPart[i] != 0 || away[i] > reach * reach)
                continue;
            ++m_report.reachableCells;
            if (m_piece.height[i] > m_operation.floor + m_speck)
                noteUncut(m_piece.raster.middle(i));
        }
    }

    void noteUncut(const Point2& place)
    {
        ++m_report.uncutCells;
        note("not cut", {}, Point3(place[0], place[1], m_operation.floor));
    }

    /// What is as near as this to the tool's axis is cut beyond doubt.
    double shy() const { return m_operation.radius - 2 * m_operation.tolerance; }

    void gouge(const std::string& what, const Motion& motion, const Point3& place)
    {
        ++m_report.gouges;
        note(what, motion, place);
    }
    void note(const std::string& what, const Motion& motion) { note(what, motion, motion.start); }
    void note(const std::string& what, const Motion& motion, const Point3& place)
    {
        if (++m_noted[what.substr(0, 5)] <= enoughOfAKind)
            m_report.faults.push_back({what, motion.record, place});
    }

    const Options m_options;
    const Operation m_operation;
    Workpiece m_piece;
    const Walls m_walls;
    /// Heights that differ by less are the same.
    const double m_speck;
    struct Stride
    {
        double length = 0;
        std::size_t cells = 0;
    };
    Stride m_stride;
    std::map<std::string, int> m_noted;
    Report m_report;
};

} // namespace

std::string Report::problems() const
{
    const std::pair<const char*, std::size_t> counts[] = {
        {"gouges", gouges},
        {"cells not cut", uncutCells},
        {"rapids through material", rapidsThroughMaterial},
        {"rapids across below the top", lowRapids},
        {"cuts too deep", deepCuts},
        {"cuts at high feed", fastCuts},
        {"plunges", plunges},
        {"unsound records", unsoundRecords},
    };
    std::ostringstream text;
    for (const auto& [what, count] : counts)
        if (count > 0)
            text << count << " " << what << "; ";
    if (text.str().empty())
        return {};
    for (const Fault& fault : faults)
        text << "\n  " << fault.what << " at (" << fault.place[0] << ", " << fault.place[1] << ", " << fault.place[2]
             << "), record " << fault.record;
    return text.str();
}

std::vector<double> Report::levels() const
{
    double longest = 0;
    for (const auto& [z, length] : cutAt)
        longest = std::max(longest, length);
    std::vector<double> heights;
    for (const auto& [z, length] : cutAt)
        if (length >= longest / 10)
            heights.push_back(z);
    return heights;
}

Report simulate(const exchange::Tessaron2dInput& input, const exchange::ToolpathRecords& toolpath,
                const Options& options)
{
    return Simulation(input, options).run(motionsOf(toolpath));
}

} // namespace simulator
