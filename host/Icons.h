#ifndef HOST_ICONS_H
#define HOST_ICONS_H

#include <wx/bmpbndl.h>

namespace host
{

enum class Icon
{
    program,
    open,
    save,
    generate,
    stop,
    fit,
    above,
    side,
};

/// A picture that is sharp at every scale.
wxBitmapBundle icon(Icon which);

} // namespace host

#endif
