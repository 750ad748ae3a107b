#ifndef TEMPLATES_TEMPLATESHARING_H
#define TEMPLATES_TEMPLATESHARING_H

#include "templates/TemplateFailures.h"
#include "templates/TemplatePrompts.h"
#include "templates/TemplateRows.h"

#include <cstddef>
#include <string>
#include <vector>

namespace TessaronResources
{

/// Reads the files that the user chooses and saves their templates in a folder. Files and templates that fail are noted
/// in `failures`, and the others taken. Between two files the user may cancel: those that are in stay.
/// \returns how many templates have been saved.
std::size_t importTemplates(const std::string& folder, TemplatePrompts& prompts, TemplateFailures& failures);

/// Writes the templates of these rows, in this order, into a file that the user chooses.
/// \returns whether they are written.
bool exportTemplates(const TemplateRows& rows, const std::vector<std::size_t>& numbers, TemplatePrompts& prompts,
                     TemplateFailures& failures);

} // namespace TessaronResources

#endif
