#ifndef TESSARON_ENGINE_TEMPLATEPATH_H
#define TESSARON_ENGINE_TEMPLATEPATH_H

// Stability: experimental.

#include <cstddef>
#include <filesystem>
#include <string>

namespace util
{

// How a folder and a template name travel as one path text.
//
// saveTemplateFile() takes "folder, separator, name". A name is free text and may itself hold separators, dots or an
// extension, so the text alone cannot be taken apart. Both sides therefore use the functions below: the sender composes
// with templatePath(), and the store takes the path apart with splitTemplatePath(), which knows the name from the
// "Template Name" of the set that travels with the path.

/// Is the character a separator in a path given to the template store? Both kinds are, on every platform.
inline bool isTemplatePathSeparator(char c)
{
    return c == '/' || c == '\\';
}

/// Extension of a file that holds one template, with its dot.
inline constexpr const char* templateExtension = ".vtmpl";

/// Folder, the platform's separator, name. A separator that ends the folder is not doubled; an empty folder is the
/// current one. Used for sub-folders as well.
inline std::string templatePath(const std::string& folder, const std::string& name)
{
    std::string path = folder.empty() ? "." : folder;
    if (!isTemplatePathSeparator(path.back()))
        path += static_cast<char>(std::filesystem::path::preferred_separator);
    return path + name;
}

/// A path text taken apart: where the template lives, and its name.
struct TemplatePathParts
{
    std::string folder; ///< as given, without the separator before the name; "." when the path has none
    std::string name;   ///< empty when the path ends with a separator
    bool isFileName =
        false; ///< `name` is the name of a file without its extension, and no template name was recognised
};

/// Takes the path of a template apart.
///
/// - The path ends with a separator and `templateName` (not empty), with or without ".vtmpl" after it: the name is
///   `templateName`, whatever characters it holds.
/// - Otherwise the name is what follows the last separator, less ".vtmpl".
inline TemplatePathParts splitTemplatePath(const std::string& path, const std::string& templateName)
{
    const auto endsWith = [](const std::string& text, const std::string& tail)
    { return text.size() >= tail.size() && text.compare(text.size() - tail.size(), tail.size(), tail) == 0; };
    const auto folderPart = [&path](std::size_t separator)
    { return separator == 0 ? path.substr(0, 1) : path.substr(0, separator); };

    for (const std::string& tail : {templateName, templateName + templateExtension})
    {
        if (templateName.empty() || !endsWith(path, tail))
            continue;
        if (path.size() == tail.size())
            return {".", templateName, false};
        const std::size_t separator = path.size() - tail.size() - 1;
        if (isTemplatePathSeparator(path[separator]))
            return {folderPart(separator), templateName, false};
    }

    const std::size_t separator = path.find_last_of("/\\");
    TemplatePathParts parts{".", path, true};
    if (separator != std::string::npos)
    {
        parts.folder = folderPart(separator);
        parts.name = path.substr(separator + 1);
    }
    if (endsWith(parts.name, templateExtension))
        parts.name.resize(parts.name.size() - std::string(templateExtension).size());
    return parts;
}

} // namespace util

#endif
