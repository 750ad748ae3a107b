#include "host/SidePanel.h"

#include "host/Accessibility.h"
#include "host/Palette.h"
#include <tessaron/util/Keys.h>

#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/sizer.h>
#include <wx/statline.h>
#include <wx/stattext.h>

#include <cmath>

namespace host
{

namespace
{

namespace keys = util::keys;

const wxString dash = wxString::FromUTF8("\u2013");

wxString grouped(double value, int decimals)
{
    wxString digits = wxString::FromCDouble(std::abs(value), decimals);
    const std::size_t point = std::min(digits.find('.'), digits.length());
    for (std::size_t i = point; i > 3; i -= 3)
        digits.insert(i - 3, wxString::FromUTF8("\u202f"));
    return (value < 0 ? wxString::FromUTF8("\u2212") : wxString()) + digits;
}

// Without zeros that say nothing.
wxString number(double value)
{
    int decimals = 0;
    while (decimals < 4 && std::abs(value - std::round(value * std::pow(10, decimals)) / std::pow(10, decimals)) > 1e-9)
        ++decimals;
    return grouped(value, decimals);
}

wxString count(std::size_t value)
{
    return grouped(static_cast<double>(value), 0);
}

wxString lengthText(double millimetres)
{
    return millimetres < 10000 ? grouped(millimetres, 0) + " mm" : grouped(millimetres / 1000, 1) + " m";
}

struct ParameterRow
{
    const char* label;
    util::Key key;
    const char* unit;
    const char* absent;
};

const ParameterRow parameterRows[] = {
    {"Tool diameter", keys::toolDiameter, "mm", nullptr},
    {"Flutes", keys::toolNumFlutes, "", nullptr},
    {"Stepover", keys::stepover, "mm", nullptr},
    {"Depth of cut", keys::depthOfCut, "mm", nullptr},
    {"Stock to leave on walls", keys::xyStockToLeave, "mm", "none"},
    {"Top of stock", keys::topMaterialZ, "mm", nullptr},
    {"Floor", keys::zDepth, "mm", nullptr},
    {"Rapid plane", keys::rapidPlaneZ, "mm", nullptr},
    {"Cut tolerance", keys::cutTolerance, "mm", nullptr},
    {"Feed rate", keys::feedrate, "mm/min", nullptr},
    {"Spindle speed", keys::spindleSpeed, "rev/min", nullptr},
    {"Threads", keys::numberOfConcurrentThreads, "", "all cores"},
};

const char* const resultRows[] = {"State",          "Computed in",      "Records",      "Cutting moves",
                                  "Length of cuts", "Length of rapids", "Depth levels", "Estimated time"};

void setText(wxStaticText* control, const wxString& text)
{
    if (control->GetLabel() != text)
        control->SetLabel(text);
}

} // namespace

wxString durationText(double minutes)
{
    const long seconds = std::lround(minutes * 60);
    if (seconds < 60)
        return wxString::Format("%ld s", seconds);
    if (seconds < 3600)
        return wxString::Format("%ld min %02ld s", seconds / 60, seconds % 60);
    return wxString::Format("%ld h %02ld min", seconds / 3600, seconds / 60 % 60);
}

SidePanel::SidePanel(wxWindow* parent) : wxScrolledWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxVSCROLL)
{
    SetBackgroundColour(*wxWHITE);
    SetForegroundColour(palette::text);
    SetScrollRate(0, FromDIP(12));
    SetSizer(new wxBoxSizer(wxVERTICAL));
    GetSizer()->AddSpacer(FromDIP(14));

    m_name = new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, wxST_ELLIPSIZE_END);
    m_name->SetFont(GetFont().Scaled(1.35f).Bold());
    m_file = new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, wxST_ELLIPSIZE_MIDDLE);
    m_file->SetForegroundColour(palette::mutedText);
    for (wxStaticText* const text : {m_name, m_file})
        GetSizer()->Add(text, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, FromDIP(16)));

    wxSizer* const machining = addSection("Tool and cut");
    for (const ParameterRow& row : parameterRows)
        m_parameters.push_back(addRow(machining, row.label));
    wxSizer* const results = addSection("Toolpath");
    for (const char* const label : resultRows)
        m_results.push_back(addRow(results, label));

    addSection("View");
    m_levels = new wxChoice(this, wxID_ANY);
    setAccessible(*m_levels, "Depth levels shown");
    m_levels->Bind(wxEVT_CHOICE, [this](wxCommandEvent& event) { onLevel(event.GetSelection() - 1); });
    m_rapids = new wxCheckBox(this, wxID_ANY, "Show rapid moves and plunges");
    m_rapids->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent& event) { onRapids(event.IsChecked()); });
    for (wxWindow* const control : {static_cast<wxWindow*>(m_levels), static_cast<wxWindow*>(m_rapids)})
        GetSizer()->Add(control, wxSizerFlags()
                                     .Expand()
                                     .Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(8))
                                     .Border(wxLEFT | wxRIGHT, FromDIP(16)));
    GetSizer()->AddSpacer(FromDIP(10));
    SetMinSize(FromDIP(wxSize(310, -1)));
    show(Scene(), 0);
}

wxSizer* SidePanel::addSection(const wxString& title)
{
    GetSizer()->AddSpacer(FromDIP(12));
    GetSizer()->Add(new wxStaticLine(this), wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, FromDIP(16)));
    GetSizer()->AddSpacer(FromDIP(10));
    auto* const heading = new wxStaticText(this, wxID_ANY, title);
    heading->SetFont(GetFont().Bold());
    GetSizer()->Add(heading, wxSizerFlags().Border(wxLEFT | wxRIGHT, FromDIP(16)));
    GetSizer()->AddSpacer(FromDIP(6));
    auto* const grid = new wxFlexGridSizer(2, FromDIP(wxSize(12, 5)));
    grid->AddGrowableCol(0);
    GetSizer()->Add(grid, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, FromDIP(16)));
    return grid;
}

wxStaticText* SidePanel::addRow(wxSizer* section, const wxString& label)
{
    auto* const name = new wxStaticText(this, wxID_ANY, label);
    name->SetForegroundColour(palette::mutedText);
    auto* const value = new wxStaticText(this, wxID_ANY, wxString());
    section->Add(name, wxSizerFlags().CentreVertical());
    section->Add(value, wxSizerFlags().Right().CentreVertical());
    return value;
}

void SidePanel::show(const Scene& scene, double seconds)
{
    showPart(scene.part.get());
    showToolpath(scene, seconds);
    m_rapids->SetValue(scene.showRapids);
    FitInside();
    Layout();
}

void SidePanel::showPart(const Part* part)
{
    setText(m_name, part ? wxString::FromUTF8(part->name()) : "No part");
    setText(m_file, part ? wxString::FromUTF8(part->fileName()) : "Open a part to begin");
    m_file->SetToolTip(part ? wxString::FromUTF8(part->path) : wxString());
    for (std::size_t i = 0; i < m_parameters.size(); ++i)
    {
        const ParameterRow& row = parameterRows[i];
        wxString text = row.absent ? wxString(row.absent) : dash;
        if (part && part->input.parameters.has(row.key))
            text = number(part->number(row.key)) + " " + row.unit;
        else if (!part)
            text = dash;
        setText(m_parameters[i], text.Trim());
    }
}

void SidePanel::showToolpath(const Scene& scene, double seconds)
{
    std::vector<wxString> texts(m_results.size(), dash);
    texts[0] = !scene.toolpath ? "not generated" : scene.outdated ? "out of date" : "up to date";
    m_levels->Clear();
    m_levels->Append("All depth levels");
    if (scene.toolpath)
    {
        const ToolpathStatistics& statistics = scene.toolpath->statistics();
        if (seconds > 0)
            texts[1] = seconds < 10 ? wxString::FromCDouble(seconds, 2) + " s" : durationText(seconds / 60);
        texts[2] = count(statistics.records);
        texts[3] = count(statistics.cutMoves);
        texts[4] = lengthText(statistics.cutLength);
        texts[5] = lengthText(statistics.rapidLength);
        texts[6] = count(scene.toolpath->levels().size());
        texts[7] = durationText(statistics.minutes);
        for (std::size_t i = 0; i < scene.toolpath->levels().size(); ++i)
            m_levels->Append(wxString::Format("Level %zu, Z %s", i + 1, number(scene.toolpath->levels()[i])));
    }
    m_levels->SetSelection(scene.level + 1);
    m_levels->Enable(m_levels->GetCount() > 2);
    for (std::size_t i = 0; i < texts.size(); ++i)
        setText(m_results[i], texts[i]);
    m_results[0]->SetForegroundColour(!scene.toolpath  ? palette::mutedText
                                      : scene.outdated ? palette::rapid
                                                       : palette::axisY);
}

void SidePanel::setShownLevel(int level)
{
    m_levels->SetSelection(level + 1);
}

} // namespace host
