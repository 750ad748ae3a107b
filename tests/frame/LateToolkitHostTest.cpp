// A host that runs the toolkit and loads the module only when its user asks for it.
#include "frame/EntryPoints.h"
#include "util/Parameterized.h"
#include "util/VisualTheme.h"

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/init.h>
#include <wx/timer.h>

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <string>

namespace
{

class Host : public wxApp
{
public:
    bool OnInit() override { return true; }
};

const char managerName[] = "_ZN17TessaronResources32displayTemplateManagerDialogLoadEiiRKNSt7__cxx1112basic_"
                           "stringIcSt11char_traitsIcESaIcEEERKN4"
                           "util13ParameterizedEPS9_P8wxWindowNS8_11VisualThemeE";

template <class Function>
Function function(void* library, const char* name)
{
    return library ? reinterpret_cast<Function>(dlsym(library, name)) : nullptr;
}

class Later : public wxTimer
{
public:
    explicit Later(void (*action)()) : m_action(action) { StartOnce(500); }

    void Notify() override { m_action(); }

private:
    void (*m_action)();
};

TEST(LateToolkitHost, ShowsWindowsOfAModuleThatItLoadedInsideItsLoop)
{
    int argc = 1;
    char name[] = "host";
    char* argv[] = {name, nullptr};
    wxApp::SetInstance(new Host);
    ASSERT_TRUE(wxEntryStart(argc, argv));
    ASSERT_TRUE(wxTheApp->CallOnInit());
    auto* const frame = new wxFrame(nullptr, wxID_ANY, "Host");
    frame->Show();

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
                // There is no such folder, which the manager says first: the quit comes while its message is up.
                util::Parameterized loaded;
                Later leave(quit);
                managerResult = showManager(1, 1, "", util::Parameterized(), &loaded, nullptr, util::VisualTheme{});
            }
            else if (const char* const text = dlerror())
                failure = text;
            wxTheApp->ExitMainLoop();
        });
    wxTheApp->OnRun();
    delete frame;
    wxEntryCleanup();
    EXPECT_EQ(failure, "");
    EXPECT_EQ(progressResult, 1);
    EXPECT_EQ(managerResult, 0) << "ended by the quit message";
}

} // namespace
