#ifndef HOST_MODULELIBRARY_H
#define HOST_MODULELIBRARY_H

#include <tessaron/frame/EntryPoints.h>

#include <stdexcept>
#include <string>

namespace host
{

/// A module that cannot be used. what() names the file and says why, in words for the user.
class ModuleError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// A shared library, loaded while the program runs. It stays in memory to the end of the process: windows of a toolkit
/// that is in use must not lose their code.
class ModuleLibrary
{
public:
    /// The module's file name on this platform, to be found by the search rules of the loader.
    static const char* defaultFile();

    /// \throws ModuleError when the library cannot be loaded
    explicit ModuleLibrary(const std::string& file);

    const std::string& file() const { return m_file; }
    /// The address of an exported name; null when the library has no such name.
    void* find(const char* name) const;

private:
    std::string m_file;
    void* m_handle = nullptr;
};

/// The entry points of the module, found by name. Those that not every version of the module has may be null.
class Module
{
public:
    /// \throws ModuleError when the library cannot be loaded or lacks one of the progress entry points
    explicit Module(const std::string& file);

    const std::string& file() const { return m_library.file(); }

    using Progress = decltype(displayProgressDialogForJobId)*;
    using MultiProgress = decltype(displayMultiProgressDialogForJobId)*;
    using Quit = decltype(tessaronResourcesQuit)*;
    using ChipControl = decltype(displayChipControlDialogEx)*;
    using GougeCheck = decltype(TessaronResources::displayGougeCheckDialog)*;
    using SmartLink = decltype(TessaronResources::displaySmartLinkDialog)*;
    using LoadTemplate = decltype(TessaronResources::displayTemplateManagerDialogLoad)*;
    using SaveTemplate = decltype(TessaronResources::displayTemplateManagerDialogSave)*;

    Progress progress = nullptr;
    Progress turningProgress = nullptr;
    MultiProgress multiProgress = nullptr;
    MultiProgress turningMultiProgress = nullptr;
    Quit quit = nullptr;
    ChipControl chipControl = nullptr;
    GougeCheck gougeCheck = nullptr;
    SmartLink smartLink = nullptr;
    LoadTemplate loadTemplate = nullptr;
    SaveTemplate saveTemplate = nullptr;

private:
    ModuleLibrary m_library;
};

} // namespace host

#endif
