#include "controls/CHMXNumEdit.h"
#include "tests/support/WindowDriver.h"

#include <wx/arrstr.h>
#include <wx/clipbrd.h>
#include <wx/dialog.h>
#include <wx/sizer.h>

#include <gtest/gtest.h>

#include <vector>

using namespace testing_support;
using mfcutil::CHMXEdit;
using mfcutil::CHMXNumEdit;

namespace
{

// A dialog with an edit of each class, of which the tests look at the middle one.
class EditsInADialog : public testing::Test
{
protected:
    EditsInADialog() : m_dialog(nullptr, wxID_ANY, "Edits")
    {
        auto* const column = new wxBoxSizer(wxVERTICAL);
        for (wxTextCtrl* const edit : std::initializer_list<wxTextCtrl*>{&m_before, &m_edit, &m_after})
        {
            edit->Create(&m_dialog, wxID_ANY);
            column->Add(edit);
        }
        m_dialog.SetSizerAndFit(column);
        m_dialog.SetEscapeId(wxID_CANCEL);
        m_dialog.Bind(mfcutil::EVT_NUMBER_LEFT, [this](wxCommandEvent& event) { m_notified.push_back(event.GetId()); });
    }

    ~EditsInADialog() override
    {
        // The controls are the fixture's, not the window's.
        m_dialog.GetSizer()->Clear();
    }

    void run(WindowDriver& user)
    {
        user.then("close", [this] { clickCloseBox(&m_dialog); });
        m_dialog.ShowModal();
    }

    /// Puts the focus on the middle edit and types a text there, in place of what it shows.
    void start(WindowDriver& user, const char* text)
    {
        user.when(
            "the dialog is up", [this] { return m_dialog.IsActive(); }, [this] { click(&m_edit); });
        user.when(
            "the focus is on the edit", [this] { return m_edit.HasFocus(); },
            [text]
            {
                pressKey('A', wxMOD_CONTROL);
                pressKey(WXK_DELETE);
                type(text);
            });
        user.when("typed", [this, text] { return m_edit.GetValue() == text; });
    }

    void press(WindowDriver& user, int key, int modifiers = 0)
    {
        user.then("key", [key, modifiers] { pressKey(key, modifiers); });
    }

    wxDialog m_dialog;
    CHMXEdit& m_before = *new CHMXEdit;
    CHMXNumEdit& m_edit = *new CHMXNumEdit;
    CHMXNumEdit& m_after = *new CHMXNumEdit;
    std::vector<int> m_notified;
};

TEST_F(EditsInADialog, EnterEvaluatesWholeExpressionsOnlyAndAlwaysInFixedFormat)
{
    const std::pair<const char*, const char*> cases[] = {
        {"2*(3+4)", "14"},  {"-(-2.5)", "2.5"}, {"10/4", "2.5"}, {"1/3", "0.333333"}, {"1234567.5", "1234567.5"},
        {"0.0000004", "0"}, {"12abc", "12abc"}, {"", ""},        {"1/0", "inf"},
    };
    for (const bool general : {false, true})
        for (const auto& [typed, shown] : cases)
        {
            m_edit.setGeneralFormat(general);
            WindowDriver user;
            start(user, typed);
            press(user, WXK_RETURN);
            press(user, WXK_END);
            user.when(std::string(typed) + " is shown as " + shown,
                      [this, shown = shown] { return m_edit.GetValue() == shown && m_edit.HasFocus(); });
            user.then("nothing passed on", [this] { EXPECT_TRUE(m_notified.empty()); });
            run(user);
            m_notified.clear();
        }
}

TEST_F(EditsInADialog, LosingTheFocusShowsTheNumber)
{
    const struct
    {
        const char* typed;
        bool general;
        const char* shown;
        bool notified;
    } cases[] = {
        {"1/2+0.125", false, "0.625", true}, {"12abc", false, "12", true},
        {"abc", false, "0", true},           {"", false, "", false},
        {"1/3", true, "0.333333", false},    {"1e7*1", true, "1e+07", false},
        {"12abc", true, "12", false},        {"", true, "", false},
    };
    for (const auto& one : cases)
        for (const int modifiers : {static_cast<int>(wxMOD_NONE), static_cast<int>(wxMOD_SHIFT)})
        {
            wxWindow& next = modifiers ? static_cast<wxWindow&>(m_before) : m_after;
            m_edit.setGeneralFormat(one.general);
            m_notified.clear();
            WindowDriver user;
            start(user, one.typed);
            const wxColour normal = m_edit.GetBackgroundColour();
            user.then("in error", [this] { m_edit.setError(); });
            press(user, WXK_TAB, modifiers);
            user.when(
                "the focus has moved on", [&next] { return next.HasFocus(); },
                [&]
                {
                    EXPECT_EQ(m_edit.GetValue(), one.shown) << one.typed;
                    EXPECT_EQ(m_notified, one.notified ? std::vector<int>{m_edit.GetId()} : std::vector<int>{})
                        << one.typed;
                    EXPECT_EQ(m_edit.GetBackgroundColour() != normal, one.notified) << one.typed;
                    m_edit.clearError();
                });
            run(user);
        }
}

TEST_F(EditsInADialog, TheErrorLookSelectsTheTextAndGoesAwayWithoutTrace)
{
    WindowDriver user;
    start(user, "12abc");
    user.then("in error",
              [this]
              {
                  const wxColour before = m_edit.GetBackgroundColour();
                  m_edit.setError();
                  m_edit.setError();
                  EXPECT_EQ(m_edit.GetStringSelection(), "12abc");
                  EXPECT_NE(m_edit.GetBackgroundColour(), before);
                  m_edit.clearError();
                  EXPECT_EQ(m_edit.GetBackgroundColour(), before);
              });
    run(user);
}

TEST_F(EditsInADialog, AReadOnlyFieldCannotBeChangedByTheUser)
{
    WindowDriver user;
    start(user, "42");
    user.then("read-only",
              [this]
              {
                  m_edit.SetEditable(false);
                  const wxClipboardLocker lock;
                  wxTheClipboard->SetData(new wxTextDataObject("7"));
                  type("9");
              });
    press(user, WXK_BACK);
    press(user, 'V', wxMOD_CONTROL);
    press(user, WXK_TAB);
    user.when(
        "the focus has moved on", [this] { return m_after.HasFocus(); },
        [this]
        {
            EXPECT_EQ(m_edit.GetValue(), "42");
            m_edit.SetEditable(true);
            click(&m_edit);
        });
    user.when(
        "the focus is back", [this] { return m_edit.HasFocus(); },
        []
        {
            pressKey(WXK_END);
            type("9");
        });
    user.when("editable again", [this] { return m_edit.GetValue() == "429"; });
    run(user);
}

TEST_F(EditsInADialog, TheTooltipIsWrapped)
{
    m_edit.setToolTipText(wxString('x', 30) + " " + wxString('y', 30) + " " + wxString('z', 30));
    WindowDriver user;
    start(user, "1");
    user.then("tooltip",
              [this]
              {
                  const wxArrayString lines = wxSplit(m_edit.GetToolTipText(), '\n');
                  EXPECT_GT(lines.size(), 1U);
                  for (const wxString& line : lines)
                      EXPECT_LE(m_edit.GetTextExtent(line).x, m_edit.FromDIP(400)) << line;
              });
    run(user);
}

} // namespace
