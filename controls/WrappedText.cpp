#include "controls/WrappedText.h"

#include <wx/control.h>
#include <wx/dcclient.h>
#include <wx/textwrapper.h>
#include <wx/window.h>

namespace mfcutil
{

namespace
{

class LineCollector : public wxTextWrapper
{
public:
    explicit LineCollector(int mostLines) : m_mostLines(mostLines) {}

    wxString text;
    wxString lastLine; // and what there is behind it

protected:
    void OnOutputLine(const wxString& line) override
    {
        if (hasRoom())
            text += line;
        if (m_mostLines == 0 || m_lines + 1 < m_mostLines)
            return;
        lastLine += (lastLine.empty() ? "" : " ") + line;
    }
    void OnNewLine() override
    {
        ++m_lines;
        if (m_mostLines == 0 || m_lines < m_mostLines)
            text += '\n';
    }

private:
    bool hasRoom() const { return m_mostLines == 0 || m_lines + 1 < m_mostLines; }

    int m_mostLines;
    int m_lines = 0;
};

} // namespace

wxString wrappedText(wxWindow& window, const wxString& text, int width, int mostLines)
{
    LineCollector lines(mostLines);
    lines.Wrap(&window, text, width);
    if (mostLines == 0)
        return lines.text;
    const wxClientDC dc(&window);
    return lines.text + wxControl::Ellipsize(lines.lastLine, dc, wxELLIPSIZE_END, width, wxELLIPSIZE_FLAGS_NONE);
}

} // namespace mfcutil
