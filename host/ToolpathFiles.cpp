#include "host/ToolpathFiles.h"

#include <array>
#include <filesystem>

namespace host
{

std::string withEnding(const std::string& path, int filter)
{
    constexpr std::array endings{".ngc", ".xml"};
    const auto kind = static_cast<std::size_t>(filter);
    return std::filesystem::path(path).has_extension() || kind >= endings.size() ? path : path + endings[kind];
}

bool isArchiveName(const std::string& path)
{
    return std::filesystem::path(path).extension() == ".xml";
}

} // namespace host
