#include "host/HostApp.h"

#include "host/HostFrame.h"

#include <wx/cmdline.h>
#include <wx/filename.h>
#include <wx/image.h>
#include <wx/msgdlg.h>
#include <wx/stdpaths.h>

#include <cstdio>

namespace host
{

namespace
{

// The sample parts that ship, small ones first.
const char* const samples[] = {"square-pocket.xml", "pocket-with-islands.xml", "open-shape.xml", "large-plate.xml"};

std::string utf8(const wxChar* text)
{
    return text ? wxString(text).utf8_string() : std::string();
}

} // namespace

HostApp::HostApp() : m_samples(TESSARON_SAMPLES) {}

void HostApp::OnInitCmdLine(wxCmdLineParser& parser)
{
    wxApp::OnInitCmdLine(parser);
    parser.AddLongOption("module", "the module to load");
    parser.AddLongOption("samples", "the folder with the sample parts");
    parser.AddParam("part", wxCMD_LINE_VAL_STRING, wxCMD_LINE_PARAM_OPTIONAL | wxCMD_LINE_PARAM_MULTIPLE);
}

bool HostApp::OnCmdLineParsed(wxCmdLineParser& parser)
{
    wxString text;
    if (parser.Found("module", &text))
        m_moduleFile = text.utf8_string();
    if (parser.Found("samples", &text))
        m_samples = text.utf8_string();
    for (std::size_t i = 0; i < parser.GetParamCount(); ++i)
        m_parts.push_back(parser.GetParam(i).utf8_string());
    return wxApp::OnCmdLineParsed(parser);
}

bool HostApp::OnInit()
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
        complain(error.what());
        return false;
    }
    if (m_parts.empty())
        for (const char* const sample : samples)
            m_parts.push_back(m_samples + "/" + sample);
    auto* const frame = new HostFrame(*m_module, m_samples, templateFolder());
    frame->CentreOnScreen();
    frame->Show();
    start(*frame);
    return true;
}

void HostApp::OnAssertFailure(const wxChar* file, int line, const wxChar* function, const wxChar* condition,
                              const wxChar* message)
{
    std::fprintf(stderr, "%s:%d: %s: %s (%s)\n", utf8(file).c_str(), line, utf8(function).c_str(),
                 utf8(condition).c_str(), utf8(message).c_str());
}

void HostApp::start(HostFrame& frame)
{
    frame.openPart(m_parts.front());
}

void HostApp::complain(const std::string& text)
{
    std::fprintf(stderr, "tessaron-host: %s\n", text.c_str());
    wxMessageBox(wxString::FromUTF8(text), "Tessaron Host", wxOK | wxICON_ERROR);
}

std::string HostApp::templateFolder()
{
    const wxString folder = wxStandardPaths::Get().GetUserDataDir() + "/templates";
    wxFileName::Mkdir(folder, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
    return folder.utf8_string();
}

} // namespace host
