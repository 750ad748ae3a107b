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

/// The colours of native controls. Reaches only the windows that it is given: the host's keep theirs. Colours that a
/// control was given by itself stay above it.
class ControlStyle
{
public:
    explicit ControlStyle(const VisualPalette& palette);
    ~ControlStyle();
    ControlStyle(const ControlStyle&) = delete;
    ControlStyle& operator=(const ControlStyle&) = delete;

    /// Gives this style to a window and everything in it, in the place of another style of this kind. The windows keep
    /// it also when this object goes.
    void apply(wxWindow& window) const;

    /// Takes a window's style and that of everything in it away.
    static void remove(wxWindow& window);

private:
    struct Provider;
    std::unique_ptr<Provider> m_provider;
};

} // namespace TessaronResources::native

#endif
