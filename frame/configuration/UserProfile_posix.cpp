#include "frame/configuration/UserProfile.h"

#include <wx/file.h>
#include <wx/fileconf.h>
#include <wx/filename.h>
#include <wx/log.h>

#include <cstdlib>

namespace TessaronResources
{

namespace
{

// Under the user's configuration folder, as the XDG base directory rules name it.
wxString profileFile()
{
    const char* const configured = std::getenv("XDG_CONFIG_HOME");
    const char* const home = std::getenv("HOME");
    wxFileName file;
    if (configured && *configured)
        file.AssignDir(wxString::FromUTF8(configured));
    else
    {
        file.AssignDir(wxString::FromUTF8(home ? home : "."));
        file.AppendDir(".config");
    }
    file.AppendDir("Halvorsund Technologies");
    file.SetFullName("TessaronResources.ini");
    return file.GetFullPath();
}

wxString keyOf(const char* section, const char* entry)
{
    return wxString("/") + section + "/" + entry;
}

} // namespace

std::string profileText(const char* section, const char* entry)
{
    const wxLogNull quiet;
    wxFileConfig profile("", "", profileFile(), "", wxCONFIG_USE_LOCAL_FILE);
    profile.SetExpandEnvVars(false); // "$" is a letter like any other in the name of a folder
    return profile.Read(keyOf(section, entry), wxString()).utf8_string();
}

void keepProfileText(const char* section, const char* entry, const std::string& text)
{
    const wxLogNull quiet;
    const wxString file = profileFile();
    wxFileName::Mkdir(wxFileName(file).GetPath(), wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
    // The toolkit would write the section's name with backslashes in it; a heading that is there it leaves alone.
    if (!wxFileName::Exists(file))
        if (wxTempFile made(file); made.IsOpened() && made.Write(wxString("[") + section + "]\n"))
            made.Commit();
    wxFileConfig profile("", "", file, "", wxCONFIG_USE_LOCAL_FILE);
    profile.Write(keyOf(section, entry), wxString::FromUTF8(text));
    profile.Flush();
}

} // namespace TessaronResources
