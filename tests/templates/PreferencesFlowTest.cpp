#include "tests/templates/ManagerRun.h"

#include <wx/checkbox.h>
#include <wx/dirdlg.h>
#include <wx/fontdlg.h>
#include <wx/modalhook.h>
#include <wx/stattext.h>

#include <fstream>

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

class PreferencesFlowTest : public ManagerTest
{
protected:
    PreferencesFlowTest() { storeThree(); }

    static constexpr const char* title = "Template Preferences";

    static wxString text(int id) { return control<wxTextCtrl>(title, id)->GetValue(); }
};

TEST_F(PreferencesFlowTest, PreferencesFilterAtOnceAndSurviveARestart)
{
    WindowDriver user;
    openPreferences(user);
    user.then("in the preferences",
              [this]
              {
                  EXPECT_EQ(text(1153), folder());
                  press(title, 1042);
              });
    user.when(
        "one box is ticked", [] { return control<wxCheckBox>(title, 1042)->GetValue(); }, [] { press(title, 1155); });
    user.when(
        "the other is", [] { return control<wxCheckBox>(title, 1155)->GetValue(); }, [] { press(title, 1152); });
    pressInMenu(user, {WXK_HOME, WXK_DOWN, WXK_RETURN});
    user.when(
        "the filter is chosen", [] { return !menuIsUp() && control<wxChoice>(title, 1152)->GetSelection() == 1; },
        []
        {
            savePicture(windowTitled(title), "template-preferences");
            press(title, 1);
        });
    user.when(
        "only the template of the tool's diameter is left", [] { return atRest() && grid()->GetNumberRows() == 1; },
        []
        {
            EXPECT_EQ(cell(0, "Name"), "Beta");
            clickManager(1150);
        });
    EXPECT_EQ(load(), 0);

    user.when("after a restart", [] { return atRest() && grid()->GetNumberRows() == 1; });
    openPreferences(user);
    user.then("in the preferences",
              []
              {
                  EXPECT_TRUE(control<wxCheckBox>(title, 1042)->GetValue());
                  EXPECT_TRUE(control<wxCheckBox>(title, 1155)->GetValue());
                  press(title, 1151);
              });
    user.when(
        "reset", [] { return !control<wxCheckBox>(title, 1042)->GetValue(); },
        []
        {
            EXPECT_EQ(control<wxChoice>(title, 1152)->GetSelection(), 0);
            press(title, 1);
        });
    user.when(
        "all templates again", [] { return atRest() && grid()->GetNumberRows() == 3; }, [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
}

TEST_F(PreferencesFlowTest, FolderAndFontAreChosenAndResetToTheHostsAndTheSystems)
{
    const ToolkitDialog hook;
    const std::filesystem::path other = m_folder / "other place";
    // Of a single folder in it the dialog would complete the name, and take that one.
    for (const char* const kind : {"tessaron", "orrimant"})
        std::filesystem::create_directories(other / kind);
    std::filesystem::copy_file(util::templatePath(kindFolder(), "Beta.vtmpl"), other / "tessaron" / "Beta.vtmpl");
    wxString systemFont;
    WindowDriver user;
    openPreferences(user);
    user.then("in the preferences",
              [&]
              {
                  systemFont = text(1157);
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
            return !ToolkitDialog::current && text(1153) == other.string();
        },
        [] { press(title, 1158); });
    user.when("the font dialog is up", ToolkitDialog::isUp<wxFontDialog>,
              [] { chooseFont(ToolkitDialog::current, "Sans Bold 17"); });
    user.when(
        "the font is shown", [] { return !ToolkitDialog::current && text(1157).Contains("17"); },
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

    user.when("after a restart", [] { return atRest() && grid()->GetNumberRows() == 1; });
    openPreferences(user);
    user.then("in the preferences",
              [&]
              {
                  EXPECT_TRUE(text(1157).Contains("17"));
                  EXPECT_EQ(text(1153), other.string());
                  press(title, 1151);
              });
    user.when(
        "all is reset", [&] { return text(1157) == systemFont && text(1153) == folder(); }, [] { press(title, 1); });
    user.when(
        "the host's folder is listed", [] { return atRest() && grid()->GetNumberRows() == 3; },
        []
        {
            EXPECT_NE(grid()->GetDefaultCellFont().GetPointSize(), 17);
            clickManager(1150);
        });
    EXPECT_EQ(load(), 0);
}

TEST_F(PreferencesFlowTest, AFolderThatDoesNotExistIsAskedAboutAndMade)
{
    const std::filesystem::path other = m_folder / "not yet" / "there";
    const std::filesystem::path file = m_folder / "a file";
    std::ofstream(file) << "no folder";
    const auto question = [] { return isReady(title) && windowTitled(title)->FindWindow(10); };
    const auto dialog = [question] { return isReady(title) && !question(); };
    const auto field = [] { return control<wxTextCtrl>(title, 1153); };
    WindowDriver user;
    const auto typePath = [&](const std::filesystem::path& path)
    {
        user.when("in the preferences", dialog, [field] { click(field()); });
        user.when(
            "the field has the focus", [field] { return field()->HasFocus() && !wxGetMouseState().LeftIsDown(); },
            [path]
            {
                pressKey('A', wxMOD_CONTROL);
                pressKey(WXK_DELETE);
                type(path.c_str());
            });
        user.when(
            "the path is typed", [=] { return field()->GetValue() == path.string(); }, [] { pressKey(WXK_RETURN); });
    };
    openPreferences(user);
    typePath(other);
    user.when("the question", question,
              [&]
              {
                  EXPECT_TRUE(control<wxStaticText>(title, 10)->GetLabel().StartsWith("The folder"));
                  pressKey(WXK_ESCAPE);
              });
    user.when("back", dialog,
              [&]
              {
                  EXPECT_FALSE(std::filesystem::exists(other));
                  EXPECT_EQ(text(1153).utf8_string(), other.string());
                  // The field has the focus.
                  type(file.c_str());
                  pressKey(WXK_RETURN);
              });
    user.when("the question", question, [] { pressKey(WXK_RETURN); });
    user.when(
        "there is a file of that name",
        [question] { return question() && control<wxStaticText>(title, 10)->GetLabel().Contains("cannot"); },
        [] { pressKey(WXK_RETURN); });
    typePath(other);
    user.when("the question", question, [] { pressKey(WXK_RETURN); });
    user.when(
        "the new folder is in use", [] { return atRest() && grid()->GetNumberRows() == 0; },
        [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
    EXPECT_TRUE(std::filesystem::is_directory(other));
}

} // namespace
