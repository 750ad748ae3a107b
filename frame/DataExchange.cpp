#include <tessaron/frame/DataExchange.h>

#include "frame/Translation.h"
#include <tessaron/frame/DialogBase.h>

#include <wx/checkbox.h>
#include <wx/ctrlsub.h>
#include <wx/radiobut.h>
#include <wx/textentry.h>

#include <charconv>
#include <cmath>
#include <string>

namespace TessaronResources
{

namespace
{

// Boxes and buttons that are on or off.
bool isChecked(wxWindow* field)
{
    if (const auto* const box = dynamic_cast<wxCheckBox*>(field))
        return box->GetValue();
    const auto* const button = dynamic_cast<wxRadioButton*>(field);
    return button && button->GetValue();
}

void setChecked(wxWindow* field, bool checked)
{
    if (auto* const box = dynamic_cast<wxCheckBox*>(field))
        box->SetValue(checked);
    else if (auto* const button = dynamic_cast<wxRadioButton*>(field))
        button->SetValue(checked);
}

template <class Number>
bool parse(const std::string& text, Number& value)
{
    const char* begin = text.data();
    const char* const end = begin + text.size();
    // from_chars takes a minus sign only, and there is one sign.
    if (text.starts_with('+') && !text.starts_with("+-"))
        ++begin;
    Number read{};
    const auto [stop, error] = std::from_chars(begin, end, read);
    if (error != std::errc() || stop != end)
        return false;
    value = read;
    return true;
}

// The shortest text that reads back as the same number, with a "." in every locale.
std::string format(int value)
{
    return std::to_string(value);
}

std::string format(double value)
{
    char text[64];
    char* const end = text + sizeof text;
    // Exponents only where the digits would be hard to count.
    const double size = std::abs(value);
    const bool fixed = size == 0.0 || (size >= 1e-6 && size < 1e15);
    return std::string(
        text,
        (fixed ? std::to_chars(text, end, value, std::chars_format::fixed) : std::to_chars(text, end, value)).ptr);
}

} // namespace

CDataExchange::CDataExchange(DialogBase& dialog, bool saveAndValidate)
    : m_bSaveAndValidate(saveAndValidate), m_dialog(dialog)
{
}

wxWindow* CDataExchange::find(int id) const
{
    return m_dialog.control(id);
}

void CDataExchange::check(int id, bool& value)
{
    wxWindow* const field = ok() ? find(id) : nullptr;
    if (!field)
        return;
    if (m_bSaveAndValidate)
        value = isChecked(field);
    else
        setChecked(field, value);
}

void CDataExchange::check(int id, int& value)
{
    bool checked = value != 0;
    if (ok() && find(id))
    {
        check(id, checked);
        if (m_bSaveAndValidate)
            value = checked ? 1 : 0;
    }
}

void CDataExchange::index(int id, int& value)
{
    auto* const field = ok() ? dynamic_cast<wxControlWithItems*>(find(id)) : nullptr;
    if (!field)
        return;
    if (m_bSaveAndValidate)
        value = field->GetSelection();
    else if (value >= -1 && value < static_cast<int>(field->GetCount()))
        field->SetSelection(value);
}

void CDataExchange::text(int id, wxString& value)
{
    auto* const field = ok() ? dynamic_cast<wxTextEntryBase*>(find(id)) : nullptr;
    if (!field)
        return;
    if (m_bSaveAndValidate)
        value = field->GetValue();
    else
        field->ChangeValue(value);
}

void CDataExchange::number(int id, int& value)
{
    exchangeNumber(id, value, translatable("Please enter a whole number."));
}

void CDataExchange::number(int id, double& value)
{
    exchangeNumber(id, value, translatable("Please enter a number."));
}

template <class Number>
void CDataExchange::exchangeNumber(int id, Number& value, const char* request)
{
    wxString shown = format(value);
    text(id, shown);
    if (!ok() || !m_bSaveAndValidate || !find(id))
        return;
    shown.Trim(true).Trim(false);
    if (!parse(shown.utf8_string(), value))
        fail(id, translatedLabel(request));
}

void CDataExchange::fail(int id, const wxString& message)
{
    if (ok())
        m_failure = ReadFailure{id, message};
}

} // namespace TessaronResources
