#include "templates/RatingStars.h"
#include "tests/templates/ManagerRun.h"

#include <wx/filedlg.h>
#include <wx/modalhook.h>

#include <fstream>

using namespace testing_support;
using TessaronResources::ratingAt;
using TessaronResources::starRow;

namespace
{

// Knows the toolkit's file dialog while it is up; it is in no list of windows.
class OpenFileDialog : public wxModalDialogHook
{
public:
    OpenFileDialog() { Register(); }
    static wxFileDialog* current;

protected:
    int Enter(wxDialog* dialog) override
    {
        if (auto* const files = dynamic_cast<wxFileDialog*>(dialog))
            current = files;
        return wxID_NONE;
    }
    void Exit(wxDialog*) override { current = nullptr; }
};

wxFileDialog* OpenFileDialog::current = nullptr;

wxFileDialog* fileDialog()
{
    return OpenFileDialog::current && OpenFileDialog::current->IsShown() ? OpenFileDialog::current : nullptr;
}

// Chooses a file in the toolkit's dialog, which reads folders in the background.
void choose(WindowDriver& user, const std::string& file)
{
    const wxString path = wxString::FromUTF8(file);
    user.when("the file dialog is up", fileDialog, [path] { fileDialog()->SetPath(path); });
    user.when(
        "the file is chosen",
        [path]
        {
            wxArrayString paths;
            if (fileDialog() && fileDialog()->HasFlag(wxFD_MULTIPLE))
                fileDialog()->GetPaths(paths);
            else if (fileDialog())
                paths.Add(fileDialog()->GetPath());
            return paths.size() == 1 && paths[0] == path;
        },
        [] { fileDialog()->EndModal(wxID_OK); });
}

class SharingFlowTest : public ManagerTest
{
protected:
    OpenFileDialog m_fileDialogs;

    static bool atRest() { return managerIsUp() && manager()->IsEnabled() && !messageIsUp(); }
    static void open(int id)
    {
        manager()->CallAfter([id] { command(id); });
    }
};

TEST_F(SharingFlowTest, WhatWasExportedIsImportedAgain)
{
    storeThree();
    const std::string file = (m_folder / "shared.xml").string();
    WindowDriver user;
    user.when("the manager is up", atRest, [] { open(32805); });
    choose(user, file);
    user.when(
        "the file is written", [&] { return std::filesystem::exists(file) && atRest(); }, [] { grid()->SelectAll(); });
    user.when(
        "all are selected", [] { return isSelected(0) && isSelected(2); }, [] { clickManager(1124); });
    user.when(
        "all are deleted", [] { return grid()->GetNumberRows() == 0; }, [] { open(32804); });
    choose(user, file);
    user.when(
        "all are back", [] { return atRest() && grid()->GetNumberRows() == 3; }, [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
    EXPECT_EQ(storedNames(), (std::vector<std::string>{"Alpha", "Beta", "Gamma"}));
}

TEST_F(SharingFlowTest, AFileThatCannotBeReadIsNamed)
{
    std::filesystem::create_directories(m_folder);
    const std::string file = (m_folder / "broken.vtmpl").string();
    std::ofstream(file) << "no template";
    WindowDriver user;
    user.when("the manager is up", atRest, [] { open(32804); });
    choose(user, file);
    user.when("the error", messageIsUp,
              [&]
              {
                  // The box breaks lines where it has to.
                  wxString shown = message();
                  shown.Replace("\n", " ");
                  EXPECT_TRUE(shown.StartsWith("Template file format error.")) << shown;
                  EXPECT_TRUE(shown.Contains("Template: ")) << shown;
                  EXPECT_TRUE(shown.EndsWith("broken.vtmpl")) << shown;
                  answer(1);
              });
    user.when("the manager is back", atRest, [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
}

TEST(RatingStarsTest, AClickStandsForTheStarThatItHits)
{
    const auto stars = starRow(100, 10, 96, 25, 18);
    EXPECT_EQ(stars.edge, 18);
    EXPECT_EQ(ratingAt(stars, stars.left - 1, 0.0), -1);
    EXPECT_EQ(ratingAt(stars, stars.left, 0.0), 1);
    EXPECT_EQ(ratingAt(stars, stars.left, 1.0), 0);
    EXPECT_EQ(ratingAt(stars, stars.left + 17, 2.0), 1);
    EXPECT_EQ(ratingAt(stars, stars.left + 18, 2.0), 2);
    EXPECT_EQ(ratingAt(stars, stars.left + 5 * 18 - 1, 0.0), 5);
    EXPECT_EQ(ratingAt(stars, stars.left + 5 * 18, 0.0), -1);
    EXPECT_EQ(ratingAt(starRow(0, 0, 3, 3, 18), 1, 0.0), -1);
}

} // namespace
