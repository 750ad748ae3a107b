#ifndef HOST_SCRATCHFOLDER_H
#define HOST_SCRATCHFOLDER_H

#include <wx/filename.h>

#include <filesystem>
#include <string>

namespace host
{

/// A folder that is gone when the tour is over.
class ScratchFolder
{
public:
    ScratchFolder() : m_path(wxFileName::CreateTempFileName("tessaron-tour-").utf8_string())
    {
        std::filesystem::remove(m_path);
        std::filesystem::create_directory(m_path);
    }
    ~ScratchFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::string& path() const { return m_path; }
    std::string file(const std::string& name) const { return m_path + "/" + name; }

private:
    std::string m_path;
};

} // namespace host

#endif
