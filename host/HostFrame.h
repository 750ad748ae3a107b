#ifndef HOST_HOSTFRAME_H
#define HOST_HOSTFRAME_H

#include "host/Document.h"
#include "host/JobRunner.h"
#include "host/ModuleLibrary.h"
#include "host/ParameterDialogs.h"

#include <wx/frame.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

class wxInfoBar;

namespace host
{

class FindingsList;
class PartView;
class SidePanel;

/// The windows of the module that a job can be watched with.
enum class ProgressLook
{
    milling,
    turning,
    millingThreads,
    turningThreads,
};

/// The host's main window.
class HostFrame : public wxFrame
{
public:
    /// \param samples   the folder that the open dialog starts in
    /// \param templates the folder that holds the operation templates
    HostFrame(const Module& module, const std::string& samples, const std::string& templates);

    const Module& module() const { return m_module; }

    // What the menus do. Failures are told in the bar above the drawing; the calls return whether it went well.
    bool openPart(const std::string& path);
    bool saveToolpath(const std::string& path);
    bool openToolpath(const std::string& path);
    /// Runs the toolpath job; returns when it has ended.
    JobOutcome generate();
    void setProgressLook(ProgressLook look) { m_look = look; }
    void showFromAbove(bool fromAbove);
    void showLevel(int level);

    const Part* part() const { return m_document.part().get(); }
    const ToolpathModel* toolpath() const { return m_document.toolpath().get(); }
    const std::vector<exchange::JobFinding>& findings() const { return m_document.findings(); }
    const JobRunner& runner() const { return m_runner; }
    /// The failure that the bar shows; empty when it shows none.
    const std::string& failure() const { return m_failure; }
    PartView& view() { return *m_view; }

private:
    void buildMenus();
    /// Binds a command to what it does and when it can be done.
    void command(int id, const std::function<void()>& action, const std::function<bool()>& possible = {});

    void askForPart();
    void askForToolpath();
    void askWhereToSave();
    void changeParameters(bool (*change)(HostFrame& frame, util::Parameterized& parameters));
    void onClose(wxCloseEvent& event);

    int showProgress(int jobId);
    /// Shows a toolpath that has come or gone.
    void showToolpath();
    void showFinding(const exchange::JobFinding& finding);
    void refresh();
    void showOutcome(const JobOutcome& outcome);
    /// Does something that may fail, which the bar then tells.
    /// \param done what to say when it has not
    bool attempt(const std::string& done, const std::function<void()>& action);
    void fail(const std::string& text);
    void clearFailure();

    const Module& m_module;
    ParameterDialogs m_dialogs;
    std::string m_samples;
    JobRunner m_runner;
    ProgressLook m_look = ProgressLook::milling;

    Document m_document;
    bool m_showRapids = true;
    int m_level = -1;
    std::optional<Point3> m_place;
    bool m_closeAfterJob = false;
    std::string m_failure;

    wxInfoBar* m_bar = nullptr;
    PartView* m_view = nullptr;
    FindingsList* m_findings = nullptr;
    SidePanel* m_panel = nullptr;
};

} // namespace host

#endif
