#ifndef TESSARON_FRAME_ENTRYPOINTS_H
#define TESSARON_FRAME_ENTRYPOINTS_H

// Stability: stable.

#include <tessaron/frame/ModuleState.h>
#include <tessaron/frame/PlainEntryPoints.h>
#include <tessaron/frame/Platform.h>
#include <tessaron/util/Export.h>

#include <boost/shared_ptr.hpp>

#include <string>

namespace exchange
{
class ProgressData;
}

namespace util
{
class Parameterized;
enum class VisualTheme : int;
} // namespace util

/*
 * The entry points of the module. What all of them promise:
 *
 * - Call them from the thread that owns the user interface. A call returns when its window has gone. On any other
 * thread a call is refused: it shows nothing and returns 2, displayChipControlDialogEx 1.
 * - The module state that was current on the calling thread is current again on every way out.
 * - The process's locale, signal handlers, environment, working directory, log target, and the toolkit's assertion
 * handler are what they were, also while the call lasts.
 * - A host that runs the toolkit shares its application object and event loop; for any other host the toolkit is
 * started at the first call. Without a display the progress calls run without a window and the modal calls return 2.
 * - While a window is up the host's timers and windows stay alive, so one entry point may be called from inside
 * another. The inner window works as usual, and the outer call goes on when the inner one has returned.
 * - A quit message ends the call at once and is handed on to the host's loop. Closing the host's last window is one, in
 * a host of the toolkit that ends with its last window. Closing a dialog of the host's is none, wherever it was opened.
 * - Arguments passed by pointer or reference belong to the caller and must outlive the call. Where one of them must be
 * a record, null shows nothing: the progress calls return 1 and the modal calls 2.
 */
namespace TessaronResources
{

struct GougeCheckData;
struct SmartLinkData;

// --- The module ------------------------------------------------------------------------------------------------------

/// Overwrites the module state slot, which names the resources that the progress windows load. Nothing is checked; null
/// must not be stored. For a host that drives the module from another module's context, before its first progress call.
TESSARON_RESOURCES_API void setModuleState(AFX_MODULE_STATE* state);

/// The module's application object; null only before the library is initialised.
TESSARON_RESOURCES_API CWinApp* getTessaronResourcesApp();

/// The module's own handle, not the host's; null when there is no application object.
TESSARON_RESOURCES_API HINSTANCE getInstance();

// --- Job progress ----------------------------------------------------------------------------------------------------

/// Shows a progress window over a job's progress record until the job has ended or the user cancels.
/// The turning look is the one whose name says "Orrimant".
/// \param progress the record; polled every 50 ms under its mutex
/// \param caption  the window title, UTF-8; null for none
/// \returns 1 when the job ended by itself, 2 when the user cancelled. After a cancel the engine has been asked to
/// stop, and
///          the call does not wait for it.
TESSARON_RESOURCES_API int displayProgressDialog(boost::shared_ptr<exchange::ProgressData>& progress,
                                                 const char* caption);
TESSARON_RESOURCES_API int displayOrrimantProgressDialog(boost::shared_ptr<exchange::ProgressData>& progress,
                                                         const char* caption);

/// Shows a progress window with one line for each worker of the job, folded away until the user asks for details. The
/// window has no title. Cancel asks the engine to stop, and the window stays until the job has ended.
/// \returns 1 when the job has ended, 2 only when the shared cancelled flag was set by other means.
TESSARON_RESOURCES_API int displayMultiProgressDialog(boost::shared_ptr<exchange::ProgressData>& progress);
TESSARON_RESOURCES_API int displayOrrimantMultiProgressDialog(boost::shared_ptr<exchange::ProgressData>& progress);

// --- Machining dialogs -----------------------------------------------------------------------------------------------

/// Shows the active chip thickness control dialog.
/// \param kind   the operation kind in the upper 16 bits; the lower ones are ignored
/// \param params must hold "Tool Diameter", "Depth of Cut", "Feedrate", "Stepover" (real), "Tool Num Flutes" and
///               "Spindle Speed" (integer); changed only when the user applies
/// \param metric millimetres and metres per minute; else inches and feet per minute
/// \returns 1 applied, 2 cancelled
/// \throws util::AssertionError when a key is missing
TESSARON_RESOURCES_API int displayChipControlDialog(int kind, util::Parameterized* params, bool metric);

/// Shows the gouge check dialog over the caller's record, which is written on OK.
/// \returns 1 OK, 2 cancelled
TESSARON_RESOURCES_API int displayGougeCheckDialog(GougeCheckData* data);

/// Shows the SmartLink dialog over the caller's record. On OK all of it is written; `linkPreference` follows the track
/// bar at once and stays so on cancel.
/// \returns 1 OK, 2 cancelled
TESSARON_RESOURCES_API int displaySmartLinkDialog(SmartLinkData* data);

// --- Operation templates ---------------------------------------------------------------------------------------------

/// Shows the template manager to pick a stored template.
/// \param kind     0 milling, 1 turning
/// \param selector passed on to the template store
/// \param path     the template folder
/// \param current  the current operation's parameter set
/// \param result   receives the chosen template without its three tool keys; untouched otherwise
/// \param parent   owner window; null for the main window of the calling thread
/// \param theme visual theme, which holds; any number that is no theme leaves the choice to the user, who makes it in
///                 the window
/// \returns 1 applied; 0 cancelled, nothing selected, or quit
TESSARON_RESOURCES_API int displayTemplateManagerDialogLoad(int kind, int selector, const std::string& path,
                                                            const util::Parameterized& current,
                                                            util::Parameterized* result, CWnd* parent,
                                                            util::VisualTheme theme);

/// Shows the template manager to store the current operation as a template. `result` receives the stored
/// template, and `loadSaved` whether the user asked to load the saved template back; the other arguments are those of
/// loading.
/// \returns 1 saved; 0 cancelled, failed, or quit
TESSARON_RESOURCES_API int displayTemplateManagerDialogSave(int kind, int selector, const std::string& path,
                                                            const util::Parameterized& current,
                                                            util::Parameterized* result, bool* loadSaved, CWnd* parent,
                                                            util::VisualTheme theme);

// --- Configuration paths ---------------------------------------------------------------------------------------------

/// The path of the user's own configuration file of a product, or of the shipped one when the user has none.
/// \param subfolder   folders below the maker's folder, separated by "\" or "/"; may be empty
/// \param productCode the product in the upper 16 bits: 100, 101 or 1
/// \param create      make the user's folder and record the file in the list of profiles when there is none yet
/// \returns the path; empty for an unknown product
TESSARON_RESOURCES_API std::string getConfigFilePath(const char* subfolder, int productCode, bool create);

/// The path of the configuration file that ships beside the module; empty for an unknown product. `subfolder` is not
/// used.
TESSARON_RESOURCES_API std::string getDefaultConfigFilePath(const char* subfolder, int productCode);

} // namespace TessaronResources

#endif
