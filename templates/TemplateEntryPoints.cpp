#include "frame/ModalLoop.h"
#include "frame/Toolkit.h"
#include "frame/native/FocusReturn.h"
#include "templates/TemplateManagerFormView.h"
#include "templates/TemplateManagerFrameWnd.h"
#include <tessaron/frame/EntryPoints.h>
#include <tessaron/util/VisualTheme.h>

#include <wx/app.h>
#include <wx/utils.h>
#include <wx/weakref.h>

#include <memory>

namespace TessaronResources
{

namespace
{

constexpr int notFinished = -1;
constexpr int quit = 0;
constexpr int noWindow = 2;

// Disables the host's windows while the manager is up, and enables them again on every way out.
class OwnerLock
{
public:
    OwnerLock(wxWindow* owner, wxWindow* manager)
        : m_owner(owner), m_others(std::make_unique<wxWindowDisabler>(manager))
    {
    }
    ~OwnerLock() { release(); }
    OwnerLock(const OwnerLock&) = delete;
    OwnerLock& operator=(const OwnerLock&) = delete;

    void release()
    {
        if (!m_others)
            return;
        m_others.reset();
        for (wxWindow* window = m_owner; window; window = window->GetParent())
            window->Enable();
    }

private:
    wxWeakRef<wxWindow> m_owner;
    std::unique_ptr<wxWindowDisabler> m_others;
};

struct DestroyFrame
{
    void operator()(wxFrame* frame) const
    {
        frame->Hide();
        frame->Destroy();
    }
};

int runTemplateManager(wxWindow* parent, const TemplateManagerInputs& inputs)
{
    const EntryScope scope(staticModuleState());
    if (!toolkitRunning())
        return noWindow;
    wxWindow* const owner = parent ? parent : wxTheApp->GetTopWindow();
    int slot = notFinished;
    const native::FocusReturn focus;
    const std::unique_ptr<TemplateManagerFrameWnd, DestroyFrame> frame(new TemplateManagerFrameWnd(owner, inputs));
    OwnerLock lock(owner, frame.get());
    // Messages of the set-up appear while the host's windows are locked already.
    if (!frame->initialUpdate())
        return noWindow;
    frame->form().setResultSlot(&slot, [&lock] { lock.release(); });
    if (inputs.saving)
        frame->form().CallAfter(&TemplateManagerFormView::saveAs);
    const int result = runModalLoop([&slot] { return slot == notFinished; }) ? slot : quit;
    // The toolkit destroys the window some time after this call.
    frame->form().setResultSlot(nullptr, nullptr);
    return result;
}

} // namespace

int displayTemplateManagerDialogLoad(int kind, int selector, const std::string& path,
                                     const util::Parameterized& current, util::Parameterized* result, CWnd* parent,
                                     util::VisualTheme theme)
{
    TemplateManagerInputs inputs;
    inputs.kind = kind;
    inputs.selector = selector;
    inputs.path = path;
    inputs.current = &current;
    inputs.result = result;
    inputs.theme = static_cast<int>(theme);
    return runTemplateManager(parent, inputs);
}

int displayTemplateManagerDialogSave(int kind, int selector, const std::string& path,
                                     const util::Parameterized& current, util::Parameterized* result, bool* loadSaved,
                                     CWnd* parent, util::VisualTheme theme)
{
    TemplateManagerInputs inputs;
    inputs.saving = true;
    inputs.kind = kind;
    inputs.selector = selector;
    inputs.path = path;
    inputs.current = &current;
    inputs.result = result;
    inputs.loadSaved = loadSaved;
    inputs.theme = static_cast<int>(theme);
    return runTemplateManager(parent, inputs);
}

} // namespace TessaronResources
