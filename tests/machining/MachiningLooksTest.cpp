#include "frame/PaletteColour.h"
#include "frame/looks/VisualManager.h"
#include "frame/looks/VisualThemes.h"
#include "tests/support/WindowDriver.h"
#include <tessaron/frame/EntryPoints.h>
#include <tessaron/machining/GougeCheckData.h>
#include <tessaron/machining/SmartLinkData.h>

#include <wx/toplevel.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>

using namespace testing_support;
using namespace TessaronResources;

namespace
{

class MachiningLooks : public testing::TestWithParam<int>
{
protected:
    void TearDown() override { VisualManager::install(*wxCLASSINFO(VisualManager)); }

    static void look(const char* name, bool styled, const std::function<void()>& show)
    {
        WindowDriver user;
        user.when(
            "the dialog is up", [] { return topWindow() && topWindow()->IsActive(); }, [] { pressKey(WXK_TAB); });
        user.then("picture",
                  [&]
                  {
                      const bool inTheLook =
                          topWindow()->GetBackgroundColour() == toColour(VisualManager::dialogBackground());
                      EXPECT_EQ(inTheLook, styled) << name;
                      savePicture(topWindow(), std::string(name) + "-theme-" + std::to_string(GetParam()));
                      pressKey(WXK_ESCAPE);
                  });
        show();
    }
};

TEST_P(MachiningLooks, AreTakenByAllButSmartLink)
{
    ASSERT_TRUE(installVisualTheme(GetParam()));
    int spindleSpeed = 5000;
    double feedrate = 1000;
    double stepover = 2;
    GougeCheckData gouge{1, 0, 1, 2.5, 0.1, 3};
    SmartLinkData link{1, 1, 0.3};
    look("chip-control", true,
         [&] { displayChipControlDialogEx(0, 10, 4, 2, &spindleSpeed, &feedrate, &stepover, true); });
    look("gouge-check", true, [&] { displayGougeCheckDialog(&gouge); });
    look("smartlink", false, [&] { displaySmartLinkDialog(&link); });
}

INSTANTIATE_TEST_SUITE_P(Themes, MachiningLooks, testing::Values(0, 5, 25, 26, 27));

} // namespace
