#include "frame/ModuleHandle.h"

#include <dlfcn.h>

#include <climits>
#include <cstdlib>

namespace TessaronResources
{

namespace
{

const Dl_info& libraryInfo()
{
    static const Dl_info info = []
    {
        Dl_info result{};
        dladdr(reinterpret_cast<const void*>(&moduleHandle), &result);
        return result;
    }();
    return info;
}

} // namespace

HINSTANCE moduleHandle()
{
    return libraryInfo().dli_fbase;
}

std::string moduleFilePath()
{
    const char* const name = libraryInfo().dli_fname;
    if (!name)
        return {};
    char resolved[PATH_MAX];
    return ::realpath(name, resolved) ? resolved : name;
}

} // namespace TessaronResources
