#include "progress/ProgressControls.h"

#include "controls/TransparentImage.h"
#include "frame/ControlId.h"
#include "frame/CurrentModule.h"
#include "frame/Translation.h"
#include "frame/native/NativeToolkit.h"
#include <tessaron/frame/DialogBase.h>
#include <tessaron/frame/ResourceSet.h>

#include <wx/gauge.h>
#include <wx/stattext.h>

#include <algorithm>

namespace TessaronResources
{

namespace
{

constexpr int iconId = 1001;
constexpr int millingPicture = 1016;
constexpr int turningPicture = 1039;

bool isTurning(int templateId)
{
    return templateId == progressTemplates::turning || templateId == progressTemplates::multiTurning;
}

// The window cuts the workers' lines off; the stage of the whole job has a place of its own.
bool isCutOff(const wxWindow& line)
{
    if (!line.HasFlag(wxST_NO_AUTORESIZE))
        return line.GetParent() && line.GetRect().GetRight() >= line.GetParent()->GetClientSize().x;
    const int lines = std::max(1, line.GetSize().y / line.GetCharHeight());
    return line.GetTextExtent(line.GetLabel()).x > lines * line.GetSize().x;
}

// The stage has the room up to the picture or the edge of the window; beside the picture it may need two lines, which
// stand above the button.
void placeStage(wxWindow& stage, const wxWindow* picture, const wxWindow* button)
{
    constexpr int linesBesidePicture = 2;
    const int gap = stage.FromDIP(2);
    wxRect place = stage.GetRect();
    place.height = linesBesidePicture * stage.GetCharHeight();
    const bool besidePicture = picture && picture->GetRect().x > place.x && picture->GetRect().y <= place.GetBottom() &&
                               picture->GetRect().GetBottom() >= place.y;
    if (besidePicture)
    {
        place.width = picture->GetRect().x - gap - place.x;
        if (button)
            place.y = std::min(place.y, button->GetRect().y - gap - place.height);
    }
    else
    {
        place.width = stage.GetParent()->GetClientSize().x - 2 * place.x;
        place.height = stage.GetCharHeight();
    }
    stage.SetWindowStyleFlag(stage.GetWindowStyleFlag() | wxST_NO_AUTORESIZE);
    native::wrapText(stage, besidePicture ? linesBesidePicture : 1);
    stage.SetSize(place);
}

} // namespace

void ProgressControls::showPercent(int percent)
{
    auto* const bar = dynamic_cast<wxGauge*>(m_bar);
    const int position = std::clamp(percent, 0, 100);
    if (bar && bar->GetValue() != position)
        bar->SetValue(position);
}

void ProgressControls::showStage(const std::string& text)
{
    const wxString shown = wxString::FromUTF8(text);
    if (m_line && m_line->GetLabel() != shown)
    {
        m_line->SetLabel(shown);
        if (isCutOff(*m_line))
            m_line->SetToolTip(shown);
        else if (m_line->GetToolTip())
            m_line->UnsetToolTip();
    }
}

std::string currentString(int id)
{
    return currentResources().string(id).utf8_string();
}

void setUpProgressWindow(DialogBase& dialog, mfcutil::CTransparentImage* picture, int templateId)
{
    dialog.SetIcons(currentResources().icon(iconId));
    native::keepReachable(dialog);
    if (picture)
    {
        picture->setPicture(currentResources().bitmap(isTurning(templateId) ? turningPicture : millingPicture));
        native::setAccessibleName(*picture,
                                  isTurning(templateId) ? translatedLabel("Turning") : translatedLabel("Milling"));
    }
    if (wxWindow* const stage = dialog.control(progressIds::stage))
        placeStage(*stage, picture, dialog.control(idCancel));
    if (wxWindow* const bar = dialog.control(progressIds::bar))
        native::setAccessibleName(*bar, translatedLabel("Progress"));
}

} // namespace TessaronResources
