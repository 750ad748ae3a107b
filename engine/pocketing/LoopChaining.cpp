#include "engine/pocketing/LoopChaining.h"

#include "engine/jobs/JobError.h"
#include "engine/pocketing/Place.h"
#include <tessaron/exchange/StatusTable.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <map>
#include <utility>

namespace exchange::pocketing
{

namespace
{

double distance(const Point& a, const Point& b)
{
    return std::hypot(a[0] - b[0], a[1] - b[1]);
}

/// One end of a piece.
struct End
{
    std::size_t piece = 0;
    bool last = false;
    double distance = std::numeric_limits<double>::infinity();
};

/// Finds the ends of unused pieces near a point.
class EndFinder
{
public:
    EndFinder(const std::vector<Polyline>& pieces, double tolerance)
        : m_pieces(pieces), m_tolerance(tolerance), m_used(pieces.size(), false)
    {
        for (std::size_t piece = 0; piece < pieces.size(); ++piece)
        {
            m_cells.emplace(cellOf(pieces[piece].front()), End{piece, false});
            m_cells.emplace(cellOf(pieces[piece].back()), End{piece, true});
        }
    }

    bool isUsed(std::size_t piece) const { return m_used[piece]; }
    void use(std::size_t piece) { m_used[piece] = true; }

    /// The nearest end within the tolerance; of equally near ones the first given. Infinitely far when there is none.
    End nearest(const Point& point) const
    {
        End best;
        const Cell centre = cellOf(point);
        for (const int dx : {-1, 0, 1})
            for (const int dy : {-1, 0, 1})
            {
                const auto [begin, end] = m_cells.equal_range({centre.first + dx, centre.second + dy});
                for (auto it = begin; it != end; ++it)
                    consider(it->second, point, best);
            }
        return best;
    }

private:
    using Cell = std::pair<double, double>;

    Cell cellOf(const Point& point) const
    {
        return {std::floor(point[0] / m_tolerance), std::floor(point[1] / m_tolerance)};
    }

    void consider(End end, const Point& point, End& best) const
    {
        if (m_used[end.piece])
            return;
        const Polyline& piece = m_pieces[end.piece];
        end.distance = distance(point, end.last ? piece.back() : piece.front());
        const auto rank = [](const End& e) { return std::make_pair(e.distance, 2 * e.piece + (e.last ? 1 : 0)); };
        if (end.distance <= m_tolerance && rank(end) < rank(best))
            best = end;
    }

    const std::vector<Polyline>& m_pieces;
    const double m_tolerance;
    std::vector<bool> m_used;
    std::multimap<Cell, End> m_cells;
};

} // namespace

std::vector<Chain> chainLoops(const std::vector<Polyline>& pieces, double tolerance, const jobs::CancelFlag& cancel)
{
    // Ends this near are one point: the loop is closed even if another one begins just there.
    const double samePoint = tolerance / 1000;
    EndFinder finder(pieces, tolerance);
    std::vector<Chain> loops;
    for (std::size_t first = 0; first < pieces.size(); ++first)
    {
        if (finder.isUsed(first))
            continue;
        Chain loop{{first, false}};
        finder.use(first);
        const Point& start = pieces[first].front();
        Point end = pieces[first].back();
        for (;;)
        {
            cancel.check();
            const double gap = distance(end, start);
            const End next = finder.nearest(end);
            if (gap <= tolerance && (gap <= samePoint || gap <= next.distance))
                break;
            if (next.distance > tolerance)
                throw jobs::JobError(status::notASingleClosedRegion,
                                     "A boundary is open: nothing continues it at " + placeText(end) + ".");
            loop.push_back({next.piece, next.last});
            finder.use(next.piece);
            end = next.last ? pieces[next.piece].front() : pieces[next.piece].back();
        }
        loops.push_back(std::move(loop));
    }
    return loops;
}

void appendPiece(Polyline& loop, const Polyline& piece, bool reversed)
{
    // Where the ends coincide exactly, one of the two points is enough.
    const Point& first = reversed ? piece.back() : piece.front();
    const std::size_t skip = !loop.empty() && loop.back() == first ? 1 : 0;
    if (reversed)
        loop.insert(loop.end(), piece.rbegin() + static_cast<std::ptrdiff_t>(skip), piece.rend());
    else
        loop.insert(loop.end(), piece.begin() + static_cast<std::ptrdiff_t>(skip), piece.end());
}

Polyline loopOf(const Chain& chain, const std::vector<Polyline>& pieces)
{
    Polyline loop;
    for (const Link& link : chain)
        appendPiece(loop, pieces[link.piece], link.reversed);
    if (loop.size() > 1 && loop.front() == loop.back())
        loop.pop_back();
    return loop;
}

} // namespace exchange::pocketing
