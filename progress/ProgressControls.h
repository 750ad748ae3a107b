#ifndef PROGRESS_PROGRESSCONTROLS_H
#define PROGRESS_PROGRESSCONTROLS_H

#include "progress/ProgressPoll.h"

class wxWindow;

namespace mfcutil
{
class CTransparentImage;
}

namespace TessaronResources
{

class DialogBase;

/// Control ids that the progress templates share.
namespace progressIds
{
constexpr int bar = 1000;
constexpr int stage = 1021;
constexpr int showDetails = 1042;
constexpr int picture = 1043;
} // namespace progressIds

/// Templates of the progress windows.
namespace progressTemplates
{
constexpr int milling = 1000;
constexpr int turning = 1039;
constexpr int multiMilling = 1029;
constexpr int multiTurning = 1040;
} // namespace progressTemplates

/// Shows progress in a bar and a line of text, either of which may be missing.
class ProgressControls : public ProgressView
{
public:
    ProgressControls(wxWindow* bar, wxWindow* line) : m_bar(bar), m_line(line) {}

    void showPercent(int percent) override;
    void showStage(const std::string& text) override;

private:
    wxWindow* m_bar;
    wxWindow* m_line;
};

/// The string table of the current module state.
std::string currentString(int id);

/// What the progress windows have in common when they open: icon, picture, names for the screen reader.
void setUpProgressWindow(DialogBase& dialog, mfcutil::CTransparentImage* picture, int templateId);

} // namespace TessaronResources

#endif
