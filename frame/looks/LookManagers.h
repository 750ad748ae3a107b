#ifndef FRAME_LOOKS_LOOKMANAGERS_H
#define FRAME_LOOKS_LOOKMANAGERS_H

#include "frame/looks/VisualManager.h"

namespace TessaronResources
{

// The looks that come with the toolkit's part of the module. Those with several styles take the style that was set
// last, at the time when they are installed. A style that a look does not have is its style 0.

class VisualManagerXP : public VisualManager
{
public:
    void refreshSystemColours() override;
    wxDECLARE_DYNAMIC_CLASS(VisualManagerXP);
};

/// Styles: 0 blue, 1 black, 2 aqua, 3 silver.
class VisualManagerOffice2007 : public VisualManager
{
public:
    static void setStyle(int style);
    void refreshSystemColours() override;
    wxDECLARE_DYNAMIC_CLASS(VisualManagerOffice2007);
};

class VisualManagerCarbon : public VisualManager
{
public:
    void refreshSystemColours() override;
    wxDECLARE_DYNAMIC_CLASS(VisualManagerCarbon);
};

class VisualManagerVS2008 : public VisualManager
{
public:
    void refreshSystemColours() override;
    wxDECLARE_DYNAMIC_CLASS(VisualManagerVS2008);
};

class VisualManagerVS2010 : public VisualManager
{
public:
    void refreshSystemColours() override;
    wxDECLARE_DYNAMIC_CLASS(VisualManagerVS2010);
};

class VisualManagerScenic : public VisualManager
{
public:
    void refreshSystemColours() override;
    wxDECLARE_DYNAMIC_CLASS(VisualManagerScenic);
};

/// Styles: 0 blue, 1 silver, 2 black.
class VisualManagerOffice2010 : public VisualManager
{
public:
    static void setStyle(int style);
    void refreshSystemColours() override;
    wxDECLARE_DYNAMIC_CLASS(VisualManagerOffice2010);
};

/// Styles: 0 light, 1 dark, 2 blue.
class VisualManagerVS2012 : public VisualManager
{
public:
    static void setStyle(int style);
    void refreshSystemColours() override;
    wxDECLARE_DYNAMIC_CLASS(VisualManagerVS2012);
};

/// Styles: 0 white, 1 light gray, 2 dark gray.
class VisualManagerOffice2013 : public VisualManager
{
public:
    static void setStyle(int style);
    void refreshSystemColours() override;
    wxDECLARE_DYNAMIC_CLASS(VisualManagerOffice2013);
};

/// Takes its style from VisualManagerVS2012::setStyle; it has no style switch of its own.
class VisualManagerVS2013 : public VisualManagerVS2012
{
public:
    void refreshSystemColours() override;
    wxDECLARE_DYNAMIC_CLASS(VisualManagerVS2013);
};

/// Styles: 0 colorful, 1 dark gray, 2 black, 3 white.
class VisualManagerOffice2016 : public VisualManager
{
public:
    static void setStyle(int style);
    void refreshSystemColours() override;
    wxDECLARE_DYNAMIC_CLASS(VisualManagerOffice2016);
};

} // namespace TessaronResources

#endif
