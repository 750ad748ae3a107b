#include "tests/templates/ManagerRun.h"

#include <wx/checkbox.h>

#include <filesystem>
#include <fstream>

using namespace testing_support;

namespace
{

/// What becomes of a user's work that is not stored, or cannot be.
class UnstoredFlowTest : public ManagerTest
{
protected:
    UnstoredFlowTest() { storeThree(); }

    /// Makes storing the layout fail while the manager is open: a folder stands where the file would.
    void blockLayout() const
    {
        const std::filesystem::path file = m_folder / "tessaron_template_info.xml";
        std::filesystem::remove(file);
        std::filesystem::create_directory(file);
    }
};

TEST_F(UnstoredFlowTest, TheColumnsAreWholeWhileTheUserReadsThatTheyCannotBeStored)
{
    WindowDriver user;
    user.when("the manager is up", atRest,
              [this]
              {
                  blockLayout();
                  person().click(placeInCell(0, "Name"), Person::right);
              });
    pressInMenu(user, {WXK_UP, WXK_UP, WXK_RETURN});
    user.when(
        "the columns are up", [] { return isReady("Columns"); },
        []
        {
            // The second in the list is shown no more.
            wxWindow* const list = child(windowTitled("Columns"), 1138);
            clickAt(list, wxPoint(list->GetSize().x / 2, 10));
            pressKey(WXK_DOWN);
            pressKey(WXK_SPACE);
            press("Columns", 1);
        });
    user.when("the message", messageIsUp,
              []
              {
                  EXPECT_EQ(message(), "Error writing Template file.");
                  EXPECT_FALSE(grid()->IsColShown(1));
                  EXPECT_EQ(grid()->GetColLabelValue(1), "Part Material");
                  EXPECT_EQ(cell(0, "Name"), "Alpha");
                  answer(1);
              });
    user.when("the manager is back", atRest, [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
}

TEST_F(UnstoredFlowTest, DeletingARowLeavesTheEditsOfTheOthers)
{
    WindowDriver user;
    edit(user, 0, "Material", "Brass");
    user.when("edited", [] { return cell(0, "Material") == "Brass"; });
    edit(user, 1, "Name", "Alpha");
    user.when(
        "renamed", [] { return cell(1, "Name") == "Alpha"; }, [] { clickCell(1, "Hardness"); });
    user.when(
        "the row is in hand", [] { return isSelected(1) && !isSelected(0); }, [] { clickManager(1124); });
    user.when(
        "one is gone", [] { return atRest() && grid()->GetNumberRows() == 2; },
        [this]
        {
            EXPECT_EQ(storedNames(), (std::vector<std::string>{"Alpha", "Gamma"}));
            EXPECT_EQ(cell(0, "Material"), "Brass");
            EXPECT_EQ(cell(1, "Name"), "Gamma");
            clickManager(1150);
        });
    user.when("the question about what is left", messageIsUp,
              []
              {
                  EXPECT_TRUE(message().Contains("Cancel drops")) << message();
                  answer(1);
              });
    user.when(
        "the question about the file", [] { return messageIsUp() && message().StartsWith("Alpha"); },
        [] { answer(1); });
    EXPECT_EQ(load(), 0);
    EXPECT_EQ(stored("Alpha").stringOr(util::keys::material, ""), "Brass");
}

TEST_F(UnstoredFlowTest, PreferencesAreKeptUntilEditsAreDealtWith)
{
    const char* const title = "Template Preferences";
    WindowDriver user;
    edit(user, 0, "Material", "Brass");
    user.when("edited", [] { return cell(0, "Material") == "Brass"; });
    openPreferences(user);
    user.then("in the preferences",
              [=]
              {
                  press(title, 1042);
                  press(title, 1152);
              });
    pressInMenu(user, {WXK_HOME, WXK_DOWN, WXK_RETURN});
    user.when(
        "the filter is chosen", [=] { return !menuIsUp() && control<wxChoice>(title, 1152)->GetSelection() == 1; },
        [=] { press(title, 1); });
    user.when(
        "the question about edits", [] { return messageIsUp() && message().StartsWith("Some"); }, [] { answer(1); });
    user.when(
        "the question about the file", [] { return messageIsUp() && message().StartsWith("Alpha"); },
        [] { answer(2); });
    user.when(
        "the preferences as they were entered", [=] { return isReady(title); },
        [=]
        {
            EXPECT_TRUE(control<wxCheckBox>(title, 1042)->GetValue());
            EXPECT_EQ(control<wxChoice>(title, 1152)->GetSelection(), 1);
            EXPECT_EQ(grid()->GetNumberRows(), 3);
            EXPECT_EQ(cell(0, "Material"), "Brass");
            press(title, 1);
        });
    user.when(
        "the question about edits again", [] { return messageIsUp() && message().StartsWith("Some"); },
        [] { answer(2); });
    user.when(
        "what matches is left", [] { return atRest() && grid()->GetNumberRows() == 1; }, [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
    util::TemplateInfo info;
    ASSERT_EQ(util::loadTemplateDefs(folder(), "tessaron_template_info", &info), 0);
    EXPECT_TRUE(info.preferences.loadSavedTemplates);
    EXPECT_EQ(info.preferences.matchFilter, 1);
}

TEST_F(UnstoredFlowTest, DamagedColumnsAreReplacedOnRequest)
{
    const std::filesystem::path file = m_folder / "tessaron_template_info.xml";
    {
        std::ofstream(file) << "damaged";
    }
    for (const int button : {2, 1})
    {
        WindowDriver user;
        user.when("the question", messageIsUp,
                  [button]
                  {
                      EXPECT_TRUE(message().StartsWith("Template file format error.\nThe columns")) << message();
                      savePicture(windowTitled("Template Manager"), "template-columns-damaged");
                      answer(button);
                  });
        user.when("the manager is up", atRest,
                  [button]
                  {
                      EXPECT_EQ(grid()->GetNumberCols(), button == 1 ? 26 : 0);
                      clickManager(1150);
                  });
        EXPECT_EQ(load(), 0);
        EXPECT_EQ(std::filesystem::exists(m_folder / "tessaron_template_info.damaged.xml"), button == 1);
    }
    WindowDriver user;
    user.when("the manager is up without a question", atRest, [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
}

TEST_F(UnstoredFlowTest, AFolderThatIsAwayStaysTheChosenOne)
{
    const std::string drive = (m_folder / "drive").string();
    const std::vector<std::string> folders = {drive, folder()};
    ASSERT_EQ(util::saveTemplateFolders(folder(), folders), 0);
    WindowDriver user;
    user.when("the message", messageIsUp,
              [&]
              {
                  wxString text = message();
                  text.Replace("\n", " "); // it may stand on two lines
                  EXPECT_TRUE(text.StartsWith("The template folder " + drive)) << text;
                  answer(1);
              });
    user.when("the manager is up", atRest, [] { EXPECT_EQ(grid()->GetNumberRows(), 3); });
    openPreferences(user);
    user.then("in the preferences",
              [&]
              {
                  EXPECT_EQ(control<wxTextCtrl>("Template Preferences", 1153)->GetValue(), drive);
                  press("Template Preferences", 1155);
                  press("Template Preferences", 1);
              });
    user.when("the manager is back", atRest, [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
    std::vector<std::string> kept;
    EXPECT_EQ(util::loadTemplateFolders(folder(), &kept), 0);
    EXPECT_EQ(kept, folders);
    EXPECT_FALSE(std::filesystem::exists(drive));
}

} // namespace
