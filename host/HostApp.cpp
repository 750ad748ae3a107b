#include "host/HostFrame.h"
#include "host/ModuleLibrary.h"
#include "host/ScratchFolder.h"
#include "host/Tour.h"

#include <wx/app.h>
#include <wx/cmdline.h>
#include <wx/filename.h>
#include <wx/image.h>
#include <wx/msgdlg.h>
#include <wx/stdpaths.h>
#include <wx/timer.h>

#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace host
{

namespace
{

// The samples that ship, in the order of the tour.
const char* const samples[] = {"square-pocket.xml", "pocket-with-islands.xml", "open-shape.xml", "large-plate.xml"};

void complain(const std::string& text, bool inWindow)
{
    std::fprintf(stderr, "tessaron-host: %s\n", text.c_str());
    if (inWindow)
        wxMessageBox(wxString::FromUTF8(text), "Tessaron Host", wxOK | wxICON_ERROR);
}

class HostApp : public wxApp
{
public:
    void OnInitCmdLine(wxCmdLineParser& parser) override
    {
        wxApp::OnInitCmdLine(parser);
        parser.AddLongOption("tour", "show everything without a person and save pictures in this folder");
        parser.AddLongOption("module", "the module to load");
        parser.AddLongOption("samples", "the folder with the sample parts");
        parser.AddParam("part", wxCMD_LINE_VAL_STRING, wxCMD_LINE_PARAM_OPTIONAL | wxCMD_LINE_PARAM_MULTIPLE);
    }

    bool OnCmdLineParsed(wxCmdLineParser& parser) override
    {
        wxString text;
        if (parser.Found("tour", &text))
            m_pictures = text.utf8_string();
        if (parser.Found("module", &text))
            m_moduleFile = text.utf8_string();
        if (parser.Found("samples", &text))
            m_samples = text.utf8_string();
        for (std::size_t i = 0; i < parser.GetParamCount(); ++i)
            m_parts.push_back(parser.GetParam(i).utf8_string());
        return wxApp::OnCmdLineParsed(parser);
    }

    bool OnInit() override
    {
        SetAppName("tessaron-host");
        SetAppDisplayName("Tessaron Host");
        if (!wxApp::OnInit())
            return false;
        wxInitAllImageHandlers();
        try
        {
            m_module = std::make_unique<Module>(m_moduleFile);
        }
        catch (const ModuleError& error)
        {
            complain(error.what(), m_pictures.empty());
            return false;
        }
        if (m_parts.empty())
            for (const char* const sample : samples)
                m_parts.push_back(m_samples + "/" + sample);
        auto* const frame = new HostFrame(*m_module, m_samples, templateFolder());
        frame->CentreOnScreen();
        frame->Show();
        if (m_pictures.empty())
            frame->openPart(m_parts.front());
        else
        {
            // An event of its own: the windows paint themselves while it is handled.
            m_tourStart.Bind(wxEVT_TIMER, [this, frame](wxTimerEvent&) { runTour(*frame); });
            m_tourStart.StartOnce(1);
        }
        return true;
    }

    int OnRun() override
    {
        const int code = wxApp::OnRun();
        return m_tourFailed ? 1 : code;
    }

    // In a tour nobody is there to read a box; elsewhere the toolkit's own troubles are not the user's.
    void OnAssertFailure(const wxChar* file, int line, const wxChar* function, const wxChar* condition,
                         const wxChar* message) override
    {
        std::fprintf(stderr, "%s:%d: %s: %s (%s)\n", wxString(file).utf8_string().c_str(), line,
                     wxString(function).utf8_string().c_str(), wxString(condition).utf8_string().c_str(),
                     message ? wxString(message).utf8_string().c_str() : "");
        m_tourFailed = m_tourFailed || !m_pictures.empty();
    }

private:
    // A tour starts without templates, and leaves none.
    std::string templateFolder()
    {
        if (!m_pictures.empty())
            return m_tourTemplates.emplace().path();
        const wxString folder = wxStandardPaths::Get().GetUserDataDir() + "/templates";
        wxFileName::Mkdir(folder, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
        return folder.utf8_string();
    }

    void runTour(HostFrame& frame)
    {
        try
        {
            m_tourFailed = !Tour(frame, m_parts, m_pictures).run() || m_tourFailed;
        }
        catch (const std::exception& error)
        {
            complain(error.what(), false);
            m_tourFailed = true;
        }
        frame.Close(true);
    }

    std::string m_moduleFile = ModuleLibrary::defaultFile();
    std::string m_samples = TESSARON_SAMPLES;
    std::vector<std::string> m_parts;
    std::string m_pictures;
    std::optional<ScratchFolder> m_tourTemplates;
    std::unique_ptr<Module> m_module;
    wxTimer m_tourStart;
    bool m_tourFailed = false;
};

} // namespace

} // namespace host

wxIMPLEMENT_APP(host::HostApp);
