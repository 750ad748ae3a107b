#ifndef ENGINE_TEMPLATES_TEMPLATEFILE_H
#define ENGINE_TEMPLATES_TEMPLATEFILE_H

#include <tessaron/util/Parameterized.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace util::store
{

// The contents of the store's files: version-10 XML archives of one parameter set or of a list of them. All functions
// work on bytes in memory; results are status codes.

/// The longest file taken for a single template, and for a list of them, in bytes.
constexpr std::size_t longestTemplateFile = std::size_t(16) << 20U;
constexpr std::size_t longestArrayFile = std::size_t(1) << 30U;

/// What a file's first bytes say it holds.
enum class FileKind
{
    oneSet,
    listOfSets,
    other
};
FileKind fileKind(std::string_view bytes);

/// \returns templateFormatError when the bytes are not an archive of one set, or of a list. A byte-order mark in front
/// and line ends of any kind are accepted. The output is changed only on success.
int readSet(std::string_view bytes, Parameterized& set);
int readSets(std::string_view bytes, std::vector<Parameterized>& sets);

/// \returns templateWriteError when a value cannot be told in an archive so that it comes back unchanged.
int writeSet(const Parameterized& set, std::string& bytes);
int writeSets(const std::vector<Parameterized>& sets, std::string& bytes);

} // namespace util::store

#endif
