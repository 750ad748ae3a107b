#ifndef TEMPLATES_TEMPLATEDEFINITIONS_H
#define TEMPLATES_TEMPLATEDEFINITIONS_H

#include "templates/TemplatePrompts.h"
#include <tessaron/engine/TechnologyExpertData.h>
#include <tessaron/engine/TemplateInfo.h>

#include <string>
#include <vector>

namespace TessaronResources
{

/// Kinds of operation, as the entry points take them. Any other number behaves like turning, but has no default
/// columns.
namespace operationKind
{
constexpr int milling = 0;
constexpr int turning = 1;
} // namespace operationKind

/// The sub-folder of a template folder that holds the templates of a kind of operation.
std::string templateKindFolder(const std::string& templateFolder, int kind);
/// The name under which the definitions of a kind of operation are stored in the template folder.
std::string templateDefinitionsName(int kind);
/// What generated template names start with.
std::string templateNamePrefix(int kind);

/// The default columns for a kind of operation; none for an unknown kind. `titleVariant` chooses between two sets of
/// titles for milling: with it the titles follow the parameter names ("Tool Num Flutes"), without they are short
/// ("Flutes") and the length column shows "Tool Flut Length".
std::vector<util::TemplateColumn> defaultTemplateColumns(int kind, bool titleVariant,
                                                         const util::TechnologyExpertData& expertData);

enum class DefinitionsState
{
    loaded,  ///< as stored
    created, ///< there were none: the defaults were built and stored, or it was tried and the user told
    failed   ///< the user has been told. The record is the default one without columns, or as it was
};

/// Loads the definitions from `folder` when the manager opens, and builds and stores the defaults at the first start.
/// Every failure is shown to the user.
DefinitionsState prepareTemplateDefinitions(const std::string& folder, int kind, bool titleVariant,
                                            util::TemplateInfo& info, TemplatePrompts& prompts);

} // namespace TessaronResources

#endif
