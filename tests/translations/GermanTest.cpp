// The module in a host whose user's language is German: every window, through its exported entry point.
#include "tests/progress/ScriptedProgress.h"
#include "tests/templates/ManagerRun.h"
#include <tessaron/frame/PlainEntryPoints.h>
#include <tessaron/machining/GougeCheckData.h>
#include <tessaron/machining/SmartLinkData.h>

#include <boost/make_shared.hpp>

#include <wx/textctrl.h>

#include <cstdlib>
#include <functional>

using namespace testing_support;
using namespace TessaronResources;

namespace
{

// Before the module shows its first text.
const int german = setenv("LANGUAGE", "de", 1);

struct Window
{
    const char* title;
    const char* picture;
    int (*show)();
};

int showChipControl(bool metric)
{
    int spindleSpeed = 5000;
    double feedrate = 1000;
    double stepover = 2;
    return displayChipControlDialogEx(0, 10, 4, 2, &spindleSpeed, &feedrate, &stepover, metric);
}

const Window windows[] = {
    {"Aktive Spanungsdickenregelung", "german-chip-control-inch", [] { return showChipControl(false); }},
    {"Aktive Spanungsdickenregelung", "german-chip-control-metric", [] { return showChipControl(true); }},
    {"Kollisionsprüfung", "german-gouge-check",
     []
     {
         GougeCheckData data{1, 0, 1, 2.5, 0.1, 3};
         return displayGougeCheckDialog(&data);
     }},
    {"SmartLink-Parameter", "german-smartlink",
     []
     {
         SmartLinkData data{1, 1, 0.3};
         return displaySmartLinkDialog(&data);
     }},
};

class GermanDialogs : public testing::TestWithParam<Window>
{
};

TEST_P(GermanDialogs, HaveGermanTextsThatFit)
{
    const wxString title = wxString::FromUTF8(GetParam().title);
    WindowDriver user;
    user.when(
        "the dialog is up", [&] { return windowTitled(title) && windowTitled(title)->IsActive(); },
        [] { pressKey(WXK_TAB); });
    user.then("picture",
              [&]
              {
                  expectWellLaidOut(windowTitled(title));
                  savePicture(windowTitled(title), GetParam().picture);
                  pressKey(WXK_ESCAPE);
              });
    GetParam().show();
}

INSTANTIATE_TEST_SUITE_P(Windows, GermanDialogs, testing::ValuesIn(windows));

TEST(GermanProgress, ShowsStagesInGerman)
{
    const auto progress = boost::make_shared<ScriptedProgress>();
    boost::shared_ptr<exchange::ProgressData> record = progress;
    util::Parameterized stages;
    stages.set(util::keys::stageCreatingToolpath, 0.42);
    progress->report(42.0, stages);
    const auto stage = [] { return topWindow() ? child(topWindow(), 1021)->GetLabel() : wxString(); };
    WindowDriver user;
    user.when(
        "the stage is shown", [&] { return stage() == "Werkzeugbahn zu 42% berechnet"; },
        []
        {
            expectWellLaidOut(topWindow());
            savePicture(topWindow(), "german-progress");
            click(child(topWindow(), 2));
        });
    EXPECT_EQ(displayProgressDialog(record, "Tasche"), 2);
}

class GermanManager : public ManagerTest
{
protected:
    GermanManager() { storeThree(); }

    static wxTopLevelWindow* window(const char* title) { return windowTitled(wxString::FromUTF8(title)); }
    static bool isUp(const char* title) { return window(title) && window(title)->IsShownOnScreen(); }
    static bool atRest() { return isUp(managerName) && window(managerName)->IsEnabled(); }
    static wxGrid* cells() { return dynamic_cast<wxGrid*>(child(window(managerName), 1127)); }

    static void run(int id)
    {
        wxTopLevelWindow* const frame = window(managerName);
        frame->CallAfter(
            [=]
            {
                wxCommandEvent event(wxEVT_MENU, static_cast<std::int16_t>(static_cast<std::uint16_t>(id)));
                frame->GetEventHandler()->ProcessEvent(event);
            });
    }

    static constexpr const char* managerName = "Operationsvorlagen";
};

TEST_F(GermanManager, ItsWindowsAreGermanAndWhatItStoresIsNot)
{
    const struct
    {
        int command;
        const char* title;
        const char* picture;
    } dialogs[] = {{32801, "Sortieren", "german-template-sort"},
                   {32800, "Suchen", "german-template-find"},
                   {32797, "Vorlagen-Einstellungen", "german-template-preferences"}};
    WindowDriver user;
    for (const auto& dialog : dialogs)
    {
        user.when("the manager is up", atRest, [=] { run(dialog.command); });
        user.when(
            dialog.picture, [=] { return isUp(dialog.title) && window(dialog.title)->IsActive(); },
            [=]
            {
                expectWellLaidOut(window(dialog.title));
                savePicture(window(dialog.title), dialog.picture);
                pressKey(WXK_ESCAPE);
            });
    }
    user.when("the manager is back", atRest,
              []
              {
                  EXPECT_EQ(cells()->GetColLabelValue(1), "Art des Werkstoffs");
                  expectWellLaidOut(cells()->GetParent());
                  savePicture(window(managerName), "german-template-manager");
                  cells()->SelectRow(0);
                  cells()->SetFocus();
                  pressKey(WXK_DELETE);
              });
    user.when(
        "it asks", [] { return isUp("Vorlagenverwaltung"); },
        []
        {
            EXPECT_EQ(child(window("Vorlagenverwaltung"), 10)->GetLabel(),
                      wxString::FromUTF8("Die ausgewählte Vorlage löschen?"));
            pressKey(WXK_ESCAPE);
        });
    user.when("nothing happened", atRest, [] { click(child(window(managerName), 1150)); });
    EXPECT_EQ(load(), 0);

    util::TemplateInfo stored;
    ASSERT_EQ(util::loadTemplateDefs(folder(), "tessaron_template_info", &stored), 0);
    EXPECT_EQ(stored.columns[1].title, "Part Material");
}

} // namespace
