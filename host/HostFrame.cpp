#include "host/HostFrame.h"

#include "host/Accessibility.h"
#include "host/FindingsList.h"
#include "host/HostMenus.h"
#include "host/Icons.h"
#include "host/PartView.h"
#include "host/SidePanel.h"
#include "host/ToolpathFiles.h"
#include <tessaron/util/Keys.h>

#include <wx/aboutdlg.h>
#include <wx/app.h>
#include <wx/dnd.h>
#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/infobar.h>
#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/sizer.h>
#include <wx/toolbar.h>
#include <wx/utils.h>

namespace host
{

namespace
{

constexpr char partFiles[] = "Parts (*.xml;*.bin)|*.xml;*.bin|All files|*";
constexpr char toolpathFiles[] = "Toolpaths (*.xml)|*.xml|All files|*";

// Room for the drawing on a small laptop.
const wxSize preferredSize(1280, 820);

std::string fileName(const std::string& path)
{
    return wxFileName(wxString::FromUTF8(path)).GetFullName().utf8_string();
}

class PartDrop : public wxFileDropTarget
{
public:
    explicit PartDrop(HostFrame& frame) : m_frame(frame) {}

    bool OnDropFiles(wxCoord, wxCoord, const wxArrayString& files) override
    {
        return !m_frame.runner().running() && m_frame.openPart(files[0].utf8_string());
    }

private:
    HostFrame& m_frame;
};

} // namespace

HostFrame::HostFrame(const Module& module, const std::string& samples, const std::string& templates)
    : wxFrame(nullptr, wxID_ANY, "Tessaron Host"), m_module(module), m_dialogs(module, templates), m_samples(samples)
{
    wxIconBundle icons;
    for (const int size : {16, 32, 48, 64})
        icons.AddIcon(icon(Icon::program).GetIcon(wxSize(size, size)));
    SetIcons(icons);

    m_bar = new wxInfoBar(this);
    m_view = new PartView(this);
    m_panel = new SidePanel(this);
    m_findings = new FindingsList(this);
    auto* const drawing = new wxBoxSizer(wxVERTICAL);
    drawing->Add(m_view, wxSizerFlags(1).Expand());
    drawing->Add(m_findings, wxSizerFlags().Expand());
    auto* const middle = new wxBoxSizer(wxHORIZONTAL);
    middle->Add(drawing, wxSizerFlags(1).Expand());
    middle->Add(m_panel, wxSizerFlags().Expand());
    auto* const all = new wxBoxSizer(wxVERTICAL);
    all->Add(m_bar, wxSizerFlags().Expand());
    all->Add(middle, wxSizerFlags(1).Expand());
    SetSizer(all);

    CreateStatusBar(2);
    const int widths[] = {-1, FromDIP(240)};
    SetStatusWidths(2, widths);
    buildMenus();
    addTools(*CreateToolBar(wxTB_HORIZONTAL | wxTB_FLAT | wxTB_HORZ_TEXT));

    m_view->onPointer = [this](const Point3* point)
    { SetStatusText(point ? wxString::Format("X %9.3f   Y %9.3f", (*point)[0], (*point)[1]) : wxString(), 1); };
    m_view->onTurned = [this] { GetToolBar()->ToggleTool(commandSide, true); };
    m_panel->onLevel = [this](int level) { showLevel(level); };
    m_panel->onRapids = [this](bool show)
    {
        m_showRapids = show;
        refresh();
    };
    m_findings->onPick = [this](const exchange::JobFinding& finding) { showFinding(finding); };
    m_view->SetDropTarget(new PartDrop(*this));
    Bind(wxEVT_CLOSE_WINDOW, &HostFrame::onClose, this);

    SetMinSize(FromDIP(wxSize(760, 480)));
    SetSize(FromDIP(preferredSize));
    refresh();
    m_view->SetFocus();
}

void HostFrame::command(int id, const std::function<void()>& action, const std::function<bool()>& possible)
{
    Bind(
        wxEVT_MENU, [action](wxCommandEvent&) { action(); }, id);
    if (possible)
        Bind(
            wxEVT_UPDATE_UI, [possible](wxUpdateUIEvent& event) { event.Enable(possible()); }, id);
}

void HostFrame::buildMenus()
{
    SetMenuBar(makeMenus());

    const auto idle = [this] { return !m_runner.running(); };
    const auto hasPart = [this] { return part() && !m_runner.running(); };
    command(
        wxID_OPEN, [this] { askForPart(); }, idle);
    command(
        commandOpenToolpath, [this] { askForToolpath(); }, hasPart);
    command(
        wxID_SAVE, [this] { askWhereToSave(); }, [this] { return toolpath() && !m_runner.running(); });
    command(wxID_EXIT, [this] { Close(); });
    command(
        commandGenerate, [this] { generate(); }, hasPart);
    command(
        commandCancel, [this] { m_runner.cancel(); }, [this] { return m_runner.running(); });
    for (int look = 0; look < lookCount; ++look)
        command(
            commandLooks + look, [this, look] { setProgressLook(static_cast<ProgressLook>(look)); }, idle);

    using Parameters = util::Parameterized;
    const struct
    {
        int id;
        bool present;
        bool (*change)(HostFrame&, Parameters&);
    } changes[] = {
        {commandChipThickness, m_module.chipControl != nullptr,
         [](HostFrame& frame, Parameters& parameters) { return frame.m_dialogs.chipThickness(parameters); }},
        {commandGougeCheck, m_module.gougeCheck != nullptr,
         [](HostFrame& frame, Parameters& parameters) { return frame.m_dialogs.gougeCheck(parameters); }},
        {commandSmartLink, m_module.smartLink != nullptr,
         [](HostFrame& frame, Parameters& parameters) { return frame.m_dialogs.smartLink(parameters); }},
        {commandLoadTemplate, m_module.loadTemplate != nullptr,
         [](HostFrame& frame, Parameters& parameters) { return frame.m_dialogs.loadTemplate(parameters, &frame); }},
        {commandSaveTemplate, m_module.saveTemplate != nullptr,
         [](HostFrame& frame, Parameters& parameters) { return frame.m_dialogs.saveTemplate(parameters, &frame); }},
    };
    for (const auto& entry : changes)
        command(
            entry.id, [this, change = entry.change] { changeParameters(change); },
            [hasPart, present = entry.present] { return present && hasPart(); });

    command(wxID_ZOOM_FIT, [this] { m_view->zoomToFit(); });
    command(wxID_ZOOM_IN, [this] { m_view->zoom(1.25); });
    command(wxID_ZOOM_OUT, [this] { m_view->zoom(0.8); });
    command(commandAbove, [this] { showFromAbove(true); });
    command(commandSide, [this] { showFromAbove(false); });
    command(wxID_ABOUT,
            [this]
            {
                wxAboutDialogInfo about;
                about.SetName("Tessaron Host");
                about.SetDescription("A small host that machines 2-D pockets with the Tessaron engine\nand shows its "
                                     "jobs through the Tessaron module.");
                about.SetIcon(icon(Icon::program).GetIcon(wxSize(64, 64)));
                wxAboutBox(about, this);
            });
}

bool HostFrame::attempt(const std::string& done, const std::function<void()>& action)
{
    const wxBusyCursor busy;
    try
    {
        action();
    }
    catch (const std::exception& error)
    {
        fail(error.what());
        return false;
    }
    clearFailure();
    SetStatusText(wxString::FromUTF8(done));
    return true;
}

bool HostFrame::openPart(const std::string& path)
{
    if (!attempt("Opened " + fileName(path), [&] { m_document.openPart(path); }))
        return false;
    showToolpath();
    m_view->zoomToFit();
    return true;
}

bool HostFrame::openToolpath(const std::string& path)
{
    if (!attempt("Opened " + fileName(path), [&] { m_document.openToolpath(path); }))
        return false;
    showToolpath();
    return true;
}

bool HostFrame::saveToolpath(const std::string& path)
{
    return attempt("Saved " + path, [&] { m_document.saveToolpath(path); });
}

int HostFrame::showProgress(int jobId)
{
    const std::string caption = "Generating toolpath \u2013 " + part()->name();
    switch (m_look)
    {
    case ProgressLook::milling:
        return m_module.progress(jobId, caption.c_str());
    case ProgressLook::turning:
        return m_module.turningProgress(jobId, caption.c_str());
    case ProgressLook::millingThreads:
        return m_module.multiProgress(jobId);
    case ProgressLook::turningThreads:
        return m_module.turningMultiProgress(jobId);
    }
    return 0;
}

JobOutcome HostFrame::generate()
{
    if (!part() || m_runner.running())
        return {};
    clearFailure();
    SetStatusText(L"Generating the toolpath\u2026");
    JobOutcome outcome = m_runner.run(part()->input, [this](int jobId) { return showProgress(jobId); });
    if (outcome.toolpath)
    {
        const wxBusyCursor busy;
        m_document.take(outcome);
        showToolpath();
    }
    showOutcome(outcome);
    if (m_closeAfterJob)
        CallAfter([this] { Close(); });
    return outcome;
}

void HostFrame::showOutcome(const JobOutcome& outcome)
{
    switch (outcome.state)
    {
    case exchange::JobState::finished:
        SetStatusText(wxString::Format("Toolpath generated in %s s", wxString::FromCDouble(outcome.seconds, 2)));
        break;
    case exchange::JobState::cancelled:
        SetStatusText(wxString::FromUTF8(outcome.text));
        break;
    case exchange::JobState::failed:
    case exchange::JobState::running:
    case exchange::JobState::unknown:
        fail("No toolpath for \"" + part()->fileName() + "\": " + outcome.text);
        break;
    }
}

void HostFrame::showToolpath()
{
    m_level = Scene::allLevels;
    m_place.reset();
    m_findings->show(m_document.findings());
    refresh();
}

void HostFrame::showFinding(const exchange::JobFinding& finding)
{
    m_place.reset();
    if (finding.hasPlace)
        m_place = Point3(finding.x, finding.y, part()->number(util::keys::topMaterialZ));
    refresh();
    if (m_place)
        m_view->showPlace(*m_place, part()->number(util::keys::toolDiameter, 1));
}

void HostFrame::refresh()
{
    Scene scene;
    scene.part = m_document.part();
    scene.toolpath = m_document.toolpath();
    scene.showRapids = m_showRapids;
    scene.level = m_level;
    scene.outdated = m_document.outdated();
    scene.place = m_place;
    m_panel->show(scene, m_document.seconds());
    m_view->setScene(scene);
    const wxString name = part() ? wxString::FromUTF8(part()->name()) : wxString("no part");
    setAccessible(*m_view, "Drawing of the part",
                  toolpath()
                      ? wxString::Format("%s with its toolpath in %zu depth levels", name, toolpath()->levels().size())
                      : name);
    SetTitle(part() ? name + wxString::FromUTF8(" \u2013 Tessaron Host") : wxString("Tessaron Host"));
}

void HostFrame::showFromAbove(bool fromAbove)
{
    GetToolBar()->ToggleTool(fromAbove ? commandAbove : commandSide, true);
    GetMenuBar()->Check(fromAbove ? commandAbove : commandSide, true);
    if (fromAbove)
        m_view->lookFromAbove();
    else
        m_view->lookFromSide();
}

void HostFrame::showLevel(int level)
{
    m_level = level;
    refresh();
}

void HostFrame::changeParameters(bool (*change)(HostFrame& frame, util::Parameterized& parameters))
{
    if (!m_document.changeParameters([&](util::Parameterized& parameters) { return change(*this, parameters); }))
        return;
    SetStatusText("The parameters have changed");
    refresh();
}

void HostFrame::askForPart()
{
    wxFileDialog dialog(this, "Open part", wxString::FromUTF8(m_samples), wxString(), partFiles,
                        wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    if (dialog.ShowModal() == wxID_OK)
        openPart(dialog.GetPath().utf8_string());
}

void HostFrame::askForToolpath()
{
    wxFileDialog dialog(this, "Open toolpath", wxString(), wxString(), toolpathFiles, wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    if (dialog.ShowModal() == wxID_OK)
        openToolpath(dialog.GetPath().utf8_string());
}

void HostFrame::askWhereToSave()
{
    const wxFileName file(wxString::FromUTF8(part()->path));
    wxFileDialog dialog(this, "Save toolpath as", wxString(), file.GetName() + ".ngc", saveFilters,
                        wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
    if (dialog.ShowModal() != wxID_OK)
        return;
    const wxString typed = dialog.GetPath();
    const wxString path = wxString::FromUTF8(withEnding(typed.utf8_string(), dialog.GetFilterIndex()));
    // The dialog has asked about the name as it was typed.
    if (path != typed && wxFileName::FileExists(path) &&
        wxMessageBox("\"" + path + "\" is there already. Replace it?", "Save toolpath as", wxYES_NO | wxICON_QUESTION,
                     this) != wxYES)
        return;
    saveToolpath(path.utf8_string());
}

void HostFrame::onClose(wxCloseEvent& event)
{
    if (m_runner.running() && event.CanVeto())
    {
        // The call that shows the progress stands on the stack of this one: close when it has returned.
        m_closeAfterJob = true;
        m_runner.cancel();
        event.Veto();
        return;
    }
    event.Skip();
}

void HostFrame::fail(const std::string& text)
{
    m_failure = text;
    m_bar->ShowMessage(wxString::FromUTF8(text), wxICON_ERROR);
    SetStatusText(wxString());
}

void HostFrame::clearFailure()
{
    m_failure.clear();
    m_bar->Dismiss();
}

} // namespace host
