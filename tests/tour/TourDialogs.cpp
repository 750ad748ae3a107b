// The part of the tour that uses the module's dialogs.
#include "host/HostFrame.h"
#include "tests/tour/Tour.h"
#include <tessaron/util/Keys.h>

#include <wx/grid.h>
#include <wx/menu.h>
#include <wx/ribbon/buttonbar.h>
#include <wx/stopwatch.h>
#include <wx/timer.h>

namespace tour
{

using namespace host;
using namespace testing_support;

namespace
{

// What the controls and commands of the module's windows go by.
constexpr int okId = 1;
constexpr int cancelId = 2;
constexpr int chipCalculateId = 3;
constexpr int chipPercentId = 1040;
constexpr int gougeHolderId = 2019;
constexpr int smartLinkTrackId = 1027;
constexpr int templateNameId = 1158;
constexpr int templateGridId = 1127;
constexpr int templateThemeId = 1147;
constexpr int sortGridId = 1137;
constexpr int findTextId = 1141;
constexpr int matchFilterId = 1152;
// The toolkit takes ids of 16 bits.
constexpr int findCommand = 32800 - 65536;
constexpr int sortCommand = 32801 - 65536;

constexpr int tickMilliseconds = 10;
constexpr long patience = 20000;

struct Look
{
    int theme;
    const char* name;
};

constexpr Look looks[] = {{21, "office-2016"}, {0, "windows-xp"},         {2, "office-2007-black"},
                          {13, "dark"},        {23, "office-2016-black"}, {26, "nx-10"}};

} // namespace

void Tour::useDialogs(const wxString& entry, const std::vector<DialogStep>& steps)
{
    const wxMenuBar* const menus = m_frame.GetMenuBar();
    const wxMenuItem* const item = menus->FindItem(menus->FindMenuItem("Machining", entry + L"\u2026"));
    if (!item)
        return expect(false, "the menu has no \"" + entry.utf8_string() + "\"");
    const std::string label = item->GetItemLabel().Lower().utf8_string();
    const std::string accessKey = label.substr(label.find('&') + 1, 1);

    wxTimer watch;
    std::size_t taken = 0;
    wxStopWatch waited;
    watch.Bind(wxEVT_TIMER,
               [&](wxTimerEvent&)
               {
                   wxTopLevelWindow* const window = taken < steps.size() ? moduleWindow(steps[taken].control) : nullptr;
                   if (window && window->IsEnabled() && takesKeys(window))
                   {
                       if (auto* const owner = dynamic_cast<wxTopLevelWindow*>(window->GetParent()); owner != &m_frame)
                           centre(owner);
                       centre(window);
                       settle(300);
                       steps[taken++].act(*window);
                       waited.Start();
                   }
                   else if (waited.Time() > patience)
                       m_frame.module().quit();
               });
    watch.Start(tickMilliseconds);
    if (waitFor("the keyboard", [this] { return takesKeys(&m_frame); }))
        m_person.key("m", testing_support::Person::alt);
    if (waitFor("the menu", menuIsUp))
        m_person.key(accessKey.c_str());
    // What is chosen shows its windows from in here, and comes back when they are gone.
    while (taken < steps.size() && waited.Time() < patience)
        settle(tickMilliseconds);
    watch.Stop();
    settle();
    expect(taken == steps.size(),
           "step " + std::to_string(taken + 1) + " of \"" + entry.utf8_string() + "\" did not come");
}

void Tour::useDialog(const wxString& entry, int control, const std::function<void(wxTopLevelWindow&)>& act)
{
    useDialogs(entry, {{control, act}});
}

// The dialogs of the module change what the next toolpath is like.
void Tour::changeParameters()
{
    say("Change the parameters of " + m_parts.front());
    m_frame.setProgressLook(ProgressLook::milling);
    m_frame.showFromAbove(true);
    if (!m_frame.openPart(m_parts.front()))
        return;
    saveTemplate();
    generate(m_parts.front());
    const double stepover = m_frame.part()->number(util::keys::stepover);
    const std::size_t before = recordCount();
    useDialog("Chip thickness", chipPercentId,
              [this](wxTopLevelWindow& window)
              {
                  typeInto(window.FindWindow(chipPercentId), "20");
                  click(window.FindWindow(chipCalculateId));
                  settle(300);
                  picture("chip-thickness");
                  click(window.FindWindow(okId));
              });
    const double applied = m_frame.part()->number(util::keys::stepover);
    generate(m_parts.front());
    say(wxString::Format("  the stepover went from %g to %g mm, the toolpath from %zu to %zu records", stepover,
                         applied, before, recordCount())
            .utf8_string());
    expect(applied < stepover && recordCount() > before, "the applied stepover did not change the toolpath");
    picture("applied-stepover");
    useDialog("Gouge check", gougeHolderId,
              [this](wxTopLevelWindow& window)
              {
                  picture("gouge-check");
                  click(window.FindWindow(okId));
              });
    useDialog("SmartLink", smartLinkTrackId,
              [this](wxTopLevelWindow& window)
              {
                  picture("smartlink");
                  click(window.FindWindow(okId));
              });
    loadTemplate();
    expect(m_frame.part()->number(util::keys::stepover) == stepover, "the template did not bring the stepover back");
    say(wxString::Format("  the template brought the stepover back to %g mm", stepover).utf8_string());
}

void Tour::saveTemplate()
{
    say("Store its parameters as a template");
    useDialog("Save as template", templateNameId,
              [this](wxTopLevelWindow& window)
              {
                  typeInto(window.FindWindow(templateNameId), "Square pocket");
                  picture("save-as-template");
                  click(window.FindWindow(okId));
              });
}

void Tour::showLooks(wxTopLevelWindow& manager)
{
    for (const Look& look : looks)
    {
        click(manager.FindWindow(templateThemeId));
        if (!waitFor("the list of themes", menuIsUp))
            return;
        m_person.key("Home");
        for (int theme = 0; theme < look.theme; ++theme)
            m_person.key("Down");
        m_person.key("Return");
        waitFor("the choice of a theme", [] { return !menuIsUp(); });
        settle(400);
        picture(std::string("template-manager-") + look.name);
    }
}

void Tour::clickRibbon(const wxWindow& window, int command)
{
    for (wxWindow* const inner : window.GetChildren())
    {
        auto* const bar = dynamic_cast<wxRibbonButtonBar*>(inner);
        if (!bar || !bar->GetItemById(command))
        {
            clickRibbon(*inner, command);
            continue;
        }
        const wxRect button = bar->GetItemRect(command);
        m_person.click(bar->ClientToScreen(button.GetPosition() + button.GetSize() / 2));
    }
}

void Tour::loadTemplate()
{
    say("Load the template");
    const auto openByRibbon = [this](int command) {
        return DialogStep{templateGridId,
                          [this, command](wxTopLevelWindow& manager) { clickRibbon(manager, command); }};
    };
    // The preferences are the first entry of the application menu.
    const DialogStep openByKeys{templateGridId, [this](wxTopLevelWindow&)
                                {
                                    // Typed ahead: the menu comes back only when it is closed.
                                    for (const char* const key : {"F10", "Down", "Return"})
                                        m_person.key(key);
                                }};
    const auto showAndClose = [this](int control, const char* name, int button)
    {
        return DialogStep{control, [this, name, button](wxTopLevelWindow& dialog)
                          {
                              picture(name);
                              click(dialog.FindWindow(button));
                          }};
    };
    useDialogs("Load template",
               {{templateGridId, [this](wxTopLevelWindow& manager) { showLooks(manager); }},
                openByRibbon(sortCommand),
                showAndClose(sortGridId, "template-sort", cancelId),
                openByRibbon(findCommand),
                showAndClose(findTextId, "template-find", okId),
                openByKeys,
                showAndClose(matchFilterId, "template-preferences", cancelId),
                {templateGridId, [this](wxTopLevelWindow& manager)
                 {
                     if (auto* const grid = dynamic_cast<wxGrid*>(manager.FindWindow(templateGridId)))
                         m_person.click(grid->ClientToScreen(
                             wxPoint(grid->GetRowLabelSize() + 20, grid->GetColLabelSize() + grid->GetRowSize(0) / 2)));
                     settle();
                     click(manager.FindWindow(okId));
                 }}});
}

std::size_t Tour::recordCount() const
{
    return m_frame.toolpath() ? m_frame.toolpath()->statistics().records : 0;
}

} // namespace tour
