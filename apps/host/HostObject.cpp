// The object "Host" of scripts.
#include "apps/host/HostObject.h"

#include "apps/host/Console.h"
#include "apps/host/DialogObject.h"
#include "apps/host/FileObject.h"
#include "apps/host/Picture.h"
#include "apps/host/ScriptedControl.h"

namespace veygrid {

namespace {

Variant ArrayOf(const std::vector<std::wstring>& lines) {
    std::vector<Variant> values;
    values.reserve(lines.size());
    for (const std::wstring& line : lines) {
        values.push_back(Variant::Of(line));
    }
    return Variant::Of(values);
}

}  // namespace

HostObject::HostObject(HostWindow& window, ScriptFiber& fiber, MessageBoxWatch& boxes)
    : m_window(window), m_fiber(fiber), m_boxes(boxes) {
    AddProgramMembers();
    AddInputMembers();
    AddPictureMembers();
    AddWindowMembers();
    AddStoryMembers();
}

HostObject::~HostObject() {
    m_boxes.onBox = nullptr;
}

void HostObject::AddProgramMembers() {
    AddAction(L"Log", 1, 1, [](const ScriptArguments& given) { WriteLine(given.Text(0)); });
    AddAction(L"Quit", 0, 1, [this](const ScriptArguments& given) {
        m_quitCode = static_cast<int>(given.Number(0));
        m_fiber.Stop();
        // Reached from event handlers only: the error unwinds the handler.
        throw ScriptFault{L"Quit"};
    });
    AddAction(L"Pump", 0, 1, [this](const ScriptArguments& given) {
        const long milliseconds = given.Number(0);
        m_fiber.Pump(milliseconds < 0 ? 0 : static_cast<DWORD>(milliseconds));
    });
    Add(L"File", 1, 1, [](const ScriptArguments& given) {
        return Variant::Of(MakeCom<FileObject>(given.Text(0)).Get());
    });
}

void HostObject::AddInputMembers() {
    AddAction(L"Key", 1, 2, [this](const ScriptArguments& given) {
        BringForward();
        m_input.Key(given.Number(0), given.Number(1));
        m_fiber.Pump(0);
    });
    AddAction(L"TypeText", 1, 1, [this](const ScriptArguments& given) {
        BringForward();
        m_input.Type(given.Text(0));
        m_fiber.Pump(0);
    });
    AddAction(L"Click", 2, 3, [this](const ScriptArguments& given) { Click(given, 1); });
    AddAction(L"DoubleClick", 2, 3, [this](const ScriptArguments& given) { Click(given, 2); });
    AddAction(L"RightClick", 2, 2, [this](const ScriptArguments& given) {
        MoveTo(given);
        m_input.Button(MOUSEEVENTF_RIGHTDOWN);
        Act(MOUSEEVENTF_RIGHTUP);
    });
    AddAction(L"Press", 2, 3, [this](const ScriptArguments& given) {
        WaitOutDoubleClick();
        MoveTo(given);
        m_input.Hold(given.Number(2));
        Act(MOUSEEVENTF_LEFTDOWN);
    });
    AddAction(L"Move", 2, 2, [this](const ScriptArguments& given) { MoveTo(given); });
    AddAction(L"Release", 2, 3, [this](const ScriptArguments& given) {
        MoveTo(given);
        m_input.Hold(given.Number(2));
        m_input.Button(MOUSEEVENTF_LEFTUP);
        m_input.Hold(0);
        m_lastClick = GetTickCount64();
        m_fiber.Pump(0);
    });
}

void HostObject::AddPictureMembers() {
    AddAction(L"Shot", 1, 1, [this](const ScriptArguments& given) {
        WritePng(TakePicture(ControlWindow()), given.Text(0));
    });
    Add(L"Pixel", 2, 2, [this](const ScriptArguments& given) {
        return Variant::Of(
            PixelColor(TakePicture(ControlWindow()), given.Number(0), given.Number(1)));
    });
}

void HostObject::AddWindowMembers() {
    Add(L"Messages", 0, 0,
        [this](const ScriptArguments&) { return ArrayOf(m_window.Messages().Take()); });
    Add(L"Boxes", 0, 0, [this](const ScriptArguments&) { return ArrayOf(m_boxes.Take()); });
    AddAction(L"Answer", 1, 1, [this](const ScriptArguments& given) {
        if (!m_boxes.QueueAnswer(given.Text(0))) {
            throw ScriptFault{L"no such button: " + given.Text(0)};
        }
    });
    Add(L"Dialog", 1, 1, [this](const ScriptArguments& given) {
        const HWND dialog = FindDialog(given.Text(0), m_window.Window());
        return dialog == nullptr ? Variant::Of(static_cast<IDispatch*>(nullptr))
                                 : Variant::Of(MakeCom<DialogObject>(dialog, m_fiber).Get());
    });
    Add(L"NewControl", 0, 0, [this](const ScriptArguments&) {
        const ComPtr<IDispatch> control = m_window.AddControl().Grid().Object();
        return Variant::Of(MakeCom<ScriptedControl>(control, m_fiber).Get());
    });
}

void HostObject::AddStoryMembers() {
    AddAction(L"Watch", 0, 1, [this](const ScriptArguments& given) {
        m_window.TheStory().Begin(ControlWindow(), given.Has(0) ? given.Text(0) : L"");
    });
    Add(L"Story", 0, 0,
        [this](const ScriptArguments&) { return ArrayOf(m_window.TheStory().Take()); });
    m_boxes.onBox = [this](const std::wstring& text) { m_window.TheStory().Add(L"box " + text); };
}

HWND HostObject::ControlWindow() const {
    const HWND window = m_window.HasControl() ? m_window.Control().Window() : nullptr;
    if (window == nullptr) {
        throw ScriptFault{L"the control has no window"};
    }
    return window;
}

// Input goes to the window in front; where no one manages windows, none comes there by itself.
void HostObject::BringForward() const {
    const DWORD front = GetWindowThreadProcessId(GetForegroundWindow(), nullptr);
    if (front != GetCurrentThreadId()) {
        SetForegroundWindow(GetLastActivePopup(m_window.Window()));
    }
}

void HostObject::MoveTo(const ScriptArguments& given) {
    POINT point{given.Number(0), given.Number(1)};
    ClientToScreen(ControlWindow(), &point);
    BringForward();
    m_input.MoveTo(point);
    m_fiber.Pump(0);
}

void HostObject::Act(DWORD action) {
    m_input.Button(action);
    m_fiber.Pump(0);
}

void HostObject::Click(const ScriptArguments& given, int times) {
    WaitOutDoubleClick();
    MoveTo(given);
    m_input.Hold(given.Number(2));
    for (int time = 0; time < times; ++time) {
        m_input.Button(MOUSEEVENTF_LEFTDOWN);
        m_input.Button(MOUSEEVENTF_LEFTUP);
    }
    m_input.Hold(0);
    m_lastClick = GetTickCount64();
    m_fiber.Pump(0);
}

// Two clicks of a script are never meant as a double click, however fast they come.
void HostObject::WaitOutDoubleClick() {
    const ULONGLONG until = m_lastClick + GetDoubleClickTime() + 1;
    const ULONGLONG now = GetTickCount64();
    if (m_lastClick != 0 && now < until) {
        m_fiber.Pump(static_cast<DWORD>(until - now));
    }
}

}  // namespace veygrid
