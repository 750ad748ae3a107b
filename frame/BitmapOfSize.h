#ifndef FRAME_BITMAPOFSIZE_H
#define FRAME_BITMAPOFSIZE_H

#include <wx/bmpbndl.h>

namespace TessaronResources
{

/// A picture at a size in pixels, whatever size it was drawn for. The toolkit notes the ratio of the two in the bitmap,
/// which moves places within it and confuses sets of several sizes.
inline wxBitmap bitmapOfSize(const wxBitmapBundle& picture, const wxSize& pixels)
{
    wxBitmap bitmap = picture.GetBitmap(pixels);
    if (bitmap.IsOk())
        bitmap.SetScaleFactor(1);
    return bitmap;
}

} // namespace TessaronResources

#endif
