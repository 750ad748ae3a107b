#include "tests/tour/Screenshot.h"

#include <wx/bitmap.h>
#include <wx/dcmemory.h>
#include <wx/dcscreen.h>
#include <wx/graphics.h>

#include <cairo.h>

namespace tour
{

bool saveScreenshot(const wxRect& area, const std::string& path)
{
    wxBitmap bitmap(area.GetSize());
    wxScreenDC screen;
    // The drawing library remembers what it once read of the screen, unless it is told that others draw there.
    auto* const context = static_cast<cairo_t*>(screen.GetGraphicsContext()->GetNativeContext());
    cairo_surface_flush(cairo_get_target(context));
    cairo_surface_mark_dirty(cairo_get_target(context));
    wxMemoryDC memory(bitmap);
    memory.Blit(wxPoint(0, 0), area.GetSize(), &screen, area.GetTopLeft());
    memory.SelectObject(wxNullBitmap);
    return bitmap.SaveFile(wxString::FromUTF8(path), wxBITMAP_TYPE_PNG);
}

} // namespace tour
