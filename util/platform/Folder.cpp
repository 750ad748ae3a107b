#include "util/platform/Folder.h"

#include "util/platform/AtomicFile.h"

#include <filesystem>
#include <ostream>
#include <system_error>

namespace util
{

bool Folder::replace(const std::string& name, const std::string& bytes) const
{
    try
    {
        AtomicFile file((std::filesystem::path(m_path) / name).string());
        file.stream().write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        file.commit();
        return true;
    }
    catch (const AtomicFileError&)
    {
        return false;
    }
}

bool makeFolders(const std::string& path)
{
    std::error_code error;
    std::filesystem::create_directories(path, error);
    return std::filesystem::is_directory(path, error);
}

} // namespace util
