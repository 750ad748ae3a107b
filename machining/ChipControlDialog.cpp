#include "machining/ChipControlDialog.h"

#include "controls/CHMXNumEdit.h"
#include "controls/WrappedText.h"
#include "frame/ControlId.h"
#include "frame/CurrentModule.h"
#include "frame/Toolkit.h"
#include "frame/Translation.h"
#include "frame/native/NativeToolkit.h"
#include "resources/TextIds.h"
#include "util/platform/LibraryFile.h"
#include <tessaron/frame/DataExchange.h>
#include <tessaron/frame/EntryPoints.h>
#include <tessaron/frame/ResourceSet.h>
#include <tessaron/util/Keys.h>

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/stattext.h>
#include <wx/textentry.h>

#include <algorithm>
#include <filesystem>
#include <utility>

namespace TessaronResources
{

namespace
{

constexpr int helpPicture = 1027;
constexpr int idApplied = 1;
constexpr int rowsOfNotes = 2;

// The fields in the order in which they are filled and read.
constexpr std::array fields{chipControl::spindleSpeed, chipControl::surfaceSpeed, chipControl::feedPerTooth,
                            chipControl::feedrate,     chipControl::stepover,     chipControl::stepoverPercent,
                            chipControl::chipThickness};

// A text with its values in the places of "%s".
wxString withValues(const wxString& text, const std::vector<std::string>& values)
{
    wxString result = text;
    std::size_t from = 0;
    for (const std::string& utf8 : values)
    {
        const wxString value = wxString::FromUTF8(utf8);
        const std::size_t place = result.find("%s", from);
        if (place == wxString::npos)
            break;
        result.replace(place, 2, value);
        from = place + value.length();
    }
    return result;
}

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
    exchange->control(chipControl::removalRateUnit, m_removalRateUnit);
    exchange->control(chipControl::notes, m_notes);
    for (std::size_t i = 0; i < m_edits.size(); ++i)
        exchange->control(chipControl::realFields[i], m_edits[i]);
    for (const int field : fields)
        exchangeField(*exchange, field);
}

void ChipControlDialog::exchangeField(CDataExchange& exchange, int field)
{
    if (field == chipControl::spindleSpeed)
        exchange.number(field, m_rules.spindleSpeed());
    else
        exchange.number(field, m_rules.real(field));
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
    // The wheel is not for a list that is closed: turned by accident, it would change what is computed.
    m_quantity->Bind(wxEVT_MOUSEWHEEL, [](wxMouseEvent&) {});
}

void ChipControlDialog::setUpTexts()
{
    if (wxWindow* const label = control(chipControl::stepoverLabel); label && m_rules.stepoverLabelTextId())
        label->SetLabel(currentResources().string(m_rules.stepoverLabelTextId()) + ":");
    if (m_removalRateUnit)
        m_removalRateUnit->SetLabel(currentResources().string(m_rules.removalRateUnitTextId()));
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
            edit->Bind(wxEVT_KILL_FOCUS,
                       [this, edit](wxFocusEvent& event)
                       {
                           event.Skip();
                           // Afterwards: an empty edit has no error of its own, and takes the mark away.
                           CallAfter([this, edit] { onMaybeEmpty(*edit); });
                       });
        }
    Bind(mfcutil::EVT_NUMBER_LEFT, [this](wxCommandEvent& event) { onNumberLeft(event.GetId(), event.GetString()); });
    Bind(wxEVT_TEXT,
         [this](wxCommandEvent& event)
         {
             event.Skip();
             onFieldEdited(event.GetId());
         });
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
    {
        const bool enabled = ChipControlRules::isEnabled(child->GetId(), derived());
        child->Enable(enabled);
        if (!enabled)
            m_complaints.erase(child->GetId());
    }
    showNotes();
}

bool ChipControlDialog::isAsShown(int field) const
{
    const auto* const entry = dynamic_cast<wxTextEntryBase*>(control(field));
    const auto shown = m_shown.find(field);
    return !entry || (shown != m_shown.end() && entry->GetValue() == shown->second);
}

bool ChipControlDialog::isFormAsShown() const
{
    return std::ranges::all_of(fields, [this](int field) { return isAsShown(field); });
}

// Each field on its own, so that one that cannot be read costs no other its entry. A text that nobody edited stands for
// the number that it was made from; a derived field has nothing to say.
std::vector<ReadFailure> ChipControlDialog::readForm()
{
    std::vector<ReadFailure> failures;
    for (const int field : fields)
    {
        if (isAsShown(field) || !ChipControlRules::isEnabled(field, derived()))
            continue;
        CDataExchange reading(*this, true);
        exchangeField(reading, field);
        if (reading.failure())
            failures.push_back(*reading.failure());
    }
    return failures;
}

// The field that will be reported shows its last value again; others that could not be read keep their entries.
void ChipControlDialog::fillForm(const std::vector<ReadFailure>& failures)
{
    std::map<wxTextEntryBase*, wxString> entries;
    for (std::size_t i = 1; i < failures.size(); ++i)
        if (auto* const entry = dynamic_cast<wxTextEntryBase*>(control(failures[i].id)))
            entries[entry] = entry->GetValue();
    UpdateData(false);
    refreshDisplay();
    for (const auto& [entry, text] : entries)
        entry->ChangeValue(text);
    if (!failures.empty())
        m_complaints.erase(failures.front().id);
    showNotes();
}

void ChipControlDialog::onNumberLeft(int field, const wxString& misread)
{
    const auto* const entry = dynamic_cast<wxTextEntryBase*>(control(field));
    const wxString read = entry ? entry->GetValue() : wxString();
    onFieldLeft(field);
    if (!misread.empty() && !m_closing)
        complain(field,
                 withValues(currentResources().string(texts::readInPart), {read.utf8_string(), misread.utf8_string()}));
}

void ChipControlDialog::onMaybeEmpty(const mfcutil::CHMXNumEdit& edit)
{
    if (edit.IsEmpty() && !edit.HasFocus() && !m_closing)
        complain(edit.GetId(), translatedLabel("Please enter a number."));
}

void ChipControlDialog::onFieldLeft(int field)
{
    if (m_closing)
        return;
    const bool edited = !isFormAsShown();
    const std::vector<ReadFailure> failures = readForm();
    if (edited || !m_rules.agree())
        m_rules.fieldLeft(field, derived());
    fillForm(failures);
    if (failures.empty() || m_failure)
        return;
    m_failure = failures.front();
    // Not from within the change of focus: a message would take the focus that is on its way elsewhere.
    CallAfter(&ChipControlDialog::reportFailure);
}

void ChipControlDialog::onFieldEdited(int field)
{
    if (m_complaints.erase(field) != 0)
        showNotes();
}

void ChipControlDialog::complain(int field, const wxString& complaint)
{
    const wxWindow* const window = control(field);
    m_complaints[field] = (window ? fieldName(*window) + ": " : wxString()) + complaint;
    showNotes();
}

void ChipControlDialog::showNotes()
{
    std::set<int> wrong;
    wxString text;
    const auto add = [&](int field, const wxString& sentence)
    {
        wrong.insert(field);
        text += (text.empty() ? "" : " ") + sentence;
    };
    for (const auto& [field, complaint] : m_complaints)
        add(field, complaint);
    for (const ChipControlNote& note : m_rules.notes())
        add(note.field, withValues(currentResources().string(note.textId), note.values));
    for (mfcutil::CHMXNumEdit* const edit : m_edits)
        if (edit)
            mark(*edit, wrong.contains(edit->GetId()));
    if (!m_notes)
        return;
    m_notes->SetLabelText(mfcutil::wrappedText(*m_notes, text, m_notes->GetSize().x, rowsOfNotes));
    m_notes->SetToolTip(text);
}

void ChipControlDialog::mark(mfcutil::CHMXNumEdit& edit, bool marked)
{
    if (!marked && m_marked.erase(edit.GetId()) != 0)
        edit.clearError();
    if (marked && m_marked.insert(edit.GetId()).second)
        edit.setError();
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
    wxWindow* focused = FindFocus();
    // The toolkit loses track of the focus where Tab brings it to the list, which is a native widget within another.
    if (!focused)
        focused = m_quantity;
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
    for (const int field : fields)
        if (const auto* const entry = dynamic_cast<wxTextEntryBase*>(control(field)))
            if (const wxString text = entry->GetValue(); text != m_shown[field])
            {
                m_shown[field] = text;
                m_complaints.erase(field);
            }
    if (!m_removalRate)
        return;
    m_removalRate->SetLabel(wxString::FromUTF8(m_rules.removalRateText()));
    if (m_removalRateUnit)
        m_removalRateUnit->Move(m_removalRate->GetPosition().x +
                                    m_removalRate->GetTextExtent(m_removalRate->GetLabel() + " ").x,
                                m_removalRateUnit->GetPosition().y);
}

void ChipControlDialog::OnOK()
{
    // Enter and a mnemonic press the button without taking the focus from the field that is being edited.
    onCalculate();
    if (m_failure)
        return;
    // A field that was emptied has not been heard of.
    if (const std::vector<ReadFailure> failures = readForm(); !failures.empty())
    {
        fillForm(failures);
        return report(failures.front());
    }
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
