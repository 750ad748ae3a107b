#include "frame/looks/VisualThemes.h"

#include "frame/looks/LookManagers.h"
#include "frame/looks/QdrVisualManager.h"

namespace TessaronResources
{

namespace
{

struct ThemeEntry
{
    const char* name;
    const wxClassInfo* manager;
    void (*setStyle)(int); ///< null: the manager has one style only
    int style;
};

// By theme number. The order of the styles of the 2007 and 2010 looks is not that of their numbers, and the 2013 studio
// looks are switched by the 2012 manager: hosts rely on it.
const ThemeEntry themes[visualThemeCount] = {
    {"Windows XP", wxCLASSINFO(VisualManagerXP), nullptr, 0},
    {"Office 2007 Blue", wxCLASSINFO(VisualManagerOffice2007), VisualManagerOffice2007::setStyle, 0},
    {"Office 2007 Black", wxCLASSINFO(VisualManagerOffice2007), VisualManagerOffice2007::setStyle, 1},
    {"Office 2007 Silver", wxCLASSINFO(VisualManagerOffice2007), VisualManagerOffice2007::setStyle, 3},
    {"Office 2007 Aqua", wxCLASSINFO(VisualManagerOffice2007), VisualManagerOffice2007::setStyle, 2},
    {"Carbon", wxCLASSINFO(VisualManagerCarbon), nullptr, 0},
    {"Visual Studio 2008", wxCLASSINFO(VisualManagerVS2008), nullptr, 0},
    {"Visual Studio 2010", wxCLASSINFO(VisualManagerVS2010), nullptr, 0},
    {"Scenic", wxCLASSINFO(VisualManagerScenic), nullptr, 0},
    {"Office 2010 Blue", wxCLASSINFO(VisualManagerOffice2010), VisualManagerOffice2010::setStyle, 0},
    {"Office 2010 Black", wxCLASSINFO(VisualManagerOffice2010), VisualManagerOffice2010::setStyle, 2},
    {"Office 2010 Silver", wxCLASSINFO(VisualManagerOffice2010), VisualManagerOffice2010::setStyle, 1},
    {"Visual Studio 2012 Light", wxCLASSINFO(VisualManagerVS2012), VisualManagerVS2012::setStyle, 0},
    {"Visual Studio 2012 Dark", wxCLASSINFO(VisualManagerVS2012), VisualManagerVS2012::setStyle, 1},
    {"Visual Studio 2012 Blue", wxCLASSINFO(VisualManagerVS2012), VisualManagerVS2012::setStyle, 2},
    {"Office 2013 White", wxCLASSINFO(VisualManagerOffice2013), VisualManagerOffice2013::setStyle, 0},
    {"Office 2013 Light Gray", wxCLASSINFO(VisualManagerOffice2013), VisualManagerOffice2013::setStyle, 1},
    {"Office 2013 Dark Gray", wxCLASSINFO(VisualManagerOffice2013), VisualManagerOffice2013::setStyle, 2},
    {"Visual Studio 2013 Light", wxCLASSINFO(VisualManagerVS2013), VisualManagerVS2012::setStyle, 0},
    {"Visual Studio 2013 Dark", wxCLASSINFO(VisualManagerVS2013), VisualManagerVS2012::setStyle, 1},
    {"Visual Studio 2013 Blue", wxCLASSINFO(VisualManagerVS2013), VisualManagerVS2012::setStyle, 2},
    {"Office 2016 Colorful", wxCLASSINFO(VisualManagerOffice2016), VisualManagerOffice2016::setStyle, 0},
    {"Office 2016 Dark Gray", wxCLASSINFO(VisualManagerOffice2016), VisualManagerOffice2016::setStyle, 1},
    {"Office 2016 Black", wxCLASSINFO(VisualManagerOffice2016), VisualManagerOffice2016::setStyle, 2},
    {"Office 2016 White", wxCLASSINFO(VisualManagerOffice2016), VisualManagerOffice2016::setStyle, 3},
    {"NX 8", wxCLASSINFO(QdrVisualManagerNX8), nullptr, 0},
    {"NX 10", wxCLASSINFO(QdrVisualManagerNX10), nullptr, 0},
    {"NX 11", wxCLASSINFO(QdrVisualManagerNX11), nullptr, 0},
};

} // namespace

bool isVisualTheme(int theme)
{
    return theme >= 0 && theme < visualThemeCount;
}

const char* visualThemeName(int theme)
{
    return isVisualTheme(theme) ? themes[theme].name : "";
}

bool installVisualTheme(int theme)
{
    if (!isVisualTheme(theme))
        return false;
    const ThemeEntry& entry = themes[theme];
    if (entry.setStyle)
        entry.setStyle(entry.style);
    VisualManager::install(*entry.manager);
    return true;
}

} // namespace TessaronResources
