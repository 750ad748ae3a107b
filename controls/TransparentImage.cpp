#include "controls/TransparentImage.h"

#include "frame/BitmapOfSize.h"

#include <algorithm>

namespace mfcutil
{

wxIMPLEMENT_DYNAMIC_CLASS(CTransparentImage, wxStaticBitmap);

void CTransparentImage::setPicture(const wxBitmapBundle& picture)
{
    if (!picture.IsOk())
        return;
    const wxSize drawn = picture.GetDefaultSize();
    const wxSize room = GetSize();
    const double scale = std::min(static_cast<double>(room.x) / drawn.x, static_cast<double>(room.y) / drawn.y);
    const wxSize shown(std::max(1, static_cast<int>(drawn.x * scale)), std::max(1, static_cast<int>(drawn.y * scale)));
    const double pixels = GetContentScaleFactor();
    const wxBitmap normal = TessaronResources::bitmapOfSize(picture, shown);
    SetBitmap(pixels > 1 ? wxBitmapBundle::FromBitmaps(normal, TessaronResources::bitmapOfSize(picture, shown * pixels))
                         : wxBitmapBundle(normal));
    SetSize(wxRect(GetPosition(), room));
}

} // namespace mfcutil
