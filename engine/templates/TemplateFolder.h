#ifndef ENGINE_TEMPLATES_TEMPLATEFOLDER_H
#define ENGINE_TEMPLATES_TEMPLATEFOLDER_H

#include "util/platform/Folder.h"
#include <tessaron/util/Parameterized.h>

#include <optional>
#include <string>
#include <vector>

namespace util::store
{

/// The template in a file of a folder.
struct StoredTemplate
{
    int code = 0;           ///< status code; unless ok, names and set are empty
    FileStamp stamp;        ///< the file as it was when it was read
    std::string nameInside; ///< what the file says that the template is called
    std::string name;       ///< as listed, which is also the set's "Template Name"
    Parameterized set;      ///< as read, with all that the store keeps
    bool isTemplate = true; ///< false for a list of templates, which is no template of the folder
};

/// Reads the template in the file `fileName` of a folder. Nothing when there is no such file (any more).
std::optional<StoredTemplate> readTemplate(const Folder& folder, const std::string& fileName);

/// Does a file name end as those of templates do, and is it not a temporary file?
bool isTemplateFileName(const std::string& fileName);

/// Where a template of some name lies in a folder, or would lie.
struct TemplatePlace
{
    std::string fileName; ///< empty when every file name for the template is taken
    bool exists = false;
};

/// Finds the file of a template by its name. The caller holds the folder exclusively if the answer is to stay true.
TemplatePlace findTemplate(const Folder& folder, const std::string& name);

/// The names of the templates that the file names in a folder stand for, without a look into the files.
/// Names that only a file itself could tell are left out.
std::vector<std::string> namesOfFiles(const std::vector<std::string>& fileNames);

} // namespace util::store

#endif
