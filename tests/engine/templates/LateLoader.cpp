// Loads the engine by a relative path, goes elsewhere, and asks for the data that lie beside the engine.
#include <tessaron/engine/TechnologyExpertData.h>

#include <cstdio>

#include <dlfcn.h>
#include <unistd.h>

int main(int count, char** arguments)
{
    void* const library = count == 2 ? dlopen(arguments[1], RTLD_NOW | RTLD_LOCAL) : nullptr;
    if (!library || chdir("/") != 0)
        return 1;
    using Ask = int (*)(util::TechnologyExpertData*);
    const auto ask =
        reinterpret_cast<Ask>(dlsym(library, "_ZN4util23getTechnologyExpertDataEPNS_20TechnologyExpertDataE"));
    if (!ask)
        return 1;
    util::TechnologyExpertData data;
    std::printf("%d\n", ask(&data));
    return 0;
}
