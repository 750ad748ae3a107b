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
    user.when("the manager is up", atRest, [] { open(32805); });
    typePath(user, std::filesystem::path(file).replace_extension().string());
    user.when(
        "the file is written", [&] { return std::filesystem::exists(file) && atRest(); }, [] { grid()->SelectAll(); });
    user.when(
        "all are selected", [] { return isSelected(0) && isSelected(2); }, [] { clickManager(1124); });
    user.when(
        "all are deleted", [] { return grid()->GetNumberRows() == 0; }, [] { open(32804); });
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
    user.when("the manager is up", atRest, [] { open(32804); });
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

TEST_F(SharingFlowTest, AQuitMessageEndsTheCallOverAFileDialog)
{
    storeThree();
    for (const int id : {32804, 32805})
    {
        WindowDriver user;
        user.when("the manager is up", atRest, [id] { open(id); });
        user.when("the file dialog is up", fileDialog, [] { tessaronResourcesQuit(); });
        EXPECT_EQ(load(), 0);
        EXPECT_EQ(fileDialog(), nullptr);
        EXPECT_TRUE(m_owner->IsEnabled());
    }
}

} // namespace
