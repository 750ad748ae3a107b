#include "frame/VisualPalette.h"

#include <algorithm>
#include <cmath>

namespace TessaronResources
{

namespace
{

constexpr Rgb black = 0x000000;
constexpr Rgb white = 0xFFFFFF;

// What text has to have at least, with a little to spare for rounding.
constexpr double enough = 4.6;

double channel(Rgb colour, int shift)
{
    return static_cast<double>((colour >> shift) & 0xFFU);
}

double luminance(Rgb colour)
{
    const auto linear = [colour](int shift)
    {
        const double value = channel(colour, shift) / 255.0;
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(16) + 0.7152 * linear(8) + 0.0722 * linear(0);
}

// A background changed toward another one as far as its text allows.
Rgb tinted(Rgb background, Rgb toward, double share, Rgb text)
{
    Rgb result = mixed(background, toward, share);
    while (share > 0.01 && contrastRatio(result, text) < enough)
    {
        share *= 0.8;
        result = mixed(background, toward, share);
    }
    return contrastRatio(result, text) < enough ? background : result;
}

// A colour made readable on a background by mixing in what is readable there.
Rgb readable(Rgb colour, Rgb background)
{
    constexpr int steps = 20;
    for (int step = 0; step < steps; ++step)
        if (const Rgb result = mixed(colour, readableOn(background), static_cast<double>(step) / steps);
            contrastRatio(result, background) >= enough)
            return result;
    return readableOn(background);
}

constexpr Rgb amber = 0xC77700;

} // namespace

double contrastRatio(Rgb a, Rgb b)
{
    const double first = luminance(a);
    const double second = luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

Rgb mixed(Rgb from, Rgb to, double share)
{
    Rgb result = 0;
    for (const int shift : {16, 8, 0})
        result |= static_cast<Rgb>(std::lround(channel(from, shift) * (1.0 - share) + channel(to, shift) * share))
                  << shift;
    return result;
}

Rgb readableOn(Rgb background)
{
    return contrastRatio(black, background) >= contrastRatio(white, background) ? black : white;
}

VisualPalette::VisualPalette(const PaletteSeed& seed) : PaletteSeed(seed)
{
    const bool dark = readableOn(dialog) == white;
    buttonText = text;
    button = tinted(dialog, dark ? white : mixed(white, dialog, 0.2), dark ? 0.1 : 0.6, buttonText);
    buttonHover = tinted(button, accent, 0.2, buttonText);
    disabledText = mixed(text, dialog, 0.5);
    hover = tinted(ribbon, accent, 0.25, ribbonText);
    pressed = tinted(ribbon, accent, 0.45, ribbonText);
    heading = tinted(field, mixed(chrome, dialog, 0.5), 0.55, fieldText);
    headingText = fieldText;
    gridLine = mixed(field, border, 0.45);
    alternateField = mixed(field, fieldText, 0.03);
    mark = readable(amber, alternateField);
}

PaletteSeed seedAround(Rgb dialog)
{
    const bool dark = readableOn(dialog) == white;
    const Rgb text = dark ? mixed(white, dialog, 0.06) : black;
    const Rgb field = dark ? mixed(dialog, white, 0.05) : mixed(dialog, white, 0.88);
    const Rgb chrome = dark ? mixed(dialog, black, 0.45) : mixed(dialog, black, 0.62);
    const Rgb ribbon = dark ? mixed(dialog, white, 0.1) : mixed(dialog, white, 0.35);
    const Rgb accent = dark ? 0x2F6EA5 : mixed(dialog, black, 0.5);
    return {dialog,
            text,
            field,
            readableOn(field),
            chrome,
            mixed(readableOn(chrome), chrome, 0.06),
            ribbon,
            readableOn(ribbon),
            accent,
            readableOn(accent),
            mixed(dialog, readableOn(dialog), 0.3),
            Surface::flat};
}

} // namespace TessaronResources
