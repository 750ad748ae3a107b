#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <memory>
#include <regex>
#include <set>
#include <string>

namespace
{

// What the published classes may add to the dynamic symbol table: members, run-time type, virtual tables.
const char* const publishedClasses[] = {"TessaronResources::ProgressDialog", "TessaronResources::MultiProgressDialog"};

const std::set<std::string> publishedNames = {
    "displayProgressDialogForJobId",
    "displayOrrimantProgressDialogForJobId",
    "displayMultiProgressDialogForJobId",
    "displayOrrimantMultiProgressDialogForJobId",
    "displayChipControlDialogEx",
    "tessaronResourcesQuit",
    "TessaronResources::setModuleState",
    "TessaronResources::getTessaronResourcesApp",
    "TessaronResources::getInstance",
    "TessaronResources::getCurrentModuleState",
    "TessaronResources::setCurrentModuleState",
    "TessaronResources::displayProgressDialog",
    "TessaronResources::displayOrrimantProgressDialog",
    "TessaronResources::displayMultiProgressDialog",
    "TessaronResources::displayOrrimantMultiProgressDialog",
    "TessaronResources::displayChipControlDialog",
    "TessaronResources::displayGougeCheckDialog",
    "TessaronResources::displaySmartLinkDialog",
    "TessaronResources::displayTemplateManagerDialogLoad",
    "TessaronResources::displayTemplateManagerDialogSave",
    "TessaronResources::getConfigFilePath",
    "TessaronResources::getDefaultConfigFilePath",
};

std::string withoutSignature(const std::string& name)
{
    // A result of the standard library's newer types is part of the name.
    return name.substr(0, std::min(name.find('('), name.find("[abi:")));
}

bool belongsToPublishedClass(const std::string& name)
{
    for (const std::string cls : publishedClasses)
        if (name.rfind(cls + "::", 0) == 0 || name == "vtable for " + cls || name == "typeinfo for " + cls ||
            name == "typeinfo name for " + cls)
            return true;
    return false;
}

std::set<std::string> exportedNames()
{
    std::set<std::string> names;
    const std::unique_ptr<FILE, int (*)(FILE*)> listing(popen("nm -DC --defined-only '" TESSARON_LIBRARY "'", "r"),
                                                        pclose);
    std::array<char, 4096> line{};
    while (listing && std::fgets(line.data(), static_cast<int>(line.size()), listing.get()))
    {
        // Address, kind, name; kind A is a version of the table, not a name in it.
        const std::string text(line.data());
        const std::size_t kind = text.find(' ');
        if (kind == std::string::npos || text.size() <= kind + 3 || text[kind + 1] == 'A')
            continue;
        const std::string name = text.substr(kind + 3, text.find('\n') - kind - 3);
        names.insert(name.substr(0, name.find('@')));
    }
    return names;
}

TEST(Exports, OnlyPublishedNamesLeaveTheLibrary)
{
    const std::set<std::string> exported = exportedNames();
    ASSERT_FALSE(exported.empty());
    for (const std::string& name : exported)
        EXPECT_TRUE(publishedNames.count(withoutSignature(name)) || belongsToPublishedClass(name)) << name;
}

/// The functions that a header declares for hosts.
std::set<std::string> declaredNames(const std::string& header, const std::string& scope)
{
    std::ifstream file(TESSARON_SOURCES "/" + header);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    const std::regex declaration("TESSARON_RESOURCES_API [^;(]*?(\\w+)\\(");
    std::set<std::string> names;
    for (std::sregex_iterator match(text.begin(), text.end(), declaration), end; match != end; ++match)
        names.insert(scope + (*match)[1].str());
    return names;
}

TEST(Exports, EveryPublishedNameIsDeclaredAndLeavesTheLibrary)
{
    std::set<std::string> declared = declaredNames("include/tessaron/frame/PlainEntryPoints.h", "");
    declared.merge(declaredNames("include/tessaron/frame/EntryPoints.h", "TessaronResources::"));
    declared.merge(declaredNames("include/tessaron/frame/ModuleState.h", "TessaronResources::"));
    EXPECT_EQ(declared, publishedNames);

    std::set<std::string> exported;
    for (const std::string& name : exportedNames())
        exported.insert(withoutSignature(name));
    for (const std::string& name : publishedNames)
        EXPECT_TRUE(exported.count(name)) << name;
}

TEST(Exports, WhatAHostNeedsToDriveAWindowIsThere)
{
    std::set<std::string> exported;
    for (const std::string& name : exportedNames())
        exported.insert(withoutSignature(name));
    for (const std::string cls : publishedClasses)
    {
        const std::string own = cls.substr(cls.rfind(':') + 1);
        for (const std::string& member :
             {own, "~" + own, std::string("makeWindow"), std::string("doProgressLoop"), std::string("OnInitDialog"),
              std::string("DoDataExchange"), std::string("OnCancel"), std::string("PostNcDestroy"),
              std::string("ms_classInfo"), std::string("sm_eventTable")})
            EXPECT_TRUE(exported.count(std::string(cls).append("::").append(member))) << cls << "::" << member;
        EXPECT_TRUE(exported.count("vtable for " + cls));
    }
    EXPECT_TRUE(exported.count("TessaronResources::MultiProgressDialog::getTextLines"));
}

} // namespace
