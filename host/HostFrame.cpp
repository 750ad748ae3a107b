#include "host/HostFrame.h"

#include "host/Accessibility.h"
#include "host/Icons.h"
#include "host/PartView.h"
#include "host/SidePanel.h"
#include <tessaron/exchange/Archives.h>
#include <tessaron/util/Keys.h>

#include <boost/make_shared.hpp>

#include <wx/aboutdlg.h>
#include <wx/app.h>
#include <wx/dnd.h>
#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/infobar.h>
#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/toolbar.h>
#include <wx/utils.h>

namespace host
{

namespace
{

enum Command
{
    commandOpenToolpath = wxID_HIGHEST + 1,
    commandGenerate,
    commandCancel,
    commandLooks, // one for each look
    commandChipThickness = commandLooks + 4,
    commandGougeCheck,
    commandSmartLink,
    commandLoadTemplate,
    commandSaveTemplate,
    commandAbove,
    commandSide,
};

constexpr double defaultRapidRate = 10000;
constexpr char partFiles[] = "Parts (*.xml;*.bin)|*.xml;*.bin|All files|*";
constexpr char toolpathFiles[] = "Toolpaths (*.xml)|*.xml|All files|*";

// Room for the drawing on a small laptop.
const wxSize preferredSize(1280, 820);

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
    auto* const middle = new wxBoxSizer(wxHORIZONTAL);
    middle->Add(m_view, wxSizerFlags(1).Expand());
    middle->Add(m_panel, wxSizerFlags().Expand());
    auto* const all = new wxBoxSizer(wxVERTICAL);
    all->Add(m_bar, wxSizerFlags().Expand());
    all->Add(middle, wxSizerFlags(1).Expand());
    SetSizer(all);

    CreateStatusBar(2);
    const int widths[] = {-1, FromDIP(240)};
    SetStatusWidths(2, widths);
    buildMenus();
    buildTools();

    m_view->onPointer = [this](const Point3* point)
    { SetStatusText(point ? wxString::Format("X %9.3f   Y %9.3f", (*point)[0], (*point)[1]) : wxString(), 1); };
    m_view->onTurned = [this] { GetToolBar()->ToggleTool(commandSide, true); };
    m_panel->onLevel = [this](int level) { showLevel(level); };
    m_panel->onRapids = [this](bool show)
    {
        m_showRapids = show;
        refresh();
    };
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
    auto* const file = new wxMenu;
    file->Append(wxID_OPEN, L"&Open part\u2026\tCtrl+O", "Open a part to machine");
    file->Append(commandOpenToolpath, L"Open &toolpath\u2026\tCtrl+T", "Show a saved toolpath over the part");
    file->Append(wxID_SAVE, L"&Save toolpath\u2026\tCtrl+S", "Save the toolpath as an XML archive");
    file->AppendSeparator();
    file->Append(wxID_EXIT, "&Quit\tCtrl+Q", "Leave the program");

    auto* const looks = new wxMenu;
    const char* const lookNames[] = {"&Milling", "&Turning", "M&illing, with threads", "Tu&rning, with threads"};
    for (int look = 0; look < static_cast<int>(std::size(lookNames)); ++look)
        looks->AppendRadioItem(commandLooks + look, lookNames[look], "Which window of the module shows the progress");

    auto* const job = new wxMenu;
    job->Append(commandGenerate, "&Generate toolpath\tF5", "Compute the toolpath of the part");
    job->Append(commandCancel, "&Cancel job\tShift+F5", "Stop computing");
    job->AppendSeparator();
    job->AppendSubMenu(looks, "&Progress window");

    auto* const machining = new wxMenu;
    machining->Append(commandChipThickness, L"&Chip thickness\u2026\tCtrl+K", "Balance speed, feed and stepover");
    machining->Append(commandGougeCheck, L"&Gouge check\u2026", "Choose what is checked for collisions");
    machining->Append(commandSmartLink, L"&SmartLink\u2026", "Choose how the pieces of a toolpath are linked");
    machining->AppendSeparator();
    machining->Append(commandLoadTemplate, L"&Load template\u2026\tCtrl+L",
                      "Take the parameters of a stored operation");
    machining->Append(commandSaveTemplate, L"S&ave as template\u2026", "Store the parameters of this operation");

    auto* const view = new wxMenu;
    view->Append(wxID_ZOOM_FIT, "&Zoom to fit\tCtrl+0", "Show all of the part");
    view->Append(wxID_ZOOM_IN, "Zoom &in\tCtrl++", "Show less, larger");
    view->Append(wxID_ZOOM_OUT, "Zoom &out\tCtrl+-", "Show more, smaller");
    view->AppendSeparator();
    view->AppendRadioItem(commandAbove, "From &above\tCtrl+1", "Look at the part from above");
    view->AppendRadioItem(commandSide, "From the &side\tCtrl+2", "Look at the part and its depth levels from a side");

    auto* const help = new wxMenu;
    help->Append(wxID_ABOUT, "&About", "About this program");

    auto* const bar = new wxMenuBar;
    bar->Append(file, "&File");
    bar->Append(job, "&Job");
    bar->Append(machining, "&Machining");
    bar->Append(view, "&View");
    bar->Append(help, "&Help");
    SetMenuBar(bar);

    const auto idle = [this] { return !m_runner.running(); };
    const auto hasPart = [this] { return m_part && !m_runner.running(); };
    command(
        wxID_OPEN, [this] { askForPart(); }, idle);
    command(
        commandOpenToolpath, [this] { askForToolpath(); }, hasPart);
    command(
        wxID_SAVE, [this] { askWhereToSave(); }, [this] { return m_records && !m_runner.running(); });
    command(wxID_EXIT, [this] { Close(); });
    command(
        commandGenerate, [this] { generate(); }, hasPart);
    command(
        commandCancel, [this] { m_runner.cancel(); }, [this] { return m_runner.running(); });
    for (int look = 0; look < static_cast<int>(std::size(lookNames)); ++look)
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

void HostFrame::buildTools()
{
    wxToolBar* const bar = CreateToolBar(wxTB_HORIZONTAL | wxTB_FLAT | wxTB_HORZ_TEXT);
    bar->SetToolBitmapSize(FromDIP(wxSize(24, 24)));
    bar->AddTool(wxID_OPEN, "Open", icon(Icon::open), "Open a part (Ctrl+O)");
    bar->AddTool(wxID_SAVE, "Save toolpath", icon(Icon::save), "Save the toolpath (Ctrl+S)");
    bar->AddSeparator();
    bar->AddTool(commandGenerate, "Generate toolpath", icon(Icon::generate), "Compute the toolpath (F5)");
    bar->AddTool(commandCancel, "Cancel", icon(Icon::stop), "Stop computing (Shift+F5)");
    bar->AddSeparator();
    bar->AddRadioTool(commandAbove, "Above", icon(Icon::above), wxNullBitmap, "Look from above (Ctrl+1)");
    bar->AddRadioTool(commandSide, "Side", icon(Icon::side), wxNullBitmap, "Look from a side (Ctrl+2)");
    bar->AddTool(wxID_ZOOM_FIT, "Fit", icon(Icon::fit), "Show all of the part (Ctrl+0)");
    bar->Realize();
}

bool HostFrame::openPart(const std::string& path)
{
    try
    {
        auto part = std::make_shared<Part>(loadPart(path));
        clearFailure();
        m_part = std::move(part);
        setToolpath({}, 0);
        m_view->zoomToFit();
        SetStatusText(wxString::FromUTF8("Opened " + m_part->fileName()));
        return true;
    }
    catch (const PartError& error)
    {
        fail(error.what());
        return false;
    }
}

bool HostFrame::openToolpath(const std::string& path)
{
    const auto records = boost::make_shared<exchange::ToolpathRecords>();
    try
    {
        exchange::readArchiveFile(path, *records);
    }
    catch (const exchange::ArchiveFileError& error)
    {
        fail(error.what());
        return false;
    }
    clearFailure();
    setToolpath(records, 0);
    SetStatusText(wxString::FromUTF8("Opened " + path));
    return true;
}

bool HostFrame::saveToolpath(const std::string& path)
{
    const wxBusyCursor busy;
    try
    {
        exchange::writeArchiveFile(path, *m_records);
    }
    catch (const exchange::ArchiveFileError& error)
    {
        fail(error.what());
        return false;
    }
    clearFailure();
    SetStatusText(wxString::FromUTF8("Saved " + path));
    return true;
}

int HostFrame::showProgress(int jobId)
{
    const std::string caption = "Generating toolpath \u2013 " + m_part->name();
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
    if (!m_part || m_runner.running())
        return {};
    clearFailure();
    SetStatusText(L"Generating the toolpath\u2026");
    JobOutcome outcome = m_runner.run(m_part->input, [this](int jobId) { return showProgress(jobId); });
    if (outcome.toolpath)
    {
        const wxBusyCursor busy;
        setToolpath(outcome.toolpath, outcome.seconds);
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
        if (!outcome.text.empty())
            m_bar->ShowMessage(wxString::FromUTF8(outcome.text), wxICON_WARNING);
        break;
    case exchange::JobState::cancelled:
        SetStatusText(wxString::FromUTF8(outcome.text));
        break;
    case exchange::JobState::failed:
    case exchange::JobState::running:
    case exchange::JobState::unknown:
        fail("No toolpath for \"" + m_part->fileName() + "\": " + outcome.text);
        break;
    }
}

void HostFrame::setToolpath(boost::shared_ptr<const exchange::ToolpathRecords> records, double seconds)
{
    m_records = std::move(records);
    m_seconds = seconds;
    m_outdated = false;
    m_level = Scene::allLevels;
    m_model.reset();
    if (m_records)
        m_model =
            std::make_shared<ToolpathModel>(*m_records, m_part->number(util::keys::xyRapidFeedRate, defaultRapidRate));
    refresh();
}

void HostFrame::refresh()
{
    Scene scene;
    scene.part = m_part;
    scene.toolpath = m_model;
    scene.showRapids = m_showRapids;
    scene.level = m_level;
    scene.outdated = m_outdated;
    m_panel->show(scene, m_seconds);
    m_view->setScene(scene);
    const wxString name = m_part ? wxString::FromUTF8(m_part->name()) : wxString("no part");
    setAccessible(*m_view, "Drawing of the part",
                  m_model ? wxString::Format("%s with its toolpath in %zu depth levels", name, m_model->levels().size())
                          : name);
    SetTitle(m_part ? name + wxString::FromUTF8(" \u2013 Tessaron Host") : wxString("Tessaron Host"));
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
    // The windows that show the part must not see it change under them.
    auto part = std::make_shared<Part>(*m_part);
    if (!change(*this, part->input.parameters))
        return;
    m_part = std::move(part);
    m_outdated = m_records != nullptr;
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
    const wxFileName part(wxString::FromUTF8(m_part->path));
    wxFileDialog dialog(this, "Save toolpath", wxString(), part.GetName() + "-toolpath.xml", toolpathFiles,
                        wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
    if (dialog.ShowModal() == wxID_OK)
        saveToolpath(dialog.GetPath().utf8_string());
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
