#ifndef FRAME_CONFIGURATION_CONFIGPATHS_H
#define FRAME_CONFIGURATION_CONFIGPATHS_H

#include <filesystem>
#include <string>
#include <vector>

/// The rules that getConfigFilePath and getDefaultConfigFilePath are made of, as plain functions.
namespace TessaronResources::configPaths
{

/// The separator of folders in paths.
inline constexpr char separator = static_cast<char>(std::filesystem::path::preferred_separator);

/// The files of one product.
struct Product
{
    int number; ///< the upper 16 bits of a product code
    const char* configurationFile;
    const char* profileList;
};

/// The product of a product code, or null for an unknown one.
const Product* findProduct(int productCode);

/// A base folder, the maker's folder and `subfolder`, joined with the platform's separator.
std::string makerFolder(const std::string& baseFolder, const std::string& subfolder);

/// Text given by a host with its backslashes turned into the platform's separators. Null gives an empty text.
std::string nativeSubfolder(const char* subfolder);

/// Of the machine-wide data folders the first under which makerFolder() is there, else the first one; empty when there
/// are none.
std::string sharedFolder(const std::vector<std::string>& dataFolders, const std::string& subfolder);

} // namespace TessaronResources::configPaths

#endif
