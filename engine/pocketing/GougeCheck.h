#ifndef ENGINE_POCKETING_GOUGECHECK_H
#define ENGINE_POCKETING_GOUGECHECK_H

#include "engine/jobs/CancelFlag.h"
#include "engine/pocketing/Rings.h"
#include "engine/pocketing/SegmentIndex.h"

namespace exchange::pocketing
{

/// Checks finished cuts against the boundaries they came from, by other means than those that made them: no cut may
/// take the tool's axis nearer to a boundary than the clearance, or out of the stock, or into the part.
class GougeCheck
{
public:
    /// \param part, stock the loops of the boundaries
    /// \param clearance in steps of the grid
    GougeCheck(Paths part, Paths stock, double clearance);

    /// \throws jobs::JobError (status::internalError) when a cut of the ring would gouge, Cancelled after a cancel
    void check(const Ring& ring, const jobs::CancelFlag& cancel) const;

    const Paths& part() const { return m_part; }
    const Paths& stock() const { return m_stock; }
    const SegmentIndex& partIndex() const { return m_partIndex; }
    const SegmentIndex& stockIndex() const { return m_stockIndex; }

private:
    void checkPath(const Path& path, const jobs::CancelFlag& cancel) const;

    Paths m_part;
    Paths m_stock;
    SegmentIndex m_partIndex;
    SegmentIndex m_stockIndex;
    double m_clearance = 0;
};

} // namespace exchange::pocketing

#endif
