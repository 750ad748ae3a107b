// Loads the module by a relative path, goes elsewhere, and asks for the shipped configuration file.
#include <cstdio>
#include <string>

#include <dlfcn.h>
#include <unistd.h>

int main(int count, char** arguments)
{
    void* const library = count == 2 ? dlopen(arguments[1], RTLD_NOW | RTLD_LOCAL) : nullptr;
    if (!library || chdir("/") != 0)
        return 1;
    using Ask = std::string (*)(const char*, int);
    const auto ask =
        reinterpret_cast<Ask>(dlsym(library, "_ZN17TessaronResources24getDefaultConfigFilePathB5cxx11EPKci"));
    if (!ask)
        return 1;
    std::puts(ask("", 100 * 65536).c_str());
    return 0;
}
