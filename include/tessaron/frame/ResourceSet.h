#ifndef TESSARON_FRAME_RESOURCESET_H
#define TESSARON_FRAME_RESOURCESET_H

// Stability: stable.

#include <wx/bmpbndl.h>
#include <wx/iconbndl.h>
#include <wx/string.h>

class wxDialog;
class wxPanel;
class wxWindow;

namespace TessaronResources
{

/// The numbered resources of one module: dialog templates, strings, pictures, icons. A module state points at one.
/// Derive from it to have the progress windows load from resources of your own (see setModuleState).
/// Called on the user-interface thread only, and only when the toolkit is up.
class ResourceSet
{
public:
    ResourceSet() = default;
    ResourceSet(const ResourceSet&) = delete;
    ResourceSet& operator=(const ResourceSet&) = delete;
    virtual ~ResourceSet() = default;

    /// Creates the window and the controls of a dialog template into `dialog`, which must not be created yet.
    /// \returns false when there is no such template.
    virtual bool loadDialog(wxDialog& dialog, wxWindow* parent, int templateId) const = 0;
    /// As loadDialog(), for a template that is a form inside a window. A set without forms need not override it.
    virtual bool loadForm(wxPanel& /*form*/, wxWindow* /*parent*/, int /*templateId*/) const { return false; }
    /// The text of the string table; empty when there is none of that id.
    virtual wxString string(int id) const = 0;
    /// A picture at every scale; not ok when there is none of that id.
    virtual wxBitmapBundle bitmap(int id) const = 0;
    /// A window icon in its usual sizes; empty when there is none of that id.
    virtual wxIconBundle icon(int id) const = 0;
};

} // namespace TessaronResources

#endif
