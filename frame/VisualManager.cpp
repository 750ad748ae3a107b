#include "frame/VisualManager.h"

namespace TessaronResources
{

void VisualManager::apply(wxWindow&) const {}

const VisualManager& VisualManager::current()
{
    static const VisualManager desktopLook;
    return desktopLook;
}

} // namespace TessaronResources
