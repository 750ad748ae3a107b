#ifndef FRAME_CONFIGURATION_CONFIGPATHS_H
#define FRAME_CONFIGURATION_CONFIGPATHS_H

#include <string>
#include <vector>

/// What getConfigFilePath and getDefaultConfigFilePath are made of: rules as plain functions, and what the platform
/// knows.
namespace TessaronResources::configPaths
{

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

// --- The platform

/// The separator of folders in paths.
extern const char separator;

/// The user's folder for configuration files; empty when the platform does not tell.
std::string userConfigurationFolder();

/// The folders for data that all users share, the most important one first.
std::vector<std::string> sharedDataFolders();

/// Whether a file can be opened for reading. Nothing is read, and the call never waits.
bool canBeRead(const std::string& path);

/// Makes a folder and those above it that are missing. A failure is not reported.
void makeFolders(const std::string& path);

} // namespace TessaronResources::configPaths

#endif
