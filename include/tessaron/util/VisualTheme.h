#ifndef TESSARON_UTIL_VISUALTHEME_H
#define TESSARON_UTIL_VISUALTHEME_H

// Stability: stable.

namespace util
{

/// The look of the module's windows, as a host asks for it. The numbers are the interface and do not change; a number
/// that has no name here leaves the look as it is.
enum class VisualTheme : int
{
    windowsXp = 0,
    office2007Blue = 1,
    office2007Black = 2,
    office2007Silver = 3,
    office2007Aqua = 4,
    carbon = 5,
    visualStudio2008 = 6,
    visualStudio2010 = 7,
    scenic = 8,
    office2010Blue = 9,
    office2010Black = 10,
    office2010Silver = 11,
    visualStudio2012Light = 12,
    visualStudio2012Dark = 13,
    visualStudio2012Blue = 14,
    office2013White = 15,
    office2013LightGray = 16,
    office2013DarkGray = 17,
    visualStudio2013Light = 18,
    visualStudio2013Dark = 19,
    visualStudio2013Blue = 20,
    office2016Colorful = 21,
    office2016DarkGray = 22,
    office2016Black = 23,
    office2016White = 24,
    nx8 = 25,
    nx10 = 26,
    nx11 = 27,
};

} // namespace util

#endif
