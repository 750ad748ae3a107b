#include "tests/templates/ManagerRun.h"

#include <wx/filedlg.h>
#include <wx/modalhook.h>

#include <array>
#include <cstdlib>
#include <map>
#include <set>

using namespace testing_support;

namespace
{

// Knows the toolkit's own dialog while it is up; it is in no list of windows.
class NativeDialogs : public wxModalDialogHook
{
public:
    NativeDialogs() { Register(); }
    static wxDialog* current;
    static bool isReady() { return current && takesKeys(current); }

protected:
    int Enter(wxDialog* dialog) override
    {
        if (dynamic_cast<wxFileDialog*>(dialog))
            current = dialog;
        return wxID_NONE;
    }
    void Exit(wxDialog* dialog) override
    {
        if (dialog == current)
            current = nullptr;
    }
};

wxDialog* NativeDialogs::current = nullptr;

class WindowFlowTest : public ManagerTest
{
protected:
    WindowFlowTest() { storeThree(); }
};

int windowsIn(const wxWindow& window)
{
    int count = 1;
    for (const wxWindow* const inner : window.GetChildren())
        count += windowsIn(*inner);
    return count;
}

TEST_F(WindowFlowTest, RibbonButtonsDoWhatTheySay)
{
    WindowDriver user;
    for (const auto& [command, title] : {std::pair(32801, "Sort"), std::pair(32800, "Find")})
    {
        user.when("the manager is up", atRest, [number = command] { clickRibbon(number); });
        user.when(
            "its dialog is up", [dialog = title] { return isReady(dialog); }, [] { pressKey(WXK_ESCAPE); });
    }
    user.when("the manager is back", atRest, [] { clickCell(0, "Tool Diameter"); });
    for (const auto& [command, first] : {std::pair(32803, "Gamma"), std::pair(32802, "Alpha")})
    {
        user.when(
            "a row is selected", [] { return grid()->IsSelection(); }, [number = command] { clickRibbon(number); });
        user.when("sorted", [name = first] { return cell(0, "Name") == name; });
    }
    user.then("close", [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
}

TEST_F(WindowFlowTest, TheApplicationButtonHoldsPreferencesAndExit)
{
    WindowDriver user;
    user.when("the manager is up", atRest, [] { clickAt(manager(), {20, 12}); });
    pressInMenu(user, {WXK_DOWN, WXK_RETURN});
    user.when(
        "the preferences are up", [] { return isReady("Template Preferences"); }, [] { pressKey(WXK_ESCAPE); });
    user.when("the manager is back", atRest, [] { pressKey(WXK_F10); });
    pressInMenu(user, {WXK_UP, WXK_RETURN});
    EXPECT_EQ(load(), 0);
    EXPECT_TRUE(m_owner->IsEnabled());
}

TEST_F(WindowFlowTest, AccessKeysOpenWhatTheButtonsOpen)
{
    const NativeDialogs dialogs;
    WindowDriver user;
    user.when("the manager is up", atRest, [] { pressKey('F', wxMOD_ALT); });
    user.when(
        "Find is up", [] { return isReady("Find"); }, [] { pressKey(WXK_ESCAPE); });
    for (const char key : {'I', 'E'})
    {
        user.when("at rest", atRest, [key] { pressKey(key, wxMOD_ALT); });
        user.when("the file dialog is up", NativeDialogs::isReady, [] { pressKey(WXK_ESCAPE); });
    }
    user.when(
        "at rest", [] { return !NativeDialogs::current && atRest(); }, [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
}

TEST_F(WindowFlowTest, TheFocusComesBackFromEveryDialog)
{
    const NativeDialogs dialogs;
    const auto doing = [](const std::function<void()>& action)
    {
        return [action](WindowDriver& user)
        {
            user.when(
                "a row is selected", [] { return atRest() && grid()->IsSelection(); }, action);
        };
    };
    const struct
    {
        const char* title;
        std::function<void(WindowDriver&)> open;
    } ways[] = {{"Sort", doing([] { clickRibbon(32801); })},
                {"Find", doing([] { clickRibbon(32800); })},
                {"Find", doing([] { pressKey('F', wxMOD_CONTROL); })},
                {"Template Preferences", openPreferences},
                {"Template Manager", doing([] { pressKey(WXK_DELETE); })},
                {"", doing([] { clickRibbon(32804); })},
                {"", doing([] { clickRibbon(32805); })}};
    WindowDriver user;
    user.when("the manager is up", atRest, [] { clickCell(0, "Name"); });
    for (const auto& way : ways)
        for (const auto& [key, row] : {std::pair(WXK_DOWN, 1), std::pair(WXK_UP, 0)})
        {
            const bool native = !*way.title;
            way.open(user);
            user.when(
                std::string("up: ") + way.title,
                [native, title = way.title] { return native ? NativeDialogs::isReady() : isReady(title); },
                [] { pressKey(WXK_ESCAPE); });
            user.when(
                "at rest", [] { return !NativeDialogs::current && atRest(); }, [pressed = key] { pressKey(pressed); });
            user.when(std::string("the key goes to the grid after ") + way.title,
                      [wanted = row] { return grid()->GetGridCursorRow() == wanted; });
        }
    user.then("close", [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
}

TEST_F(WindowFlowTest, AQuitMessageEndsTheCallOverAMenu)
{
    for (const bool ofGrid : {true, false})
    {
        WindowDriver user;
        user.when("the manager is up", atRest,
                  [ofGrid]
                  {
                      if (ofGrid)
                          person().click(heading("Name"), Person::right);
                      else
                          pressKey(WXK_F10);
                  });
        user.when("the menu is up", menuIsUp, tessaronResourcesQuit);
        EXPECT_EQ(load(), 0);
        EXPECT_FALSE(menuIsUp());
        EXPECT_TRUE(m_owner->IsEnabled());
    }
}

TEST_F(WindowFlowTest, ColumnsAreMovedWidenedAndHiddenAndStaySo)
{
    WindowDriver user;
    user.when("the manager is up", atRest, [] { person().drag(heading("Hardness"), heading("Part Material")); });
    user.when(
        "the column has moved", [] { return columnOf("Hardness") == 1 && !wxGetMouseState().LeftIsDown(); },
        []
        {
            EXPECT_EQ(columnOf("Name"), 0);
            const wxPoint edge(placeInCell(0, "Material", 1.0).x, headings().y + 10);
            person().drag(edge, edge + wxPoint(40, 0));
        });
    user.when(
        "the column is wider",
        [] { return grid()->GetColSize(columnOf("Material")) > 120 && !wxGetMouseState().LeftIsDown(); },
        [] { person().click(heading("Name"), Person::right); });
    // The first item, the name, cannot be chosen.
    pressInMenu(user, {WXK_DOWN, WXK_DOWN, WXK_RETURN});
    user.when(
        "a column is hidden", [] { return !grid()->IsColShown(2); },
        []
        {
            EXPECT_EQ(columnOf("Part Material"), 2);
            clickManager(1150);
        });
    EXPECT_EQ(load(), 0);

    user.when("after a restart", atRest,
              []
              {
                  EXPECT_EQ(columnOf("Hardness"), 1);
                  EXPECT_FALSE(grid()->IsColShown(columnOf("Part Material")));
                  EXPECT_TRUE(grid()->IsColShown(columnOf("Hardness")));
                  EXPECT_NEAR(grid()->GetColSize(columnOf("Material")), 136, 2);
                  clickManager(1150);
              });
    EXPECT_EQ(load(), 0);
}

TEST_F(WindowFlowTest, EveryThemeRepaintsTheWindowAndLeavesNothingBehind)
{
    typedef std::array<wxUint32, 3> Look;
    std::map<int, Look> looks;
    std::set<int> windows;
    WindowDriver user;
    user.when("the manager is up", atRest);
    for (int turn = 0; turn < 2 * 28; ++turn)
    {
        chooseTheme(user, turn % 28);
        user.then("it is there",
                  [&, theme = turn % 28, first = turn < 28]
                  {
                      const Look look = {grid()->GetDefaultCellBackgroundColour().GetRGB(),
                                         grid()->GetDefaultCellTextColour().GetRGB(),
                                         grid()->GetLabelBackgroundColour().GetRGB()};
                      if (first)
                          looks[theme] = look;
                      EXPECT_EQ(look, looks[theme]) << theme;
                      windows.insert(windowsIn(*manager()));
                      EXPECT_EQ(wxTopLevelWindows.GetCount(), 2U);
                  });
    }
    for (const auto& [theme, background] :
         {std::pair(25, wxColour(28, 28, 28)), std::pair(26, wxColour(92, 136, 132)),
          std::pair(27, wxColour(85, 160, 185)), std::pair(26, wxColour(92, 136, 132))})
    {
        chooseTheme(user, theme);
        user.when(
            "it is painted",
            [expected = background]
            {
                const wxRect form = child(manager(), 1)->GetParent()->GetRect();
                const wxImage corner = pictureOf(manager(), {form.x + 2, form.GetBottom() - 2, 1, 1});
                return corner.IsOk() &&
                       wxColour(corner.GetRed(0, 0), corner.GetGreen(0, 0), corner.GetBlue(0, 0)) == expected;
            },
            [number = theme] { savePicture(manager(), "template-manager-theme-" + std::to_string(number)); });
    }
    user.then("close", [] { clickManager(1150); });
    // A number that is no theme leaves the look to the user.
    EXPECT_EQ(load(28), 0);
    EXPECT_EQ(windows.size(), 1U);
    std::set<Look> different;
    for (const auto& [theme, look] : looks)
        different.insert(look);
    EXPECT_GE(different.size(), 20U);
}

TEST_F(WindowFlowTest, TheHostsThemeHoldsAndTheUsersChoiceIsForWhereItSetsNone)
{
    constexpr int hosts = 26;
    constexpr int users = 27;
    constexpr int none = -1;
    const struct
    {
        const char* what;
        int hosts;
        bool userChooses;
        wxColour background;
    } openings[] = {
        {"the host's holds while the user chooses another", hosts, true, wxColour(92, 136, 132)},
        {"the user's choice was kept", none, false, wxColour(85, 160, 185)},
        {"the host's holds again", hosts, false, wxColour(92, 136, 132)},
    };
    for (const auto& opening : openings)
    {
        WindowDriver user;
        if (opening.userChooses)
            chooseTheme(user, users);
        user.when(
            opening.what,
            [&]
            {
                if (!atRest())
                    return false;
                const wxRect form = child(manager(), 1)->GetParent()->GetRect();
                const wxImage corner = pictureOf(manager(), {form.x + 2, form.GetBottom() - 2, 1, 1});
                return corner.IsOk() &&
                       wxColour(corner.GetRed(0, 0), corner.GetGreen(0, 0), corner.GetBlue(0, 0)) == opening.background;
            },
            [&]
            {
                EXPECT_EQ(child(manager(), 1147)->GetToolTip() != nullptr, opening.hosts == hosts) << opening.what;
                clickManager(1150);
            });
        EXPECT_EQ(load(opening.hosts), 0);
    }
}

TEST_F(WindowFlowTest, ALibraryThatMayOnlyBeReadSaysSoInALineAndNotInABox)
{
    const auto notice = [] { return manager()->FindWindow(1160); };
    for (const bool readOnly : {false, true})
    {
        WindowDriver user;
        user.when("the manager is up", atRest);
        chooseTheme(user, 3);
        user.then("close",
                  [&, readOnly]
                  {
                      EXPECT_EQ(notice()->IsShown(), readOnly);
                      EXPECT_TRUE(!readOnly ||
                                  notice()->GetLabel().StartsWith("This template library cannot be written"));
                      if (readOnly)
                          savePicture(manager(), "template-manager-read-only");
                      clickManager(1150);
                  });
        // Nobody, not even the superuser, may make a file in the second one.
        EXPECT_EQ(TessaronResources::displayTemplateManagerDialogLoad(0, 0, readOnly ? "/proc" : folder(), m_current,
                                                                      &m_result, m_owner, util::VisualTheme(-1)),
                  0);
    }
}

TEST_F(WindowFlowTest, WindowsComeUpOverTheirOwnerAndThenWhereTheUserMovedThem)
{
    const auto middle = [](const wxTopLevelWindow* window)
    {
        const wxRect rect = window->GetScreenRect();
        return rect.GetPosition() + rect.GetSize() / 2;
    };
    const auto expectNear = [](wxPoint one, wxPoint other, int distance)
    {
        EXPECT_NEAR(one.x, other.x, distance);
        EXPECT_NEAR(one.y, other.y, distance);
    };
    // Grips a window by its title.
    const auto moveBy = [](const wxTopLevelWindow* window, wxPoint way)
    {
        const wxPoint grip(window->ClientToScreen(wxPoint(0, 0)).x + 60, window->GetScreenPosition().y + 8);
        person().drag(grip, grip + way);
    };
    const auto widen = [](const wxTopLevelWindow* window)
    {
        const wxRect rect = window->GetScreenRect();
        person().drag(rect.GetBottomRight() - wxPoint(1, 1), rect.GetBottomRight() + wxPoint(60, 40));
    };
    // A window manager that is busy misses a quick drag, and the person tries again.
    int turns = 0;
    const auto triesUntil = [&turns](const std::function<void()>& attempt, bool changed)
    {
        if (!changed && ++turns % 100 == 0)
            attempt();
        return changed && !wxGetMouseState().LeftIsDown();
    };
    // Nothing is known of this user yet.
    std::filesystem::remove_all(std::getenv("XDG_CONFIG_HOME"));
    m_owner->SetSize(700, 500, 600, 400);
    waitFor("the owner is there", [this] { return m_owner->GetPosition() == wxPoint(700, 500); });
    wxPoint managerAt;
    wxPoint sortAt;
    wxSize sortSize;
    for (const bool again : {false, true})
    {
        WindowDriver user;
        user.when("the manager is up", atRest,
                  [&, again]
                  {
                      // What the window manager adds is not known when a window is placed.
                      if (again)
                          expectNear(manager()->GetPosition(), managerAt, 1);
                      else
                          expectNear(middle(manager()), middle(m_owner), 40);
                      clickRibbon(32801);
                  });
        user.when(
            "the dialog is up", [] { return isReady("Sort"); },
            [&, again]
            {
                wxTopLevelWindow* const sort = windowTitled("Sort");
                if (again)
                {
                    expectNear(sort->GetPosition(), sortAt, 1);
                    EXPECT_EQ(sort->GetSize(), sortSize);
                    pressKey(WXK_ESCAPE);
                    return;
                }
                expectNear(middle(sort), middle(manager()), 40);
                sortAt = sort->GetPosition();
                sortSize = sort->GetSize();
                moveBy(sort, {-90, 70});
            });
        if (!again)
        {
            user.when(
                "it has moved",
                [&]
                {
                    wxTopLevelWindow* const sort = windowTitled("Sort");
                    return triesUntil([&] { moveBy(sort, {-90, 70}); }, sort->GetPosition() != sortAt);
                },
                [&]
                {
                    sortAt = windowTitled("Sort")->GetPosition();
                    widen(windowTitled("Sort"));
                });
            user.when(
                "it has grown",
                [&]
                {
                    wxTopLevelWindow* const sort = windowTitled("Sort");
                    return triesUntil([&] { widen(sort); }, sort->GetSize() != sortSize);
                },
                [&]
                {
                    sortSize = windowTitled("Sort")->GetSize();
                    sortAt = windowTitled("Sort")->GetPosition();
                    pressKey(WXK_ESCAPE);
                });
            user.when("the manager is back", atRest,
                      [&]
                      {
                          managerAt = manager()->GetPosition();
                          moveBy(manager(), {50, -60});
                      });
            user.when(
                "it has moved",
                [&] {
                    return triesUntil([&] { moveBy(manager(), {50, -60}); }, manager()->GetPosition() != managerAt);
                });
        }
        user.when("the end", atRest,
                  [&]
                  {
                      managerAt = manager()->GetPosition();
                      clickManager(1150);
                  });
        EXPECT_EQ(load(), 0);
    }
}

TEST_F(WindowFlowTest, TheOwnerIsEnabledAgainOnEveryWayOut)
{
    auto* const parent = new wxFrame(nullptr, wxID_ANY, "owner's parent");
    auto* const owner = new wxFrame(parent, wxID_ANY, "owned owner");
    parent->Show();
    owner->Show();
    const auto doing = [](const std::function<void()>& action)
    { return [action](WindowDriver& user) { user.then("the way out", action); }; };
    const struct
    {
        const char* way;
        std::function<void(WindowDriver&)> out;
    } ways[] = {{"Cancel", doing([] { clickManager(1150); })},
                {"Exit",
                 [](WindowDriver& user)
                 {
                     user.then("the application button", [] { pressKey(WXK_F10); });
                     pressInMenu(user, {WXK_UP, WXK_RETURN});
                 }},
                {"the close box", doing([] { pressKey(WXK_F4, wxMOD_ALT); })},
                {"Apply with nothing selected", doing([] { clickManager(1); })},
                {"a quit message", doing(tessaronResourcesQuit)}};
    for (const auto& way : ways)
    {
        SCOPED_TRACE(way.way);
        WindowDriver user;
        user.when("the manager is up", atRest,
                  [&]
                  {
                      EXPECT_FALSE(owner->IsEnabled());
                      EXPECT_FALSE(parent->IsEnabled());
                  });
        way.out(user);
        EXPECT_EQ(TessaronResources::displayTemplateManagerDialogLoad(0, 0, folder(), m_current, &m_result, owner,
                                                                      util::VisualTheme::nx8),
                  0);
        EXPECT_TRUE(owner->IsEnabled());
        EXPECT_TRUE(parent->IsEnabled());
    }
    parent->Destroy();
}

} // namespace
