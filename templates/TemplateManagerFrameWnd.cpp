#include "templates/TemplateManagerFrameWnd.h"

#include "frame/CurrentModule.h"
#include "frame/HostWindows.h"
#include "frame/Translation.h"
#include "frame/looks/VisualManager.h"
#include "frame/native/NativeToolkit.h"
#include "templates/TemplateManagerFormView.h"
#include "templates/TemplateManagerRibbon.h"
#include <tessaron/frame/ResourceSet.h>

#include <wx/display.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>

namespace TessaronResources
{

namespace
{

constexpr int iconId = 1001;
constexpr int smallestWidth = 640;
constexpr int smallestHeight = 400;
constexpr int titleHeight = 32;
constexpr int noticeId = 1160;
constexpr int noticeMargin = 10;

} // namespace

TemplateManagerFrameWnd::TemplateManagerFrameWnd(wxWindow* owner, const TemplateManagerInputs& inputs)
    : wxFrame(owner, wxID_ANY, translatedLabel("Operation Template Manager"), wxDefaultPosition, wxDefaultSize,
              wxDEFAULT_FRAME_STYLE | (owner ? wxFRAME_FLOAT_ON_PARENT : 0)),
      m_form(new TemplateManagerFormView(*this, inputs)), m_owner(owner)
{
    detachFromOwner(*this);
    SetIcons(currentResources().icon(iconId));
    Bind(wxEVT_CLOSE_WINDOW, &TemplateManagerFrameWnd::onClose, this);
    Bind(wxEVT_CHAR_HOOK, &TemplateManagerFrameWnd::onCharHook, this);
    Bind(wxEVT_MENU,
         [this](wxCommandEvent& event)
         {
             if (!m_form->onCommand(event.GetId()))
                 event.Skip();
         });
}

bool TemplateManagerFrameWnd::initialUpdate()
{
    m_ribbon = new TemplateManagerRibbon(this);
    m_notice = new wxStaticText(this, noticeId, wxEmptyString, wxDefaultPosition, wxDefaultSize, wxST_ELLIPSIZE_END);
    m_notice->Hide();
    if (!m_form->setUp())
        return false;
    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(m_ribbon, 0, wxEXPAND);
    sizer->Add(m_form, 1, wxEXPAND);
    sizer->Add(m_notice, 0, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(noticeMargin));
    m_form->SetMinSize(wxSize(0, 0));
    SetSizer(sizer);

    // Room for the title as well.
    const wxWindow* const near = m_owner ? m_owner.get() : this;
    wxSize room = wxDisplay(near).GetClientArea().GetSize() - FromDIP(wxSize(0, titleHeight));
    SetMinSize(FromDIP(wxSize(smallestWidth, smallestHeight)));
    room.IncTo(GetMinSize());
    SetSize(wxSize(std::clamp(m_form->info().windowWidth, GetMinSize().x, room.x),
                   std::clamp(m_form->info().windowHeight, GetMinSize().y, room.y)));
    Layout();
    // Not every window of a host is the toolkit's and can be disabled.
    native::setModal(*this, true);
    Show();
    Raise();
    return true;
}

bool TemplateManagerFrameWnd::Show(bool show)
{
    // The size is stored with the definitions.
    if (show && !IsShown())
        m_place.comeUp(*this, "TemplateManager", WindowPlace::Keeps::place, m_owner);
    else if (!show && IsShown())
        m_place.keep(*this);
    return wxFrame::Show(show);
}

void TemplateManagerFrameWnd::applyLook()
{
    m_ribbon->applyLook();
    VisualManager::current().apply(*this);
    Layout();
    Refresh();
}

void TemplateManagerFrameWnd::setNotice(const wxString& text)
{
    m_notice->SetLabel(text);
    m_notice->SetToolTip(text);
    m_notice->Show(!text.empty());
    Layout();
}

void TemplateManagerFrameWnd::onClose(wxCloseEvent& event)
{
    // The entry point destroys the window once the result is there; until then it stays.
    if (event.CanVeto())
        event.Veto();
    m_form->finish(0);
}

void TemplateManagerFrameWnd::onCharHook(wxKeyEvent& event)
{
    const int command =
        event.GetModifiers() == wxMOD_ALT ? m_ribbon->commandOfAccessKey(event.GetKeyCode()) : wxID_NONE;
    if (event.GetKeyCode() == WXK_F10 && event.GetModifiers() == wxMOD_NONE)
        m_ribbon->showApplicationMenu();
    else if (command != wxID_NONE)
        m_form->onCommand(command);
    else if (!m_form->onKey(event.GetKeyCode(), event.GetModifiers()))
        event.Skip();
}

} // namespace TessaronResources
