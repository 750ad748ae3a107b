#include "frame/looks/VisualManager.h"

#include "frame/PaletteColour.h"
#include "frame/Toolkit.h"
#include "frame/looks/RibbonArt.h"
#include "frame/native/NativeStyle.h"

#include <wx/ribbon/art.h>
#include <wx/settings.h>
#include <wx/window.h>

namespace TessaronResources
{

namespace
{

Rgb systemColour(wxSystemColour index)
{
    const wxColour colour = wxSystemSettings::GetColour(index);
    return static_cast<Rgb>(colour.Red()) << 16 | static_cast<Rgb>(colour.Green()) << 8 |
           static_cast<Rgb>(colour.Blue());
}

// The desktop's colours; plain ones while there is no desktop to ask.
PaletteSeed desktopSeed()
{
    if (!toolkitRunning())
        return seedAround(0xF0F0F0);
    const Rgb face = systemColour(wxSYS_COLOUR_BTNFACE);
    const Rgb text = systemColour(wxSYS_COLOUR_BTNTEXT);
    return {face,
            text,
            systemColour(wxSYS_COLOUR_WINDOW),
            systemColour(wxSYS_COLOUR_WINDOWTEXT),
            face,
            text,
            face,
            text,
            systemColour(wxSYS_COLOUR_HIGHLIGHT),
            systemColour(wxSYS_COLOUR_HIGHLIGHTTEXT),
            systemColour(wxSYS_COLOUR_BTNSHADOW),
            Surface::flat};
}

std::unique_ptr<VisualManager> installed;
Rgb toolkitDialogBackground = 0;

} // namespace

wxIMPLEMENT_DYNAMIC_CLASS(VisualManager, wxObject);

VisualManager::VisualManager() : m_palette(desktopSeed()) {}

VisualManager::~VisualManager() = default;

void VisualManager::refreshSystemColours()
{
    m_palette = VisualPalette(desktopSeed());
    m_style.reset();
    toolkitDialogBackground = m_palette.dialog;
}

void VisualManager::setColours(const PaletteSeed& seed)
{
    m_palette = VisualPalette(seed);
    m_style = std::make_unique<native::ControlStyle>(m_palette);
    toolkitDialogBackground = m_palette.dialog;
}

void VisualManager::apply(wxWindow& window) const
{
    if (!m_style)
    {
        native::ControlStyle::remove(window);
        if (window.IsTopLevel())
            window.SetBackgroundColour(wxNullColour);
        return;
    }
    if (window.IsTopLevel())
        window.SetBackgroundColour(toColour(m_palette.dialog));
    m_style->apply(window);
    window.Refresh();
}

std::unique_ptr<wxRibbonArtProvider> VisualManager::makeRibbonArt() const
{
    return TessaronResources::makeRibbonArt(m_palette);
}

const VisualManager& VisualManager::current()
{
    if (!installed)
        install(*wxCLASSINFO(VisualManager));
    return *installed;
}

void VisualManager::install(const wxClassInfo& managerClass)
{
    std::unique_ptr<wxObject> object(managerClass.CreateObject());
    auto* const manager = wxDynamicCast(object.get(), VisualManager);
    if (!manager)
        return;
    static_cast<void>(object.release());
    installed.reset(manager);
    installed->refreshSystemColours();
}

Rgb VisualManager::dialogBackground()
{
    current();
    return toolkitDialogBackground;
}

} // namespace TessaronResources
