#include "tests/templates/ManagerRun.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/checklst.h>
#include <wx/combobox.h>
#include <wx/dirdlg.h>
#include <wx/fontdlg.h>
#include <wx/modalhook.h>
#include <wx/textctrl.h>

using namespace testing_support;

namespace
{

// Knows the toolkit's own dialog while it is up; it is in no list of windows.
class ToolkitDialog : public wxModalDialogHook
{
public:
    ToolkitDialog() { Register(); }
    static wxDialog* current;

    template <class Dialog>
    static bool isUp()
    {
        return dynamic_cast<Dialog*>(current) && takesKeys(current);
    }

protected:
    int Enter(wxDialog* dialog) override
    {
        if (dynamic_cast<wxDirDialog*>(dialog) || dynamic_cast<wxFontDialog*>(dialog))
            current = dialog;
        return wxID_NONE;
    }
    void Exit(wxDialog* dialog) override
    {
        if (dialog == current)
            current = nullptr;
    }
};

wxDialog* ToolkitDialog::current = nullptr;

constexpr int white = 24; // the theme before the dark one, which two follow
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

class DialogFlowTest : public ManagerTest
{
protected:
    DialogFlowTest() { storeThree(); }

    static void press(const char* title, int id) { click(child(windowTitled(title), id)); }

    static wxString text(const char* title, int id) { return control<wxTextCtrl>(title, id)->GetValue(); }

    static bool columnIs(int selected, const char* title)
    {
        const auto* const list = control<wxCheckListBox>("Columns", 1138);
        return list->GetSelection() == selected && list->GetString(static_cast<unsigned>(selected)) == title;
    }

    // The middle of the first level's order.
    static void clickOrder()
    {
        auto* const levels = control<wxGrid>("Sort", 1137);
        const wxRect cell = levels->CellToRect(0, 2);
        clickAt(levels->GetGridWindow(), cell.GetPosition() + cell.GetSize() / 2);
    }
    static bool otherOrderChosen()
    {
        const auto* const orders = dynamic_cast<wxComboBox*>(wxWindow::FindFocus());
        return orders && orders->GetValue() == "Z to A";
    }

    template <class Control>
    static Control* control(const char* title, int id)
    {
        return dynamic_cast<Control*>(child(windowTitled(title), id));
    }
};

TEST_F(DialogFlowTest, SortsByTheLevelsOfTheDialog)
{
    WindowDriver user;
    user.when("the manager is up", atRest, [] { open(32801); });
    user.when(
        "the sort dialog is up", [] { return isReady("Sort"); },
        []
        {
            auto* const levels = control<wxGrid>("Sort", 1137);
            EXPECT_EQ(levels->GetColLabelValue(0), "Sort");
            EXPECT_EQ(levels->GetCellValue(0, 0), "Sort by");
            EXPECT_EQ(levels->GetCellValue(0, 2), "A to Z");
            press("Sort", 1133);
        });
    user.when(
        "a second level", [] { return control<wxGrid>("Sort", 1137)->GetNumberRows() == 2; },
        []
        {
            auto* const levels = control<wxGrid>("Sort", 1137);
            EXPECT_EQ(levels->GetCellValue(1, 0), "Then by");
            press("Sort", 1057);
        });
    user.when(
        "it has moved up", [] { return control<wxGrid>("Sort", 1137)->GetCellValue(1, 1) == "Name"; },
        []
        {
            savePicture(windowTitled("Sort"), "template-sort");
            EXPECT_FALSE(child(windowTitled("Sort"), 1057)->IsEnabled());
            EXPECT_TRUE(child(windowTitled("Sort"), 1058)->IsEnabled());
            press("Sort", 1058);
        });
    user.when(
        "it is down again", [] { return control<wxGrid>("Sort", 1137)->GetCellValue(0, 1) == "Name"; },
        []
        {
            EXPECT_EQ(control<wxGrid>("Sort", 1137)->GetCellValue(0, 0), "Sort by");
            EXPECT_TRUE(child(windowTitled("Sort"), 1057)->IsEnabled());
            EXPECT_FALSE(child(windowTitled("Sort"), 1058)->IsEnabled());
            press("Sort", 1134);
        });
    user.when(
        "the moved level is gone", [] { return control<wxGrid>("Sort", 1137)->GetNumberRows() == 1; },
        []
        {
            EXPECT_EQ(control<wxGrid>("Sort", 1137)->GetCellValue(0, 1), "Name");
            clickOrder();
        });
    // The first click opens the list of orders, in which the keys go from one to the next.
    user.when(
        "the order is edited", [] { return control<wxGrid>("Sort", 1137)->IsCellEditControlShown(); },
        []
        {
            auto* const orders = dynamic_cast<wxComboBox*>(wxWindow::FindFocus());
            ASSERT_NE(orders, nullptr);
            EXPECT_EQ(orders->GetString(0) + "/" + orders->GetString(1), "A to Z/Z to A");
            pressKey(WXK_DOWN);
        });
    user.when(
        "the other order is chosen", [] { return otherOrderChosen(); }, [] { press("Sort", 1); });
    user.when(
        "the manager is back, sorted the other way round", [] { return !isUp("Sort") && atRest(); },
        []
        {
            EXPECT_EQ(cell(0, "Name"), "Gamma");
            EXPECT_EQ(cell(2, "Name"), "Alpha");
            clickManager(1150);
        });
    EXPECT_EQ(load(), 0);
}

TEST_F(DialogFlowTest, ColumnsAreChosenAndKept)
{
    WindowDriver user;
    user.when("the manager is up", atRest,
              []
              {
                  manager()->SetSize(900, 600);
                  const wxRect rect = grid()->CellToRect(0, 0);
                  wxUIActionSimulator mouse;
                  mouse.MouseMove(grid()->GetGridWindow()->ClientToScreen(rect.GetPosition() + wxPoint(20, 8)));
                  mouse.MouseClick(wxMOUSE_BTN_RIGHT);
              });
    // The last but two entry of the menu.
    user.when("the menu is up", menuIsUp,
              []
              {
                  pressKey(WXK_UP);
                  pressKey(WXK_UP);
                  pressKey(WXK_RETURN);
              });
    user.when(
        "the columns dialog is up", [] { return isReady("Columns"); },
        []
        {
            auto* const list = control<wxCheckListBox>("Columns", 1138);
            EXPECT_EQ(list->GetCount(), 26U);
            EXPECT_FALSE(child(windowTitled("Columns"), 1057)->IsEnabled());
            EXPECT_FALSE(child(windowTitled("Columns"), 1058)->IsEnabled());
            clickAt(list, wxPoint(list->GetSize().x / 2, 10));
        });
    user.when(
        "the name column is selected", [] { return columnIs(0, "Name"); },
        []
        {
            EXPECT_FALSE(child(windowTitled("Columns"), 1057)->IsEnabled());
            EXPECT_FALSE(child(windowTitled("Columns"), 1058)->IsEnabled());
            pressKey(WXK_DOWN);
        });
    user.when(
        "the second is selected", [] { return columnIs(1, "Part Material"); },
        []
        {
            EXPECT_FALSE(child(windowTitled("Columns"), 1057)->IsEnabled());
            EXPECT_TRUE(child(windowTitled("Columns"), 1058)->IsEnabled());
            pressKey(WXK_SPACE);
        });
    user.when(
        "it is hidden", [] { return !control<wxCheckListBox>("Columns", 1138)->IsChecked(1); },
        [] { press("Columns", 1058); });
    user.when(
        "it is one lower", [] { return columnIs(2, "Part Material"); }, [] { press("Columns", 1058); });
    user.when(
        "it is two lower", [] { return columnIs(3, "Part Material"); },
        []
        {
            EXPECT_FALSE(control<wxCheckListBox>("Columns", 1138)->IsChecked(3));
            EXPECT_TRUE(control<wxCheckListBox>("Columns", 1138)->IsChecked(1));
            press("Columns", 1057);
        });
    user.when(
        "it is one higher", [] { return columnIs(2, "Part Material"); },
        []
        {
            savePicture(windowTitled("Columns"), "template-columns");
            press("Columns", 1);
        });
    user.when(
        "the grid follows", [] { return !isUp("Columns") && atRest() && grid()->GetColLabelValue(1) == "Material"; },
        [this]
        {
            EXPECT_EQ(grid()->GetColLabelValue(2), "Part Material");
            EXPECT_FALSE(grid()->IsColShown(2));
            // Stored at once, with the window as it is.
            util::TemplateInfo info;
            EXPECT_EQ(util::loadTemplateDefs(folder(), "tessaron_template_info", &info), 0);
            EXPECT_EQ(info.columns[1].title, "Material");
            EXPECT_FALSE(info.columns[2].shown);
            EXPECT_EQ(wxSize(info.windowWidth, info.windowHeight), manager()->GetSize());
            clickManager(1150);
        });
    EXPECT_EQ(load(), 0);
}

TEST_F(DialogFlowTest, FindsHitAfterHitAndTellsWhenThereIsNoMore)
{
    WindowDriver user;
    user.when("the manager is up", atRest, [] { open(32800); });
    user.when(
        "the find dialog is up", [] { return isReady("Find"); },
        []
        {
            control<wxComboBox>("Find", 1141)->SetValue("  GAMMA ");
            press("Find", 1140);
        });
    user.when(
        "the hit is the current cell", [] { return grid()->GetGridCursorRow() == 2; },
        []
        {
            savePicture(windowTitled("Find"), "template-find");
            press("Find", 1140);
        });
    for (int time = 0; time < 2; ++time)
    {
        user.when("nothing more", messageIsUp,
                  []
                  {
                      EXPECT_EQ(message(), "Template Manager cannot find data you're searching for.");
                      answer(1);
                  });
        user.when(
            "back in the dialog", [] { return isReady("Find"); }, [time] { press("Find", time == 0 ? 1140 : 1); });
    }
    // Another dialog begins at the beginning.
    user.when(
        "closed", [] { return !isUp("Find") && atRest(); },
        []
        {
            grid()->GoToCell(0, 1);
            open(32800);
        });
    user.when(
        "the find dialog is up again", [] { return isReady("Find"); },
        []
        {
            EXPECT_EQ(control<wxComboBox>("Find", 1141)->GetValue(), "GAMMA");
            EXPECT_EQ(control<wxComboBox>("Find", 1141)->GetCount(), 1U);
            press("Find", 1140);
        });
    user.when(
        "it is found again", [] { return grid()->GetGridCursorRow() == 2; }, [] { press("Find", 1); });
    // The key goes on with the last text; of a text without further hits it says so.
    user.when("closed", atRest, [] { pressKey(WXK_F3); });
    user.when("nothing more", messageIsUp, [] { answer(1); });
    user.when("the manager is back", atRest, [] { open(32800); });
    user.when(
        "the find dialog is up", [] { return isReady("Find"); },
        []
        {
            control<wxComboBox>("Find", 1141)->SetValue("ta");
            press("Find", 1140);
        });
    user.when(
        "the only name with it", [] { return grid()->GetGridCursorRow() == 1; },
        []
        {
            control<wxComboBox>("Find", 1141)->SetValue("6061");
            press("Find", 1140);
        });
    user.when(
        "the first hit", [] { return grid()->GetGridCursorRow() == 0; }, [] { press("Find", 1); });
    for (const int row : {1, 2})
    {
        user.when("at rest", atRest, [] { pressKey(WXK_F3); });
        user.when("the next hit", [row] { return grid()->GetGridCursorRow() == row; });
    }
    user.then("close", [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
}

TEST_F(DialogFlowTest, FindGoesOnAfterItFoundNothing)
{
    WindowDriver user;
    user.when("the manager is up", atRest, [] { pressKey('F', wxMOD_CONTROL); });
    for (const char* const text : {"nowhere", "Gamma"})
        user.when(
                "the dialog waits for a text", [] { return isReady("Find"); },
                [text]
                {
                    pressKey('A', wxMOD_CONTROL);
                    type(text);
                    pressKey(WXK_RETURN);
                })
            .when(
                "the answer",
                [found = std::string(text) == "Gamma"]
                { return found ? grid()->GetGridCursorRow() == 2 : messageIsUp(); },
                [found = std::string(text) == "Gamma"] { pressKey(found ? WXK_ESCAPE : WXK_RETURN); });
    user.when("at rest", atRest, [] { pressKey(WXK_F3); });
    user.when("no more", messageIsUp, [] { pressKey(WXK_RETURN); });
    user.when("at rest again", atRest, [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
}

TEST_F(DialogFlowTest, PreferencesFilterAtOnceAndSurviveARestart)
{
    WindowDriver user;
    user.when("the manager is up", atRest, [] { open(32797); });
    user.when(
        "the preferences are up", [] { return isReady("Template Preferences"); },
        [this]
        {
            EXPECT_EQ(control<wxTextCtrl>("Template Preferences", 1153)->GetValue(), folder());
            control<wxCheckBox>("Template Preferences", 1042)->SetValue(true);
            control<wxCheckBox>("Template Preferences", 1155)->SetValue(true);
            control<wxChoice>("Template Preferences", 1152)->SetSelection(1);
            savePicture(windowTitled("Template Preferences"), "template-preferences");
            press("Template Preferences", 1);
        });
    user.when(
        "only the template of the tool's diameter is left", [] { return atRest() && grid()->GetNumberRows() == 1; },
        []
        {
            EXPECT_EQ(cell(0, "Name"), "Beta");
            clickManager(1150);
        });
    EXPECT_EQ(load(), 0);

    user.when("after a restart", atRest,
              []
              {
                  EXPECT_EQ(grid()->GetNumberRows(), 1);
                  open(32797);
              });
    user.when(
        "the preferences are up", [] { return isReady("Template Preferences"); },
        []
        {
            EXPECT_TRUE(control<wxCheckBox>("Template Preferences", 1042)->GetValue());
            EXPECT_TRUE(control<wxCheckBox>("Template Preferences", 1155)->GetValue());
            press("Template Preferences", 1151);
        });
    user.when(
        "reset", [] { return !control<wxCheckBox>("Template Preferences", 1042)->GetValue(); },
        []
        {
            EXPECT_EQ(control<wxChoice>("Template Preferences", 1152)->GetSelection(), 0);
            press("Template Preferences", 1);
        });
    user.when(
        "all templates again", [] { return atRest() && grid()->GetNumberRows() == 3; }, [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
}

TEST_F(DialogFlowTest, FolderAndFontAreChosenAndResetToTheHostsAndTheSystems)
{
    const ToolkitDialog hook;
    const std::filesystem::path other = m_folder / "other place";
    // Of a single folder in it the dialog would complete the name, and take that one.
    for (const char* const kind : {"tessaron", "orrimant"})
        std::filesystem::create_directories(other / kind);
    std::filesystem::copy_file(util::templatePath(kindFolder(), "Beta.vtmpl"), other / "tessaron" / "Beta.vtmpl");
    constexpr const char* title = "Template Preferences";
    wxString systemFont;
    WindowDriver user;
    user.when("the manager is up", atRest, [] { open(32797); });
    user.when(
        "the preferences are up", [] { return isReady(title); },
        [&]
        {
            systemFont = text(title, 1157);
            press(title, 1154);
        });
    user.when("the folder dialog is up", ToolkitDialog::isUp<wxDirDialog>, [&] { type(other.c_str()); });
    // The first Enter may only take what the dialog offers to complete.
    user.when(
        "the folder is chosen",
        [&, ticks = 0]() mutable
        {
            if (ToolkitDialog::isUp<wxDirDialog>() && ++ticks % 30 == 0)
                wxTheApp->CallAfter([] { pressKey(WXK_RETURN); });
            return !ToolkitDialog::current && text(title, 1153) == other.string();
        },
        [] { press(title, 1158); });
    user.when("the font dialog is up", ToolkitDialog::isUp<wxFontDialog>,
              [] { chooseFont(ToolkitDialog::current, "Sans Bold 17"); });
    user.when(
        "the font is shown", [] { return !ToolkitDialog::current && text(title, 1157).Contains("17"); },
        [] { press(title, 1); });
    user.when(
        "the other folder is listed in that font", [] { return atRest() && grid()->GetNumberRows() == 1; },
        []
        {
            EXPECT_EQ(grid()->GetDefaultCellFont().GetPointSize(), 17);
            clickManager(1150);
        });
    EXPECT_EQ(load(), 0);
    std::vector<std::string> folders;
    EXPECT_EQ(util::loadTemplateFolders(folder(), &folders), 0);
    EXPECT_EQ(folders, (std::vector<std::string>{other.string(), folder()}));

    user.when(
        "after a restart", [] { return atRest() && grid()->GetNumberRows() == 1; }, [] { open(32797); });
    user.when(
        "the preferences are up", [] { return isReady(title); },
        [&]
        {
            EXPECT_TRUE(text(title, 1157).Contains("17"));
            EXPECT_EQ(text(title, 1153), other.string());
            press(title, 1151);
        });
    user.when(
        "all is reset", [&] { return text(title, 1157) == systemFont && text(title, 1153) == folder(); },
        [] { press(title, 1); });
    user.when(
        "the host's folder is listed", [] { return atRest() && grid()->GetNumberRows() == 3; },
        []
        {
            EXPECT_NE(grid()->GetDefaultCellFont().GetPointSize(), 17);
            clickManager(1150);
        });
    EXPECT_EQ(load(), 0);
}

TEST_F(DialogFlowTest, EveryDialogIsPaintedInTheLookInForceAlsoAfterASwitch)
{
    const struct
    {
        int command;
        const char* title;
        int cancel;
    } dialogs[] = {{32801, "Sort", 2}, {32800, "Find", 1}, {32797, "Template Preferences", 2}};
    const auto focusThemes = []
    {
        child(manager(), 1147)->SetFocus();
        return child(manager(), 1147)->HasFocus();
    };
    WindowDriver user;
    user.when("the manager is up", atRest, [] { click(child(manager(), 1147)); });
    user.when("the list of themes is open", menuIsUp,
              []
              {
                  // From the last one up to the dark one.
                  for (const int key : {WXK_END, WXK_UP, WXK_UP, WXK_RETURN})
                      pressKey(key);
              });
    user.when(
        "the window is dark", [] { return cornerColour(manager()) == darkBackground; },
        [] { EXPECT_LT(lightShare(manager()), 0.1); });
    // More than once, as not every window that is painted too early or too late is so each time.
    for (int turn = 0; turn < 3; ++turn)
        for (const auto& dialog : dialogs)
        {
            user.when("the window is at rest", atRest, [id = dialog.command] { open(id); });
            user.when(
                std::string(dialog.title) + " is painted",
                [title = dialog.title]
                { return isReady(title) && cornerColour(windowTitled(title)) == darkBackground; },
                [dialog]
                {
                    EXPECT_LT(lightShare(windowTitled(dialog.title)), 0.1) << dialog.title;
                    savePicture(windowTitled(dialog.title), std::string("template-dark-") + dialog.title);
                    press(dialog.title, dialog.cancel);
                });
            user.when("it is gone", [title = dialog.title] { return !isUp(title); });
        }
    user.when(
        "the themes again", [&] { return atRest() && focusThemes(); }, [] { pressKey(WXK_UP); });
    user.when(
        "the window is light again", [] { return cornerColour(manager()) != darkBackground; },
        [] { clickManager(1150); });
    EXPECT_EQ(load(noTheme), 0);
    util::TemplateInfo info;
    EXPECT_EQ(util::loadTemplateDefs(folder(), "tessaron_template_info", &info), 0);
    EXPECT_EQ(info.preferences.theme, white);
}

} // namespace
