#include "tests/support/WindowDriver.h"

#include "tests/support/ToolkitHost.h"
#include <tessaron/frame/PlainEntryPoints.h>

#include <wx/app.h>
#include <wx/filename.h>
#include <wx/init.h>
#include <wx/stattext.h>
#include <wx/textentry.h>
#include <wx/toplevel.h>

#include <gtest/gtest.h>

#include <gtk/gtk.h>

#include <cctype>
#include <cstdlib>
#include <map>

namespace testing_support
{

namespace
{

constexpr int tickMilliseconds = 10;

// A host that runs the toolkit: the tests open the module's windows as such a host does.
class RunningToolkit : public testing::Environment
{
public:
    void SetUp() override
    {
        ASSERT_TRUE(startToolkit(new wxApp)) << "Window tests need a display: run them with tools/with-display";
        wxTheApp->SetExitOnFrameDelete(false);
    }

    void TearDown() override { wxEntryCleanup(); }
};

// Straight from the window's own surface: the toolkit's screen context shows what it has seen first.
GdkPixbuf* takePicture(wxWindow* window, const wxRect& part)
{
    GdkWindow* const surface = gtk_widget_get_window(static_cast<GtkWidget*>(window->GetHandle()));
    return gdk_pixbuf_get_from_window(surface, part.x, part.y, part.width, part.height);
}

const testing::Environment* const host = testing::AddGlobalTestEnvironment(new RunningToolkit);

} // namespace

WindowDriver::WindowDriver(std::chrono::milliseconds deadline)
    : m_deadline(deadline), m_stepStart(std::chrono::steady_clock::now())
{
    Start(tickMilliseconds);
}

WindowDriver::~WindowDriver()
{
    Stop();
    if (!m_steps.empty())
        ADD_FAILURE() << "The windows were gone before the step \"" << m_steps.front().name << "\"";
}

WindowDriver& WindowDriver::when(std::string name, std::function<bool()> condition, std::function<void()> action)
{
    m_steps.push_back({std::move(name), std::move(condition), std::move(action)});
    return *this;
}

WindowDriver& WindowDriver::then(std::string name, std::function<void()> action)
{
    return when(
        std::move(name), [] { return true; }, std::move(action));
}

void WindowDriver::Notify()
{
    if (*m_actionWaits)
        return;
    const bool late = std::chrono::steady_clock::now() - m_stepStart > m_deadline;
    if (m_steps.empty())
    {
        if (late)
        {
            ADD_FAILURE() << "The windows did not end after the last step";
            m_stepStart = std::chrono::steady_clock::now();
            tessaronResourcesQuit();
        }
    }
    else if (m_steps.front().condition())
    {
        const std::function<void()> action = std::move(m_steps.front().action);
        m_steps.pop_front();
        m_stepStart = std::chrono::steady_clock::now();
        // Not from here: an action may open a window and return only when that is gone, and the timer must go on
        // meanwhile.
        *m_actionWaits = true;
        wxTheApp->CallAfter(
            [action, waits = m_actionWaits]
            {
                *waits = false;
                action();
            });
    }
    else if (late)
    {
        ADD_FAILURE() << "The step \"" << m_steps.front().name << "\" did not come in time";
        m_steps.clear();
        tessaronResourcesQuit();
    }
}

wxTopLevelWindow* topWindow()
{
    for (auto node = wxTopLevelWindows.GetLast(); node; node = node->GetPrevious())
        if (auto* const window = dynamic_cast<wxTopLevelWindow*>(node->GetData()); window && window->IsShown())
            return window;
    return nullptr;
}

wxTopLevelWindow* windowTitled(const wxString& title)
{
    for (auto node = wxTopLevelWindows.GetLast(); node; node = node->GetPrevious())
        if (auto* const window = dynamic_cast<wxTopLevelWindow*>(node->GetData());
            window && window->IsShown() && window->GetTitle() == title)
            return window;
    return nullptr;
}

wxWindow* child(wxWindow* window, int id)
{
    wxWindow* const found = window ? window->FindWindow(id) : nullptr;
    EXPECT_NE(found, nullptr) << "No control " << id;
    return found;
}

Person& person()
{
    static Person one;
    return one;
}

void click(wxWindow* window)
{
    ASSERT_NE(window, nullptr);
    person().click(Person::middleOf(window));
}

void clickCloseBox(wxWindow* window)
{
    ASSERT_NE(window, nullptr);
    const wxPoint box = Person::closeBoxOf(window);
    ASSERT_NE(box, wxDefaultPosition) << "the window has no frame";
    person().click(box);
}

void type(const char* text)
{
    person().text(text);
}

void pressKey(int key, int modifiers)
{
    static const std::map<int, const char*> names = {
        {WXK_TAB, "Tab"},       {WXK_RETURN, "Return"},  {WXK_ESCAPE, "Escape"}, {WXK_SPACE, "space"},
        {WXK_DELETE, "Delete"}, {WXK_BACK, "BackSpace"}, {WXK_UP, "Up"},         {WXK_DOWN, "Down"},
        {WXK_LEFT, "Left"},     {WXK_RIGHT, "Right"},    {WXK_HOME, "Home"},     {WXK_END, "End"},
        {WXK_PAGEUP, "Prior"},  {WXK_PAGEDOWN, "Next"},  {WXK_F2, "F2"},         {WXK_F3, "F3"},
        {WXK_F4, "F4"},         {WXK_F6, "F6"},          {WXK_F10, "F10"},       {WXK_WINDOWS_MENU, "Menu"},
    };
    const auto named = names.find(key);
    const std::string letter(1, static_cast<char>(std::tolower(key)));
    const unsigned held = (modifiers & wxMOD_SHIFT ? Person::shift : 0u) |
                          (modifiers & wxMOD_CONTROL ? Person::control : 0u) |
                          (modifiers & wxMOD_ALT ? Person::alt : 0u);
    person().key(named == names.end() ? letter.c_str() : named->second, held);
}

void waitFor(const std::string& name, const std::function<bool()>& condition)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!condition() && std::chrono::steady_clock::now() < deadline)
        wxYield();
    EXPECT_TRUE(condition()) << name << ": did not come in time";
}

void markAllFiles(wxWindow* fileDialog)
{
    gtk_file_chooser_select_all(static_cast<GtkFileChooser*>(static_cast<void*>(fileDialog->GetHandle())));
}

bool staysAbove(wxWindow* window, wxWindow* owner)
{
    auto* const above = static_cast<GtkWindow*>(static_cast<void*>(window->GetHandle()));
    return static_cast<void*>(gtk_window_get_transient_for(above)) == static_cast<void*>(owner->GetHandle());
}

bool showsWholeText(wxWindow* text)
{
    auto* const label = static_cast<GtkWidget*>(text->GetHandle());
    if (!GTK_IS_LABEL(label))
        return false;
    PangoLayout* const layout = gtk_label_get_layout(GTK_LABEL(label));
    wxSize drawn;
    pango_layout_get_pixel_size(layout, &drawn.x, &drawn.y);
    return !pango_layout_is_ellipsized(layout) && drawn.x <= text->GetSize().x && drawn.y <= text->GetSize().y + 1;
}

std::string accessibleName(wxWindow* control)
{
    AtkObject* const accessible = gtk_widget_get_accessible(static_cast<GtkWidget*>(control->GetHandle()));
    const char* const name = atk_object_get_name(accessible);
    return name ? name : "";
}

void expectWellLaidOut(wxWindow* window)
{
    const wxRect client(window->GetClientSize());
    for (wxWindow* const control : window->GetChildren())
    {
        const wxString what = wxString::Format("%s %d \"%s\"", control->GetClassInfo()->GetClassName(),
                                               control->GetId(), control->GetLabel());
        if (!control->IsShown() || !client.Intersects(control->GetRect()))
            continue;
        EXPECT_TRUE(client.Contains(control->GetRect())) << what << " sticks out of its window";
        const wxSize text = control->GetTextExtent(wxStripMenuCodes(control->GetLabel()));
        if (dynamic_cast<wxStaticText*>(control))
            EXPECT_TRUE(control->GetLabel().empty() || showsWholeText(control)) << what << " is clipped";
        else if (!dynamic_cast<wxTextEntryBase*>(control))
        {
            EXPECT_LE(text.x, control->GetSize().x) << what << " is clipped";
            EXPECT_LE(text.y, control->GetSize().y + 1) << what << " is clipped";
        }
        EXPECT_FALSE(accessibleName(control).empty() && control->GetLabel().empty() && control->IsFocusable())
            << what << " says nothing to a screen reader";
    }
}

wxImage pictureOf(wxWindow* window, const wxRect& part)
{
    GdkPixbuf* const picture = window ? takePicture(window, part) : nullptr;
    if (!picture)
        return wxImage();
    wxImage image(gdk_pixbuf_get_width(picture), gdk_pixbuf_get_height(picture));
    const std::ptrdiff_t rowLength = gdk_pixbuf_get_rowstride(picture);
    const std::ptrdiff_t channels = gdk_pixbuf_get_n_channels(picture);
    for (int y = 0; y < image.GetHeight(); ++y)
    {
        const guchar* pixel = gdk_pixbuf_read_pixels(picture) + y * rowLength;
        for (int x = 0; x < image.GetWidth(); ++x, pixel += channels)
            image.SetRGB(x, y, pixel[0], pixel[1], pixel[2]);
    }
    g_object_unref(picture);
    return image;
}

void chooseFont(wxWindow* fontDialog, const char* font)
{
    auto* const dialog = static_cast<GtkWidget*>(fontDialog->GetHandle());
    gtk_font_chooser_set_font(GTK_FONT_CHOOSER(dialog), font);
    GtkWidget* const accept = gtk_dialog_get_widget_for_response(GTK_DIALOG(dialog), GTK_RESPONSE_OK);
    ASSERT_NE(accept, nullptr);
    wxPoint origin;
    gdk_window_get_origin(gtk_widget_get_window(dialog), &origin.x, &origin.y);
    wxPoint middle;
    gtk_widget_translate_coordinates(accept, dialog, gtk_widget_get_allocated_width(accept) / 2,
                                     gtk_widget_get_allocated_height(accept) / 2, &middle.x, &middle.y);
    person().click(origin + middle);
}

void savePicture(wxWindow* window, const std::string& name)
{
    const char* const folder = std::getenv("TESSARON_PICTURES");
    if (!folder || !window)
        return;
    window->Update();
    GdkPixbuf* const picture = takePicture(window, window->GetClientSize());
    ASSERT_NE(picture, nullptr);
    wxFileName::Mkdir(folder, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
    const std::string path = std::string(folder) + "/" + name + ".png";
    EXPECT_TRUE(gdk_pixbuf_save(picture, path.c_str(), "png", nullptr, nullptr)) << path;
    g_object_unref(picture);
}

} // namespace testing_support
