#ifndef ENGINE_TEMPLATES_TEMPLATELISTING_H
#define ENGINE_TEMPLATES_TEMPLATELISTING_H

#include "util/platform/Folder.h"
#include <tessaron/util/Parameterized.h>

#include <cstddef>
#include <string>
#include <vector>

namespace util::store
{

/// A template file that does not read, and why.
struct FaultyFile
{
    std::string fileName;
    int code = 0;
};

/// What a template folder holds.
struct TemplateListing
{
    int code = 0;                         ///< as loadTemplateFiles() gives it
    std::vector<Parameterized> templates; ///< the good ones, in listing order
    std::vector<FaultyFile> faults;       ///< the files that are passed over, in name order
    std::size_t filesRead = 0;            ///< how many files had to be read for this listing
};

/// Lists an open folder, from this process's cache of what unchanged files held and from the files themselves.
TemplateListing listTemplates(const Folder& folder);

} // namespace util::store

#endif
