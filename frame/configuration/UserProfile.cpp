#include "frame/configuration/UserProfile.h"

#include "frame/configuration/ConfigPaths.h"
#include "util/platform/UserFolders.h"

#include <wx/file.h>
#include <wx/fileconf.h>
#include <wx/log.h>

namespace TessaronResources
{

namespace
{

/// The folder of the profile; empty when the platform does not tell, or tells it in bytes that the toolkit has no text
/// for: without a file of its own the toolkit takes the host's.
std::string profileFolder()
{
    const std::string folder = util::userConfigurationFolder();
    return wxString::FromUTF8(folder).empty() ? std::string() : configPaths::makerFolder(folder, "");
}

wxString profileFile()
{
    return wxString::FromUTF8(profileFolder() + "TessaronResources.ini");
}

wxString keyOf(const char* section, const char* entry)
{
    return wxString("/") + section + "/" + entry;
}

} // namespace

std::string profileText(const char* section, const char* entry)
{
    if (profileFolder().empty())
        return {};
    const wxLogNull quiet;
    wxFileConfig profile("", "", profileFile(), "", wxCONFIG_USE_LOCAL_FILE);
    profile.SetExpandEnvVars(false); // "$" is a letter like any other in the name of a folder
    return profile.Read(keyOf(section, entry), wxString()).utf8_string();
}

void keepProfileText(const char* section, const char* entry, const std::string& text)
{
    if (profileFolder().empty())
        return;
    const wxLogNull quiet;
    util::makeUserFolder(profileFolder());
    const wxString file = profileFile();
    // The toolkit would write the section's name with backslashes in it; a heading that is there it leaves alone.
    if (!wxFile::Exists(file))
        if (wxTempFile made(file); made.IsOpened() && made.Write(wxString("[") + section + "]\n"))
            made.Commit();
    wxFileConfig profile("", "", file, "", wxCONFIG_USE_LOCAL_FILE);
    profile.Write(keyOf(section, entry), wxString::FromUTF8(text));
    profile.Flush();
}

} // namespace TessaronResources
