#include "tests/templates/ManagerRun.h"

#include <wx/filedlg.h>
#include <wx/modalhook.h>
#include <wx/ribbon/bar.h>
#include <wx/ribbon/buttonbar.h>

#include <array>
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

    static wxRibbonBar* ribbon()
    {
        for (wxWindow* const window : manager()->GetChildren())
            if (auto* const bar = dynamic_cast<wxRibbonBar*>(window))
                return bar;
        return nullptr;
    }

    static wxRibbonButtonBar* barWith(const wxWindow& parent, int command)
    {
        for (wxWindow* const window : parent.GetChildren())
        {
            auto* const bar = dynamic_cast<wxRibbonButtonBar*>(window);
            if (bar && bar->GetItemById(command))
                return bar;
            if (wxRibbonButtonBar* const found = barWith(*window, command))
                return found;
        }
        return nullptr;
    }

    static void clickRibbon(int number)
    {
        const int command = static_cast<std::int16_t>(static_cast<std::uint16_t>(number));
        wxRibbonButtonBar* const bar = barWith(*ribbon(), command);
        ASSERT_NE(bar, nullptr) << number;
        const wxRect button = bar->GetItemRect(command);
        clickAt(bar, button.GetPosition() + wxSize(button.width / 2, button.height / 2));
    }

    static void rightClick(wxWindow* window, wxPoint at)
    {
        wxUIActionSimulator mouse;
        mouse.MouseMove(window->ClientToScreen(at));
        mouse.MouseClick(wxMOUSE_BTN_RIGHT);
    }

    static void chooseTheme(int theme)
    {
        auto* const themes = dynamic_cast<wxChoice*>(child(manager(), 1147));
        themes->SetSelection(theme);
        wxCommandEvent event(wxEVT_CHOICE, 1147);
        event.SetEventObject(themes);
        event.SetInt(theme);
        themes->GetEventHandler()->ProcessEvent(event);
    }

    // Where the menu of the application button or of the grid is up, keys go to it.
    static void pressInMenu(WindowDriver& user, const std::vector<int>& keys)
    {
        user.when("the menu is up", menuIsUp,
                  [keys]
                  {
                      for (const int key : keys)
                          pressKey(key);
                  });
    }
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
            "its dialog is up", [dialog = title] { return isReady(dialog); },
            [dialog = title] { windowTitled(dialog)->Close(); });
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
    user.when("the manager is up", atRest, [] { clickAt(ribbon(), {20, 12}); });
    pressInMenu(user, {WXK_DOWN, WXK_RETURN});
    user.when(
        "the preferences are up", [] { return isReady("Template Preferences"); },
        [] { windowTitled("Template Preferences")->Close(); });
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
    const struct
    {
        const char* title;
        std::function<void()> open;
    } ways[] = {{"Sort", [] { clickRibbon(32801); }},
                {"Find", [] { clickRibbon(32800); }},
                {"Find", [] { pressKey('F', wxMOD_CONTROL); }},
                {"Template Preferences", [] { open(32797); }},
                {"Template Manager", [] { pressKey(WXK_DELETE); }},
                {"", [] { clickRibbon(32804); }},
                {"", [] { clickRibbon(32805); }}};
    WindowDriver user;
    user.when("the manager is up", atRest, [] { clickCell(0, "Name"); });
    for (const auto& way : ways)
        for (const auto& [key, row] : {std::pair(WXK_DOWN, 1), std::pair(WXK_UP, 0)})
        {
            const bool native = !*way.title;
            user.when(
                "a row is selected", [] { return atRest() && grid()->IsSelection(); }, way.open);
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
                          rightClick(grid()->GetGridColLabelWindow(), heading("Name"));
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
    user.when("the manager is up", atRest,
              [] { drag(grid()->GetGridColLabelWindow(), heading("Hardness"), heading("Part Material")); });
    user.when(
        "the column has moved", [] { return columnOf("Hardness") == 1 && !wxGetMouseState().LeftIsDown(); },
        []
        {
            EXPECT_EQ(columnOf("Name"), 0);
            const wxPoint edge(grid()->CellToRect(0, columnOf("Material")).GetRight() + 1, 10);
            drag(grid()->GetGridColLabelWindow(), edge, edge + wxPoint(40, 0));
        });
    user.when(
        "the column is wider",
        [] { return grid()->GetColSize(columnOf("Material")) > 120 && !wxGetMouseState().LeftIsDown(); },
        [] { rightClick(grid()->GetGridColLabelWindow(), heading("Name")); });
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
        user.then("a theme is chosen",
                  [&, theme = turn % 28, first = turn < 28]
                  {
                      chooseTheme(theme);
                      const Look look = {grid()->GetDefaultCellBackgroundColour().GetRGB(),
                                         grid()->GetDefaultCellTextColour().GetRGB(),
                                         grid()->GetLabelBackgroundColour().GetRGB()};
                      if (first)
                          looks[theme] = look;
                      EXPECT_EQ(look, looks[theme]) << theme;
                      windows.insert(windowsIn(*manager()));
                      EXPECT_EQ(wxTopLevelWindows.GetCount(), 2U);
                  });
    for (const auto& [theme, background] :
         {std::pair(25, wxColour(28, 28, 28)), std::pair(26, wxColour(92, 136, 132)),
          std::pair(27, wxColour(85, 160, 185)), std::pair(26, wxColour(92, 136, 132))})
    {
        user.then("a theme is chosen", [number = theme] { chooseTheme(number); });
        user.when("it is painted",
                  [expected = background]
                  {
                      const wxRect form = child(manager(), 1)->GetParent()->GetRect();
                      const wxImage corner = pictureOf(manager(), {form.x + 2, form.GetBottom() - 2, 1, 1});
                      return corner.IsOk() &&
                             wxColour(corner.GetRed(0, 0), corner.GetGreen(0, 0), corner.GetBlue(0, 0)) == expected;
                  });
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
        {
            user.when("the manager is up", atRest, [] { click(child(manager(), 1147)); });
            user.when("the list is open", menuIsUp,
                      []
                      {
                          pressKey(WXK_END);
                          pressKey(WXK_RETURN);
                      });
            user.when("a theme is chosen",
                      [] { return dynamic_cast<wxChoice*>(child(manager(), 1147))->GetSelection() == users; });
        }
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

TEST_F(WindowFlowTest, TheOwnerIsEnabledAgainOnEveryWayOut)
{
    auto* const parent = new wxFrame(nullptr, wxID_ANY, "owner's parent");
    auto* const owner = new wxFrame(parent, wxID_ANY, "owned owner");
    parent->Show();
    owner->Show();
    const struct
    {
        const char* way;
        std::function<void()> out;
    } ways[] = {{"Cancel", [] { clickManager(1150); }},
                {"Exit", [] { command(32798); }},
                {"the close box", [] { manager()->Close(); }},
                {"Apply with nothing selected", [] { clickManager(1); }},
                {"a quit message", tessaronResourcesQuit}};
    for (const auto& way : ways)
    {
        SCOPED_TRACE(way.way);
        WindowDriver user;
        user.when("the manager is up", atRest,
                  [&]
                  {
                      EXPECT_FALSE(owner->IsEnabled());
                      EXPECT_FALSE(parent->IsEnabled());
                      way.out();
                  });
        EXPECT_EQ(TessaronResources::displayTemplateManagerDialogLoad(0, 0, folder(), m_current, &m_result, owner,
                                                                      util::VisualTheme::nx8),
                  0);
        EXPECT_TRUE(owner->IsEnabled());
        EXPECT_TRUE(parent->IsEnabled());
    }
    parent->Destroy();
}

} // namespace
