#include "tests/templates/SessionFixture.h"

using namespace testing_support;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

class SessionFolderTest : public TemplateSessionFixture
{
protected:
    SessionFolderTest()
    {
        std::filesystem::create_directory(drive);
        session.acceptPreferences({}, drive);
    }
    std::unique_ptr<TemplateSession> opened()
    {
        auto next = std::make_unique<TemplateSession>(operationKind::milling, 0, home.path(), makeSet("", 1.0), user);
        next->open(true);
        return next;
    }

    const std::string drive = home / "drive";
    const std::string away = "message: The template folder " + drive +
                             " is not there now. The templates in the folder of the CAM system are shown instead.";
};

TEST_F(SessionFolderTest, AFolderThatIsAwayIsUsedAgainWhenItIsBack)
{
    std::filesystem::rename(drive, drive + " away");
    {
        const auto next = opened();
        EXPECT_THAT(user.takeMessages(), ElementsAre(away));
        EXPECT_EQ(next->folder(), home.path());
        EXPECT_EQ(next->wantedFolder(), drive);
        // The user looks at the preferences and changes another one.
        util::TemplatePreferences preferences;
        preferences.autoSizeColumns = true;
        EXPECT_FALSE(next->acceptPreferences(preferences, next->wantedFolder()));
        EXPECT_EQ(next->folder(), home.path());
    }
    EXPECT_THAT(storedFolders(), ElementsAre(drive, home.path()));
    EXPECT_EQ(opened()->folder(), home.path());
    EXPECT_THAT(user.takeMessages(), ElementsAre(away));

    const auto during = opened();
    user.takeMessages();
    std::filesystem::rename(drive + " away", drive);
    EXPECT_TRUE(during->acceptPreferences({}, during->wantedFolder())) << "it has come back meanwhile";
    EXPECT_EQ(during->folder(), drive);
    EXPECT_EQ(opened()->folder(), drive);
    EXPECT_THAT(user.said, IsEmpty());
}

TEST_F(SessionFolderTest, TheUserGivesUpAFolderThatIsAway)
{
    std::filesystem::rename(drive, drive + " away");
    const auto next = opened();
    user.takeMessages();
    EXPECT_FALSE(next->acceptPreferences({}, home.path())) << "which is shown already";
    EXPECT_THAT(storedFolders(), ElementsAre(home.path(), drive));
    opened();
    EXPECT_THAT(user.said, IsEmpty());
}

TEST_F(SessionFolderTest, PreferencesThatCannotBeKeptAreReported)
{
    writeBytes(home / (templateDefinitionsName(operationKind::milling) + ".xml"), "damaged");
    const auto next = opened();
    user.takeMessages();
    EXPECT_FALSE(next->layoutIsKept());
    next->acceptPreferences({}, "");
    next->acceptPreferences({}, "");
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: " + formatError));
}

} // namespace
