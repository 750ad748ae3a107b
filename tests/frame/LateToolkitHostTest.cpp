// A host that runs the toolkit and loads the module only when its user asks for it.
#include "tests/support/ToolkitHost.h"
#include <tessaron/frame/EntryPoints.h>
#include <tessaron/util/Parameterized.h>
#include <tessaron/util/VisualTheme.h>

#include <wx/toplevel.h>

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <string>

namespace
{

const char managerName[] = "_ZN17TessaronResources32displayTemplateManagerDialogLoadEiiRKNSt7__cxx1112basic_"
                           "stringIcSt11char_traitsIcESaIcEEERKN4"
                           "util13ParameterizedEPS9_P8wxWindowNS8_11VisualThemeE";

template <class Function>
Function function(void* library, const char* name)
{
    return library ? reinterpret_cast<Function>(dlsym(library, name)) : nullptr;
}

bool isAnotherWindowShown(const wxWindow* host)
{
    for (const wxWindow* const window : wxTopLevelWindows)
        if (window != host && window->IsShown())
            return true;
    return false;
}

class LateToolkitHost : public testing_support::ToolkitHost
{
};

TEST_F(LateToolkitHost, ShowsWindowsOfAModuleThatItLoadedInsideItsLoop)
{
    int progressResult = 0;
    int managerResult = 0;
    std::string failure;
    wxTheApp->CallAfter(
        [&]
        {
            void* const library = dlopen(TESSARON_LIBRARY, RTLD_NOW | RTLD_LOCAL);
            const auto showProgress = function<int (*)(int jobId)>(library, "displayMultiProgressDialogForJobId");
            const auto showManager =
                function<decltype(&TessaronResources::displayTemplateManagerDialogLoad)>(library, managerName);
            const auto quit = function<void (*)()>(library, "tessaronResourcesQuit");
            if (showProgress && showManager && quit)
            {
                constexpr int unknownJob = 123456;
                progressResult = showProgress(unknownJob);
                util::Parameterized loaded;
                const testing_support::Ticker user(
                    [&]
                    {
                        if (isAnotherWindowShown(m_frame))
                            quit();
                    });
                managerResult = showManager(1, 1, "", util::Parameterized(), &loaded, nullptr, util::VisualTheme{});
            }
            else if (const char* const text = dlerror())
                failure = text;
            wxTheApp->ExitMainLoop();
        });
    EXPECT_TRUE(runMainLoop());
    EXPECT_EQ(failure, "");
    EXPECT_EQ(progressResult, 1);
    EXPECT_EQ(managerResult, 0) << "ended by the quit message";
}

} // namespace
