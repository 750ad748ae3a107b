#include "tests/templates/ManagerRun.h"

#include <wx/filedlg.h>
#include <wx/modalhook.h>

#include <fstream>

using namespace testing_support;

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

// Presses Enter now and then, for the first one may only take what the dialog offers to complete.
void confirm(WindowDriver& user)
{
    user.when("the file dialog is gone",
              [ticks = 0]() mutable
              {
                  constexpr int ticksBetween = 30;
                  if (fileDialog() && ticks++ % ticksBetween == 0)
                      wxTheApp->CallAfter([] { pressKey(WXK_RETURN); });
                  return !fileDialog();
              });
}

// Chooses all files of a folder in the toolkit's open dialog, which reads the folder in the background.
void chooseAll(WindowDriver& user, const std::filesystem::path& folder, std::size_t count)
{
    user.when("the open dialog is up", fileDialog,
              [folder] { fileDialog()->SetDirectory(wxString::FromUTF8(folder.string())); });
    user.when("the files are chosen",
              [=]
              {
                  wxArrayString paths;
                  if (fileDialog())
                  {
                      markAllFiles(fileDialog());
                      fileDialog()->GetPaths(paths);
                  }
                  if (paths.size() != count || !paths[0].StartsWith(wxString::FromUTF8(folder.string() + "/")))
                      return false;
                  // At once: the dialog drops the choice when it reads the folder again.
                  fileDialog()->EndModal(wxID_OK);
                  return true;
              });
}

// Types a path into the toolkit's save dialog.
void typePath(WindowDriver& user, const std::string& path)
{
    user.when("the save dialog is up", fileDialog, [path] { type(path.c_str()); });
    user.when("the path is typed",
              [path] { return fileDialog() && fileDialog()->GetPath() == wxString::FromUTF8(path); });
    confirm(user);
}

class SharingFlowTest : public ManagerTest
{
protected:
    OpenFileDialog m_fileDialogs;
};

TEST_F(SharingFlowTest, WhatWasExportedIsImportedAgain)
{
    storeThree();
    // Without an extension it becomes a template file.
    const std::filesystem::path file = m_folder / "shared" / "all.vtmpl";
    std::filesystem::create_directories(file.parent_path());
    WindowDriver user;
    user.when("the manager is up", atRest, [] { clickRibbon(32805); });
    typePath(user, std::filesystem::path(file).replace_extension().string());
    user.when(
        "the file is written", [&] { return std::filesystem::exists(file) && atRest(); },
        [] { pressKey('A', wxMOD_CONTROL); });
    user.when(
        "all are selected", [] { return isSelected(0) && isSelected(2); }, [] { clickManager(1124); });
    user.when(
        "all are deleted", [] { return grid()->GetNumberRows() == 0; }, [] { clickRibbon(32804); });
    chooseAll(user, file.parent_path(), 1);
    user.when(
        "all are back", [] { return atRest() && grid()->GetNumberRows() == 3; }, [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
    EXPECT_EQ(storedNames(), (std::vector<std::string>{"Alpha", "Beta", "Gamma"}));
}

TEST_F(SharingFlowTest, OfSeveralFilesTheOneThatCannotBeReadIsNamed)
{
    const std::filesystem::path incoming = m_folder / "incoming";
    std::filesystem::create_directories(incoming);
    for (const std::string name : {"Alpha", "Beta"})
    {
        store(name, 6.0, 3.0);
        std::filesystem::rename(util::templatePath(kindFolder(), name) + ".vtmpl", incoming / (name + ".vtmpl"));
    }
    std::ofstream(incoming / "Anomalous.vtmpl") << "no template";
    WindowDriver user;
    user.when("the manager is up", atRest, [] { clickRibbon(32804); });
    chooseAll(user, incoming, 3);
    user.when("the error", messageIsUp,
              [&]
              {
                  // The box breaks lines where it has to.
                  wxString shown = message();
                  shown.Replace("\n", " ");
                  EXPECT_TRUE(shown.StartsWith("Template file format error.")) << shown;
                  EXPECT_TRUE(shown.Contains("Template: ")) << shown;
                  EXPECT_TRUE(shown.EndsWith("Anomalous.vtmpl")) << shown;
                  answer(1);
              });
    user.when(
        "the others are there", [] { return atRest() && grid()->GetNumberRows() == 2; }, [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
    EXPECT_EQ(storedNames(), (std::vector<std::string>{"Alpha", "Beta"}));
}

TEST_F(SharingFlowTest, OfManyFilesThatCannotBeReadOneMessageScrollsTheNames)
{
    for (const int count : {10, 40})
    {
        const std::filesystem::path incoming = m_folder / ("incoming" + std::to_string(count));
        std::filesystem::create_directories(incoming);
        for (int file = 0; file < count; ++file)
            std::ofstream(incoming / ("bad" + std::to_string(100 + file) + ".vtmpl")) << "no template";
        WindowDriver user;
        user.when("the manager is up", atRest, [] { clickRibbon(32804); });
        chooseAll(user, incoming, static_cast<std::size_t>(count));
        user.when("the error", messageIsUp,
                  [&]
                  {
                      wxWindow* const box = windowTitled("Template Manager");
                      auto* const list = dynamic_cast<wxTextCtrl*>(child(box, 10));
                      const wxString last = wxString::Format("bad%d.vtmpl", 99 + count);
                      EXPECT_EQ(list != nullptr, count > 10);
                      EXPECT_TRUE(list ? list->GetValue().EndsWith(last) : message().EndsWith(last));
                      EXPECT_LT(box->GetSize().y, 720);
                      savePicture(box, "template-import-errors-" + std::to_string(count));
                      pressKey(WXK_RETURN);
                  });
        user.when("the manager is back", atRest, [] { clickManager(1150); });
        EXPECT_EQ(load(), 0);
    }
}

TEST_F(SharingFlowTest, ALongImportShowsItselfAndIsCancelledBetweenFiles)
{
    constexpr int files = 60;
    constexpr int templatesEach = 100;
    const std::filesystem::path incoming = m_folder / "incoming";
    std::filesystem::create_directories(incoming);
    for (int file = 0; file < files; ++file)
    {
        std::vector<util::Parameterized> sets(templatesEach);
        for (int set = 0; set < templatesEach; ++set)
            sets[static_cast<std::size_t>(set)].set(util::keys::templateName,
                                                    std::to_string(file) + "-" + std::to_string(set));
        ASSERT_EQ(util::saveTemplateArrayFile(incoming / (std::to_string(file) + ".vtmpl"), sets), 0);
    }
    WindowDriver user;
    user.when("the manager is up", atRest, [] { clickRibbon(32804); });
    chooseAll(user, incoming, files);
    user.when(
        "the import shows itself", [] { return isReady("Import Templates"); },
        []
        {
            EXPECT_FALSE(manager()->IsEnabled());
            savePicture(windowTitled("Import Templates"), "template-import-progress");
            press("Import Templates", 2);
        });
    user.when(
        "the manager lists what is in", [] { return atRest() && grid()->GetNumberRows() > 0; },
        []
        {
            EXPECT_EQ(grid()->GetNumberRows() % templatesEach, 0) << "a file is taken whole";
            EXPECT_LT(grid()->GetNumberRows(), files * templatesEach);
            pressKey(WXK_DOWN);
        });
    user.when(
        "the keys go to the grid", [] { return grid()->GetGridCursorRow() == 1; }, [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
}

TEST_F(SharingFlowTest, AQuitMessageEndsTheCallOverAFileDialog)
{
    storeThree();
    for (const int id : {32804, 32805})
    {
        WindowDriver user;
        user.when("the manager is up", atRest, [id] { clickRibbon(id); });
        user.when("the file dialog is up", fileDialog, [] { tessaronResourcesQuit(); });
        EXPECT_EQ(load(), 0);
        EXPECT_EQ(fileDialog(), nullptr);
        EXPECT_TRUE(m_owner->IsEnabled());
    }
}

} // namespace
