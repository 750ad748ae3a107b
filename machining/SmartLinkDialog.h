#ifndef MACHINING_SMARTLINKDIALOG_H
#define MACHINING_SMARTLINKDIALOG_H

#include "machining/SmartLinkRules.h"
#include <tessaron/frame/DialogBase.h>

class wxCheckBox;
class wxRadioButton;
class wxSlider;

namespace TessaronResources
{

/// The window "SmartLink Parameters". It keeps the desktop's own look.
class SmartLinkDialog : public DialogBase
{
public:
    explicit SmartLinkDialog(SmartLinkData* data);

private:
    bool OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override;
    void applyEnabling();

    SmartLinkRules m_rules;
    wxRadioButton* m_depthFirst = nullptr;
    wxRadioButton* m_levelFirst = nullptr;
    wxCheckBox* m_rapidPlaneOnly = nullptr;
    wxSlider* m_preference = nullptr;
};

} // namespace TessaronResources

#endif
