// A person reads in the host what a job has found, and looks at the places.
#include "host/HostFrame.h"
#include "host/ModuleLibrary.h"
#include "host/Palette.h"
#include "host/PartView.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/ToolkitHost.h"
#include "tests/support/WindowDriver.h"
#include <tessaron/exchange/Archives.h>
#include <tessaron/util/Keys.h>

#include <wx/listctrl.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace testing_support;

namespace
{

namespace keys = util::keys;

template <class Window>
Window* findWindow(wxWindow* parent)
{
    for (wxWindow* const child : parent->GetChildren())
        if (auto* const found = dynamic_cast<Window*>(child))
            return found;
        else if (auto* const below = findWindow<Window>(child))
            return below;
    return nullptr;
}

class HostFindings : public ToolkitHost
{
protected:
    void onInit() override
    {
        m_host = new host::HostFrame(m_module, TESSARON_SAMPLES, m_folder.path());
        m_frame = m_host;
        m_host->CentreOnScreen();
        m_host->Show();
    }

    /// A sample of which something is found: a parameter that is not used, and places for drilling.
    std::string part()
    {
        exchange::Tessaron2dInput input;
        exchange::readArchiveFile(TESSARON_SAMPLES "/pocket-with-islands.xml", input);
        input.parameters.set("Holder Clearance", 1.5);
        input.parameters.set(keys::detectOptimalPreDrillPoints, 1);
        exchange::writeArchiveFile(m_folder / "part.xml", input);
        return m_folder / "part.xml";
    }

    wxListView& list() { return *findWindow<wxListView>(m_host); }

    void readThem();

    /// The middle of a row on the screen.
    wxPoint placeOfRow(long row)
    {
        wxRect rect;
        list().GetItemRect(row, rect);
        return list().ClientToScreen(wxPoint(rect.x + 40, rect.y + rect.height / 2));
    }

    /// Whether the screen shows the text of a row, dark on white, where the list says that it is.
    bool isDrawn(long row)
    {
        wxRect rect;
        list().GetItemRect(row, rect);
        const wxImage picture = pictureOf(&list(), wxRect(rect.x, rect.y, 200, rect.height));
        int dark = 0;
        int white = 0;
        for (int y = 0; y < picture.GetHeight(); ++y)
            for (int x = 0; x < picture.GetWidth(); ++x)
            {
                dark += picture.GetRed(x, y) < 160;
                white += picture.GetRed(x, y) == 255 && picture.GetBlue(x, y) == 255;
            }
        return dark > 50 && white > 5 * dark;
    }

    /// Whether the drawing has the ring of a mark about a point of its window.
    bool hasMarkAt(const wxPoint& at)
    {
        const int reach = 24;
        const wxImage picture = pictureOf(&m_host->view(), wxRect(at.x - reach, at.y - reach, 2 * reach, 2 * reach));
        int pixels = 0;
        for (int y = 0; y < picture.GetHeight(); ++y)
            for (int x = 0; x < picture.GetWidth(); ++x)
                pixels += std::abs(picture.GetRed(x, y) - host::palette::mark.Red()) < 12 &&
                          std::abs(picture.GetGreen(x, y) - host::palette::mark.Green()) < 12 &&
                          std::abs(picture.GetBlue(x, y) - host::palette::mark.Blue()) < 12;
        return pixels > 60;
    }

    wxPoint middleOfView() const
    {
        const wxSize size = m_host->view().GetClientSize();
        return {size.x / 2, size.y / 2};
    }

    const TemporaryFolder m_folder;
    const host::Module m_module{host::ModuleLibrary::defaultFile()};
    host::HostFrame* m_host = nullptr;
};

/// What the person does, with the host's main loop running.
void HostFindings::readThem()
{
    waitFor("the host's window", [this] { return takesKeys(m_host); });
    EXPECT_FALSE(list().IsShownOnScreen());
    ASSERT_TRUE(m_host->openPart(part())) << m_host->failure();
    ASSERT_EQ(m_host->generate().state, exchange::JobState::finished);
    const auto& findings = m_host->findings();
    ASSERT_GE(findings.size(), 2u);
    waitFor("the list", [&] { return list().IsShownOnScreen() && isDrawn(0) && isDrawn(1); });
    ASSERT_EQ(list().GetItemCount(), static_cast<int>(findings.size()));
    long withPlace = -1;
    long without = -1;
    for (long row = 0; row < list().GetItemCount(); ++row)
    {
        const auto& finding = findings[static_cast<std::size_t>(row)];
        EXPECT_EQ(list().GetItemText(row), wxString::FromUTF8(finding.text));
        long& first = finding.hasPlace ? withPlace : without;
        first = first < 0 ? row : first;
    }
    ASSERT_GE(withPlace, 0);
    ASSERT_GE(without, 0);
    EXPECT_EQ(list().GetItemText(without, 1), "Holder Clearance");
    EXPECT_FALSE(hasMarkAt(middleOfView()));

    person().click(placeOfRow(withPlace));
    waitFor("the mark in the middle of the drawing", [&] { return hasMarkAt(middleOfView()); });
    const auto& finding = findings[static_cast<std::size_t>(withPlace)];
    ASSERT_TRUE(m_host->view().scene().place);
    EXPECT_EQ((*m_host->view().scene().place)[0], finding.x);
    EXPECT_EQ((*m_host->view().scene().place)[1], finding.y);
    savePicture(m_host, "host-findings");

    person().click(placeOfRow(without));
    waitFor("the mark to go", [&] { return !hasMarkAt(middleOfView()); });
    // Back by the keyboard.
    person().key(withPlace > without ? "Down" : "Up");
    waitFor("the mark to come back", [&] { return hasMarkAt(middleOfView()); });

    EXPECT_TRUE(m_host->openPart(TESSARON_SAMPLES "/square-pocket.xml"));
    waitFor("the list to go", [&] { return !list().IsShownOnScreen(); });
    EXPECT_FALSE(hasMarkAt(middleOfView()));
}

TEST_F(HostFindings, AreListedAndAClickShowsThePlace)
{
    wxTheApp->CallAfter(
        [this]
        {
            readThem();
            wxTheApp->GetMainLoop()->ScheduleExit();
        });
    EXPECT_TRUE(runMainLoop());
}

} // namespace
