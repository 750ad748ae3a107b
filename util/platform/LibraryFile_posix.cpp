#include "util/platform/LibraryFile.h"

#include <filesystem>
#include <system_error>

#include <dlfcn.h>

namespace util
{

namespace
{

LibraryFile findLibrary()
{
    // Any address inside the library will do.
    static const char anchor = 0;
    Dl_info info{};
    if (::dladdr(&anchor, &info) == 0)
        return {};
    LibraryFile file;
    file.handle = info.dli_fbase;
    if (info.dli_fname)
    {
        std::error_code error;
        const std::filesystem::path resolved = std::filesystem::canonical(info.dli_fname, error);
        file.path = error ? info.dli_fname : resolved.string();
    }
    return file;
}

[[maybe_unused]] const LibraryFile& foundWhileLoading = thisLibrary();

} // namespace

const LibraryFile& thisLibrary()
{
    static const LibraryFile file = findLibrary();
    return file;
}

std::string thisLibraryFolder()
{
    return std::filesystem::path(thisLibrary().path).parent_path().string();
}

} // namespace util
