// The manager's window over a long list: what each step of a user costs until it is painted. CPU time; run it under a
// display of its own.

#include "bench/templates/SampleTemplates.h"
#include "engine/templates/TemplateFile.h"
#include "frame/MessagePump.h"
#include "frame/Toolkit.h"
#include "templates/TemplateManagerFormView.h"
#include "templates/TemplateManagerFrameWnd.h"
#include "tests/support/TemporaryFolder.h"

#include <wx/app.h>
#include <wx/grid.h>

#include <benchmark/benchmark.h>

#include <functional>
#include <iostream>
#include <map>
#include <memory>

namespace
{

using namespace TessaronResources;

constexpr int gridId = 1127;
// One template in so many has comments of several lines, which make its row higher.
constexpr int tallRowStep = 8;

/// The window over a folder of so many templates.
class Window
{
public:
    explicit Window(int count) : m_scope(staticModuleState())
    {
        const std::string folder = m_folder / "tessaron";
        std::filesystem::create_directories(folder);
        std::mt19937 random(5);
        for (int i = 0; i < count; ++i)
        {
            util::Parameterized set = sampleTemplate(i, random);
            if (i % tallRowStep == 0)
                set.set(util::keys::templateComments, std::string("first line\nsecond line\nthird line"));
            std::string bytes;
            util::store::writeSet(set, bytes);
            writeBytes(folder + "/TESSARON" + std::to_string(i) + ".vtmpl", bytes);
        }
        m_inputs.path = m_folder.path();
        m_inputs.current = &m_current;
        m_inputs.theme = 21;
        m_frame = new TemplateManagerFrameWnd(nullptr, m_inputs);
        m_frame->initialUpdate();
        settle();
    }
    ~Window() { m_frame->Destroy(); }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    wxGrid& grid() { return *dynamic_cast<wxGrid*>(m_frame->FindWindow(gridId)); }

    void press(int key, bool control = false)
    {
        for (const wxEventType type : {wxEVT_KEY_DOWN, wxEVT_CHAR})
        {
            wxKeyEvent event(type);
            event.m_keyCode = key;
            // A key that moves types no character.
            event.m_uniChar = key < WXK_START ? key : WXK_NONE;
            event.m_controlDown = control;
            grid().GetEventHandler()->ProcessEvent(event);
        }
    }

    void clickHeading(int col)
    {
        wxGridEvent event(grid().GetId(), wxEVT_GRID_COL_SORT, &grid(), -1, col);
        grid().GetEventHandler()->ProcessEvent(event);
    }

    /// Until everything that was asked for is on the screen.
    void settle()
    {
        m_pump.pump();
        MessagePump::processToolkitIdle();
        m_pump.pump();
        grid().GetGridWindow()->Update();
        grid().GetGridRowLabelWindow()->Update();
        grid().GetGridColLabelWindow()->Update();
    }

private:
    const EntryScope m_scope;
    MessagePump m_pump;
    TemporaryFolder m_folder;
    util::Parameterized m_current;
    TemplateManagerInputs m_inputs;
    TemplateManagerFrameWnd* m_frame = nullptr;
};

const struct
{
    const char* name;
    std::function<void(Window&)> prepare;
    std::function<void(Window&, int)> step;
} steps[] = {
    {"pageDown", [](Window& window) { window.grid().GoToCell(0, 0); },
     [](Window& window, int) { window.press(WXK_PAGEDOWN); }},
    {"arrowDown", [](Window& window) { window.grid().GoToCell(0, 0); },
     [](Window& window, int) { window.press(WXK_DOWN); }},
    {"jumpToEndOrTop", [](Window&) {},
     [](Window& window, int time) { window.press(time % 2 == 0 ? WXK_END : WXK_HOME, true); }},
    {"selectAll", [](Window& window) { window.grid().ClearSelection(); },
     [](Window& window, int time)
     {
         if (time % 2 == 0)
             window.press('A', true);
         else
             window.grid().ClearSelection();
     }},
    {"sortByNumber", [](Window& window) { window.grid().ClearSelection(); },
     [](Window& window, int) { window.clickHeading(4); }},
    {"sortByText", [](Window& window) { window.grid().ClearSelection(); },
     [](Window& window, int) { window.clickHeading(0); }},
    {"sortWithAllSelected", [](Window& window) { window.grid().SelectAll(); },
     [](Window& window, int) { window.clickHeading(4); }},
    // Half of the rows, which come apart into some 25,000 blocks and together again.
    {"sortWithHalfSelected",
     [](Window& window)
     {
         window.clickHeading(0);
         window.settle();
         window.grid().SelectBlock(0, 0, window.grid().GetNumberRows() / 2, window.grid().GetNumberCols() - 1);
     },
     [](Window& window, int time) { window.clickHeading(time % 2 == 0 ? 4 : 0); }},
    {"typeAheadOfNoName",
     [](Window& window)
     {
         window.grid().ClearSelection();
         window.grid().GoToCell(0, 0);
     },
     [](Window& window, int) { window.press('q'); }},
};

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (!startToolkit())
    {
        std::cerr << "no display: run with tools/with-display\n";
        return 1;
    }
    // Made once in the run, and gone before the toolkit is.
    std::map<std::int64_t, std::unique_ptr<Window>> windows;
    for (const auto& entry : steps)
        benchmark::RegisterBenchmark(entry.name,
                                     [&](benchmark::State& state)
                                     {
                                         std::unique_ptr<Window>& made = windows[state.range(0)];
                                         if (!made)
                                             made = std::make_unique<Window>(static_cast<int>(state.range(0)));
                                         Window& window = *made;
                                         entry.prepare(window);
                                         window.settle();
                                         int time = 0;
                                         for ([[maybe_unused]] auto turn : state)
                                         {
                                             entry.step(window, time++);
                                             window.settle();
                                         }
                                     })
            ->Arg(100)
            ->Arg(100000)
            ->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
