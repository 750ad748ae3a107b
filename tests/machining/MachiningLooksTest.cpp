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

// What the screen shows of a field where it has no text.
wxColour fieldColour(int id)
{
    wxWindow* const field = child(topWindow(), id);
    const wxImage picture =
        pictureOf(topWindow(), wxRect(field->GetPosition() + wxPoint(field->GetSize().x - 12, 12), wxSize(1, 1)));
    return picture.IsOk() ? wxColour(picture.GetRed(0, 0), picture.GetGreen(0, 0), picture.GetBlue(0, 0)) : wxColour();
}

double luminanceRatio(const wxColour& one, const wxColour& other)
{
    const auto rgb = [](const wxColour& colour) -> Rgb
    { return colour.Red() << 16 | colour.Green() << 8 | colour.Blue(); };
    return one.IsOk() && other.IsOk() ? contrastRatio(rgb(one), rgb(other)) : 1;
}

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

TEST_P(MachiningLooks, ShowAFieldThatIsDerivedAsReadOnly)
{
    constexpr int derived = 4005;
    constexpr int editable = 4004;
    ASSERT_TRUE(installVisualTheme(GetParam()));
    int spindleSpeed = 5000;
    double feedrate = 1000;
    double stepover = 2;
    WindowDriver user;
    user.when("the dialog is up", [] { return topWindow() && topWindow()->IsActive(); });
    user.when(
        "painted apart", [] { return luminanceRatio(fieldColour(derived), fieldColour(editable)) >= 1.05; },
        [] { pressKey(WXK_ESCAPE); });
    displayChipControlDialogEx(0, 10, 4, 2, &spindleSpeed, &feedrate, &stepover, true);
}

INSTANTIATE_TEST_SUITE_P(Themes, MachiningLooks, testing::Range(0, 28));

} // namespace
