#include "tests/templates/ManagerRun.h"

#include <wx/combobox.h>

using namespace testing_support;

namespace
{

/// A library that was made on another system, with texts and file names in its code page.
class TextFlowTest : public ManagerTest
{
protected:
    TextFlowTest()
    {
        m_folder /= "\xDC"
                    "bung";
        storeThree();
        store("Fr\xE4sen", 10.0, 1.0);
    }
    ~TextFlowTest() override { m_folder = m_folder.parent_path(); }
};

TEST_F(TextFlowTest, ItIsReadAndLeftAsItIs)
{
    WindowDriver user;
    user.when("the manager is up", atRest, [] { EXPECT_EQ(cell(2, "Name"), wxString::FromUTF8("Fräsen")); });
    openPreferences(user);
    user.then("in the preferences",
              []
              {
                  const wxString path = control<wxTextCtrl>("Template Preferences", 1153)->GetValue();
                  EXPECT_TRUE(path.EndsWith(wxString::FromUTF8("/Übung"))) << path;
                  press("Template Preferences", 1);
              });
    user.when("the templates are still there", atRest,
              []
              {
                  EXPECT_EQ(grid()->GetNumberRows(), 4);
                  clickCell(2, "Hardness");
              });
    user.when(
        "the row is in hand", [] { return isSelected(2); }, [] { clickManager(1); });
    EXPECT_EQ(load(), 1);
    EXPECT_EQ(m_result.stringOr(util::keys::templateName, ""), "Fr\xE4sen");
    std::vector<std::string> folders;
    EXPECT_EQ(util::loadTemplateFolders(folder(), &folders), 0);
    EXPECT_EQ(folders, std::vector<std::string>{folder()});
}

TEST_F(TextFlowTest, ANameOfItIsOfferedAndReplaced)
{
    WindowDriver user;
    user.when(
        "the question for a name", [] { return isReady("Save Operation Template As"); },
        []
        {
            const auto* const names = control<wxComboBox>("Save Operation Template As", 1158);
            EXPECT_NE(names->FindString(wxString::FromUTF8("Fräsen"), true), wxNOT_FOUND);
            pressKey('A', wxMOD_CONTROL);
            type("Fräsen");
        });
    user.when(
        "the name is typed",
        []
        { return control<wxComboBox>("Save Operation Template As", 1158)->GetValue() == wxString::FromUTF8("Fräsen"); },
        [] { press("Save Operation Template As", 1); });
    user.when("the question", messageIsUp,
              []
              {
                  EXPECT_EQ(message(), wxString::FromUTF8("Fräsen already exists. Do you want to replace it?"));
                  answer(1);
              });
    EXPECT_EQ(save(), 1);
    EXPECT_EQ(m_result.stringOr(util::keys::templateName, ""), "Fr\xE4sen");
    EXPECT_EQ(storedNames().size(), 4U);
}

} // namespace
