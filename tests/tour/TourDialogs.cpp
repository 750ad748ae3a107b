// The part of the tour that uses the module's dialogs.
#include "host/HostFrame.h"
#include "tests/tour/Tour.h"
#include <tessaron/util/Keys.h>

#include <wx/choice.h>
#include <wx/combobox.h>
#include <wx/grid.h>
#include <wx/menu.h>
#include <wx/stopwatch.h>
#include <wx/textctrl.h>
#include <wx/timer.h>

namespace tour
{

using namespace host;

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
constexpr int preferencesCommand = 32797 - 65536;
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

void centre(wxTopLevelWindow* window)
{
    if (window)
        window->CentreOnScreen();
}

} // namespace

void Tour::useDialogs(const wxString& entry, const std::vector<DialogStep>& steps)
{
    wxMenuBar* const menus = m_frame.GetMenuBar();
    const int id = menus->FindMenuItem("Machining", entry + L"\u2026");
    m_frame.UpdateWindowUI();
    menus->UpdateMenus();
    if (id == wxNOT_FOUND || !menus->IsEnabled(id))
    {
        expect(false, "the menu has no \"" + entry.utf8_string() + "\"");
        return;
    }
    wxTimer watch;
    std::size_t taken = 0;
    wxStopWatch waited;
    watch.Bind(wxEVT_TIMER,
               [&](wxTimerEvent&)
               {
                   wxTopLevelWindow* const window = taken < steps.size() ? moduleWindow(steps[taken].control) : nullptr;
                   if (window && window->IsEnabled())
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
    wxCommandEvent chosen(wxEVT_MENU, id);
    m_frame.ProcessWindowEvent(chosen);
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
                  auto* const percent = dynamic_cast<wxTextCtrl*>(window.FindWindow(chipPercentId));
                  expect(percent, "the chip thickness dialog has no field for the stepover in percent");
                  if (percent)
                  {
                      percent->SetFocus();
                      settle();
                      percent->SetValue("20");
                  }
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
                  if (auto* const name = dynamic_cast<wxComboBox*>(window.FindWindow(templateNameId)))
                      name->SetValue("Square pocket");
                  settle();
                  picture("save-as-template");
                  click(window.FindWindow(okId));
              });
}

void Tour::showLooks(wxTopLevelWindow& manager)
{
    auto* const themes = dynamic_cast<wxChoice*>(manager.FindWindow(templateThemeId));
    expect(themes, "the template manager offers no themes");
    for (const Look& look : looks)
    {
        if (!themes)
            return;
        themes->SetSelection(look.theme);
        wxCommandEvent chosen(wxEVT_CHOICE, templateThemeId);
        chosen.SetEventObject(themes);
        chosen.SetInt(look.theme);
        themes->ProcessWindowEvent(chosen);
        settle(400);
        picture(std::string("template-manager-") + look.name);
    }
}

void Tour::loadTemplate()
{
    say("Load the template");
    const auto openByCommand = [](int command)
    {
        return DialogStep{templateGridId, [command](wxTopLevelWindow& manager)
                          {
                              // Once the step is over: what the command shows has steps of its own.
                              manager.CallAfter(
                                  [&manager, command]
                                  {
                                      wxCommandEvent event(wxEVT_MENU, command);
                                      manager.ProcessWindowEvent(event);
                                  });
                          }};
    };
    const auto showAndClose = [this](int control, const char* name, int button)
    {
        return DialogStep{control, [this, name, button](wxTopLevelWindow& dialog)
                          {
                              picture(name);
                              click(dialog.FindWindow(button));
                          }};
    };
    useDialogs("Load template", {{templateGridId, [this](wxTopLevelWindow& manager) { showLooks(manager); }},
                                 openByCommand(sortCommand),
                                 showAndClose(sortGridId, "template-sort", cancelId),
                                 openByCommand(findCommand),
                                 showAndClose(findTextId, "template-find", okId),
                                 openByCommand(preferencesCommand),
                                 showAndClose(matchFilterId, "template-preferences", cancelId),
                                 {templateGridId, [this](wxTopLevelWindow& manager)
                                  {
                                      if (auto* const grid = dynamic_cast<wxGrid*>(manager.FindWindow(templateGridId)))
                                          grid->SelectRow(0);
                                      click(manager.FindWindow(okId));
                                  }}});
}

std::size_t Tour::recordCount() const
{
    return m_frame.toolpath() ? m_frame.toolpath()->statistics().records : 0;
}

} // namespace tour
