#include "progress/ProgressControls.h"

#include "controls/TransparentImage.h"
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
        const wxWindow* const window = m_line->GetParent();
        const bool cutOff = window && m_line->GetRect().GetRight() >= window->GetClientSize().x;
        if (cutOff)
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
    if (picture)
    {
        picture->setPicture(currentResources().bitmap(isTurning(templateId) ? turningPicture : millingPicture));
        native::setAccessibleName(*picture,
                                  isTurning(templateId) ? translatedLabel("Turning") : translatedLabel("Milling"));
    }
    if (wxWindow* const bar = dialog.control(progressIds::bar))
        native::setAccessibleName(*bar, translatedLabel("Progress"));
}

} // namespace TessaronResources
