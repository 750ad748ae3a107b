#include "host/ModuleLibrary.h"

#include <dlfcn.h>

namespace host
{

namespace
{

// Names of the namespace, as the compilers of this platform spell them in a library.
constexpr char gougeCheckName[] = "_ZN17TessaronResources23displayGougeCheckDialogEPNS_14GougeCheckDataE";
constexpr char smartLinkName[] = "_ZN17TessaronResources22displaySmartLinkDialogEPNS_13SmartLinkDataE";
constexpr char loadTemplateName[] =
    "_ZN17TessaronResources32displayTemplateManagerDialogLoadEiiRKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE"
    "RKN4util13ParameterizedEPS9_P8wxWindowNS8_11VisualThemeE";
constexpr char saveTemplateName[] =
    "_ZN17TessaronResources32displayTemplateManagerDialogSaveEiiRKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE"
    "RKN4util13ParameterizedEPS9_PbP8wxWindowNS8_11VisualThemeE";

std::string lastError()
{
    const char* const text = dlerror();
    return text ? text : "unknown error";
}

template <class Function>
void resolve(const ModuleLibrary& library, const char* name, Function& function)
{
    function = reinterpret_cast<Function>(library.find(name));
}

template <class Function>
void require(const ModuleLibrary& library, const char* name, Function& function)
{
    resolve(library, name, function);
    if (!function)
        throw ModuleError("\"" + library.file() + "\" is not a module that this program can use: it has no \"" + name +
                          "\".");
}

} // namespace

const char* ModuleLibrary::defaultFile()
{
    return "libTessaronResources.so.1";
}

ModuleLibrary::ModuleLibrary(const std::string& file) : m_file(file)
{
    m_handle = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!m_handle)
        throw ModuleError("The module \"" + file + "\" cannot be loaded: " + lastError());
}

void* ModuleLibrary::find(const char* name) const
{
    return dlsym(m_handle, name);
}

Module::Module(const std::string& file) : m_library(file)
{
    require(m_library, "displayProgressDialogForJobId", progress);
    require(m_library, "displayOrrimantProgressDialogForJobId", turningProgress);
    require(m_library, "displayMultiProgressDialogForJobId", multiProgress);
    require(m_library, "displayOrrimantMultiProgressDialogForJobId", turningMultiProgress);
    require(m_library, "tessaronResourcesQuit", quit);
    resolve(m_library, "displayChipControlDialogEx", chipControl);
    resolve(m_library, gougeCheckName, gougeCheck);
    resolve(m_library, smartLinkName, smartLink);
    resolve(m_library, loadTemplateName, loadTemplate);
    resolve(m_library, saveTemplateName, saveTemplate);
}

} // namespace host
