#include "host/FindingsList.h"

#include "host/Accessibility.h"
#include "host/Palette.h"

#include <wx/listctrl.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>

namespace host
{

namespace
{

enum Column
{
    columnText,
    columnParameter,
    columnPlace,
};

constexpr int listHeight = 124;
constexpr int parameterWidth = 230;
constexpr int placeWidth = 150;
constexpr int leastTextWidth = 240;

wxString placeText(const exchange::JobFinding& finding)
{
    return finding.hasPlace ? wxString::Format("X %s  Y %s", wxString::FromCDouble(finding.x, 2),
                                               wxString::FromCDouble(finding.y, 2))
                            : wxString();
}

bool isProposal(const exchange::JobFinding& finding)
{
    return finding.code == exchange::finding::preDrillPlace;
}

} // namespace

FindingsList::FindingsList(wxWindow* parent) : wxPanel(parent)
{
    SetBackgroundColour(*wxWHITE);
    SetForegroundColour(palette::text);
    m_heading = new wxStaticText(this, wxID_ANY, wxString());
    m_heading->SetFont(GetFont().Bold());
    m_list = new wxListView(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(-1, listHeight)),
                            wxLC_REPORT | wxLC_SINGLE_SEL | wxBORDER_NONE);
    m_list->AppendColumn("Finding");
    m_list->AppendColumn("Parameter", wxLIST_FORMAT_LEFT, FromDIP(parameterWidth));
    m_list->AppendColumn("Place", wxLIST_FORMAT_LEFT, FromDIP(placeWidth));
    setAccessible(*m_list, "Findings of the toolpath", "Pick one to see its place in the drawing");
    auto* const all = new wxBoxSizer(wxVERTICAL);
    all->Add(m_heading, wxSizerFlags().Border(wxALL, FromDIP(8)));
    all->Add(m_list, wxSizerFlags(1).Expand());
    SetSizer(all);
    Hide();

    m_list->Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent& event) { pick(event.GetIndex()); });
    // Once more, for one that is picked already.
    m_list->Bind(wxEVT_LIST_ITEM_ACTIVATED, [this](wxListEvent& event) { pick(event.GetIndex()); });
    Bind(wxEVT_SIZE,
         [this](wxSizeEvent& event)
         {
             event.Skip();
             fitColumns();
         });
}

void FindingsList::show(const std::vector<exchange::JobFinding>& findings)
{
    m_findings = findings;
    m_list->DeleteAllItems();
    for (std::size_t i = 0; i < findings.size(); ++i)
    {
        const auto row = static_cast<long>(i);
        m_list->InsertItem(row, wxString::FromUTF8(findings[i].text));
        m_list->SetItem(row, columnParameter, wxString::FromUTF8(findings[i].field));
        m_list->SetItem(row, columnPlace, placeText(findings[i]));
        if (isProposal(findings[i]))
            m_list->SetItemTextColour(row, palette::mutedText);
    }
    m_heading->SetLabel(wxString::Format("Findings (%zu)", findings.size()));
    Show(!findings.empty());
    fitColumns();
    GetParent()->Layout();
}

void FindingsList::pick(long row)
{
    if (onPick && row >= 0 && static_cast<std::size_t>(row) < m_findings.size())
        onPick(m_findings[static_cast<std::size_t>(row)]);
}

void FindingsList::fitColumns()
{
    const int rest = GetClientSize().x - FromDIP(parameterWidth + placeWidth + 20);
    m_list->SetColumnWidth(columnText, std::max(FromDIP(leastTextWidth), rest));
}

} // namespace host
