#ifndef TEMPLATES_DIALOGS_TEMPLATEMANAGERFINDDIALOG_H
#define TEMPLATES_DIALOGS_TEMPLATEMANAGERFINDDIALOG_H

#include "templates/TemplateFind.h"
#include <tessaron/frame/DialogBase.h>

#include <functional>

class wxComboBox;

namespace TessaronResources
{

/// Searches the grid for a text, hit after hit.
class TemplateManagerFindDialog : public DialogBase
{
public:
    /// Searches onward for a text as typed, moves the grid's current cell to a hit, and tells the user when there is
    /// none.
    /// \returns where the hit is on the screen; empty when there is none. The texts searched for so far are in
    /// `history` then.
    typedef std::function<wxRect(const std::string& typed)> FindNext;

    TemplateManagerFindDialog(FindNext findNext, const std::vector<std::string>& history, wxWindow* owner);

protected:
    bool OnInitDialog() override;

private:
    void onFindNext();

    FindNext m_findNext;
    const std::vector<std::string>& m_history;
    wxComboBox* m_text = nullptr;
};

} // namespace TessaronResources

#endif
