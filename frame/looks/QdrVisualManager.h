#ifndef FRAME_LOOKS_QDRVISUALMANAGER_H
#define FRAME_LOOKS_QDRVISUALMANAGER_H

#include "frame/looks/LookManagers.h"

#include <wx/brush.h>

#include <cstdint>

namespace TessaronResources
{

/// A look whose dialogs have one given background; everything else is built around it. The classes derived from this
/// one copy the window backgrounds of releases of the NX host CAD system, and differ in nothing else.
class QdrVisualManager : public VisualManagerOffice2016
{
public:
    QdrVisualManager() = default;

    void refreshSystemColours() override;

    /// The background of dialogs, 0x00BBGGRR.
    std::uint32_t dialogColour() const { return m_dialogColour; }
    const wxBrush& dialogBrush() const { return m_dialogBrush; }

protected:
    explicit QdrVisualManager(std::uint32_t dialogColour) : m_dialogColour(dialogColour) {}

private:
    std::uint32_t m_dialogColour = 0xF0F0F0;
    wxBrush m_dialogBrush;

    wxDECLARE_DYNAMIC_CLASS(QdrVisualManager);
};

class QdrVisualManagerNX8 : public QdrVisualManager
{
public:
    QdrVisualManagerNX8() : QdrVisualManager(0x1C1C1C) {}
    wxDECLARE_DYNAMIC_CLASS(QdrVisualManagerNX8);
};

class QdrVisualManagerNX10 : public QdrVisualManager
{
public:
    QdrVisualManagerNX10() : QdrVisualManager(0x84885C) {}
    wxDECLARE_DYNAMIC_CLASS(QdrVisualManagerNX10);
};

class QdrVisualManagerNX11 : public QdrVisualManager
{
public:
    QdrVisualManagerNX11() : QdrVisualManager(0xB9A055) {}
    wxDECLARE_DYNAMIC_CLASS(QdrVisualManagerNX11);
};

} // namespace TessaronResources

#endif
