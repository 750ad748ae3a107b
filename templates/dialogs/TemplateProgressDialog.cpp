#include "templates/dialogs/TemplateProgressDialog.h"

#include "frame/ControlId.h"
#include "frame/MessagePump.h"
#include "frame/native/FocusReturn.h"
#include <tessaron/frame/DialogBase.h>

#include <wx/button.h>
#include <wx/gauge.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/utils.h>

#include <chrono>
#include <optional>

namespace TessaronResources
{

namespace
{

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds moment{1000};
constexpr std::chrono::milliseconds betweenLooks{50};
constexpr int barWidth = 320;

wxString leftText(std::size_t left)
{
    return wxString::FromUTF8(translatedWith("Files left: %s", std::to_string(left)));
}

class ProgressWindow : public DialogBase
{
public:
    ProgressWindow(wxWindow& owner, const wxString& caption, std::size_t files) : m_files(files)
    {
        if (!createBare(&owner, caption))
            return;
        const int gap = FromDIP(12);
        m_text = new wxStaticText(this, wxID_ANY, leftText(files));
        m_bar = new wxGauge(this, wxID_ANY, static_cast<int>(files), wxDefaultPosition, FromDIP(wxSize(barWidth, -1)),
                            wxGA_HORIZONTAL | wxGA_SMOOTH);
        auto* const all = new wxBoxSizer(wxVERTICAL);
        all->Add(m_text, 0, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, gap);
        all->Add(m_bar, 0, wxEXPAND | wxALL, gap);
        all->Add(new wxButton(this, idCancel, translatedLabel("&Cancel")), 0,
                 wxALIGN_RIGHT | wxLEFT | wxRIGHT | wxBOTTOM, gap);
        SetSizerAndFit(all);
        initialise();
        enableVisualManagerStyle();
        Show();
        Raise();
    }

    void show(std::size_t done)
    {
        if (!m_bar || m_bar->GetValue() == static_cast<int>(done))
            return;
        m_bar->SetValue(static_cast<int>(done));
        m_text->SetLabel(leftText(m_files - done));
    }
    bool isCancelled() const { return m_cancelled; }

private:
    void OnOK() override {}
    void OnCancel() override { m_cancelled = true; }

    std::size_t m_files;
    wxStaticText* m_text = nullptr;
    wxGauge* m_bar = nullptr;
    bool m_cancelled = false;
};

class WindowProgress : public TemplateProgress
{
public:
    WindowProgress(wxWindow& owner, const wxString& caption, std::size_t files)
        : m_owner(owner), m_caption(caption), m_files(files)
    {
    }

    bool goesOn(std::size_t done) override
    {
        const Clock::time_point now = Clock::now();
        if (now < m_nextLook || m_cancelled)
            return !m_cancelled;
        if (!m_shown)
            m_shown.emplace(m_owner, m_caption, m_files);
        m_shown->window.show(done);
        if (m_shown->pump.pump())
        {
            m_shown->pump.repostQuit();
            m_cancelled = true;
        }
        MessagePump::processToolkitIdle();
        m_cancelled = m_cancelled || m_shown->window.isCancelled();
        m_nextLook = Clock::now() + betweenLooks;
        return !m_cancelled;
    }

private:
    struct Shown
    {
        Shown(wxWindow& owner, const wxString& caption, std::size_t files)
            : window(owner, caption, files), othersDisabled(&window)
        {
        }
        MessagePump pump;
        native::FocusReturn focus;
        ProgressWindow window;
        wxWindowDisabler othersDisabled;
    };

    wxWindow& m_owner;
    wxString m_caption;
    std::size_t m_files;
    Clock::time_point m_nextLook = Clock::now() + moment;
    std::optional<Shown> m_shown;
    bool m_cancelled = false;
};

} // namespace

std::unique_ptr<TemplateProgress> showTemplateProgress(wxWindow& owner, const wxString& caption, std::size_t files)
{
    return std::make_unique<WindowProgress>(owner, caption, files);
}

} // namespace TessaronResources
