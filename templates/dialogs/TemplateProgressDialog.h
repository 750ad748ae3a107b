#ifndef TEMPLATES_DIALOGS_TEMPLATEPROGRESSDIALOG_H
#define TEMPLATES_DIALOGS_TEMPLATEPROGRESSDIALOG_H

#include "templates/TemplatePrompts.h"

#include <cstddef>
#include <memory>

class wxString;
class wxWindow;

namespace TessaronResources
{

/// Shows over `owner` how many of a number of files are done, with a button to cancel. The window comes up when a
/// second has passed, so that a short command does not flicker; from then on the other windows are disabled while the
/// result exists.
std::unique_ptr<TemplateProgress> showTemplateProgress(wxWindow& owner, const wxString& caption, std::size_t files);

} // namespace TessaronResources

#endif
