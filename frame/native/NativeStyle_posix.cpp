#include "frame/native/NativeStyle.h"

#include "frame/VisualPalette.h"

#include <wx/window.h>

#include <gtk/gtk.h>

#include <cstdio>
#include <string>
#include <string_view>

namespace TessaronResources::native
{

namespace
{

// Above the desktop's theme, below the colours that a control is given by itself.
constexpr guint priority = GTK_STYLE_PROVIDER_PRIORITY_SETTINGS + 1;

// Of the backgrounds of fields that can be edited and fields that cannot.
constexpr double leastFieldContrast = 1.05;

constexpr char attached[] = "tessaron-style";

// @name@ stands for a colour of the palette.
constexpr std::string_view styleSheet = R"css(
* { text-shadow: none; -gtk-icon-shadow: none; outline-color: alpha(@text@, 0.5); }
window, .background { background-color: @dialog@; background-image: none; color: @text@; }
label { color: @text@; }
label:disabled, *:disabled label { color: @disabledText@; }
entry, textview, textview text { background-color: @field@; background-image: none; color: @fieldText@;
  caret-color: @fieldText@; border-color: @border@; box-shadow: none; }
entry:focus { border-color: @accent@; }
entry:disabled { background-color: @readOnlyField@; color: @disabledText@; }
entry selection, entry:focus selection, textview text selection { background-color: @accent@; color: @accentText@; }
entry image { color: @fieldText@; }
button { background-color: @button@; background-image: @buttonImage@; color: @buttonText@; border-color: @border@;
  box-shadow: none; }
button.flat { background-color: transparent; background-image: none; border-color: transparent; }
button label, button cellview, button arrow, button image { color: @buttonText@; }
button:hover { background-color: @buttonHover@; background-image: none; }
button:active, button:checked { background-color: @buttonHover@; background-image: none; border-color: @accent@; }
button:disabled { background-color: @dialog@; background-image: none; }
button:disabled, button:disabled label, button:disabled cellview, button:disabled arrow, button:disabled image
  { color: @disabledText@; }
checkbutton, radiobutton { color: @text@; }
check, radio { background-color: @field@; background-image: none; color: @fieldText@; border-color: @border@;
  box-shadow: none; }
check:checked, radio:checked { background-color: @accent@; color: @accentText@; border-color: @accent@; }
check:disabled, radio:disabled { background-color: @dialog@; color: @disabledText@; }
frame > border { border-color: @border@; }
separator { background-color: @border@; }
treeview.view, .view { background-color: @field@; background-image: none; color: @fieldText@; }
treeview.view:selected, .view:selected { background-color: @accent@; color: @accentText@; }
treeview.view check { background-color: @field@; border-color: @border@; }
treeview.view check:selected { background-color: @field@; background-image: none; border-color: @accentText@; }
treeview.view check:checked { background-color: @accent@; border-color: @accentText@; color: @accentText@; }
scrollbar { background-color: @dialog@; background-image: none; border-color: @border@; }
scrollbar slider { background-color: @slider@; border-color: @dialog@; }
scale trough, progressbar trough { background-color: @button@; background-image: none; border-color: @border@; }
scale highlight, progressbar progress { background-color: @accent@; background-image: none; border-color: @accent@; }
scale slider { background-color: @button@; background-image: none; border-color: @border@; box-shadow: none; }
)css";

std::string colourText(Rgb colour)
{
    char text[8];
    std::snprintf(text, sizeof text, "#%06X", static_cast<unsigned>(colour));
    return text;
}

std::string sheen(Rgb colour)
{
    return "linear-gradient(to bottom, " + colourText(mixed(colour, 0xFFFFFF, 0.25)) + ", " + colourText(colour) + ")";
}

std::string colourOf(std::string_view name, const VisualPalette& palette)
{
    if (name == "buttonImage")
        return palette.surface == Surface::sheen ? sheen(palette.button) : "none";
    // Apart from a field that can be edited, also where dialogs have the colour of fields.
    if (name == "readOnlyField")
        return colourText(contrastRatio(palette.dialog, palette.field) < leastFieldContrast
                              ? mixed(palette.dialog, palette.text, 0.08)
                              : palette.dialog);
    if (name == "slider")
        return colourText(mixed(palette.dialog, palette.text, 0.4));
    constexpr struct
    {
        const char* name;
        Rgb VisualPalette::*colour;
    } colours[] = {
        {"dialog", &VisualPalette::dialog},
        {"text", &VisualPalette::text},
        {"disabledText", &VisualPalette::disabledText},
        {"field", &VisualPalette::field},
        {"fieldText", &VisualPalette::fieldText},
        {"border", &VisualPalette::border},
        {"accent", &VisualPalette::accent},
        {"accentText", &VisualPalette::accentText},
        {"button", &VisualPalette::button},
        {"buttonText", &VisualPalette::buttonText},
        {"buttonHover", &VisualPalette::buttonHover},
    };
    for (const auto& entry : colours)
        if (name == entry.name)
            return colourText(palette.*entry.colour);
    return "inherit";
}

std::string styleFor(const VisualPalette& palette)
{
    std::string style;
    std::string_view rest = styleSheet;
    while (!rest.empty())
    {
        const std::size_t begin = rest.find('@');
        style += rest.substr(0, begin);
        if (begin == std::string_view::npos)
            break;
        const std::size_t end = rest.find('@', begin + 1);
        style += colourOf(rest.substr(begin + 1, end - begin - 1), palette);
        rest.remove_prefix(end + 1);
    }
    return style;
}

void detach(GtkWidget* widget, gpointer)
{
    if (auto* const old = static_cast<GtkStyleProvider*>(g_object_get_data(G_OBJECT(widget), attached)))
    {
        gtk_style_context_remove_provider(gtk_widget_get_style_context(widget), old);
        g_object_set_data(G_OBJECT(widget), attached, nullptr);
    }
}

void attach(GtkWidget* widget, gpointer provider)
{
    if (g_object_get_data(G_OBJECT(widget), attached) != provider)
    {
        detach(widget, nullptr);
        gtk_style_context_add_provider(gtk_widget_get_style_context(widget), GTK_STYLE_PROVIDER(provider), priority);
        g_object_set_data_full(G_OBJECT(widget), attached, g_object_ref(provider), g_object_unref);
    }
    if (GTK_IS_CONTAINER(widget))
        gtk_container_forall(GTK_CONTAINER(widget), attach, provider);
}

void detachAll(GtkWidget* widget, gpointer)
{
    detach(widget, nullptr);
    if (GTK_IS_CONTAINER(widget))
        gtk_container_forall(GTK_CONTAINER(widget), detachAll, nullptr);
}

} // namespace

struct ControlStyle::Provider
{
    GtkCssProvider* css = gtk_css_provider_new();
};

ControlStyle::ControlStyle(const VisualPalette& palette) : m_provider(std::make_unique<Provider>())
{
    gtk_css_provider_load_from_data(m_provider->css, styleFor(palette).c_str(), -1, nullptr);
}

ControlStyle::~ControlStyle()
{
    g_object_unref(m_provider->css);
}

void ControlStyle::apply(wxWindow& window) const
{
    if (GtkWidget* const widget = static_cast<GtkWidget*>(window.GetHandle()))
        attach(widget, m_provider->css);
}

void ControlStyle::remove(wxWindow& window)
{
    if (GtkWidget* const widget = static_cast<GtkWidget*>(window.GetHandle()))
        detachAll(widget, nullptr);
}

} // namespace TessaronResources::native
