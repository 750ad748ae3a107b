#include "host/HostMenus.h"

#include "host/Icons.h"

#include <wx/menu.h>
#include <wx/toolbar.h>

namespace host
{

wxMenuBar* makeMenus()
{
    auto* const file = new wxMenu;
    file->Append(wxID_OPEN, L"&Open part\u2026\tCtrl+O", "Open a part to machine");
    file->Append(commandOpenToolpath, L"Open &toolpath\u2026\tCtrl+T", "Show a saved toolpath over the part");
    file->Append(wxID_SAVE, L"&Save toolpath as\u2026\tCtrl+S",
                 "Save the toolpath as a program (G-code) or as an archive");
    file->AppendSeparator();
    file->Append(wxID_EXIT, "&Quit\tCtrl+Q", "Leave the program");

    auto* const looks = new wxMenu;
    const char* const lookNames[lookCount] = {"&Milling", "&Turning", "M&illing, with threads",
                                              "Tu&rning, with threads"};
    for (int look = 0; look < lookCount; ++look)
        looks->AppendRadioItem(commandLooks + look, lookNames[look], "Which window of the module shows the progress");

    auto* const job = new wxMenu;
    job->Append(commandGenerate, "&Generate toolpath\tF5", "Compute the toolpath of the part");
    job->Append(commandCancel, "&Cancel job\tShift+F5", "Stop computing");
    job->AppendSeparator();
    job->AppendSubMenu(looks, "&Progress window");

    auto* const machining = new wxMenu;
    machining->Append(commandChipThickness, L"&Chip thickness\u2026\tCtrl+K", "Balance speed, feed and stepover");
    machining->Append(commandGougeCheck, L"&Gouge check\u2026", "Choose what is checked for collisions");
    machining->Append(commandSmartLink, L"&SmartLink\u2026", "Choose how the pieces of a toolpath are linked");
    machining->AppendSeparator();
    machining->Append(commandLoadTemplate, L"&Load template\u2026\tCtrl+L",
                      "Take the parameters of a stored operation");
    machining->Append(commandSaveTemplate, L"S&ave as template\u2026", "Store the parameters of this operation");

    auto* const view = new wxMenu;
    view->Append(wxID_ZOOM_FIT, "&Zoom to fit\tCtrl+0", "Show all of the part");
    view->Append(wxID_ZOOM_IN, "Zoom &in\tCtrl++", "Show less, larger");
    view->Append(wxID_ZOOM_OUT, "Zoom &out\tCtrl+-", "Show more, smaller");
    view->AppendSeparator();
    view->AppendRadioItem(commandAbove, "From &above\tCtrl+1", "Look at the part from above");
    view->AppendRadioItem(commandSide, "From the &side\tCtrl+2", "Look at the part and its depth levels from a side");

    auto* const help = new wxMenu;
    help->Append(wxID_ABOUT, "&About", "About this program");

    auto* const bar = new wxMenuBar;
    bar->Append(file, "&File");
    bar->Append(job, "&Job");
    bar->Append(machining, "&Machining");
    bar->Append(view, "&View");
    bar->Append(help, "&Help");
    return bar;
}

void addTools(wxToolBar& bar)
{
    bar.SetToolBitmapSize(bar.FromDIP(wxSize(24, 24)));
    bar.AddTool(wxID_OPEN, "Open", icon(Icon::open), "Open a part (Ctrl+O)");
    bar.AddTool(wxID_SAVE, "Save toolpath", icon(Icon::save), "Save the toolpath (Ctrl+S)");
    bar.AddSeparator();
    bar.AddTool(commandGenerate, "Generate toolpath", icon(Icon::generate), "Compute the toolpath (F5)");
    bar.AddTool(commandCancel, "Cancel", icon(Icon::stop), "Stop computing (Shift+F5)");
    bar.AddSeparator();
    bar.AddRadioTool(commandAbove, "Above", icon(Icon::above), wxNullBitmap, "Look from above (Ctrl+1)");
    bar.AddRadioTool(commandSide, "Side", icon(Icon::side), wxNullBitmap, "Look from a side (Ctrl+2)");
    bar.AddTool(wxID_ZOOM_FIT, "Fit", icon(Icon::fit), "Show all of the part (Ctrl+0)");
    bar.Realize();
}

} // namespace host
