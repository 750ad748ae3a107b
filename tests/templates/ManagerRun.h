#ifndef TESTS_TEMPLATES_MANAGERRUN_H
#define TESTS_TEMPLATES_MANAGERRUN_H

#include "tests/support/WindowDriver.h"
#include <tessaron/engine/TemplateStore.h>
#include <tessaron/frame/EntryPoints.h>
#include <tessaron/util/Keys.h>
#include <tessaron/util/Parameterized.h>
#include <tessaron/util/VisualTheme.h>

#include <wx/app.h>
#include <wx/choice.h>
#include <wx/frame.h>
#include <wx/grid.h>
#include <wx/ribbon/buttonbar.h>
#include <wx/textctrl.h>
#include <wx/utils.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace testing_support
{

inline constexpr const char* managerTitle = "Operation Template Manager";

/// A template folder that holds three templates, a host's window, and the manager over it.
class ManagerTest : public testing::Test
{
protected:
    ManagerTest()
    {
        m_folder =
            std::filesystem::temp_directory_path() / ("manager-" + std::to_string(wxGetProcessId()) + "-" +
                                                      testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::remove_all(m_folder);
        m_current.set(util::keys::toolDiameter, 10.0);
        m_current.set(util::keys::feedrate, 800.0);
        m_owner = new wxFrame(nullptr, wxID_ANY, "owner");
        m_owner->Show();
        // A host has been in use for a while when it calls; a window that it opens at once may not get the keys.
        waitFor("the host's window has the keys", [this] { return takesKeys(m_owner); });
    }

    ~ManagerTest() override
    {
        m_owner->Destroy();
        std::filesystem::remove_all(m_folder);
    }

    void store(const std::string& name, double diameter, double rating)
    {
        util::Parameterized set;
        set.set(util::keys::templateName, name);
        set.set(util::keys::toolDiameter, diameter);
        set.set(util::keys::toolNumFlutes, 4);
        set.set(util::keys::toolLengthOfCut, 22.0);
        set.set(util::keys::toolStickOutLength, 35.0);
        set.set(util::keys::feedrate, 100.0 * diameter);
        set.set(util::keys::material, std::string("Aluminium 6061"));
        set.set(util::keys::templateDescription, "Pocket roughing, D" + std::to_string(static_cast<int>(diameter)));
        set.set(util::keys::templateRating, rating);
        ASSERT_EQ(util::saveTemplateFile(util::templatePath(kindFolder(), name), true, &set), 0);
    }

    void storeThree()
    {
        store("Alpha", 6.0, 3.0);
        store("Beta", 10.0, 5.0);
        store("Gamma", 12.0, 0.0);
    }

    util::Parameterized stored(const std::string& name) const
    {
        std::vector<util::Parameterized> sets;
        util::loadTemplateFiles(kindFolder(), 0, &sets);
        for (const util::Parameterized& candidate : sets)
            if (candidate.stringOr(util::keys::templateName, "") == name)
                return candidate;
        return {};
    }

    std::string folder() const { return m_folder.string(); }
    std::string kindFolder() const { return util::templatePath(folder(), "tessaron"); }

    std::vector<std::string> storedNames() const
    {
        std::vector<util::Parameterized> sets;
        util::loadTemplateFiles(kindFolder(), 0, &sets);
        std::vector<std::string> names;
        names.reserve(sets.size());
        for (const util::Parameterized& set : sets)
            names.push_back(set.stringOr(util::keys::templateName, ""));
        return names;
    }

    int load(int theme = 21)
    {
        return TessaronResources::displayTemplateManagerDialogLoad(0, 7, folder(), m_current, &m_result, m_owner,
                                                                   util::VisualTheme(theme));
    }

    int save(int theme = 21)
    {
        return TessaronResources::displayTemplateManagerDialogSave(0, 7, folder(), m_current, &m_result, &m_loadSaved,
                                                                   m_owner, util::VisualTheme(theme));
    }

    static wxTopLevelWindow* manager() { return windowTitled(managerTitle); }
    static bool managerIsUp() { return manager() && manager()->IsShownOnScreen() && takesKeys(manager()); }
    static wxGrid* grid() { return dynamic_cast<wxGrid*>(manager() ? manager()->FindWindow(1127) : nullptr); }
    static void clickManager(int id) { click(child(manager(), id)); }

    /// Clicks the middle of a cell, by the place of its row and the title of its column.
    static void clickCell(int row, const wxString& title, double across = 0.5, unsigned modifiers = Person::none)
    {
        ASSERT_NE(columnOf(title), wxNOT_FOUND) << title;
        grid()->MakeCellVisible(row, columnOf(title));
        person().click(placeInCell(row, title, across), Person::left, modifiers);
    }

    /// A place half way down a cell, on the screen.
    static wxPoint placeInCell(int row, const wxString& title, double across = 0.5)
    {
        const int col = columnOf(title);
        const wxRect rect = grid()->CellToRect(row, col);
        wxGridWindow* const window = grid()->CellToGridWindow(row, col);
        const wxPoint place(rect.x + static_cast<int>(rect.width * across), rect.y + rect.height / 2);
        return asWindow(window)->ClientToScreen(grid()->CalcGridWindowScrolledPosition(place, window));
    }

    static void clickAt(wxWindow* window, wxPoint at, Person::Button button = Person::left)
    {
        person().click(window->ClientToScreen(at), button);
    }

    // Picks a row, then others with the control key held.
    static void pick(std::initializer_list<int> rows)
    {
        unsigned held = Person::none;
        for (const int row : rows)
        {
            clickCell(row, "Name", 0.5, held);
            held = Person::control;
        }
    }

    static bool isSelected(int row) { return grid() && grid()->IsInSelection(row, 0); }

    static wxString cell(int row, const wxString& title)
    {
        for (int col = 0; col < grid()->GetNumberCols(); ++col)
            if (grid()->GetColLabelValue(col) == title)
                return grid()->GetCellValue(row, col);
        return "no such column";
    }

    static void drag(wxWindow* window, wxPoint from, wxPoint to)
    {
        person().drag(window->ClientToScreen(from), window->ClientToScreen(to));
    }

    /// A window of the grid; the toolkit does not say publicly that it is one.
    static wxWindow* asWindow(wxGridWindow* window)
    {
        wxWindow* const frozen = grid()->GetFrozenColGridWindow();
        return static_cast<void*>(window) == static_cast<void*>(frozen) ? frozen : grid()->GetGridWindow();
    }

    static int columnOf(const wxString& title)
    {
        for (int col = 0; col < grid()->GetNumberCols(); ++col)
            if (grid()->GetColLabelValue(col) == title)
                return col;
        return wxNOT_FOUND;
    }

    /// The middle of a column's heading, on the screen.
    static wxPoint heading(const wxString& title)
    {
        return {placeInCell(0, title).x, headings().y + headingHeight() / 2};
    }
    /// The upper left corner of the headings, on the screen.
    static wxPoint headings() { return grid()->GetGridColLabelWindow()->GetScreenPosition(); }
    static int headingHeight() { return grid()->GetColLabelSize(); }

    static bool isUp(const wxString& title) { return windowTitled(title) && windowTitled(title)->IsShownOnScreen(); }
    /// The window is where the window manager puts it, and takes keys and clicks.
    static bool isReady(const wxString& title)
    {
        return isUp(title) && windowTitled(title)->IsEnabled() && takesKeys(windowTitled(title));
    }
    /// The manager is up and takes the keys, with no dialog over it.
    static bool atRest()
    {
        return managerIsUp() && manager()->IsEnabled() && topWindow() == manager() && takesKeys(manager());
    }

    static wxTextCtrl* editor()
    {
        return grid()->IsCellEditControlShown() ? dynamic_cast<wxTextCtrl*>(wxWindow::FindFocus()) : nullptr;
    }

    // Types over a cell: picks it, opens its editor, types, Enter.
    static void edit(WindowDriver& user, int row, const wxString& title, const char* text)
    {
        user.when("the manager is up", atRest, [row, title] { clickCell(row, title); });
        user.when(
            "the cell is the current one",
            [row, title] { return isSelected(row) && grid()->GetGridCursorCol() == columnOf(title); },
            [] { pressKey(WXK_F2); });
        user.when("the editor has the focus", editor,
                  [text]
                  {
                      pressKey('A', wxMOD_CONTROL);
                      pressKey(WXK_DELETE);
                      type(text);
                  });
        user.when(
            "the text is there", [text] { return editor() && editor()->GetValue() == text; },
            [] { pressKey(WXK_RETURN); });
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

    static int commandId(int number) { return static_cast<std::int16_t>(static_cast<std::uint16_t>(number)); }

    static void clickRibbon(int number)
    {
        wxRibbonButtonBar* const bar = barWith(*manager(), commandId(number));
        ASSERT_NE(bar, nullptr) << number;
        const wxRect button = bar->GetItemRect(commandId(number));
        clickAt(bar, button.GetPosition() + wxSize(button.width / 2, button.height / 2));
    }

    /// Where the menu of the application button or of the grid, or an open list, is up, keys go to it.
    static void pressInMenu(WindowDriver& user, const std::vector<int>& keys)
    {
        user.when("the menu is up", menuIsUp,
                  [keys]
                  {
                      for (const int key : keys)
                          pressKey(key);
                  });
    }

    static void openPreferences(WindowDriver& user)
    {
        user.when("the manager is at rest", atRest, [] { pressKey(WXK_F10); });
        pressInMenu(user, {WXK_DOWN, WXK_RETURN});
        user.when("the preferences are up", [] { return isReady("Template Preferences"); });
    }

    static wxChoice* themes() { return dynamic_cast<wxChoice*>(child(manager(), 1147)); }

    static void chooseTheme(WindowDriver& user, int theme)
    {
        user.when("the manager is at rest", atRest, [] { click(themes()); });
        std::vector<int> keys = {WXK_HOME};
        keys.insert(keys.end(), static_cast<std::size_t>(theme), WXK_DOWN);
        keys.push_back(WXK_RETURN);
        pressInMenu(user, keys);
        user.when("the theme is chosen", [theme] { return themes()->GetSelection() == theme && !menuIsUp(); });
    }

    static void press(const char* title, int id) { click(child(windowTitled(title), id)); }

    template <class Control>
    static Control* control(const char* title, int id)
    {
        return dynamic_cast<Control*>(child(windowTitled(title), id));
    }

    static bool messageIsUp() { return isReady("Template Manager"); }
    static wxString message() { return child(windowTitled("Template Manager"), 10)->GetLabel(); }
    static void answer(int id) { click(child(windowTitled("Template Manager"), id)); }

    std::filesystem::path m_folder;
    util::Parameterized m_current;
    util::Parameterized m_result;
    bool m_loadSaved = false;
    wxFrame* m_owner;
};

} // namespace testing_support

#endif
