#include "machining/SmartLinkRules.h"

namespace TessaronResources
{

int SmartLinkRules::position() const
{
    const double position = m_data.linkPreference * lastPosition;
    if (!(position > 0.0)) // NaN as well
        return 0;
    return position >= lastPosition ? lastPosition : static_cast<int>(position);
}

void SmartLinkRules::apply(bool depthFirst, bool rapidPlaneOnly)
{
    m_data.depthFirst = depthFirst ? 1 : 0;
    m_data.rapidPlaneOnly = rapidPlaneOnly ? 1 : 0;
}

} // namespace TessaronResources
