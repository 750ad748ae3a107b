#include "engine/pocketing/GougeCheck.h"

#include "engine/jobs/JobError.h"
#include <tessaron/exchange/StatusTable.h>

#include <utility>

namespace exchange::pocketing
{

GougeCheck::GougeCheck(Paths part, Paths stock, double clearance)
    : m_part(std::move(part)), m_stock(std::move(stock)), m_partIndex(m_part), m_stockIndex(m_stock),
      m_clearance(clearance)
{
}

void GougeCheck::check(const Ring& ring, const jobs::CancelFlag& cancel) const
{
    for (const Path& path : ring.contours)
        checkPath(path, cancel);
    for (const Path& path : ring.leftovers)
        checkPath(path, cancel);
}

void GougeCheck::checkPath(const Path& path, const jobs::CancelFlag& cancel) const
{
    bool safe = m_stockIndex.encloses(path.front()) && !m_partIndex.encloses(path.front());
    for (std::size_t i = 0; safe && i < path.size(); ++i)
    {
        cancel.check();
        const IntPoint& end = path[(i + 1) % path.size()];
        safe = !m_partIndex.isCloser(path[i], end, m_clearance) && !m_stockIndex.isCloser(path[i], end, m_clearance);
    }
    if (!safe)
        throw jobs::JobError(status::internalError, "The computed path would cut into the part; no toolpath was made.");
}

} // namespace exchange::pocketing
