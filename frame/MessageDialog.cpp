#include "frame/MessageDialog.h"
#include "frame/ControlId.h"
#include "frame/Translation.h"
#include "frame/native/NativeToolkit.h"

#include <tessaron/frame/DialogBase.h>

#include <wx/artprov.h>
#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace TessaronResources
{

namespace
{

constexpr int idText = 10;
constexpr int widestLine = 420;
constexpr int mostLines = 11; // a heading and ten names; more are scrolled

wxArtID artOf(MessageKind kind)
{
    switch (kind)
    {
    case MessageKind::information:
        return wxART_INFORMATION;
    case MessageKind::warning:
        return wxART_WARNING;
    case MessageKind::error:
        break;
    }
    return wxART_ERROR;
}

class MessageDialog : public DialogBase
{
public:
    MessageDialog(wxWindow* owner, const wxString& caption, const wxString& text, MessageKind kind, bool cancel)
    {
        if (!createBare(owner, caption))
            return;
        wxWindow* const message = text.Freq('\n') < mostLines ? wrapped(text) : scrolled(text);
        auto* const body = new wxBoxSizer(wxHORIZONTAL);
        const int gap = FromDIP(12);
        body->Add(new wxStaticBitmap(this, wxID_ANY, wxArtProvider::GetBitmapBundle(artOf(kind), wxART_MESSAGE_BOX)), 0,
                  wxALIGN_TOP | wxRIGHT, gap);
        body->Add(message, 1, wxALIGN_CENTRE_VERTICAL);
        auto* const buttons = new wxBoxSizer(wxHORIZONTAL);
        buttons->AddStretchSpacer();
        auto* const ok = new wxButton(this, idOk, translatedLabel("&OK"));
        ok->SetDefault();
        buttons->Add(ok);
        if (cancel)
            buttons->Add(new wxButton(this, idCancel, translatedLabel("&Cancel")), 0, wxLEFT, gap / 2);
        auto* const all = new wxBoxSizer(wxVERTICAL);
        all->Add(body, 1, wxEXPAND | wxALL, gap);
        all->Add(buttons, 0, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, gap);
        SetSizerAndFit(all);
        initialise();
        ok->SetFocus();
    }

private:
    wxWindow* wrapped(const wxString& text)
    {
        auto* const message = new wxStaticText(this, idText, wxControl::EscapeMnemonics(text));
        message->Wrap(FromDIP(widestLine));
        return message;
    }

    wxWindow* scrolled(const wxString& text)
    {
        const wxSize size(FromDIP(widestLine), (mostLines + 1) * GetCharHeight());
        auto* const message =
            new wxTextCtrl(this, idText, text, wxDefaultPosition, size, wxTE_MULTILINE | wxTE_READONLY | wxTE_BESTWRAP);
        native::setAccessibleName(*message, GetTitle());
        return message;
    }

    bool OnInitDialog() override
    {
        DialogBase::OnInitDialog();
        enableVisualManagerStyle();
        return false;
    }
};

} // namespace

void showMessage(wxWindow* owner, const wxString& caption, const wxString& text, MessageKind kind)
{
    MessageDialog(owner, caption, text, kind, false).ShowModal();
}

bool askOkCancel(wxWindow* owner, const wxString& caption, const wxString& text, MessageKind kind)
{
    return MessageDialog(owner, caption, text, kind, true).ShowModal() == idOk;
}

} // namespace TessaronResources
