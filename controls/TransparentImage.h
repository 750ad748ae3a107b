#ifndef CONTROLS_TRANSPARENTIMAGE_H
#define CONTROLS_TRANSPARENTIMAGE_H

#include <wx/bmpbndl.h>
#include <wx/statbmp.h>

namespace mfcutil
{

/// A picture that lies on the dialog's background without a fill of its own, as large as its control allows,
/// undistorted and sharp at every scale.
class CTransparentImage : public wxStaticBitmap
{
public:
    /// Shows a picture; an empty one shows nothing.
    void setPicture(const wxBitmapBundle& picture);

    bool AcceptsFocus() const override { return false; }

    wxDECLARE_DYNAMIC_CLASS(CTransparentImage);
};

} // namespace mfcutil

#endif
