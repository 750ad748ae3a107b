#include "frame/looks/VisualThemes.h"
#include "frame/PaletteColour.h"
#include "frame/looks/QdrVisualManager.h"
#include "tests/support/WindowDriver.h"
#include <tessaron/frame/DialogBase.h>
#include <tessaron/util/VisualTheme.h>

#include <wx/ribbon/art.h>

#include <gtest/gtest.h>

#include <set>
#include <string>

using namespace TessaronResources;

namespace
{

template <class Manager>
bool isInstalled()
{
    const VisualManager& current = VisualManager::current();
    return typeid(current) == typeid(Manager);
}

struct ThemeCase
{
    util::VisualTheme theme;
    bool (*installed)();
    /// The style that the manager had to be given; null for one that has a single style.
    void (*setStyle)(int);
    int style;
};

const ThemeCase themeCases[] = {
    {util::VisualTheme(0), isInstalled<VisualManagerXP>, nullptr, 0},
    {util::VisualTheme(1), isInstalled<VisualManagerOffice2007>, VisualManagerOffice2007::setStyle, 0},
    {util::VisualTheme(2), isInstalled<VisualManagerOffice2007>, VisualManagerOffice2007::setStyle, 1},
    {util::VisualTheme(3), isInstalled<VisualManagerOffice2007>, VisualManagerOffice2007::setStyle, 3},
    {util::VisualTheme(4), isInstalled<VisualManagerOffice2007>, VisualManagerOffice2007::setStyle, 2},
    {util::VisualTheme(5), isInstalled<VisualManagerCarbon>, nullptr, 0},
    {util::VisualTheme(6), isInstalled<VisualManagerVS2008>, nullptr, 0},
    {util::VisualTheme(7), isInstalled<VisualManagerVS2010>, nullptr, 0},
    {util::VisualTheme(8), isInstalled<VisualManagerScenic>, nullptr, 0},
    {util::VisualTheme(9), isInstalled<VisualManagerOffice2010>, VisualManagerOffice2010::setStyle, 0},
    {util::VisualTheme(10), isInstalled<VisualManagerOffice2010>, VisualManagerOffice2010::setStyle, 2},
    {util::VisualTheme(11), isInstalled<VisualManagerOffice2010>, VisualManagerOffice2010::setStyle, 1},
    {util::VisualTheme(12), isInstalled<VisualManagerVS2012>, VisualManagerVS2012::setStyle, 0},
    {util::VisualTheme(13), isInstalled<VisualManagerVS2012>, VisualManagerVS2012::setStyle, 1},
    {util::VisualTheme(14), isInstalled<VisualManagerVS2012>, VisualManagerVS2012::setStyle, 2},
    {util::VisualTheme(15), isInstalled<VisualManagerOffice2013>, VisualManagerOffice2013::setStyle, 0},
    {util::VisualTheme(16), isInstalled<VisualManagerOffice2013>, VisualManagerOffice2013::setStyle, 1},
    {util::VisualTheme(17), isInstalled<VisualManagerOffice2013>, VisualManagerOffice2013::setStyle, 2},
    {util::VisualTheme(18), isInstalled<VisualManagerVS2013>, VisualManagerVS2012::setStyle, 0},
    {util::VisualTheme(19), isInstalled<VisualManagerVS2013>, VisualManagerVS2012::setStyle, 1},
    {util::VisualTheme(20), isInstalled<VisualManagerVS2013>, VisualManagerVS2012::setStyle, 2},
    {util::VisualTheme(21), isInstalled<VisualManagerOffice2016>, VisualManagerOffice2016::setStyle, 0},
    {util::VisualTheme(22), isInstalled<VisualManagerOffice2016>, VisualManagerOffice2016::setStyle, 1},
    {util::VisualTheme(23), isInstalled<VisualManagerOffice2016>, VisualManagerOffice2016::setStyle, 2},
    {util::VisualTheme(24), isInstalled<VisualManagerOffice2016>, VisualManagerOffice2016::setStyle, 3},
    {util::VisualTheme(25), isInstalled<QdrVisualManagerNX8>, nullptr, 0},
    {util::VisualTheme(26), isInstalled<QdrVisualManagerNX10>, nullptr, 0},
    {util::VisualTheme(27), isInstalled<QdrVisualManagerNX11>, nullptr, 0},
};

class VisualThemeTest : public testing::TestWithParam<ThemeCase>
{
protected:
    static int number() { return static_cast<int>(GetParam().theme); }
};

TEST_P(VisualThemeTest, InstallsItsManagerWithItsStyle)
{
    ASSERT_TRUE(installVisualTheme(number()));
    EXPECT_TRUE(GetParam().installed());
    if (!GetParam().setStyle)
        return;
    const VisualPalette asTheme = VisualManager::current().palette();
    GetParam().setStyle(GetParam().style);
    VisualManager::install(*VisualManager::current().GetClassInfo());
    EXPECT_EQ(VisualManager::current().palette().dialog, asTheme.dialog);
    EXPECT_EQ(VisualManager::current().palette().chrome, asTheme.chrome);
    // Another style is another look, so that the comparison above means something.
    GetParam().setStyle(GetParam().style == 0 ? 1 : 0);
    VisualManager::install(*VisualManager::current().GetClassInfo());
    EXPECT_NE(VisualManager::current().palette().chrome, asTheme.chrome);
}

TEST_P(VisualThemeTest, TextIsReadableOnEverySurface)
{
    ASSERT_TRUE(installVisualTheme(number()));
    const VisualPalette& p = VisualManager::current().palette();
    const std::pair<Rgb, Rgb> pairs[] = {{p.text, p.dialog},
                                         {p.fieldText, p.field},
                                         {p.fieldText, p.alternateField},
                                         {p.chromeText, p.chrome},
                                         {p.ribbonText, p.ribbon},
                                         {p.ribbonText, p.hover},
                                         {p.ribbonText, p.pressed},
                                         {p.accentText, p.accent},
                                         {p.buttonText, p.button},
                                         {p.buttonText, p.buttonHover},
                                         {p.headingText, p.heading},
                                         {p.mark, p.field},
                                         {p.mark, p.alternateField}};
    for (const auto& [text, background] : pairs)
        EXPECT_GE(contrastRatio(text, background), 4.5)
            << visualThemeName(number()) << ": " << std::hex << text << " on " << background;
}

TEST_P(VisualThemeTest, RibbonTextIsReadable)
{
    ASSERT_TRUE(installVisualTheme(number()));
    const auto art = VisualManager::current().makeRibbonArt();
    const auto rgb = [&art](int id)
    {
        const wxColour colour = art->GetColour(id);
        return static_cast<Rgb>(colour.Red()) << 16 | static_cast<Rgb>(colour.Green()) << 8 | colour.Blue();
    };
    const struct
    {
        int text;
        int background;
    } pairs[] = {
        {wxRIBBON_ART_TAB_LABEL_COLOUR, wxRIBBON_ART_TAB_CTRL_BACKGROUND_COLOUR},
        {wxRIBBON_ART_PANEL_LABEL_COLOUR, wxRIBBON_ART_PANEL_LABEL_BACKGROUND_COLOUR},
        {wxRIBBON_ART_BUTTON_BAR_LABEL_COLOUR, wxRIBBON_ART_PAGE_BACKGROUND_COLOUR},
        {wxRIBBON_ART_BUTTON_BAR_LABEL_COLOUR, wxRIBBON_ART_PAGE_BACKGROUND_GRADIENT_COLOUR},
        {wxRIBBON_ART_BUTTON_BAR_LABEL_COLOUR, wxRIBBON_ART_BUTTON_BAR_HOVER_BACKGROUND_COLOUR},
        {wxRIBBON_ART_BUTTON_BAR_LABEL_COLOUR, wxRIBBON_ART_BUTTON_BAR_ACTIVE_BACKGROUND_COLOUR},
    };
    for (const auto& pair : pairs)
        EXPECT_GE(contrastRatio(rgb(pair.text), rgb(pair.background)), 4.5)
            << visualThemeName(number()) << ": " << pair.text << " on " << pair.background;
}

INSTANTIATE_TEST_SUITE_P(All, VisualThemeTest, testing::ValuesIn(themeCases),
                         [](const auto& c) { return std::to_string(static_cast<int>(c.param.theme)); });

TEST(VisualThemesTest, ContrastIsThatOfTheGuidelines)
{
    EXPECT_DOUBLE_EQ(contrastRatio(0x000000, 0xFFFFFF), 21.0);
    EXPECT_DOUBLE_EQ(contrastRatio(0x123456, 0x123456), 1.0);
    EXPECT_NEAR(contrastRatio(0x777777, 0xFFFFFF), 4.48, 0.005);
    EXPECT_NEAR(contrastRatio(0x0000FF, 0xFFFFFF), 8.59, 0.005);
}

TEST(VisualThemesTest, EveryThemeHasANameOfItsOwnAndALook)
{
    std::set<std::string> names;
    std::set<std::string> looks;
    for (int theme = 0; theme < visualThemeCount; ++theme)
    {
        names.insert(visualThemeName(theme));
        installVisualTheme(theme);
        const VisualPalette& palette = VisualManager::current().palette();
        looks.insert(std::to_string(palette.dialog) + " " + std::to_string(palette.chrome) + " " +
                     std::to_string(palette.accent));
    }
    EXPECT_EQ(names.size(), 28U);
    EXPECT_EQ(names.count(""), 0U);
    EXPECT_EQ(looks.size(), 28U);
}

TEST(VisualThemesTest, TheNxBackgroundsAreExactAndComeBackAfterASwitch)
{
    const struct
    {
        util::VisualTheme theme;
        std::uint32_t reference;
        Rgb background;
    } cases[] = {{util::VisualTheme::nx8, 0x1C1C1C, 0x1C1C1C},
                 {util::VisualTheme::nx10, 0x84885C, 0x5C8884},
                 {util::VisualTheme::nx11, 0xB9A055, 0x55A0B9},
                 {util::VisualTheme::nx10, 0x84885C, 0x5C8884}};
    for (const auto& c : cases)
    {
        ASSERT_TRUE(installVisualTheme(static_cast<int>(c.theme)));
        const auto& manager = dynamic_cast<const QdrVisualManager&>(VisualManager::current());
        EXPECT_EQ(manager.dialogColour(), c.reference);
        EXPECT_EQ(manager.palette().dialog, c.background);
        EXPECT_EQ(VisualManager::dialogBackground(), c.background);
        EXPECT_EQ(manager.dialogBrush().GetColour(), toColour(c.background));
    }
}

TEST(VisualThemesTest, OtherNumbersLeaveTheManagerThatIsInForce)
{
    installVisualTheme(26);
    const VisualManager* const before = &VisualManager::current();
    for (const int number : {-1, 28, 29, 1000000, -1000000})
    {
        EXPECT_FALSE(installVisualTheme(number));
        EXPECT_EQ(&VisualManager::current(), before);
        EXPECT_STREQ(visualThemeName(number), "");
    }
}

class ThemedDialog : public DialogBase
{
public:
    ThemedDialog()
    {
        createBare(nullptr, "themed");
        SetClientSize(200, 100);
        initialise();
        enableVisualManagerStyle();
    }

    void follow() { enableVisualManagerStyle(); }
};

TEST(VisualThemesTest, AnOpenDialogFollowsTheLookInForce)
{
    ThemedDialog dialog;
    for (const int theme : {25, 26, 25, 21})
    {
        installVisualTheme(theme);
        dialog.follow();
        EXPECT_EQ(dialog.GetBackgroundColour(), toColour(VisualManager::dialogBackground()));
    }
    VisualManager::install(*wxCLASSINFO(VisualManager));
    dialog.follow();
    EXPECT_FALSE(dialog.UseBgCol());
}

} // namespace
