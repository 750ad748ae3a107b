#include "tests/templates/ManagerRun.h"

#include <wx/checkbox.h>
#include <wx/combobox.h>

using namespace testing_support;

namespace
{

constexpr const char* saveAsTitle = "Save Operation Template As";

class SaveModeTest : public ManagerTest
{
protected:
    static bool saveAsIsUp() { return isReady(saveAsTitle); }
    static wxComboBox* name() { return dynamic_cast<wxComboBox*>(child(windowTitled(saveAsTitle), 1158)); }
    // The name is selected when the dialog comes up.
    static void accept(const char* text)
    {
        type(text);
        pressKey(WXK_RETURN);
    }
    static void cancelSaveAs() { click(child(windowTitled(saveAsTitle), 2)); }
};

TEST_F(SaveModeTest, SavesUnderTheNameAndProposesItAgain)
{
    WindowDriver user;
    user.when("the save-as dialog is up", saveAsIsUp,
              []
              {
                  type("Pocket 10");
                  press(saveAsTitle, 1042);
                  press(saveAsTitle, 1);
              });
    EXPECT_EQ(save(), 1);
    EXPECT_TRUE(m_loadSaved);
    EXPECT_EQ(m_result.stringOr(util::keys::templateName, ""), "Pocket 10");
    EXPECT_EQ(m_result.numberOr(util::keys::feedrate, 0), 800.0);
    EXPECT_EQ(storedNames(), std::vector<std::string>{"Pocket 10"});

    user.when(
        "the name is proposed again", [] { return saveAsIsUp() && name()->GetValue() == "Pocket 10"; },
        []
        {
            savePicture(windowTitled(saveAsTitle), "template-save-as");
            accept("Pocket 12");
        });
    EXPECT_EQ(save(), 1);
    EXPECT_FALSE(m_loadSaved);
    EXPECT_EQ(storedNames(), (std::vector<std::string>{"Pocket 10", "Pocket 12"}));
    EXPECT_TRUE(m_owner->IsEnabled());
}

TEST_F(SaveModeTest, AsksBeforeATemplateIsReplaced)
{
    storeThree();
    WindowDriver user;
    user.when("the save-as dialog is up", saveAsIsUp, [] { accept("Beta"); });
    user.when("the question", messageIsUp,
              []
              {
                  EXPECT_EQ(message(), "Beta already exists. Do you want to replace it?");
                  savePicture(windowTitled("Template Manager"), "template-replace-question");
                  answer(2);
              });
    user.when(
        "the save-as dialog is there again", [] { return saveAsIsUp(); }, [] { accept("Beta"); });
    user.when("the question again", messageIsUp, [] { answer(1); });
    EXPECT_EQ(save(), 1);
    EXPECT_EQ(storedNames(), (std::vector<std::string>{"Alpha", "Beta", "Gamma"}));
    EXPECT_EQ(m_result.numberOr(util::keys::feedrate, 0), 800.0);
}

TEST_F(SaveModeTest, ABlankNameIsRefused)
{
    WindowDriver user;
    user.when("the save-as dialog is up", saveAsIsUp, [] { accept("   "); });
    // The refusal has the title of the dialog that it belongs to.
    const auto refused = [] { return saveAsIsUp() && windowTitled(saveAsTitle)->FindWindow(10); };
    user.when("the refusal", refused, [] { click(child(windowTitled(saveAsTitle), 1)); });
    user.when(
        "the save-as dialog is still there", [refused] { return saveAsIsUp() && !refused(); }, cancelSaveAs);
    user.when(
        "the manager stays", [] { return topWindow() == manager() && manager()->IsEnabled(); },
        [] { clickManager(1150); });
    EXPECT_EQ(save(), 0);
    EXPECT_TRUE(storedNames().empty());
}

TEST_F(SaveModeTest, TheFormSavesUnderAGeneratedName)
{
    WindowDriver user;
    user.when("the save-as dialog is up", saveAsIsUp, cancelSaveAs);
    user.when(
        "the manager", [] { return atRest(); },
        []
        {
            EXPECT_EQ(child(manager(), 1)->GetLabel(), "Save");
            clickManager(1);
        });
    user.when("it tells the name", messageIsUp,
              []
              {
                  EXPECT_EQ(message(), "The template saved with name: TESSARON1");
                  answer(1);
              });
    EXPECT_EQ(save(), 1);
    EXPECT_EQ(storedNames(), std::vector<std::string>{"TESSARON1"});
    EXPECT_EQ(m_result.stringOr(util::keys::templateName, ""), "TESSARON1");
}

} // namespace
