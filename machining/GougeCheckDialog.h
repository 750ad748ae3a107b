#ifndef MACHINING_GOUGECHECKDIALOG_H
#define MACHINING_GOUGECHECKDIALOG_H

#include <tessaron/frame/DialogBase.h>
#include <tessaron/machining/GougeCheckData.h>

namespace TessaronResources
{

/// The window "Gouge check". The host's record is written as a whole, once all of the form could be read.
class GougeCheckDialog : public DialogBase
{
public:
    explicit GougeCheckDialog(GougeCheckData* data);

private:
    bool OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override;

    GougeCheckData* m_data;
    GougeCheckData m_form;
};

} // namespace TessaronResources

#endif
