#ifndef FRAME_LOOKS_VISUALMANAGER_H
#define FRAME_LOOKS_VISUALMANAGER_H

#include "frame/VisualPalette.h"

#include <wx/object.h>

#include <memory>

class wxRibbonArtProvider;
class wxWindow;

namespace TessaronResources
{

namespace native
{
class ControlStyle;
}

/// What draws the module's windows in a certain look. This base class is the desktop's own look. One manager is in
/// force at a time; it is made from its run-time class. User-interface thread only.
class VisualManager : public wxObject
{
public:
    VisualManager();
    ~VisualManager() override;
    VisualManager(const VisualManager&) = delete;
    VisualManager& operator=(const VisualManager&) = delete;

    /// Sets the colours up; called when the manager is installed.
    virtual void refreshSystemColours();

    /// Draws a window and all its controls in this look, replacing the one that they had.
    void apply(wxWindow& window) const;

    const VisualPalette& palette() const { return m_palette; }

    /// An art provider for ribbons in this look. The caller owns it, as a rule a ribbon.
    std::unique_ptr<wxRibbonArtProvider> makeRibbonArt() const;

    /// The manager in force; the desktop's look until one is installed.
    static const VisualManager& current();

    /// Makes a manager of a run-time class the one in force. Windows that are open keep their look until apply().
    static void install(const wxClassInfo& managerClass);

    /// The background of every dialog drawn in the module's style, as the manager in force set it.
    static Rgb dialogBackground();

protected:
    /// Uses these colours from now on.
    void setColours(const PaletteSeed& seed);

private:
    VisualPalette m_palette;
    std::unique_ptr<native::ControlStyle> m_style; ///< none in the desktop's look

    wxDECLARE_DYNAMIC_CLASS(VisualManager);
};

} // namespace TessaronResources

#endif
