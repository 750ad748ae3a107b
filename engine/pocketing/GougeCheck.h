#ifndef ENGINE_POCKETING_GOUGECHECK_H
#define ENGINE_POCKETING_GOUGECHECK_H

#include "engine/pocketing/SegmentIndex.h"
#include "engine/pocketing/moves/PlaneMove.h"

namespace exchange::pocketing
{

/// Checks moves against the boundaries they came from, by other means than those that made them: no move may take the
/// tool's axis nearer to the part than the clearance, or into it. Arcs are checked as arcs.
class GougeCheck
{
public:
    /// \param part, stock the loops of the boundaries
    /// \param clearance in steps of the grid
    GougeCheck(Paths part, Paths stock, double clearance);

    /// Whether a move keeps clear of the edges of the part. One that starts outside the part then stays there.
    bool keepsClear(const PlaneMove& move) const { return !isCloser(m_partIndex, move, m_clearance); }
    /// Whether a move stays this far from the edges of the part.
    bool keepsDistance(const PlaneMove& move, double distance) const { return !isCloser(m_partIndex, move, distance); }
    /// Whether the tool may stand at a place.
    bool mayStand(const Vec& place) const;
    /// How far a place is from the edges of the part; at most `limit`.
    double distanceToPart(const Vec& place, double limit) const;
    /// Whether a disc there touches no stock.
    bool isAir(const Vec& place, double radius) const;

    /// \throws jobs::JobError (status::internalError) when a closed cut would gouge
    void check(const Track& loop) const;

    const Paths& part() const { return m_part; }
    const Paths& stock() const { return m_stock; }
    double clearance() const { return m_clearance; }

private:
    static bool isCloser(const SegmentIndex& index, const PlaneMove& move, double distance);

    Paths m_part;
    Paths m_stock;
    SegmentIndex m_partIndex;
    SegmentIndex m_stockIndex;
    double m_clearance = 0;
};

} // namespace exchange::pocketing

#endif
