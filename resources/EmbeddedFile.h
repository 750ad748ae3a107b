#ifndef RESOURCES_EMBEDDEDFILE_H
#define RESOURCES_EMBEDDEDFILE_H

#include <cstddef>
#include <span>
#include <string_view>

namespace TessaronResources::resources
{

/// A file of this folder, as part of the library.
struct EmbeddedFile
{
    const char* name;
    const unsigned char* data;
    std::size_t size;

    std::string_view text() const { return {reinterpret_cast<const char*>(data), size}; }
};

/// The embedded file of a name, such as "dialog1000.xrc"; null when there is none.
const EmbeddedFile* findEmbeddedFile(std::string_view name);

std::span<const EmbeddedFile> embeddedFiles();

} // namespace TessaronResources::resources

#endif
