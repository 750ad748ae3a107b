#include "host/Palette.h"

#include <algorithm>
#include <cmath>

namespace host::palette
{

namespace
{

constexpr unsigned char stops[][3] = {{0, 166, 147}, {20, 120, 204}, {74, 66, 190}, {122, 30, 140}};
constexpr int lastStop = 3;

unsigned char mix(unsigned char a, unsigned char b, double t)
{
    return static_cast<unsigned char>(std::lround(a + (b - a) * t));
}

} // namespace

wxColour level(std::size_t index, std::size_t count)
{
    const double place = count > 1 ? static_cast<double>(index) / static_cast<double>(count - 1) * lastStop : 1.0;
    const int stop = std::min(static_cast<int>(place), lastStop - 1);
    const double t = place - stop;
    return wxColour(mix(stops[stop][0], stops[stop + 1][0], t), mix(stops[stop][1], stops[stop + 1][1], t),
                    mix(stops[stop][2], stops[stop + 1][2], t));
}

wxColour shaded(const wxColour& colour, double shade)
{
    return wxColour(mix(0, colour.Red(), shade), mix(0, colour.Green(), shade), mix(0, colour.Blue(), shade),
                    colour.Alpha());
}

} // namespace host::palette
