#ifndef MACHINING_CHIPCONTROLDIALOG_H
#define MACHINING_CHIPCONTROLDIALOG_H

#include "machining/ChipControlRules.h"
#include <tessaron/frame/DataExchange.h>
#include <tessaron/frame/DialogBase.h>

#include <array>
#include <map>
#include <optional>
#include <set>
#include <vector>

class wxButton;
class wxChoice;
class wxStaticText;

namespace mfcutil
{
class CHMXNumEdit;
}

namespace TessaronResources
{

/// The window "Active Chip Thickness Control": the fields over ChipControlRules.
class ChipControlDialog : public DialogBase
{
public:
    ChipControlDialog(int operationKind, util::Parameterized* target, bool metric);

private:
    bool OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override;
    void OnCancel() override;

    void setUpHelpButton();
    void fillQuantities();
    void setUpTexts();
    void connectFields();

    DerivedQuantity derived() const;
    void applyEnabling();
    void exchangeField(CDataExchange& exchange, int field);
    bool isAsShown(int field) const;
    bool isFormAsShown() const;
    std::vector<ReadFailure> readForm();
    void fillForm(const std::vector<ReadFailure>& failures);
    void onNumberLeft(int field, const wxString& misread);
    void onMaybeEmpty(const mfcutil::CHMXNumEdit& edit);
    void onFieldLeft(int field);
    void onFieldEdited(int field);
    void reportFailure();
    void onCalculate();
    void onHelp();
    void refreshDisplay();

    void complain(int field, const wxString& complaint);
    void showNotes();
    void mark(mfcutil::CHMXNumEdit& edit, bool marked);

    ChipControlRules m_rules;
    bool m_closing = false;
    std::optional<ReadFailure> m_failure; // not reported yet
    // By field: the text that was shown last, behind which there is a number with more digits; what is wrong with a
    // text that the user entered; and whether the field is drawn as in error.
    std::map<int, wxString> m_shown;
    std::map<int, wxString> m_complaints;
    std::set<int> m_marked;
    wxChoice* m_quantity = nullptr;
    wxButton* m_help = nullptr;
    wxStaticText* m_removalRate = nullptr;
    wxStaticText* m_removalRateUnit = nullptr;
    wxStaticText* m_notes = nullptr;
    std::array<mfcutil::CHMXNumEdit*, chipControl::realFields.size()> m_edits{};
};

} // namespace TessaronResources

#endif
