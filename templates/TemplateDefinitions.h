#ifndef TEMPLATES_TEMPLATEDEFINITIONS_H
#define TEMPLATES_TEMPLATEDEFINITIONS_H

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
    created, ///< there were none: the defaults were built and stored, or it was tried
    failed   ///< the record is the default one without columns, or as it was
};

/// Loads the definitions from `folder` when the manager opens, and builds and stores the defaults at the first start.
/// `code` receives the status code of what failed, also where only storing the defaults did: they are made again the
/// next time then, as in a library that may only be read.
DefinitionsState prepareTemplateDefinitions(const std::string& folder, int kind, bool titleVariant,
                                            util::TemplateInfo& info, int& code);

/// Builds the default definitions and stores them in `folder`.
/// \returns a status code. `info` holds them also when they could not be stored, but not when the expert data are
/// missing.
int makeTemplateDefinitions(const std::string& folder, int kind, bool titleVariant, util::TemplateInfo& info);

} // namespace TessaronResources

#endif
