#include "engine/templates/ExpertDatabase.h"

#include <dlfcn.h>

namespace util::store
{

namespace
{
// Any address inside the library will do.
const char anchor = 0;
} // namespace

std::string engineFolder()
{
    Dl_info info{};
    if (::dladdr(&anchor, &info) == 0 || !info.dli_fname)
        return {};
    const std::string file = info.dli_fname;
    const std::size_t separator = file.rfind('/');
    return separator == std::string::npos ? "." : file.substr(0, separator);
}

} // namespace util::store
