#include "machining/SmartLinkDialog.h"

#include "frame/ControlId.h"
#include "frame/CurrentModule.h"
#include "frame/Toolkit.h"
#include "frame/native/NativeToolkit.h"
#include "resources/TextIds.h"
#include <tessaron/frame/DataExchange.h>
#include <tessaron/frame/EntryPoints.h>
#include <tessaron/frame/ResourceSet.h>

#include <wx/checkbox.h>
#include <wx/radiobut.h>
#include <wx/slider.h>

namespace TessaronResources
{

namespace
{

constexpr int templateId = 1014;

enum Control
{
    depthFirst = 1024,
    levelFirst,
    rapidPlaneOnly,
    preference,
    preferRapids,
    preferHighFeed,
    preferenceGroup,
};

} // namespace

SmartLinkDialog::SmartLinkDialog(SmartLinkData* data) : m_rules(*data)
{
    create(templateId, nullptr);
}

bool SmartLinkDialog::OnInitDialog()
{
    DialogBase::OnInitDialog();
    if (!m_depthFirst || !m_levelFirst || !m_rapidPlaneOnly || !m_preference)
        return true;
    (m_rules.depthFirst() ? m_depthFirst : m_levelFirst)->SetValue(true);
    m_rapidPlaneOnly->SetValue(m_rules.rapidPlaneOnly());
    m_preference->SetRange(0, SmartLinkRules::lastPosition);
    m_preference->SetTickFreq(1);
    native::addTick(*m_preference, 0);
    native::addTick(*m_preference, SmartLinkRules::lastPosition);
    m_preference->SetValue(m_rules.position());
    m_preference->SetToolTip(currentResources().string(texts::linkPreference));
    if (const wxWindow* const group = control(preferenceGroup))
        native::setAccessibleName(*m_preference, fieldName(*group));
    m_preference->Bind(wxEVT_SLIDER, [this](wxCommandEvent& event) { m_rules.moveTo(event.GetInt()); });
    m_rapidPlaneOnly->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { applyEnabling(); });
    applyEnabling();
    return true;
}

void SmartLinkDialog::DoDataExchange(CDataExchange* exchange)
{
    DialogBase::DoDataExchange(exchange);
    exchange->control(depthFirst, m_depthFirst);
    exchange->control(levelFirst, m_levelFirst);
    exchange->control(rapidPlaneOnly, m_rapidPlaneOnly);
    exchange->control(preference, m_preference);
}

void SmartLinkDialog::applyEnabling()
{
    const bool enabled = SmartLinkRules::preferenceEnabled(m_rapidPlaneOnly->GetValue());
    for (const int id : {preference, preferRapids, preferHighFeed})
        if (wxWindow* const window = control(id))
            window->Enable(enabled);
}

void SmartLinkDialog::OnOK()
{
    m_rules.apply(m_depthFirst && m_depthFirst->GetValue(), m_rapidPlaneOnly && m_rapidPlaneOnly->GetValue());
    EndModal(idOk);
}

int displaySmartLinkDialog(SmartLinkData* data)
{
    const EntryScope scope(staticModuleState());
    return data && toolkitRunning() ? SmartLinkDialog(data).ShowModal() : idCancel;
}

} // namespace TessaronResources
