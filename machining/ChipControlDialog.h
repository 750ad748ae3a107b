#ifndef MACHINING_CHIPCONTROLDIALOG_H
#define MACHINING_CHIPCONTROLDIALOG_H

#include "machining/ChipControlRules.h"
#include <tessaron/frame/DataExchange.h>
#include <tessaron/frame/DialogBase.h>

#include <array>
#include <optional>

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
    void onFieldLeft(int field);
    void reportFailure();
    void onCalculate();
    void onHelp();
    void refreshDisplay();

    ChipControlRules m_rules;
    bool m_closing = false;
    std::optional<ReadFailure> m_failure; // not reported yet
    wxChoice* m_quantity = nullptr;
    wxButton* m_help = nullptr;
    wxStaticText* m_removalRate = nullptr;
    std::array<mfcutil::CHMXNumEdit*, chipControl::realFields.size()> m_edits{};
};

} // namespace TessaronResources

#endif
