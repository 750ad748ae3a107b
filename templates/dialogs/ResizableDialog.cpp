#include "templates/dialogs/ResizableDialog.h"

#include "frame/CurrentModule.h"
#include "frame/native/NativeToolkit.h"
#include <tessaron/frame/ResourceSet.h>

#include <wx/bmpbuttn.h>

namespace TessaronResources
{

void ResizableDialog::setImage(int id, int bitmapId, const wxString& name)
{
    if (auto* const button = dynamic_cast<wxBitmapButton*>(control(id)))
    {
        const wxSize size = button->GetSize();
        button->SetBitmap(currentResources().bitmap(bitmapId));
        button->SetSize(size);
        native::setAccessibleName(*button, name);
    }
}

} // namespace TessaronResources
