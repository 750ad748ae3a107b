#ifndef FRAME_VISUALPALETTE_H
#define FRAME_VISUALPALETTE_H

#include <cstdint>

namespace TessaronResources
{

/// A colour, 0x00RRGGBB.
typedef std::uint32_t Rgb;

/// The ratio of the luminances of two colours, from 1 (alike) to 21 (black on white), as the Web Content Accessibility
/// Guidelines 2.1 define it. Text that is to be read easily has 4.5 or more.
double contrastRatio(Rgb a, Rgb b);

/// The colour that lies `share` of the way from one colour to another.
Rgb mixed(Rgb from, Rgb to, double share);

/// Black or white, whichever is read more easily on a background.
Rgb readableOn(Rgb background);

/// How surfaces are drawn: with a sheen from top to bottom, or plain.
enum class Surface
{
    sheen,
    flat
};

/// The colours that a look is made of; the others follow from them.
struct PaletteSeed
{
    Rgb dialog; ///< background of dialogs and forms
    Rgb text;   ///< on it
    Rgb field;  ///< background of edits, lists and the grid
    Rgb fieldText;
    Rgb chrome; ///< the frame around the ribbon, where its tabs are
    Rgb chromeText;
    Rgb ribbon; ///< the ribbon's page
    Rgb ribbonText;
    Rgb accent; ///< selection, and the application button
    Rgb accentText;
    Rgb border;
    Surface surface;
};

/// All colours of a look.
struct VisualPalette : PaletteSeed
{
    explicit VisualPalette(const PaletteSeed& seed);

    Rgb button;
    Rgb buttonText;
    Rgb buttonHover;
    Rgb disabledText; ///< on the dialog; fainter by intention
    Rgb hover;        ///< behind what the pointer is over in the ribbon
    Rgb pressed;      ///< behind what is pressed in the ribbon
    Rgb heading;      ///< heading row of a grid
    Rgb headingText;
    Rgb gridLine;
    Rgb alternateField; ///< every other row of a grid
    Rgb mark;           ///< what has been changed and is not stored yet, and stars, on a field
};

/// The palette that is built around one colour of dialogs: light or dark text as the colour asks for it.
PaletteSeed seedAround(Rgb dialog);

} // namespace TessaronResources

#endif
