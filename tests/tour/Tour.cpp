#include "tests/tour/Tour.h"

#include "host/HostFrame.h"
#include "host/PartView.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/tour/Screenshot.h"
#include <tessaron/exchange/Archives.h>
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/util/Keys.h>

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/stopwatch.h>
#include <wx/timer.h>

#include <cstdio>
#include <filesystem>

namespace tour
{

using namespace host;
using namespace testing_support;

namespace
{

constexpr int tickMilliseconds = 10;
// What the controls of the module's windows go by.
constexpr int cancelId = 2;
constexpr int detailsId = 1042;
constexpr double pictureAtPercent = 20;
constexpr long patience = 20000;

std::string format(const char* pattern, auto... values)
{
    char text[400];
    std::snprintf(text, sizeof text, pattern, values...);
    return text;
}

} // namespace

Tour::Tour(HostFrame& frame, std::vector<std::string> parts, std::string pictures)
    : m_frame(frame), m_parts(std::move(parts)), m_pictures(std::move(pictures))
{
}

void Tour::say(const std::string& text)
{
    std::printf("%s\n", text.c_str());
    std::fflush(stdout);
}

void Tour::expect(bool condition, const std::string& failure)
{
    if (condition)
        return;
    m_good = false;
    say("FAILED: " + failure);
}

void Tour::settle(int milliseconds)
{
    wxStopWatch clock;
    wxEventLoopBase* const loop = wxEventLoopBase::GetActive();
    do
    {
        while (loop->Pending())
            loop->Dispatch();
        loop->ProcessIdle();
        wxMilliSleep(5);
    } while (clock.Time() < milliseconds || loop->Pending());
}

void Tour::picture(const std::string& name)
{
    wxRect area = m_frame.GetScreenRect();
    const std::string path = format("%s/%02d-%s.png", m_pictures.c_str(), ++m_pictureCount, name.c_str());
    expect(saveScreenshot(area, path), "the picture " + path + " could not be written");
}

wxTopLevelWindow* Tour::moduleWindow(int controlId) const
{
    for (auto node = wxTopLevelWindows.GetLast(); node; node = node->GetPrevious())
        if (auto* const window = dynamic_cast<wxTopLevelWindow*>(node->GetData());
            window && window != &m_frame && window->IsShown() && window->FindWindow(controlId))
            return window;
    return nullptr;
}

void Tour::centre(wxTopLevelWindow* window) const
{
    if (window)
        window->Move(wxRect(window->GetSize()).CentreIn(m_frame.GetScreenRect()).GetPosition());
}

void Tour::click(wxWindow* window)
{
    if (!window)
        return;
    m_person.click(window->ClientToScreen(wxPoint(window->GetSize().x / 4, window->GetSize().y / 2)));
}

void Tour::typeInto(wxWindow* field, const char* text)
{
    click(field);
    settle();
    m_person.key("a", Person::control);
    m_person.text(text);
    settle();
}

bool Tour::waitFor(const char* what, const std::function<bool()>& condition)
{
    const wxStopWatch waited;
    while (!condition() && waited.Time() < patience)
        settle(tickMilliseconds);
    const bool holds = condition();
    expect(holds, std::string(what) + " did not come");
    return holds;
}

JobOutcome Tour::generate(const std::string& caption)
{
    JobOutcome outcome = m_frame.generate();
    settle();
    expect(outcome.state == exchange::JobState::finished, caption + ": " + outcome.text);
    if (outcome.state == exchange::JobState::finished)
    {
        const ToolpathStatistics& statistics = m_frame.toolpath()->statistics();
        say(format("  toolpath in %.2f s: %zu records, %.0f mm of cuts in %zu levels, about %.0f min of machining",
                   outcome.seconds, statistics.records, statistics.cutLength, m_frame.toolpath()->levels().size(),
                   statistics.minutes));
    }
    return outcome;
}

JobOutcome Tour::generateWatched(const std::function<bool()>& ready, const std::function<void(wxTopLevelWindow&)>& act)
{
    wxTimer watch;
    bool acted = false;
    watch.Bind(wxEVT_TIMER,
               [&](wxTimerEvent&)
               {
                   wxTopLevelWindow* const window = moduleWindow(cancelId);
                   if (acted || !window || !ready())
                       return;
                   acted = true;
                   act(*window);
               });
    watch.Start(tickMilliseconds);
    JobOutcome outcome = m_frame.generate();
    watch.Stop();
    settle();
    expect(acted, "the progress window was not seen");
    return outcome;
}

void Tour::showPart(const std::string& path)
{
    say("Open " + path);
    m_frame.showFromAbove(true);
    expect(m_frame.openPart(path), m_frame.failure());
    if (!m_frame.part() || m_frame.part()->path != path)
        return;
    settle();
    const std::string stem = std::filesystem::path(path).stem().string();
    picture(stem + "-opened");
    if (path == m_parts.back())
        return;
    generate(path);
    picture(stem + "-toolpath");
    m_frame.showFromAbove(false);
    settle();
    picture(stem + "-levels");
    if (m_frame.toolpath() && m_frame.toolpath()->levels().size() > 1)
        showOneLevel(stem);
    saveAndReadBack();
}

void Tour::showOneLevel(const std::string& stem)
{
    m_frame.showFromAbove(true);
    m_frame.showLevel(0);
    settle();
    picture(stem + "-one-level");
    m_frame.showLevel(Scene::allLevels);
}

void Tour::cancelJob()
{
    say("Cancel " + m_parts.back());
    m_frame.setProgressLook(ProgressLook::milling);
    JobOutcome outcome = generateWatched(
        [this] { return exchange::jobInfo(m_frame.runner().jobId()).percent >= pictureAtPercent; },
        [this](wxTopLevelWindow& window)
        {
            centre(&window);
            settle();
            picture("progress");
            // The window may still be on its way to where it was put.
            const int jobId = m_frame.runner().jobId();
            for (int tries = 0; tries < 20 && exchange::jobInfo(jobId).state == exchange::JobState::running; ++tries)
            {
                click(window.FindWindow(cancelId));
                settle(50);
            }
        });
    say(format("  cancelled, the call returned %d", outcome.progressResult));
    expect(outcome.state == exchange::JobState::cancelled && outcome.progressResult == 2,
           "the cancelled job ended otherwise: " + outcome.text);
    picture("cancelled");
}

void Tour::watchThreads()
{
    say("Watch the threads of " + m_parts.back());
    m_frame.setProgressLook(ProgressLook::millingThreads);
    JobOutcome outcome =
        generateWatched([this] { return exchange::jobInfo(m_frame.runner().jobId()).percent >= pictureAtPercent; },
                        [this](wxTopLevelWindow& window)
                        {
                            centre(&window);
                            click(window.FindWindow(detailsId));
                            settle(300);
                            picture("progress-threads");
                        });
    expect(outcome.state == exchange::JobState::finished, outcome.text);
}

void Tour::saveAndReadBack()
{
    if (!m_frame.toolpath())
        return;
    const TemporaryFolder scratch;
    const std::string path = scratch / "toolpath.xml";
    const ToolpathStatistics before = m_frame.toolpath()->statistics();
    expect(m_frame.saveToolpath(path), m_frame.failure());
    expect(m_frame.openToolpath(path), m_frame.failure());
    const ToolpathStatistics& after = m_frame.toolpath()->statistics();
    expect(before.records == after.records && before.cutLength == after.cutLength &&
               before.rapidLength == after.rapidLength,
           "the toolpath that was read is not the one that was saved");
    std::error_code error;
    say(format("  saved the toolpath and read it back: %zu records, %ju bytes", after.records,
               static_cast<std::uintmax_t>(std::filesystem::file_size(path, error))));
}

void Tour::meetBadFile()
{
    say("Open a bad file");
    const TemporaryFolder scratch;
    const std::string path = scratch / "no-tool.xml";
    exchange::Tessaron2dInput input;
    exchange::readArchiveFile(m_parts.front(), input);
    input.parameters.erase(util::keys::toolDiameter);
    exchange::writeArchiveFile(path, input);

    const Part* const before = m_frame.part();
    const bool opened = m_frame.openPart(path);
    settle();
    const std::string& text = m_frame.failure();
    expect(!opened && text.find(path) != std::string::npos && text.find("\"Tool Diameter\"") != std::string::npos,
           "\"" + path + "\" was not reported: " + text);
    expect(m_frame.part() == before, "a bad file took the place of the part");
    say("  " + text);
    picture("bad-file");
}

bool Tour::run()
{
    std::filesystem::create_directories(m_pictures);
    settle(300);
    for (const std::string& part : m_parts)
        showPart(part);
    if (m_good)
    {
        cancelJob();
        watchThreads();
        picture("large-toolpath");
        m_frame.view().zoom(6);
        settle(600);
        picture("large-toolpath-near");
        changeParameters();
        meetBadFile();
    }
    say(format("%d pictures in %s", m_pictureCount, m_pictures.c_str()));
    say(m_good ? "The tour is complete." : "The tour FAILED.");
    return m_good;
}

} // namespace tour
