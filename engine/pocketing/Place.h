#ifndef ENGINE_POCKETING_PLACE_H
#define ENGINE_POCKETING_PLACE_H

#include <tessaron/exchange/geom/PointNd.h>

#include <locale>
#include <sstream>
#include <string>

namespace exchange::pocketing
{

/// A point as texts for the user show it: "(12.5, -3)".
inline std::string placeText(const geom::PointNd<2>& point)
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << '(' << point[0] << ", " << point[1] << ')';
    return text.str();
}

} // namespace exchange::pocketing

#endif
