#include "frame/looks/QdrVisualManager.h"

#include "frame/PaletteColour.h"

namespace TessaronResources
{

namespace
{

Rgb fromColourReference(std::uint32_t reference)
{
    return (reference & 0xFFU) << 16 | (reference & 0xFF00U) | ((reference >> 16) & 0xFFU);
}

} // namespace

wxIMPLEMENT_DYNAMIC_CLASS(QdrVisualManager, VisualManagerOffice2016);
wxIMPLEMENT_DYNAMIC_CLASS(QdrVisualManagerNX8, QdrVisualManager);
wxIMPLEMENT_DYNAMIC_CLASS(QdrVisualManagerNX10, QdrVisualManager);
wxIMPLEMENT_DYNAMIC_CLASS(QdrVisualManagerNX11, QdrVisualManager);

void QdrVisualManager::refreshSystemColours()
{
    VisualManagerOffice2016::refreshSystemColours();
    const Rgb colour = fromColourReference(m_dialogColour);
    setColours(seedAround(colour));
    m_dialogBrush = wxBrush(toColour(colour));
}

} // namespace TessaronResources
