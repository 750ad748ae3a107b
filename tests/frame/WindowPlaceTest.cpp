#include "frame/WindowPlace.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

using TessaronResources::windowPlace;

namespace
{

const wxSize window(400, 300);
const wxRect noOwner;
const std::vector<wxRect> oneScreen = {{0, 0, 1280, 720}};
const std::vector<wxRect> twoScreens = {{0, 0, 1280, 720}, {1280, 0, 1920, 1080}};

TEST(WindowPlace, IsInTheMiddleOfTheOwnerAndWholeOnItsScreen)
{
    const struct
    {
        const char* what;
        wxSize size;
        wxRect owner;
        const std::vector<wxRect>& screens;
        wxPoint place;
    } cases[] = {
        {"in the middle", window, {100, 100, 600, 400}, oneScreen, {200, 150}},
        {"without an owner", window, noOwner, oneScreen, {440, 210}},
        {"an owner at the edge", window, {1100, 600, 150, 100}, oneScreen, {880, 420}},
        {"an owner at the near edge", window, {0, 0, 100, 100}, oneScreen, {0, 0}},
        {"an owner half on the second screen", window, {1250, 100, 600, 400}, twoScreens, {1350, 150}},
        {"an owner at the seam", window, {1290, 100, 100, 100}, twoScreens, {1280, 0}},
        {"an owner off all screens", window, {5000, 5000, 100, 100}, oneScreen, {880, 420}},
        {"larger than the screen", {1400, 900}, {100, 100, 600, 400}, oneScreen, {0, 0}},
    };
    for (const auto& one : cases)
        EXPECT_EQ(windowPlace(std::nullopt, one.size, one.owner, one.screens), one.place) << one.what;
}

TEST(WindowPlace, IsWhereItWasKeptIfItCanBeSeenThere)
{
    const wxRect owner(100, 100, 600, 400);
    const struct
    {
        const char* what;
        wxPoint kept;
        const std::vector<wxRect>& screens;
        wxPoint place;
    } cases[] = {
        {"on the screen", {30, 40}, oneScreen, {30, 40}},
        {"partly below the screen", {30, 600}, oneScreen, {30, 420}},
        {"on the second screen", {1500, 40}, twoScreens, {1500, 40}},
        {"on a screen that is gone", {1500, 40}, oneScreen, {200, 150}},
        {"with its title above the screen", {30, -20}, oneScreen, {200, 150}},
    };
    for (const auto& one : cases)
        EXPECT_EQ(windowPlace(one.kept, window, owner, one.screens), one.place) << one.what;
}

TEST(WindowPlace, GoesBesideWhatItWouldCoverByTheShortestWay)
{
    const wxRect screen = oneScreen.front();
    const wxRect dialog(400, 300, 300, 100);
    const struct
    {
        const char* what;
        wxRect shown;
        wxPoint place;
    } cases[] = {
        {"not covered", {400, 450, 90, 20}, {400, 300}},
        {"near its upper edge", {400, 310, 90, 20}, {400, 338}},
        {"near its lower edge", {400, 370, 90, 20}, {400, 262}},
        {"near its left edge", {310, 330, 100, 60}, {418, 300}},
        {"larger than the screen", {0, 0, 1280, 720}, {400, 300}},
    };
    for (const auto& one : cases)
        EXPECT_EQ(TessaronResources::placeBeside(dialog, one.shown, screen), one.place) << one.what;
    EXPECT_EQ(TessaronResources::placeBeside({400, 610, 300, 100}, {400, 615, 300, 20}, screen), wxPoint(400, 507))
        << "there is no room below";
}

} // namespace
