#include "host/Icons.h"

#include <string>

namespace host
{

namespace
{

// Drawn on a field of 24 by 24. A stroke is 1.8 wide and dark, what matters is blue.
constexpr char head[] = "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 24 24\" width=\"24\" height=\"24\">"
                        "<g fill=\"none\" stroke=\"#3b4656\" stroke-width=\"1.8\" stroke-linecap=\"round\" "
                        "stroke-linejoin=\"round\">";
constexpr char tail[] = "</g></svg>";

const char* drawing(Icon which)
{
    switch (which)
    {
    case Icon::program:
        return "<rect x=\"1.5\" y=\"1.5\" width=\"21\" height=\"21\" rx=\"5\" fill=\"#1b66c9\" stroke=\"none\"/>"
               "<g stroke=\"#ffffff\"><rect x=\"5\" y=\"5\" width=\"14\" height=\"14\" rx=\"3.4\"/>"
               "<rect x=\"8.2\" y=\"8.2\" width=\"7.6\" height=\"7.6\" rx=\"1.6\" stroke=\"#9fd0ff\"/>"
               "<path d=\"M12 12 h.01\"/></g>";
    case Icon::open:
        return "<path d=\"M3 18.5 V6 a1 1 0 0 1 1-1 h5 l2 2.2 h7 a1 1 0 0 1 1 1 V10\"/>"
               "<path d=\"M3 18.5 L6 10.4 h15.5 L18.6 18.5 Z\" fill=\"#cfe3fb\" stroke=\"#1b66c9\"/>";
    case Icon::save:
        return "<path d=\"M4 14.5 V19 h16 V14.5\"/><path d=\"M12 4 V14.5 M7.8 10.6 L12 14.8 L16.2 10.6\" "
               "stroke=\"#1b66c9\"/>";
    case Icon::generate:
        return "<path d=\"M7 4.6 L19 12 L7 19.4 Z\" fill=\"#2f9e5b\" stroke=\"#237a46\"/>";
    case Icon::stop:
        return "<rect x=\"5.6\" y=\"5.6\" width=\"12.8\" height=\"12.8\" rx=\"2\" fill=\"#d9485a\" "
               "stroke=\"#a83242\"/>";
    case Icon::fit:
        return "<path d=\"M4 9 V4 h5 M15 4 h5 v5 M20 15 v5 h-5 M9 20 H4 v-5\"/>"
               "<rect x=\"8.4\" y=\"8.4\" width=\"7.2\" height=\"7.2\" rx=\"1\" fill=\"#cfe3fb\" "
               "stroke=\"#1b66c9\"/>";
    case Icon::above:
        return "<rect x=\"4.5\" y=\"4.5\" width=\"15\" height=\"15\" rx=\"1.5\" fill=\"#cfe3fb\" "
               "stroke=\"#1b66c9\"/><rect x=\"9\" y=\"9\" width=\"6\" height=\"6\" rx=\"1\"/>";
    case Icon::side:
        return "<path d=\"M12 3.4 L20 7.6 L12 11.8 L4 7.6 Z\" fill=\"#cfe3fb\" stroke=\"#1b66c9\"/>"
               "<path d=\"M4 7.6 V16.2 L12 20.6 L20 16.2 V7.6 M12 11.8 V20.6\"/>";
    }
    return "";
}

} // namespace

wxBitmapBundle icon(Icon which)
{
    const std::string svg = std::string(head) + drawing(which) + tail;
    return wxBitmapBundle::FromSVG(svg.c_str(), wxSize(24, 24));
}

} // namespace host
