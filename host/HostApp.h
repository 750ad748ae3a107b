#ifndef HOST_HOSTAPP_H
#define HOST_HOSTAPP_H

#include "host/ModuleLibrary.h"

#include <wx/app.h>

#include <memory>
#include <string>
#include <vector>

namespace host
{

class HostFrame;

/// The demonstration host as a program: reads the command line, loads the module and opens the main window.
class HostApp : public wxApp
{
public:
    HostApp();

    void OnInitCmdLine(wxCmdLineParser& parser) override;
    bool OnCmdLineParsed(wxCmdLineParser& parser) override;
    bool OnInit() override;
    // The toolkit's own troubles are not the user's.
    void OnAssertFailure(const wxChar* file, int line, const wxChar* function, const wxChar* condition,
                         const wxChar* message) override;

protected:
    /// Called once the main window is up: opens the first part.
    virtual void start(HostFrame& frame);
    /// Tells why the host cannot start.
    virtual void complain(const std::string& text);
    /// The folder with the operation templates: the user's own.
    virtual std::string templateFolder();

    /// The parts of the command line, or the samples that ship.
    const std::vector<std::string>& parts() const { return m_parts; }

private:
    std::string m_moduleFile = ModuleLibrary::defaultFile();
    std::string m_samples;
    std::vector<std::string> m_parts;
    std::unique_ptr<Module> m_module;
};

} // namespace host

#endif
