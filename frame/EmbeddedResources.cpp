#include "frame/EmbeddedResources.h"

#include "frame/Translation.h"
#include "resources/EmbeddedFile.h"
#include "resources/StringTable.h"

#include <wx/dialog.h>
#include <wx/icon.h>
#include <wx/log.h>
#include <wx/mstream.h>
#include <wx/xml/xml.h>
#include <wx/xrc/xh_bmpbt.h>
#include <wx/xrc/xh_bttn.h>
#include <wx/xrc/xh_chckb.h>
#include <wx/xrc/xh_chckl.h>
#include <wx/xrc/xh_choic.h>
#include <wx/xrc/xh_combo.h>
#include <wx/xrc/xh_dlg.h>
#include <wx/xrc/xh_gauge.h>
#include <wx/xrc/xh_panel.h>
#include <wx/xrc/xh_radbt.h>
#include <wx/xrc/xh_slidr.h>
#include <wx/xrc/xh_stbmp.h>
#include <wx/xrc/xh_stbox.h>
#include <wx/xrc/xh_sttxt.h>
#include <wx/xrc/xh_text.h>
#include <wx/xrc/xh_unkwn.h>
#include <wx/xrc/xmlres.h>

#include <charconv>
#include <set>
#include <string>
#include <string_view>

namespace TessaronResources
{

namespace
{

using resources::EmbeddedFile;

const EmbeddedFile* findPicture(const char* kind, int id)
{
    return resources::findEmbeddedFile(kind + std::to_string(id) + ".svg");
}

// The size that a picture was drawn for, from the attributes of its root element.
int drawnLength(std::string_view svg, std::string_view attribute)
{
    const std::size_t root = svg.find("<svg");
    const std::size_t at = svg.find(attribute, root == std::string_view::npos ? 0 : root);
    int length = 0;
    if (at != std::string_view::npos)
        std::from_chars(svg.data() + at + attribute.size(), svg.data() + svg.size(), length);
    return length;
}

wxBitmapBundle loadPicture(const EmbeddedFile& file)
{
    const wxSize size(drawnLength(file.text(), " width=\""), drawnLength(file.text(), " height=\""));
    return wxBitmapBundle::FromSVG(file.data, file.size, size);
}

// Makes the classes that a template names. In a host that ran the toolkit before it loaded this library, the resource
// library has no such factory of its own, and takes for granted that it has.
class ClassFactory : public wxXmlSubclassFactory
{
public:
    wxObject* Create(const wxString& className) override
    {
        const wxClassInfo* const info = wxClassInfo::FindClass(className);
        return info ? info->CreateObject() : nullptr;
    }
};

void addHandlers(wxXmlResource& templates)
{
    wxXmlResource::AddSubclassFactory(new ClassFactory);
    for (wxXmlResourceHandler* const handler : std::initializer_list<wxXmlResourceHandler*>{
             new wxDialogXmlHandler, new wxButtonXmlHandler, new wxBitmapButtonXmlHandler, new wxCheckBoxXmlHandler,
             new wxCheckListBoxXmlHandler, new wxChoiceXmlHandler, new wxComboBoxXmlHandler, new wxGaugeXmlHandler,
             new wxPanelXmlHandler, new wxRadioButtonXmlHandler, new wxSliderXmlHandler, new wxStaticBitmapXmlHandler,
             new wxStaticBoxXmlHandler, new wxStaticTextXmlHandler, new wxTextCtrlXmlHandler,
             new wxUnknownWidgetXmlHandler})
        templates.AddHandler(handler);
}

// The toolkit would ask the host's translations.
void translate(wxXmlNode& element)
{
    static const std::set<wxString> texts{"item", "label", "title", "tooltip"};
    if (wxXmlNode* const content = element.GetChildren();
        content && content->GetType() == wxXML_TEXT_NODE && texts.count(element.GetName()) != 0)
        content->SetContent(translatedLabel(content->GetContent().utf8_str()));
    for (wxXmlNode* child = element.GetChildren(); child; child = child->GetNext())
        translate(*child);
}

wxString templateName(int templateId)
{
    return wxString::Format("%d", templateId);
}

} // namespace

EmbeddedResources::EmbeddedResources() = default;
EmbeddedResources::~EmbeddedResources() = default;

// Reads a template unless it has been read already. Whether it is there.
bool EmbeddedResources::readTemplate(int templateId) const
{
    if (m_loadedTemplates.contains(templateId))
        return true;
    const std::string fileName = "dialog" + std::to_string(templateId) + ".xrc";
    const EmbeddedFile* const file = resources::findEmbeddedFile(fileName);
    if (!file)
        return false;
    if (!m_templates)
    {
        m_templates = std::make_unique<wxXmlResource>(wxXRC_NO_RELOADING);
        addHandlers(*m_templates);
    }
    wxMemoryInputStream stream(file->data, file->size);
    auto document = std::make_unique<wxXmlDocument>();
    if (!document->Load(stream))
        return false;
    translate(*document->GetRoot());
    if (!m_templates->LoadDocument(document.release(), fileName))
        return false;
    m_loadedTemplates.insert(templateId);
    return true;
}

bool EmbeddedResources::loadDialog(wxDialog& dialog, wxWindow* parent, int templateId) const
{
    const wxLogNull quiet;
    return readTemplate(templateId) && m_templates->LoadDialog(&dialog, parent, templateName(templateId));
}

bool EmbeddedResources::loadForm(wxPanel& form, wxWindow* parent, int templateId) const
{
    const wxLogNull quiet;
    return readTemplate(templateId) && m_templates->LoadPanel(&form, parent, templateName(templateId));
}

wxString EmbeddedResources::string(int id) const
{
    return translatedLabel(resources::stringText(id));
}

wxBitmapBundle EmbeddedResources::bitmap(int id) const
{
    const EmbeddedFile* const file = findPicture("bitmap", id);
    return file ? loadPicture(*file) : wxBitmapBundle();
}

wxIconBundle EmbeddedResources::icon(int id) const
{
    wxIconBundle icons;
    if (const EmbeddedFile* const file = findPicture("icon", id))
    {
        const wxBitmapBundle picture = loadPicture(*file);
        for (const int edge : {16, 24, 32, 48, 64})
        {
            wxIcon icon;
            icon.CopyFromBitmap(picture.GetBitmap(wxSize(edge, edge)));
            icons.AddIcon(icon);
        }
    }
    return icons;
}

} // namespace TessaronResources
