#ifndef TEMPLATES_TEMPLATEMANAGERFORMVIEW_H
#define TEMPLATES_TEMPLATEMANAGERFORMVIEW_H

#include "controls/ControlMover.h"
#include "templates/TemplateManagerCommands.h"
#include "templates/TemplateSession.h"
#include "templates/TemplateWindowPrompts.h"

#include <wx/panel.h>

#include <functional>
#include <string>

class wxFrame;

namespace TessaronResources
{

/// What an entry point hands to the form.
struct TemplateManagerInputs
{
    bool saving = false; ///< save mode; load mode otherwise
    int kind = 0;
    int selector = 0;
    std::string path;
    const util::Parameterized* current = nullptr; ///< not owned; so are the next two
    util::Parameterized* result = nullptr;
    bool* loadSaved = nullptr; ///< save mode only
    int theme = -1;            ///< the one that the host asks for
};

/// The form of the template manager: the grid, the name and theme fields and the buttons. It ends the window's modal
/// loop by writing into the result slot.
class TemplateManagerFormView : public wxPanel, private TemplateSessionObserver
{
public:
    TemplateManagerFormView(wxFrame& frame, const TemplateManagerInputs& inputs);

    /// Loads folders and definitions and fills the grid.
    /// \returns false when there is no form.
    bool setUp();

    /// Where the result goes; holds -1 until the user is done. `finished` is called when it has been written. Without
    /// a slot the form does nothing any more.
    void setResultSlot(int* slot, std::function<void()> finished);

    /// Ends with a value unless one is there already. 0 ends with nothing chosen: edits that are not stored are asked
    /// for first, and where they cannot be stored, the window stays. `handOver` gives the host its result, once it is
    /// certain that the window ends.
    void finish(int value, const std::function<void()>& handOver = nullptr);

    /// Save mode: asks for the name, and finishes with 1 when the operation is stored.
    void saveAs();

    /// Answers a command of the window (TemplateManagerIds.h).
    /// \returns whether it is one.
    bool onCommand(int command);

    /// Does what a key means anywhere in the window.
    /// \returns whether it means something.
    bool onKey(int key, int modifiers);

    const util::TemplateInfo& info() const { return m_session.info(); }

    /// The theme in force, a number of util::VisualTheme: the host's, or where the host leaves it open, the user's.
    int theme() const;

private:
    // What the session tells: the buttons follow
    void rowsReplaced(const std::vector<std::size_t>&) override { updateButtons(); }
    void rowsReordered(const std::vector<std::size_t>&) override {}
    void rowsEdited() override { updateButtons(); }
    void layoutKeepingChanged() override;

    /// False once the window has a result; events may still arrive after that.
    bool isRunning() const { return m_slot && *m_slot == -1; }
    void open();
    bool makeControls();
    void bindControls();
    /// Asks for edits that are not stored.
    /// \returns whether the window may end.
    bool settleBeforeEnd();
    void applyLook();
    void apply();
    void save();
    void themeChosen(int theme);
    void updateButtons();

    wxFrame& m_frame;
    TemplateManagerInputs m_inputs;
    TemplateWindowPrompts m_prompts;
    TemplateSession m_session;
    TemplateManagerCommands m_commands;
    ControlMover m_mover;
    TemplateManagerGrid* m_grid = nullptr;
    int* m_slot = nullptr;
    std::function<void()> m_finished;
    bool m_busy = false; ///< a finish is under way, perhaps with a question on the screen
};

} // namespace TessaronResources

#endif
