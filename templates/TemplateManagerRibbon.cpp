#include "templates/TemplateManagerRibbon.h"

#include "frame/BitmapOfSize.h"
#include "frame/CurrentModule.h"
#include "frame/Translation.h"
#include "frame/looks/RibbonArt.h"
#include "frame/looks/VisualManager.h"
#include "frame/native/NativeLoop.h"
#include "frame/native/NativeToolkit.h"
#include "templates/TemplateManagerIds.h"
#include <tessaron/frame/ResourceSet.h>

#include <wx/menu.h>
#include <wx/ribbon/art.h>
#include <wx/ribbon/buttonbar.h>
#include <wx/ribbon/page.h>
#include <wx/ribbon/panel.h>

namespace TessaronResources
{

namespace
{

constexpr int ribbonId = controlId(59398);

// A picture that holds several images of one size side by side.
struct ImageList
{
    int id;
    int edge;
    int count;
};

constexpr ImageList largeImages{1041, 32, 5};
constexpr ImageList smallImages{1042, 16, 5};
constexpr int preferencesImage = 3;
constexpr int exitImage = 4;

struct RibbonButton
{
    const char* panel;
    int command;
    const char* caption;
    const ImageList& images;
    int image;
    const char* help;
};

const RibbonButton buttons[] = {
    {translatable("Sorting"), templateCommand::sortAscending, "", smallImages, 1,
     translatable("Sort by the current column, smallest first")},
    {translatable("Sorting"), templateCommand::sortDescending, "", smallImages, 2,
     translatable("Sort by the current column, largest first")},
    {translatable("Sorting"), templateCommand::sort, translatable("Sort"), largeImages, 0,
     translatable("Sort by several columns")},
    {translatable("Search"), templateCommand::find, translatable("&Find"), largeImages, 2,
     translatable("Find a text in the grid (Ctrl+F)")},
    {translatable("Sharing"), templateCommand::importTemplates, translatable("&Import"), largeImages, 4,
     translatable("Take templates in from files")},
    {translatable("Sharing"), templateCommand::exportTemplates, translatable("&Export"), largeImages, 3,
     translatable("Write these templates into a file")},
};

wxBitmap imageOf(const ImageList& list, int index, const wxWindow& window)
{
    const int edge = window.FromDIP(list.edge);
    const wxBitmap all = bitmapOfSize(currentResources().bitmap(list.id), wxSize(edge * list.count, edge));
    return all.IsOk() ? all.GetSubBitmap(wxRect(edge * index, 0, edge, edge)) : all;
}

/// A part of the ribbon that leaves the focus where it is when it is clicked.
template <class Part>
class Unfocused : public Part
{
public:
    using Part::Part;
    bool AcceptsFocus() const override { return false; }
};

} // namespace

TemplateManagerRibbon::TemplateManagerRibbon(wxWindow* parent)
    : wxRibbonBar(parent, ribbonId, wxDefaultPosition, wxDefaultSize,
                  wxRIBBON_BAR_FLOW_HORIZONTAL | wxRIBBON_BAR_SHOW_PAGE_LABELS | wxRIBBON_BAR_ALWAYS_SHOW_TABS)
{
    addApplicationButton();
    addHome();
    SetTabCtrlMargins(0, FromDIP(20));
    applyLook();
    SetActivePage(1);
    native::setAccessibleName(*this, translatedLabel("Ribbon"));
    Bind(wxEVT_RIBBONBAR_PAGE_CHANGING, &TemplateManagerRibbon::onPageChanging, this);
}

void TemplateManagerRibbon::addApplicationButton()
{
    new Unfocused<wxRibbonPage>(this, applicationTabId, translatedLabel("File"));
}

void TemplateManagerRibbon::addHome()
{
    auto* const home = new Unfocused<wxRibbonPage>(this, wxID_ANY, translatedLabel("Home"));
    wxRibbonPanel* panel = nullptr;
    wxRibbonButtonBar* bar = nullptr;
    for (const RibbonButton& button : buttons)
    {
        if (!panel || panel->GetLabel() != translatedLabel(button.panel))
        {
            panel = new Unfocused<wxRibbonPanel>(home, wxID_ANY, translatedLabel(button.panel), wxNullBitmap,
                                                 wxDefaultPosition, wxDefaultSize, wxRIBBON_PANEL_NO_AUTO_MINIMISE);
            bar = new Unfocused<wxRibbonButtonBar>(panel);
        }
        const bool isSmall = &button.images == &smallImages;
        const wxBitmap image = imageOf(button.images, button.image, *this);
        // The bar wants both sizes of every button, also of one that it only ever shows small.
        const ImageList other{button.images.id, isSmall ? largeImages.edge : smallImages.edge, button.images.count};
        const wxBitmap otherImage = imageOf(other, button.image, *this);
        bar->AddButton(button.command, wxStripMenuCodes(translatedLabel(button.caption)), isSmall ? otherImage : image,
                       isSmall ? image : otherImage, wxNullBitmap, wxNullBitmap, wxRIBBON_BUTTON_NORMAL,
                       translatedLabel(button.help));
        if (isSmall)
        {
            // The toolkit's art draws a small picture with its caption beside it, which is empty here; of a button of
            // its smallest size it draws nothing.
            bar->SetButtonMaxSizeClass(button.command, wxRIBBON_BUTTONBAR_BUTTON_MEDIUM);
            bar->SetButtonMinSizeClass(button.command, wxRIBBON_BUTTONBAR_BUTTON_MEDIUM);
        }
        bar->Bind(
            wxEVT_RIBBONBUTTONBAR_CLICKED,
            [this](wxRibbonButtonBarEvent& event)
            {
                wxCommandEvent command(wxEVT_MENU, event.GetId());
                command.SetEventObject(this);
                GetParent()->GetEventHandler()->AddPendingEvent(command);
            },
            button.command);
    }
}

void TemplateManagerRibbon::applyLook()
{
    SetArtProvider(VisualManager::current().makeRibbonArt().release());
    Realize();
    Refresh();
}

int TemplateManagerRibbon::commandOfAccessKey(int key)
{
    for (const RibbonButton& button : buttons)
    {
        const wxString caption = translatedLabel(button.caption);
        const std::size_t mark = caption.find('&');
        if (mark != wxString::npos && mark + 1 < caption.size() && wxToupper(caption[mark + 1]) == wxUniChar(key))
            return button.command;
    }
    return wxID_NONE;
}

void TemplateManagerRibbon::onPageChanging(wxRibbonBarEvent& event)
{
    if (event.GetPage()->GetId() != applicationTabId)
    {
        event.Skip();
        return;
    }
    event.Veto();
    CallAfter(&TemplateManagerRibbon::showApplicationMenu);
}

void TemplateManagerRibbon::showApplicationMenu()
{
    wxMenu menu;
    const struct
    {
        int command;
        const char* caption;
        int image;
    } entries[] = {{templateCommand::preferences, translatable("Preferences"), preferencesImage},
                   {templateCommand::exit, translatable("Exit"), exitImage}};
    for (const auto& entry : entries)
    {
        auto* const item = new wxMenuItem(&menu, entry.command, translatedLabel(entry.caption));
        item->SetBitmap(imageOf(smallImages, entry.image, *this));
        menu.Append(item);
    }
    const int tabHeight = GetPage(1)->GetPosition().y;
    const int chosen = native::chooseFromMenu(*this, menu, wxPoint(0, tabHeight));
    if (chosen == wxID_NONE)
        return;
    wxCommandEvent command(wxEVT_MENU, chosen);
    command.SetEventObject(this);
    GetParent()->GetEventHandler()->AddPendingEvent(command);
}

} // namespace TessaronResources
