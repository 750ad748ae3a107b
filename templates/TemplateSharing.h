#ifndef TEMPLATES_TEMPLATESHARING_H
#define TEMPLATES_TEMPLATESHARING_H

#include "templates/TemplatePrompts.h"
#include "templates/TemplateRows.h"

#include <cstddef>
#include <string>
#include <vector>

namespace TessaronResources
{

/// Reads the files that the user chooses and saves their templates in a folder. Files and templates that fail are
/// reported, and the others taken.
/// \returns how many templates have been saved.
std::size_t importTemplates(const std::string& folder, TemplatePrompts& prompts);

/// Writes the templates of these rows, in this order, into a file that the user chooses.
/// \returns whether they are written.
bool exportTemplates(const TemplateRows& rows, const std::vector<std::size_t>& numbers, TemplatePrompts& prompts);

} // namespace TessaronResources

#endif
