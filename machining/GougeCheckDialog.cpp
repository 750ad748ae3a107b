#include "machining/GougeCheckDialog.h"

#include "frame/ControlId.h"
#include "frame/CurrentModule.h"
#include "frame/Toolkit.h"
#include "frame/Translation.h"
#include "resources/TextIds.h"
#include <tessaron/frame/DataExchange.h>
#include <tessaron/frame/EntryPoints.h>
#include <tessaron/frame/ResourceSet.h>

#include <cmath>

namespace TessaronResources
{

namespace
{

constexpr int templateId = 1013;

struct Line
{
    int checkId;
    int clearanceId;
    int GougeCheckData::*checked;
    double GougeCheckData::*clearance;
};

// In the order in which the form is read.
constexpr Line lines[] = {
    {2019, 1020, &GougeCheckData::checkHolder, &GougeCheckData::holderClearance},
    {2020, 1021, &GougeCheckData::checkArbor, &GougeCheckData::arborClearance},
    {2021, 1022, &GougeCheckData::checkShaft, &GougeCheckData::shaftClearance},
};

} // namespace

GougeCheckDialog::GougeCheckDialog(GougeCheckData* data) : m_data(data), m_form(*data)
{
    create(templateId, nullptr);
}

bool GougeCheckDialog::OnInitDialog()
{
    DialogBase::OnInitDialog();
    for (const Line& line : lines)
        if (wxWindow* const edit = control(line.clearanceId))
            edit->SetToolTip(currentResources().string(texts::clearance));
    enableVisualManagerStyle();
    return true;
}

void GougeCheckDialog::DoDataExchange(CDataExchange* exchange)
{
    DialogBase::DoDataExchange(exchange);
    for (const Line& line : lines)
    {
        exchange->check(line.checkId, m_form.*line.checked);
        exchange->number(line.clearanceId, m_form.*line.clearance);
        if (exchange->m_bSaveAndValidate && !std::isfinite(m_form.*line.clearance))
            exchange->fail(line.clearanceId, translatedLabel("Please enter a number."));
    }
}

void GougeCheckDialog::OnOK()
{
    if (!UpdateData(true))
        return;
    *m_data = m_form;
    EndModal(idOk);
}

int displayGougeCheckDialog(GougeCheckData* data)
{
    const EntryScope scope(staticModuleState());
    return data && toolkitRunning() ? GougeCheckDialog(data).ShowModal() : idCancel;
}

} // namespace TessaronResources
