#ifndef ENGINE_TEMPLATES_FILENAMES_H
#define ENGINE_TEMPLATES_FILENAMES_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace util::store
{

// Template names are free text; file names are not. These functions map one to the other without looking at a disk.
//
// Plain form: the name itself, with each byte that some system does not take in a file name written as '%' and two
// upper-case hexadecimal digits. Different names have different plain forms, and the name can be read out of it.
// Marked form: the start of the plain form, then "%~" and a digest of the name. It serves names whose plain form is too
// long, or is taken by a name that differs only in letter case on a file system that ignores case. The name cannot be
// read out of it; the template inside tells.

/// The longest file name, in bytes, that all file systems in use take.
constexpr std::size_t longestFileName = 255;

/// The plain form without an extension, of any length.
std::string plainStem(std::string_view name);
/// The marked form without an extension; together with ".vtmpl" not longer than longestFileName.
std::string markedStem(std::string_view name);
/// The plain form, or the marked one where the plain form together with `extension` is longer than longestFileName.
std::string fileStem(std::string_view name, std::string_view extension);

/// The name that the file name (without extension) stands for; nothing for a marked form. A '%' that starts no code is
/// taken as it stands, so that every file name stands for some name.
std::optional<std::string> nameOfStem(std::string_view stem);

/// The name of a template that lies in a file with this stem and says that it is called `nameInside`. The two agree for
/// every file that the store wrote; the file name holds where somebody has renamed or copied the file.
std::string listedName(std::string_view stem, std::string_view nameInside);

/// `prefix` and the first number from 1 on that makes a name none of `names` equals, letter case ignored.
std::string firstFreeName(const std::string& prefix, const std::vector<std::string>& names);

} // namespace util::store

#endif
