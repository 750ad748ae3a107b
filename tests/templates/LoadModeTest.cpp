#include "tests/templates/ManagerRun.h"

using namespace testing_support;

namespace
{

class LoadModeTest : public ManagerTest
{
};

TEST_F(LoadModeTest, TheFirstStartMakesTheDefinitions)
{
    util::TemplateInfo info;
    int headingHeight = 0;
    WindowDriver user;
    user.when("the manager is up", managerIsUp,
              [&]
              {
                  EXPECT_EQ(util::loadTemplateDefs(folder(), "tessaron_template_info", &info), 0);
                  EXPECT_EQ(grid()->GetNumberCols(), 26);
                  EXPECT_EQ(grid()->GetColLabelValue(6), "Tool Num Flutes");
                  EXPECT_EQ(grid()->GetNumberRows(), 0);
                  EXPECT_FALSE(m_owner->IsEnabled());
                  headingHeight = grid()->GetColLabelSize();
                  savePicture(manager(), "template-manager-empty");
                  clickManager(1150);
              });
    EXPECT_EQ(load(), 0);
    EXPECT_TRUE(m_owner->IsEnabled());
    EXPECT_TRUE(m_result.empty());
    EXPECT_EQ(util::loadTemplateDefs(folder(), "tessaron_template_info", &info), 0);
    EXPECT_EQ(info.headingHeight, headingHeight);
    EXPECT_EQ(info.windowWidth, 1024);
}

TEST_F(LoadModeTest, ApplyHandsOverTheTemplateWithoutTheThreeToolKeys)
{
    storeThree();
    m_result.set("stale", 1);
    WindowDriver user;
    user.when("the manager is up", managerIsUp, [] { clickCell(1, "Name"); });
    user.when(
        "the row is selected", [] { return isSelected(1); },
        []
        {
            savePicture(manager(), "template-manager-selected");
            clickManager(1);
        });
    EXPECT_EQ(load(), 1);
    EXPECT_EQ(m_result.stringOr(util::keys::templateName, ""), "Beta");
    EXPECT_EQ(m_result.numberOr(util::keys::feedrate, 0), 1000.0);
    for (const util::Key& key : {util::keys::toolDiameter, util::keys::toolLengthOfCut, util::keys::toolStickOutLength})
        EXPECT_FALSE(m_result.has(key)) << key.c_str();
    EXPECT_FALSE(m_result.has("stale"));
    EXPECT_TRUE(m_owner->IsEnabled());
}

TEST_F(LoadModeTest, ApplyHandsOverEditsAndAsksNothing)
{
    storeThree();
    WindowDriver user;
    edit(user, 1, "Material", "Brass");
    user.when(
        "the text is in the cell", [] { return cell(1, "Material") == "Brass"; }, [] { clickCell(1, "Name"); });
    user.when(
        "the row is selected", [] { return isSelected(1); }, [] { clickManager(1); });
    EXPECT_EQ(load(), 1);
    EXPECT_EQ(m_result.stringOr(util::keys::material, ""), "Brass");
}

TEST_F(LoadModeTest, WithNothingSelectedApplyEndsWithNothing)
{
    storeThree();
    m_result.set("kept", 1);
    WindowDriver user;
    user.when("the manager is up", managerIsUp, [] { clickManager(1); });
    EXPECT_EQ(load(), 0);
    EXPECT_TRUE(m_result.has("kept"));
}

TEST_F(LoadModeTest, AQuitMessageEndsTheCall)
{
    WindowDriver user;
    user.when("the manager is up", managerIsUp, [] { tessaronResourcesQuit(); });
    EXPECT_EQ(load(), 0);
    EXPECT_TRUE(m_owner->IsEnabled());
}

TEST_F(LoadModeTest, WithoutAnOwnerTheMainWindowIsTheOwner)
{
    wxTheApp->SetTopWindow(m_owner);
    WindowDriver user;
    user.when("the manager is up", managerIsUp,
              [&]
              {
                  EXPECT_TRUE(staysAbove(manager(), m_owner));
                  EXPECT_FALSE(m_owner->IsEnabled());
                  pressKey(WXK_F4, wxMOD_ALT);
              });
    EXPECT_EQ(TessaronResources::displayTemplateManagerDialogLoad(0, 0, folder(), m_current, &m_result, nullptr,
                                                                  util::VisualTheme::nx8),
              0);
    EXPECT_TRUE(m_owner->IsEnabled());
    wxTheApp->SetTopWindow(nullptr);
}

} // namespace
