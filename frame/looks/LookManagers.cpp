#include "frame/looks/LookManagers.h"

#include <cstddef>

namespace TessaronResources
{

namespace
{

constexpr Surface sheen = Surface::sheen;
constexpr Surface flat = Surface::flat;

// dialog, text, field, fieldText, chrome, chromeText, ribbon, ribbonText, accent, accentText, border, surface
constexpr PaletteSeed xpSeed = {0xECE9D8, 0x000000, 0xFFFFFF, 0x000000, 0xD6D2BC, 0x000000,
                                0xF4F2E7, 0x000000, 0x316AC5, 0xFFFFFF, 0xACA899, sheen};
constexpr PaletteSeed carbonSeed = {0x3C3F43, 0xF2F2F2, 0x2B2D30, 0xEDEDED, 0x1E2022, 0xE6E6E6,
                                    0x474A4E, 0xF2F2F2, 0x9DB7CF, 0x101418, 0x5C6066, sheen};
constexpr PaletteSeed vs2008Seed = {0xEAF0FA, 0x101828, 0xFFFFFF, 0x101828, 0xB7CAE8, 0x101828,
                                    0xDDE8F8, 0x101828, 0x2F5FA8, 0xFFFFFF, 0x8FA9D0, sheen};
constexpr PaletteSeed vs2010Seed = {0xD3DAE6, 0x1B293E, 0xFFFFFF, 0x1B293E, 0x293955, 0xFFFFFF,
                                    0xBCC7D8, 0x1B293E, 0xFFE8A6, 0x1B293E, 0x8592AD, sheen};
constexpr PaletteSeed scenicSeed = {0xF0F5FB, 0x1E395B, 0xFFFFFF, 0x1E395B, 0xD5E3F3, 0x1E395B,
                                    0xF5F9FE, 0x1E395B, 0x2A67A8, 0xFFFFFF, 0xA9C2DD, sheen};

constexpr PaletteSeed office2007Seeds[] = {
    {0xD7E6F9, 0x15428B, 0xFFFFFF, 0x0B2A5C, 0xBFD6F6, 0x15428B, 0xE3EEFC, 0x15428B, 0xFFC25E, 0x201400, 0x8DB2E3,
     sheen},
    {0xC9CED5, 0x1B1E22, 0xFFFFFF, 0x1B1E22, 0x474C54, 0xF2F2F2, 0xD9DDE3, 0x1B1E22, 0xFFBE52, 0x201400, 0x7E868F,
     sheen},
    {0xCFEAEE, 0x0B3C49, 0xFFFFFF, 0x0B3C49, 0xA0D2DA, 0x0B3440, 0xE0F3F6, 0x0B3C49, 0xFFC25E, 0x201400, 0x74B3BE,
     sheen},
    {0xE3E5EA, 0x2E3640, 0xFFFFFF, 0x23292F, 0xCDD1DA, 0x2E3640, 0xF0F2F5, 0x2E3640, 0xFFC25E, 0x201400, 0xA5ACB5,
     sheen},
};
constexpr PaletteSeed office2010Seeds[] = {
    {0xD5E2F1, 0x1E395B, 0xFFFFFF, 0x1E395B, 0xBBCEE6, 0x1E395B, 0xE9F1FB, 0x1E395B, 0x1E5FAE, 0xFFFFFF, 0x96AFCF,
     sheen},
    {0xE9EDF1, 0x333A42, 0xFFFFFF, 0x2A3037, 0xD6DBE1, 0x333A42, 0xF7F9FB, 0x333A42, 0x1F6C9E, 0xFFFFFF, 0xB0B7BF,
     sheen},
    {0xB9B9B9, 0x111111, 0xFFFFFF, 0x111111, 0x4F4F4F, 0xFFFFFF, 0xCDCDCD, 0x111111, 0xA85409, 0xFFFFFF, 0x7A7A7A,
     sheen},
};
constexpr PaletteSeed vs2012Seeds[] = {
    {0xEFEFF2, 0x1E1E1E, 0xFFFFFF, 0x1E1E1E, 0xE2E3E8, 0x1E1E1E, 0xF6F6F8, 0x1E1E1E, 0x0069B4, 0xFFFFFF, 0xC6C8D2,
     flat},
    {0x2D2D30, 0xF1F1F1, 0x252526, 0xF1F1F1, 0x1B1B1D, 0xF1F1F1, 0x38383C, 0xF1F1F1, 0x0069B4, 0xFFFFFF, 0x55555C,
     flat},
    {0xD6DBE9, 0x1B293E, 0xFFFFFF, 0x1B293E, 0x35496A, 0xFFFFFF, 0xCFD6E5, 0x1B293E, 0xFFF29D, 0x1B1B1B, 0x8E9BBC,
     flat},
};
constexpr PaletteSeed vs2013Seeds[] = {
    {0xEEEEF2, 0x1E1E1E, 0xFFFFFF, 0x1E1E1E, 0xDCDCE6, 0x1E1E1E, 0xF4F4F7, 0x1E1E1E, 0x68217A, 0xFFFFFF, 0xC2C3CC,
     flat},
    {0x252527, 0xF1F1F1, 0x1B1B1C, 0xF1F1F1, 0x111113, 0xF1F1F1, 0x303034, 0xF1F1F1, 0x8E4AA3, 0xFFFFFF, 0x4C4C55,
     flat},
    {0xDFE4F0, 0x17243B, 0xFFFFFF, 0x17243B, 0x2B3C5F, 0xFFFFFF, 0xD6DDEC, 0x17243B, 0x68217A, 0xFFFFFF, 0x93A1C4,
     flat},
};
constexpr PaletteSeed office2013Seeds[] = {
    {0xFFFFFF, 0x3B3B3B, 0xFFFFFF, 0x2B2B2B, 0xFFFFFF, 0x3B3B3B, 0xFFFFFF, 0x3B3B3B, 0x1E6A43, 0xFFFFFF, 0xC6C6C6,
     flat},
    {0xF3F3F3, 0x333333, 0xFFFFFF, 0x2B2B2B, 0xE4E4E4, 0x333333, 0xFAFAFA, 0x333333, 0x1E6A43, 0xFFFFFF, 0xBDBDBD,
     flat},
    {0xDEDEDE, 0x262626, 0xFFFFFF, 0x262626, 0xC4C4C4, 0x1E1E1E, 0xF0F0F0, 0x262626, 0x1E6A43, 0xFFFFFF, 0xA3A3A3,
     flat},
};
constexpr PaletteSeed office2016Seeds[] = {
    {0xF0F0F0, 0x262626, 0xFFFFFF, 0x262626, 0x2B579A, 0xFFFFFF, 0xF3F3F3, 0x262626, 0x2B579A, 0xFFFFFF, 0xB9B9B9,
     flat},
    {0xD4D4D4, 0x1E1E1E, 0xFFFFFF, 0x1E1E1E, 0x444444, 0xFFFFFF, 0xB8B8B8, 0x111111, 0x2B579A, 0xFFFFFF, 0x8A8A8A,
     flat},
    {0x262626, 0xF0F0F0, 0x1C1C1C, 0xF0F0F0, 0x0A0A0A, 0xF0F0F0, 0x363636, 0xF0F0F0, 0x3C6FB4, 0xFFFFFF, 0x575757,
     flat},
    {0xFFFFFF, 0x262626, 0xFFFFFF, 0x262626, 0xF4F6F9, 0x2B579A, 0xFFFFFF, 0x262626, 0x2B579A, 0xFFFFFF, 0xC8CCD2,
     flat},
};

int office2007Style = 0;
int office2010Style = 0;
int vs2012Style = 0;
int office2013Style = 0;
int office2016Style = 0;

template <std::size_t Count>
const PaletteSeed& seedOfStyle(const PaletteSeed (&seeds)[Count], int style)
{
    return seeds[style >= 0 && static_cast<std::size_t>(style) < Count ? style : 0];
}

} // namespace

wxIMPLEMENT_DYNAMIC_CLASS(VisualManagerXP, VisualManager);
wxIMPLEMENT_DYNAMIC_CLASS(VisualManagerOffice2007, VisualManager);
wxIMPLEMENT_DYNAMIC_CLASS(VisualManagerCarbon, VisualManager);
wxIMPLEMENT_DYNAMIC_CLASS(VisualManagerVS2008, VisualManager);
wxIMPLEMENT_DYNAMIC_CLASS(VisualManagerVS2010, VisualManager);
wxIMPLEMENT_DYNAMIC_CLASS(VisualManagerScenic, VisualManager);
wxIMPLEMENT_DYNAMIC_CLASS(VisualManagerOffice2010, VisualManager);
wxIMPLEMENT_DYNAMIC_CLASS(VisualManagerVS2012, VisualManager);
wxIMPLEMENT_DYNAMIC_CLASS(VisualManagerOffice2013, VisualManager);
wxIMPLEMENT_DYNAMIC_CLASS(VisualManagerVS2013, VisualManagerVS2012);
wxIMPLEMENT_DYNAMIC_CLASS(VisualManagerOffice2016, VisualManager);

void VisualManagerXP::refreshSystemColours()
{
    setColours(xpSeed);
}

void VisualManagerOffice2007::setStyle(int style)
{
    office2007Style = style;
}

void VisualManagerOffice2007::refreshSystemColours()
{
    setColours(seedOfStyle(office2007Seeds, office2007Style));
}

void VisualManagerCarbon::refreshSystemColours()
{
    setColours(carbonSeed);
}

void VisualManagerVS2008::refreshSystemColours()
{
    setColours(vs2008Seed);
}

void VisualManagerVS2010::refreshSystemColours()
{
    setColours(vs2010Seed);
}

void VisualManagerScenic::refreshSystemColours()
{
    setColours(scenicSeed);
}

void VisualManagerOffice2010::setStyle(int style)
{
    office2010Style = style;
}

void VisualManagerOffice2010::refreshSystemColours()
{
    setColours(seedOfStyle(office2010Seeds, office2010Style));
}

void VisualManagerVS2012::setStyle(int style)
{
    vs2012Style = style;
}

void VisualManagerVS2012::refreshSystemColours()
{
    setColours(seedOfStyle(vs2012Seeds, vs2012Style));
}

void VisualManagerOffice2013::setStyle(int style)
{
    office2013Style = style;
}

void VisualManagerOffice2013::refreshSystemColours()
{
    setColours(seedOfStyle(office2013Seeds, office2013Style));
}

void VisualManagerVS2013::refreshSystemColours()
{
    setColours(seedOfStyle(vs2013Seeds, vs2012Style));
}

void VisualManagerOffice2016::setStyle(int style)
{
    office2016Style = style;
}

void VisualManagerOffice2016::refreshSystemColours()
{
    setColours(seedOfStyle(office2016Seeds, office2016Style));
}

} // namespace TessaronResources
