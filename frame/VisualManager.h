#ifndef FRAME_VISUALMANAGER_H
#define FRAME_VISUALMANAGER_H

class wxWindow;

namespace TessaronResources
{

/// What draws the module's windows in a certain look. This base class is the desktop's own look.
class VisualManager
{
public:
    VisualManager() = default;
    VisualManager(const VisualManager&) = delete;
    VisualManager& operator=(const VisualManager&) = delete;
    virtual ~VisualManager() = default;

    /// Gives a window and all its controls this look.
    virtual void apply(wxWindow& window) const;

    /// The manager in force.
    static const VisualManager& current();
};

} // namespace TessaronResources

#endif
