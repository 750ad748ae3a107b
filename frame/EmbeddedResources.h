#ifndef FRAME_EMBEDDEDRESOURCES_H
#define FRAME_EMBEDDEDRESOURCES_H

#include <tessaron/frame/ResourceSet.h>

#include <memory>
#include <set>

class wxXmlResource;

namespace TessaronResources
{

/// The module's own resources, which are part of the library file. Nothing is parsed before it is asked for.
class EmbeddedResources : public ResourceSet
{
public:
    EmbeddedResources();
    ~EmbeddedResources() override;

    bool loadDialog(wxDialog& dialog, wxWindow* parent, int templateId) const override;
    bool loadForm(wxPanel& form, wxWindow* parent, int templateId) const override;
    wxString string(int id) const override;
    wxBitmapBundle bitmap(int id) const override;
    wxIconBundle icon(int id) const override;

private:
    bool readTemplate(int templateId) const;

    mutable std::unique_ptr<wxXmlResource> m_templates;
    mutable std::set<int> m_loadedTemplates; // by id: a template may hold a control of another template's number
};

} // namespace TessaronResources

#endif
