#include "tests/templates/ManagerRun.h"

using namespace testing_support;

namespace
{

constexpr int white = 24;
constexpr int dark = 25;
constexpr int noTheme = -1;
const wxColour darkBackground(28, 28, 28);

// The colour that the screen shows in the lower left corner, where dialogs have nothing but their background.
wxColour cornerColour(wxWindow* window)
{
    const wxImage corner = window ? pictureOf(window, wxRect(2, window->GetClientSize().y - 3, 1, 1)) : wxImage();
    return corner.IsOk() ? wxColour(corner.GetRed(0, 0), corner.GetGreen(0, 0), corner.GetBlue(0, 0)) : wxColour();
}

// The share of what the screen shows of a window that is light.
double lightShare(wxWindow* window)
{
    const wxImage picture = pictureOf(window, window->GetClientSize());
    const auto size = static_cast<std::size_t>(picture.GetWidth()) * static_cast<std::size_t>(picture.GetHeight());
    std::size_t light = 0;
    for (std::size_t pixel = 0; pixel < size; ++pixel)
        light += picture.GetData()[3 * pixel + 1] > 160 ? 1 : 0;
    return static_cast<double>(light) / static_cast<double>(size);
}

class LooksFlowTest : public ManagerTest
{
protected:
    LooksFlowTest() { storeThree(); }
};

TEST_F(LooksFlowTest, EveryDialogIsPaintedInTheLookInForceAlsoAfterASwitch)
{
    const auto clicking = [](int command)
    { return [command](WindowDriver& user) { user.when("at rest", atRest, [command] { clickRibbon(command); }); }; };
    const struct
    {
        const char* title;
        int cancel;
        std::function<void(WindowDriver&)> open;
    } dialogs[] = {{"Sort", 2, clicking(32801)},
                   {"Find", 1, clicking(32800)},
                   {"Template Preferences", 2, [](WindowDriver& user) { openPreferences(user); }}};
    WindowDriver user;
    chooseTheme(user, dark);
    user.when(
        "the window is dark", [] { return cornerColour(manager()) == darkBackground; },
        [] { EXPECT_LT(lightShare(manager()), 0.1); });
    // More than once, as not every window that is painted too early or too late is so each time.
    for (int turn = 0; turn < 3; ++turn)
        for (const auto& dialog : dialogs)
        {
            dialog.open(user);
            user.when(
                std::string(dialog.title) + " is painted",
                [title = dialog.title]
                { return isReady(title) && cornerColour(windowTitled(title)) == darkBackground; },
                [&dialog]
                {
                    EXPECT_LT(lightShare(windowTitled(dialog.title)), 0.1) << dialog.title;
                    savePicture(windowTitled(dialog.title), std::string("template-dark-") + dialog.title);
                    press(dialog.title, dialog.cancel);
                });
            user.when("it is gone", [title = dialog.title] { return !isUp(title); });
        }
    chooseTheme(user, white);
    user.when(
        "the window is light again", [] { return cornerColour(manager()) != darkBackground; },
        [] { clickManager(1150); });
    EXPECT_EQ(load(noTheme), 0);
    util::TemplateInfo info;
    EXPECT_EQ(util::loadTemplateDefs(folder(), "tessaron_template_info", &info), 0);
    EXPECT_EQ(info.preferences.theme, white);
}

} // namespace
