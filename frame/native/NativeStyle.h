#ifndef FRAME_NATIVE_NATIVESTYLE_H
#define FRAME_NATIVE_NATIVESTYLE_H

#include <memory>

class wxWindow;

namespace TessaronResources
{
struct VisualPalette;
}

namespace TessaronResources::native
{

/// The colours of native controls. Changes only the windows that it is applied to, never the host's. Colours set on a
/// single control take precedence.
class ControlStyle
{
public:
    explicit ControlStyle(const VisualPalette& palette);
    ~ControlStyle();
    ControlStyle(const ControlStyle&) = delete;
    ControlStyle& operator=(const ControlStyle&) = delete;

    /// Applies this style to a window and its children, replacing an earlier one. The windows keep it when this object
    /// is destroyed.
    void apply(wxWindow& window) const;

    /// Removes the style of a window and its children.
    static void remove(wxWindow& window);

private:
    struct Provider;
    std::unique_ptr<Provider> m_provider;
};

} // namespace TessaronResources::native

#endif
