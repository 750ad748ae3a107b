// Which windows take input while a window of the module is up inside a modal dialog, and afterwards.
#include "tests/progress/ScriptedProgress.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/ToolkitHost.h"
#include "tests/support/WindowDriver.h"
#include <tessaron/frame/EntryPoints.h>
#include <tessaron/machining/GougeCheckData.h>
#include <tessaron/util/Parameterized.h>
#include <tessaron/util/VisualTheme.h>

#include <boost/make_shared.hpp>

#include <wx/button.h>
#include <wx/dialog.h>

#include <gtest/gtest.h>
#include <gtk/gtk.h>

using namespace testing_support;
using namespace TessaronResources;

namespace
{

/// A call that its user cancels, with Escape or a button.
struct Call
{
    const char* name;
    std::function<int()> show;
    int cancelled; ///< what it returns then
    int cancelButton = 0;
};

std::vector<Call> callsOfEachKind(const std::string& folder)
{
    const auto progress = [](bool multi)
    {
        const auto scripted = boost::make_shared<ScriptedProgress>();
        scripted->m_onRefresh = [record = scripted.get()](int)
        {
            if (record->m_cancelRequests > 0)
                record->report(-1.0);
        };
        boost::shared_ptr<exchange::ProgressData> record = scripted;
        const int result = multi ? displayMultiProgressDialog(record) : displayProgressDialog(record, "Job");
        EXPECT_EQ(scripted->m_cancelRequests, 1);
        return result;
    };
    return {
        {"progress", [progress] { return progress(false); }, 2},
        {"progress of workers", [progress] { return progress(true); }, 1, 2},
        {"modal dialog",
         []
         {
             GougeCheckData data{};
             return displayGougeCheckDialog(&data);
         },
         2},
        {"template manager",
         [folder]
         {
             util::Parameterized loaded;
             return displayTemplateManagerDialogLoad(0, 0, folder, util::Parameterized(), &loaded, nullptr,
                                                     util::VisualTheme{});
         },
         0, 1150},
    };
}

void cancel(const Call& call, wxWindow* window)
{
    if (call.cancelButton == 0)
        pressKey(WXK_ESCAPE);
    else
        click(child(window, call.cancelButton));
}

class Modality : public ToolkitHost
{
protected:
    void onInit() override
    {
        ToolkitHost::onInit();
        m_frame->SetPosition({0, 0});
        auto* const button = new wxButton(m_frame.get(), wxID_ANY, "Count");
        button->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { ++m_clicks; });
        m_button = button;
    }

    // A window of the module: none of those that the host made.
    wxTopLevelWindow* moduleWindow(wxWindow* dialog) const
    {
        wxTopLevelWindow* const window = topWindow();
        return window != m_frame.get() && window != dialog ? window : nullptr;
    }

    wxButton* m_button = nullptr;
    int m_clicks = 0;
    TemporaryFolder m_folder;
};

// The host's "Generate" stands in a modal dialog more often than not.
TEST_F(Modality, AWindowInsideAHostsDialogTakesInputAndLeavesTheDialogModal)
{
    for (const Call& call : callsOfEachKind(m_folder.path()))
    {
        wxDialog dialog(nullptr, wxID_ANY, "Operation", {700, 500});
        auto* const generate = new wxButton(&dialog, wxID_ANY, "Generate", {10, 10});
        auto* const close = new wxButton(&dialog, wxID_OK, "Close", {10, 60});
        int result = -1;
        generate->Bind(wxEVT_BUTTON, [&](wxCommandEvent&) { result = call.show(); });
        WindowDriver user;
        user.when(
            "the host's dialog has the keyboard", [&] { return takesKeys(&dialog); }, [&] { click(generate); });
        user.when(
            "the module's window has it", [&] { return takesKeys(moduleWindow(&dialog)); },
            [&] { cancel(call, moduleWindow(&dialog)); });
        user.when(
            "the call has returned", [&] { return result != -1 && takesKeys(&dialog); },
            [&]
            {
                click(m_button);
                click(close);
            });
        wxTheApp->CallAfter(
            [&]
            {
                EXPECT_EQ(dialog.ShowModal(), wxID_OK) << call.name;
                wxTheApp->ExitMainLoop();
            });
        EXPECT_TRUE(runMainLoop()) << call.name;
        EXPECT_TRUE(user.done()) << call.name;
        EXPECT_EQ(result, call.cancelled) << call.name;
        EXPECT_EQ(m_clicks, 0) << "the host's window took a click past its dialog, after: " << call.name;
        m_clicks = 0;
    }
}

// A window that is not the toolkit's, which only a grab keeps from taking input.
class NativeWindow
{
public:
    explicit NativeWindow(bool modal = false)
    {
        m_window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
        m_button = gtk_button_new_with_label("Count");
        gtk_container_add(GTK_CONTAINER(m_window), m_button);
        gtk_window_set_default_size(GTK_WINDOW(m_window), 200, 100);
        g_signal_connect_swapped(m_button, "clicked", G_CALLBACK(+[](int* clicks) { ++*clicks; }), &m_clicks);
        gtk_window_set_modal(GTK_WINDOW(m_window), modal);
        gtk_widget_show_all(m_window);
        gtk_window_move(GTK_WINDOW(m_window), 0, 400);
    }
    NativeWindow(const NativeWindow&) = delete;
    NativeWindow& operator=(const NativeWindow&) = delete;
    ~NativeWindow() { gtk_widget_destroy(m_window); }

    void click() const
    {
        int x = 0;
        int y = 0;
        gdk_window_get_origin(gtk_widget_get_window(m_button), &x, &y);
        GtkAllocation place;
        gtk_widget_get_allocation(m_button, &place);
        person().click({x + place.x + place.width / 2, y + place.y + place.height / 2});
    }
    int clicks() const { return m_clicks; }

private:
    GtkWidget* m_window = nullptr;
    GtkWidget* m_button = nullptr;
    int m_clicks = 0;
};

TEST_F(Modality, AWindowInsideAModalWindowThatIsNotTheToolkitsTakesInput)
{
    for (const Call& call : callsOfEachKind(m_folder.path()))
    {
        int result = -1;
        WindowDriver user;
        user.when(
            "the module's window has the keyboard", [&] { return takesKeys(moduleWindow(nullptr)); },
            [&] { cancel(call, moduleWindow(nullptr)); });
        wxTheApp->CallAfter(
            [&]
            {
                const NativeWindow around(true);
                result = call.show();
                wxTheApp->ExitMainLoop();
            });
        EXPECT_TRUE(runMainLoop()) << call.name;
        EXPECT_TRUE(user.done()) << call.name;
        EXPECT_EQ(result, call.cancelled) << call.name;
    }
}

TEST_F(Modality, AMessageOfADialogLeavesTheDialogModal)
{
    wxTheApp->CallAfter(
        [this]
        {
            const NativeWindow native;
            constexpr int holderClearance = 1020;
            GougeCheckData data{};
            wxWindow* dialog = nullptr;
            WindowDriver user;
            user.when(
                "the dialog is up", [&] { return takesKeys(moduleWindow(nullptr)); },
                [&]
                {
                    dialog = moduleWindow(nullptr);
                    click(child(dialog, holderClearance));
                });
            user.when(
                "the field has the focus", [&] { return child(dialog, holderClearance)->HasFocus(); },
                []
                {
                    pressKey('A', wxMOD_CONTROL);
                    type("none");
                    pressKey(WXK_RETURN);
                });
            user.when(
                "the message is up", [&] { return moduleWindow(dialog) && takesKeys(moduleWindow(dialog)); },
                [] { pressKey(WXK_RETURN); });
            user.when(
                "the dialog is back", [&] { return takesKeys(dialog); },
                [&]
                {
                    native.click();
                    click(dialog);
                    pressKey(WXK_ESCAPE);
                });
            EXPECT_EQ(displayGougeCheckDialog(&data), 2);
            EXPECT_EQ(native.clicks(), 0) << "the host's window took a click past the dialog";
            EXPECT_TRUE(user.done());
            wxTheApp->ExitMainLoop();
        });
    EXPECT_TRUE(runMainLoop());
}

} // namespace
