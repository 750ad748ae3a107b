#include "frame/ModuleHandle.h"

#include <dlfcn.h>

#include <climits>
#include <cstdlib>

namespace TessaronResources
{

namespace
{

struct LibraryFile
{
    HINSTANCE handle = nullptr;
    std::string path;
};

// Found out when the library is loaded: a relative path means another file once the host has changed its folder.
const LibraryFile& libraryFile()
{
    static const LibraryFile file = []
    {
        LibraryFile result;
        Dl_info info{};
        if (dladdr(reinterpret_cast<const void*>(&moduleHandle), &info) == 0)
            return result;
        result.handle = info.dli_fbase;
        char resolved[PATH_MAX];
        if (info.dli_fname)
            result.path = ::realpath(info.dli_fname, resolved) ? resolved : info.dli_fname;
        return result;
    }();
    return file;
}

} // namespace

HINSTANCE moduleHandle()
{
    return libraryFile().handle;
}

std::string moduleFilePath()
{
    return libraryFile().path;
}

} // namespace TessaronResources
