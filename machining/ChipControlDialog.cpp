#include "machining/ChipControlDialog.h"

#include "controls/CHMXNumEdit.h"
#include "frame/ControlId.h"
#include "frame/CurrentModule.h"
#include "frame/Toolkit.h"
#include "frame/native/NativeToolkit.h"
#include "util/platform/LibraryFile.h"
#include <tessaron/frame/DataExchange.h>
#include <tessaron/frame/EntryPoints.h>
#include <tessaron/frame/ResourceSet.h>
#include <tessaron/util/Keys.h>

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/stattext.h>

#include <filesystem>
#include <utility>

namespace TessaronResources
{

namespace
{

constexpr int helpPicture = 1027;
constexpr int idApplied = 1;

} // namespace

ChipControlDialog::ChipControlDialog(int operationKind, util::Parameterized* target, bool metric)
    : m_rules(operationKind, target, metric)
{
    create(m_rules.templateId(), nullptr);
}

bool ChipControlDialog::OnInitDialog()
{
    DialogBase::OnInitDialog();
    setUpHelpButton();
    fillQuantities();
    setUpTexts();
    connectFields();
    applyEnabling();
    refreshDisplay();
    enableVisualManagerStyle();
    return true;
}

void ChipControlDialog::DoDataExchange(CDataExchange* exchange)
{
    DialogBase::DoDataExchange(exchange);
    exchange->control(chipControl::derivedQuantity, m_quantity);
    exchange->control(chipControl::help, m_help);
    exchange->control(chipControl::removalRate, m_removalRate);
    exchange->number(chipControl::spindleSpeed, m_rules.spindleSpeed());
    for (std::size_t i = 0; i < m_edits.size(); ++i)
    {
        const int field = chipControl::realFields[i];
        exchange->control(field, m_edits[i]);
        exchange->number(field, m_rules.real(field));
    }
}

void ChipControlDialog::setUpHelpButton()
{
    if (!m_help)
        return;
    m_help->SetBitmap(currentResources().bitmap(helpPicture));
    m_help->SetLabel(wxString());
    m_help->SetSize(m_help->GetBestSize());
}

void ChipControlDialog::fillQuantities()
{
    if (!m_quantity)
        return;
    for (int index = 0; index < derivedQuantityCount; ++index)
        m_quantity->Append(currentResources().string(m_rules.quantityTextId(index)));
    m_quantity->SetSelection(static_cast<int>(DerivedQuantity::chipThickness));
}

void ChipControlDialog::setUpTexts()
{
    if (wxWindow* const label = control(chipControl::stepoverLabel); label && m_rules.stepoverLabelTextId())
        label->SetLabel(currentResources().string(m_rules.stepoverLabelTextId()) + ":");
    for (wxWindow* const child : GetChildren())
    {
        const wxString tip = currentResources().string(m_rules.tooltipTextId(child->GetId()));
        if (tip.empty())
            continue;
        if (auto* const edit = dynamic_cast<mfcutil::CHMXEdit*>(child))
            edit->setToolTipText(tip);
        else
            child->SetToolTip(tip);
        // The labels are shop-floor shorthand.
        if (!dynamic_cast<wxStaticText*>(child))
            native::setAccessibleName(*child, tip);
    }
}

void ChipControlDialog::connectFields()
{
    for (mfcutil::CHMXNumEdit* const edit : m_edits)
        if (edit)
        {
            edit->setGeneralFormat(false);
            native::markAsResult(*edit);
        }
    Bind(mfcutil::EVT_NUMBER_LEFT, [this](wxCommandEvent& event) { onFieldLeft(event.GetId()); });
    if (wxWindow* const spindle = control(chipControl::spindleSpeed))
    {
        native::markAsResult(*spindle);
        spindle->Bind(wxEVT_KILL_FOCUS,
                      [this](wxFocusEvent& event)
                      {
                          event.Skip();
                          onFieldLeft(chipControl::spindleSpeed);
                      });
    }
    Bind(
        wxEVT_CHOICE, [this](wxCommandEvent&) { applyEnabling(); }, chipControl::derivedQuantity);
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { onCalculate(); }, chipControl::calculate);
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { onHelp(); }, chipControl::help);
}

DerivedQuantity ChipControlDialog::derived() const
{
    return m_quantity ? static_cast<DerivedQuantity>(m_quantity->GetSelection()) : DerivedQuantity::none;
}

void ChipControlDialog::applyEnabling()
{
    for (wxWindow* const child : GetChildren())
        child->Enable(ChipControlRules::isEnabled(child->GetId(), derived()));
}

void ChipControlDialog::onFieldLeft(int field)
{
    if (m_closing)
        return;
    CDataExchange reading(*this, true);
    DoDataExchange(&reading);
    m_rules.fieldLeft(field, derived());
    UpdateData(false);
    refreshDisplay();
    if (!reading.failure() || m_failure)
        return;
    m_failure = reading.failure();
    // Not from within the change of focus: a message would take the focus that is on its way elsewhere.
    CallAfter(&ChipControlDialog::reportFailure);
}

void ChipControlDialog::reportFailure()
{
    const std::optional<ReadFailure> failure = std::exchange(m_failure, std::nullopt);
    if (failure && !m_closing)
        report(*failure);
}

// Leaving the field that is being edited runs its rule.
void ChipControlDialog::onCalculate()
{
    wxWindow* const focused = FindFocus();
    if (wxWindow* const button = control(chipControl::calculate))
        button->SetFocus();
    if (focused)
        focused->SetFocus();
}

void ChipControlDialog::onHelp()
{
    const std::filesystem::path folder = util::thisLibraryFolder();
    native::openDocument((folder / m_rules.helpFileName()).string());
}

void ChipControlDialog::refreshDisplay()
{
    for (mfcutil::CHMXNumEdit* const edit : m_edits)
        if (edit)
            edit->reformat();
    if (m_removalRate)
        m_removalRate->SetLabel(wxString::FromUTF8(m_rules.removalRateText()));
}

void ChipControlDialog::OnOK()
{
    // Enter and a mnemonic press the button without taking the focus from the field that is being edited.
    onCalculate();
    if (m_failure)
        return;
    m_rules.apply();
    m_closing = true;
    EndModal(idApplied);
}

void ChipControlDialog::OnCancel()
{
    m_closing = true;
    DialogBase::OnCancel();
}

int displayChipControlDialog(int kind, util::Parameterized* params, bool metric)
{
    const EntryScope scope(staticModuleState());
    if (!params)
        return idCancel;
    if (toolkitRunning())
        return ChipControlDialog(kind, params, metric).ShowModal();
    // A parameter that is missing is missing without a display, too.
    const ChipControlRules checked(kind, params, metric);
    return idCancel;
}

} // namespace TessaronResources

int displayChipControlDialogEx(int kind, double toolDiameter, double depthOfCut, int numFlutes, int* spindleSpeed,
                               double* feedrate, double* stepover, bool metric)
{
    namespace keys = util::keys;
    if (!spindleSpeed || !feedrate || !stepover)
        return 1;
    util::Parameterized params;
    params.set(keys::toolDiameter, toolDiameter);
    params.set(keys::depthOfCut, depthOfCut);
    params.set(keys::toolNumFlutes, numFlutes);
    params.set(keys::spindleSpeed, *spindleSpeed);
    params.set(keys::feedrate, *feedrate);
    params.set(keys::stepover, *stepover);
    if (TessaronResources::displayChipControlDialog(kind, &params, metric) != TessaronResources::idApplied)
        return 1;
    *spindleSpeed = params.intAt(keys::spindleSpeed);
    *feedrate = params.doubleAt(keys::feedrate);
    *stepover = params.doubleAt(keys::stepover);
    return 0;
}
