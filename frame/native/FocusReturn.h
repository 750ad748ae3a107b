#ifndef FRAME_NATIVE_FOCUSRETURN_H
#define FRAME_NATIVE_FOCUSRETURN_H

#include <memory>

namespace TessaronResources::native
{

/// Remembers which control has the focus in each window of the process and which window is modal, and gives both back
/// on destruction. A window that is disabled while a dialog is up forgets them.
class FocusReturn
{
public:
    FocusReturn();
    ~FocusReturn();
    FocusReturn(const FocusReturn&) = delete;
    FocusReturn& operator=(const FocusReturn&) = delete;

private:
    struct Controls;
    std::unique_ptr<Controls> m_controls;
};

} // namespace TessaronResources::native

#endif
