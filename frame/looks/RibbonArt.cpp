#include "frame/looks/RibbonArt.h"

#include "frame/PaletteColour.h"

#include <wx/dc.h>
#include <wx/ribbon/art.h>
#include <wx/ribbon/page.h>
#include <wx/ribbon/panel.h>

#include <type_traits>

namespace TessaronResources
{

namespace
{

constexpr int panelLabelMargin = 7;

// The shades that a ribbon is drawn with.
struct Shades
{
    explicit Shades(const VisualPalette& palette)
        : chrome(palette.chrome), chromeText(palette.chromeText), ribbonText(palette.ribbonText),
          ribbonTop(palette.ribbon), ribbonBottom(palette.ribbon), panelLabel(palette.ribbon),
          border(mixed(palette.ribbon, palette.border, 0.6)), hover(palette.hover), pressed(palette.pressed),
          accent(palette.accent), disabled(mixed(palette.ribbonText, palette.ribbon, 0.5)),
          tabHover(mixed(palette.chrome, palette.chromeText, 0.12))
    {
        if (palette.surface == Surface::flat)
            return;
        // Toward the side that the text does not come from, so that the sheen costs no contrast.
        const Rgb away = readableOn(palette.ribbonText);
        ribbonTop = mixed(palette.ribbon, away, 0.35);
        panelLabel = mixed(palette.ribbon, away, 0.15);
    }

    Rgb chrome, chromeText, ribbonText, ribbonTop, ribbonBottom, panelLabel, border, hover, pressed, accent, disabled,
        tabHover;
};

constexpr struct
{
    int id;
    Rgb Shades::*colour;
} artColours[] = {
    {wxRIBBON_ART_TAB_CTRL_BACKGROUND_COLOUR, &Shades::chrome},
    {wxRIBBON_ART_TAB_CTRL_BACKGROUND_GRADIENT_COLOUR, &Shades::chrome},
    {wxRIBBON_ART_TAB_LABEL_COLOUR, &Shades::chromeText},
    {wxRIBBON_ART_TAB_HOVER_LABEL_COLOUR, &Shades::chromeText},
    {wxRIBBON_ART_TAB_ACTIVE_LABEL_COLOUR, &Shades::ribbonText},
    {wxRIBBON_ART_TAB_SEPARATOR_COLOUR, &Shades::chrome},
    {wxRIBBON_ART_TAB_SEPARATOR_GRADIENT_COLOUR, &Shades::chrome},
    {wxRIBBON_ART_TAB_HOVER_BACKGROUND_TOP_COLOUR, &Shades::tabHover},
    {wxRIBBON_ART_TAB_HOVER_BACKGROUND_TOP_GRADIENT_COLOUR, &Shades::tabHover},
    {wxRIBBON_ART_TAB_HOVER_BACKGROUND_COLOUR, &Shades::tabHover},
    {wxRIBBON_ART_TAB_HOVER_BACKGROUND_GRADIENT_COLOUR, &Shades::tabHover},
    {wxRIBBON_ART_TAB_ACTIVE_BACKGROUND_TOP_COLOUR, &Shades::ribbonTop},
    {wxRIBBON_ART_TAB_ACTIVE_BACKGROUND_TOP_GRADIENT_COLOUR, &Shades::ribbonTop},
    {wxRIBBON_ART_TAB_ACTIVE_BACKGROUND_COLOUR, &Shades::ribbonTop},
    {wxRIBBON_ART_TAB_ACTIVE_BACKGROUND_GRADIENT_COLOUR, &Shades::ribbonTop},
    {wxRIBBON_ART_TAB_BORDER_COLOUR, &Shades::border},
    {wxRIBBON_ART_PAGE_BORDER_COLOUR, &Shades::border},
    {wxRIBBON_ART_PAGE_BACKGROUND_TOP_COLOUR, &Shades::ribbonTop},
    {wxRIBBON_ART_PAGE_BACKGROUND_TOP_GRADIENT_COLOUR, &Shades::ribbonTop},
    {wxRIBBON_ART_PAGE_BACKGROUND_COLOUR, &Shades::ribbonTop},
    {wxRIBBON_ART_PAGE_BACKGROUND_GRADIENT_COLOUR, &Shades::ribbonBottom},
    {wxRIBBON_ART_PAGE_HOVER_BACKGROUND_TOP_COLOUR, &Shades::ribbonTop},
    {wxRIBBON_ART_PAGE_HOVER_BACKGROUND_TOP_GRADIENT_COLOUR, &Shades::ribbonTop},
    {wxRIBBON_ART_PAGE_HOVER_BACKGROUND_COLOUR, &Shades::ribbonTop},
    {wxRIBBON_ART_PAGE_HOVER_BACKGROUND_GRADIENT_COLOUR, &Shades::ribbonBottom},
    {wxRIBBON_ART_PANEL_BORDER_COLOUR, &Shades::border},
    {wxRIBBON_ART_PANEL_BORDER_GRADIENT_COLOUR, &Shades::border},
    {wxRIBBON_ART_PANEL_HOVER_BORDER_COLOUR, &Shades::border},
    {wxRIBBON_ART_PANEL_HOVER_BORDER_GRADIENT_COLOUR, &Shades::border},
    {wxRIBBON_ART_PANEL_MINIMISED_BORDER_COLOUR, &Shades::border},
    {wxRIBBON_ART_PANEL_MINIMISED_BORDER_GRADIENT_COLOUR, &Shades::border},
    {wxRIBBON_ART_PANEL_LABEL_BACKGROUND_COLOUR, &Shades::panelLabel},
    {wxRIBBON_ART_PANEL_LABEL_BACKGROUND_GRADIENT_COLOUR, &Shades::panelLabel},
    {wxRIBBON_ART_PANEL_LABEL_COLOUR, &Shades::ribbonText},
    {wxRIBBON_ART_PANEL_HOVER_LABEL_BACKGROUND_COLOUR, &Shades::panelLabel},
    {wxRIBBON_ART_PANEL_HOVER_LABEL_BACKGROUND_GRADIENT_COLOUR, &Shades::panelLabel},
    {wxRIBBON_ART_PANEL_HOVER_LABEL_COLOUR, &Shades::ribbonText},
    {wxRIBBON_ART_PANEL_MINIMISED_LABEL_COLOUR, &Shades::ribbonText},
    {wxRIBBON_ART_PANEL_ACTIVE_BACKGROUND_TOP_COLOUR, &Shades::ribbonTop},
    {wxRIBBON_ART_PANEL_ACTIVE_BACKGROUND_TOP_GRADIENT_COLOUR, &Shades::ribbonTop},
    {wxRIBBON_ART_PANEL_ACTIVE_BACKGROUND_COLOUR, &Shades::ribbonTop},
    {wxRIBBON_ART_PANEL_ACTIVE_BACKGROUND_GRADIENT_COLOUR, &Shades::ribbonBottom},
    {wxRIBBON_ART_BUTTON_BAR_LABEL_COLOUR, &Shades::ribbonText},
    {wxRIBBON_ART_BUTTON_BAR_LABEL_DISABLED_COLOUR, &Shades::disabled},
    {wxRIBBON_ART_BUTTON_BAR_HOVER_BORDER_COLOUR, &Shades::accent},
    {wxRIBBON_ART_BUTTON_BAR_HOVER_BACKGROUND_TOP_COLOUR, &Shades::hover},
    {wxRIBBON_ART_BUTTON_BAR_HOVER_BACKGROUND_TOP_GRADIENT_COLOUR, &Shades::hover},
    {wxRIBBON_ART_BUTTON_BAR_HOVER_BACKGROUND_COLOUR, &Shades::hover},
    {wxRIBBON_ART_BUTTON_BAR_HOVER_BACKGROUND_GRADIENT_COLOUR, &Shades::hover},
    {wxRIBBON_ART_BUTTON_BAR_ACTIVE_BORDER_COLOUR, &Shades::accent},
    {wxRIBBON_ART_BUTTON_BAR_ACTIVE_BACKGROUND_TOP_COLOUR, &Shades::pressed},
    {wxRIBBON_ART_BUTTON_BAR_ACTIVE_BACKGROUND_TOP_GRADIENT_COLOUR, &Shades::pressed},
    {wxRIBBON_ART_BUTTON_BAR_ACTIVE_BACKGROUND_COLOUR, &Shades::pressed},
    {wxRIBBON_ART_BUTTON_BAR_ACTIVE_BACKGROUND_GRADIENT_COLOUR, &Shades::pressed},
};

template <class Base>
class PaletteRibbonArt : public Base
{
public:
    explicit PaletteRibbonArt(const VisualPalette& palette) : m_palette(palette)
    {
        const Shades shades(palette);
        this->SetColourScheme(toColour(palette.ribbon), toColour(palette.accent), toColour(palette.ribbonText));
        for (const auto& entry : artColours)
            this->SetColour(entry.id, toColour(shades.*entry.colour));
        if constexpr (std::is_same_v<Base, wxRibbonAUIArtProvider>)
        {
            // The toolkit's art has fields of its own for these two, which the ids do not reach.
            this->m_panel_hover_label_background_colour = toColour(shades.panelLabel);
            this->m_panel_hover_label_background_gradient_colour = toColour(shades.panelLabel);
        }
    }

    wxRibbonArtProvider* Clone() const override
    {
        auto* const copy = new PaletteRibbonArt(m_palette);
        this->CloneTo(copy);
        return copy;
    }

    wxSize GetPanelSize(wxDC& dc, const wxRibbonPanel* panel, wxSize clientSize, wxPoint* clientOffset) override
    {
        // The toolkit makes room for what the panel holds, but not for its name.
        dc.SetFont(this->GetFont(wxRIBBON_ART_PANEL_LABEL_FONT));
        const int label = dc.GetTextExtent(panel->GetLabel()).x + 2 * panel->FromDIP(panelLabelMargin);
        wxSize size = Base::GetPanelSize(dc, panel, clientSize, clientOffset);
        size.IncTo(wxSize(label, 0));
        return size;
    }

    void DrawTab(wxDC& dc, wxWindow* window, const wxRibbonPageTabInfo& tab) override
    {
        if (tab.page->GetId() != applicationTabId)
        {
            Base::DrawTab(dc, window, tab);
            return;
        }
        // Darker or lighter than the accent, away from its text: under the pointer, and where the chrome has the
        // accent.
        const bool set = tab.hovered || m_palette.accent == m_palette.chrome;
        const Rgb fill = mixed(m_palette.accent, readableOn(m_palette.accentText), set ? 0.25 : 0.0);
        dc.SetPen(*wxTRANSPARENT_PEN);
        dc.SetBrush(wxBrush(toColour(fill)));
        if (m_palette.surface == Surface::sheen)
            dc.DrawRoundedRectangle(tab.rect, 3);
        else
            dc.DrawRectangle(tab.rect);
        dc.SetFont(this->GetFont(wxRIBBON_ART_TAB_LABEL_FONT));
        dc.SetTextForeground(toColour(m_palette.accentText));
        dc.DrawLabel(tab.page->GetLabel(), tab.rect, wxALIGN_CENTRE);
    }

private:
    VisualPalette m_palette;
};

} // namespace

std::unique_ptr<wxRibbonArtProvider> makeRibbonArt(const VisualPalette& palette)
{
    if (palette.surface == Surface::sheen)
        return std::make_unique<PaletteRibbonArt<wxRibbonMSWArtProvider>>(palette);
    return std::make_unique<PaletteRibbonArt<wxRibbonAUIArtProvider>>(palette);
}

} // namespace TessaronResources
