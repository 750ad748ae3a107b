// The demonstration host with the tour in place of a user.
#include "host/HostApp.h"
#include "host/HostFrame.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/tour/Tour.h"

#include <wx/cmdline.h>
#include <wx/timer.h>

#include <cstdio>
#include <exception>

namespace tour
{

namespace
{

class TourApp : public host::HostApp
{
public:
    void OnInitCmdLine(wxCmdLineParser& parser) override
    {
        HostApp::OnInitCmdLine(parser);
        parser.AddLongOption("pictures", "the folder for pictures of the windows", wxCMD_LINE_VAL_STRING,
                             wxCMD_LINE_OPTION_MANDATORY);
    }

    bool OnCmdLineParsed(wxCmdLineParser& parser) override
    {
        wxString text;
        if (parser.Found("pictures", &text))
            m_pictures = text.utf8_string();
        return HostApp::OnCmdLineParsed(parser);
    }

    int OnRun() override
    {
        const int code = HostApp::OnRun();
        return m_failed ? 1 : code;
    }

    void OnAssertFailure(const wxChar* file, int line, const wxChar* function, const wxChar* condition,
                         const wxChar* message) override
    {
        HostApp::OnAssertFailure(file, line, function, condition, message);
        m_failed = true;
    }

private:
    void start(host::HostFrame& frame) override
    {
        // An event of its own: the windows paint themselves while it is handled.
        m_start.Bind(wxEVT_TIMER, [this, &frame](wxTimerEvent&) { run(frame); });
        m_start.StartOnce(1);
    }

    // Nobody is there to read a box.
    void complain(const std::string& text) override { std::fprintf(stderr, "tessaron-tour: %s\n", text.c_str()); }

    // A tour starts without templates, and leaves none.
    std::string templateFolder() override { return m_templates.path(); }

    void run(host::HostFrame& frame)
    {
        try
        {
            m_failed = !Tour(frame, parts(), m_pictures).run() || m_failed;
        }
        catch (const std::exception& error)
        {
            complain(error.what());
            m_failed = true;
        }
        frame.Close(true);
    }

    std::string m_pictures;
    testing_support::TemporaryFolder m_templates;
    wxTimer m_start;
    bool m_failed = false;
};

} // namespace

} // namespace tour

wxIMPLEMENT_APP(tour::TourApp);
