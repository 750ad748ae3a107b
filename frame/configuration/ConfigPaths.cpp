#include "frame/configuration/ConfigPaths.h"

#include "frame/configuration/ProfileList.h"
#include "util/platform/LibraryFile.h"
#include "util/platform/ReadFile.h"
#include "util/platform/UserFolders.h"
#include <tessaron/frame/EntryPoints.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace TessaronResources
{

namespace configPaths
{

namespace
{

const char maker[] = "Halvorsund Technologies";

const Product products[] = {
    {100, "Tessaron2x.cfg", "Tessaron2x.ini"},            // 2-axis milling
    {101, "Tessaron3x.cfg", "Tessaron3x.ini"},            // 3-axis milling
    {1, "Tessaron Universal Client.cfg", "Tessaron.ini"}, // universal client
};

std::string shippedFile(const Product& product)
{
    return util::thisLibraryFolder() + separator + product.configurationFile;
}

} // namespace

const Product* findProduct(int productCode)
{
    const auto* const found =
        std::find_if(std::begin(products), std::end(products),
                     [number = productCode >> 16](const Product& product) { return product.number == number; });
    return found == std::end(products) ? nullptr : found;
}

std::string makerFolder(const std::string& baseFolder, const std::string& subfolder)
{
    return baseFolder + separator + maker + separator + subfolder;
}

std::string nativeSubfolder(const char* subfolder)
{
    std::string native = subfolder ? subfolder : "";
    std::replace(native.begin(), native.end(), '\\', separator);
    return native;
}

std::string sharedFolder(const std::vector<std::string>& dataFolders, const std::string& subfolder)
{
    if (dataFolders.empty())
        return {};
    const auto isThere = [&](const std::string& folder)
    {
        std::error_code error;
        return std::filesystem::is_directory(makerFolder(folder, subfolder), error);
    };
    const auto found = std::find_if(dataFolders.begin(), dataFolders.end(), isThere);
    return makerFolder(found == dataFolders.end() ? dataFolders.front() : *found, subfolder);
}

} // namespace configPaths

std::string getDefaultConfigFilePath(const char* /*subfolder*/, int productCode)
{
    const configPaths::Product* const product = configPaths::findProduct(productCode);
    return product ? configPaths::shippedFile(*product) : std::string();
}

std::string getConfigFilePath(const char* subfolder, int productCode, bool create)
{
    using namespace configPaths;
    const Product* const product = findProduct(productCode);
    if (!product)
        return {};

    const std::string below = nativeSubfolder(subfolder);
    const std::string userFolder = makerFolder(util::userConfigurationFolder(), below);
    std::string userPath = userFolder + separator + product->configurationFile;
    const bool userHasFile = util::canBeRead(userPath);
    if (!create)
        return userHasFile ? userPath : shippedFile(*product);
    if (!userHasFile)
    {
        util::makeUserFolder(userFolder);
        // The host has its path whether or not the list could take it.
        static_cast<void>(addProfile(sharedFolder(util::sharedDataFolders(), below), product->profileList, userPath));
    }
    return userPath;
}

} // namespace TessaronResources
