// The host's window: controls side by side, a menu above them and a status line below.
#include "apps/host/HostWindow.h"

#include <algorithm>
#include <utility>

#include "apps/host/MainMenu.h"
#include "apps/host/RegisteredMessages.h"
#include "apps/host/Text.h"

namespace veygrid {

namespace {

constexpr const wchar_t* ClassName = L"VeyHostWindow";
// Posted to the own window, so that the control is never asked from within its own events.
constexpr UINT MessageRefreshStatus = WM_APP + 1;
// What the control asks its parent for.
constexpr WPARAM AskForDataAccess = 2;
constexpr DWORD WindowStyle = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;

std::wstring EventText(const std::wstring& event, const DISPPARAMS& parameters) {
    std::wstring text = event;
    for (UINT left = parameters.cArgs; left > 0; --left) {
        text += left == parameters.cArgs ? L"(" : L", ";
        text += Variant(parameters.rgvarg[left - 1]).Text();
    }
    return parameters.cArgs == 0 ? text : text + L")";
}

StatusLine::Content ContentOf(const Automation& grid) {
    long row = 0;
    long column = 0;
    grid.Call(L"GetActiveCell", {Variant::ByReference(row), Variant::ByReference(column)});
    const std::vector<Variant> cell{Variant::Of(row), Variant::Of(column)};
    StatusLine::Content content;
    content.cell = L"第 " + std::to_wstring(row) + L" 行 第 " + std::to_wstring(column) + L" 列";
    content.shown = grid.Call(L"GetCellFormatText", cell).Text();
    content.stored = grid.Get(L"CellText", cell).Text();
    content.isModified = grid.Get(L"Modified").Truth();
    return content;
}

}  // namespace

HostWindow::HostWindow(const ControlModule& module, LCID locale)
    : m_module(module), m_locale(locale), m_data([this](const std::wstring& text) {
          // A script reads it from the session.
          if (!m_isScripted) {
              TellNotice(m_window, text);
          }
      }) {}

HostWindow::~HostWindow() {
    Destroy();
}

void HostWindow::Create(SIZE controlSize) {
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = &Procedure;
    windowClass.hInstance = instance;
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_APPWORKSPACE + 1);
    windowClass.lpszClassName = ClassName;
    RegisterClassW(&windowClass);
    m_window = CreateWindowExW(0, ClassName, L"VeyHost", WindowStyle, CW_USEDEFAULT, CW_USEDEFAULT,
                               200, 200, nullptr, MakeMainMenu(), instance, this);
    if (m_window == nullptr) {
        throw ComFault{HRESULT_FROM_WIN32(GetLastError()), L"CreateWindow"};
    }
    m_keys = MakeMenuKeys();
    m_status.Create(m_window);
    m_file = std::make_unique<GridFile>(m_window);
    m_dataMenu = std::make_unique<DataMenu>(m_window, m_data);
    m_frame = MakeCom<HostFrame>(m_window);
    RECT place{0, 0, controlSize.cx, controlSize.cy + m_status.Height()};
    AdjustWindowRect(&place, WindowStyle, TRUE);
    SetWindowPos(m_window, nullptr, 0, 0, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER);
    MakeControl();
    ShowTitle();
    RefreshStatus();
}

void HostWindow::Show() {
    ShowWindow(m_window, SW_SHOWNORMAL);
    SetForegroundWindow(m_window);
    Control().TakeFocus();
    UpdateWindow(m_window);
}

void HostWindow::Destroy() {
    if (m_window != nullptr) {
        DestroyWindow(m_window);
    }
}

bool HostWindow::Connect(const std::wstring& connection) {
    const bool isDone =
        (m_dataMenu == nullptr || m_dataMenu->MayLeave()) && m_data.Connect(connection);
    PostRefresh();
    return isDone;
}

bool HostWindow::RunQuery(const std::wstring& statement) {
    const bool isDone = m_dataMenu->MayLeave() &&
                        m_data.RunQuery(statement.empty() ? m_data.Statement() : statement);
    PostRefresh();
    return isDone;
}

bool HostWindow::OpenFile(const std::wstring& path) {
    m_data.LeaveQuery();
    const bool isOpen = m_file->Open(Control().Grid(), path);
    if (isOpen && m_data.IsConnected()) {
        RunOwnQuery();
    }
    ShowTitle();
    RefreshStatus();
    return isOpen;
}

// A sheet may ask to be filled as soon as it is there.
void HostWindow::RunOwnQuery() {
    const bool isWanted = Control().Grid().Get(L"RunQueryAfterSerialize").Truth();
    if (isWanted && !m_data.Statement().empty() && !m_data.RunQuery(m_data.Statement())) {
        TellTrouble(m_window, m_data.Problem());
    }
}

void HostWindow::AskAndOpen() {
    std::wstring path;
    if (MayLeave() && m_file->AskForPath(false, path)) {
        OpenFile(path);
    }
}

HostedControl& HostWindow::AddControl() {
    HostedControl& made = MakeControl();
    Layout();
    return made;
}

HostedControl& HostWindow::MakeControl() {
    const std::size_t number = m_controls.size() + 1;
    const std::wstring name = number == 1 ? L"Grid" : L"Grid" + std::to_wstring(number);
    m_controls.push_back(std::make_unique<HostedControl>(
        m_module, HostedControl::Setting{m_window, m_frame, m_locale, Places(number).back()},
        [this, name](const std::wstring& event, DISPPARAMS& parameters) {
            OnEvent(name, event, parameters);
        }));
    if (number == 1) {
        m_data.Attach(Control().Grid());
    }
    return *m_controls.back();
}

void HostWindow::CloseControls() {
    m_data.Detach();
    if (m_frame != nullptr) {
        m_frame->ForgetActiveObject();
    }
    // Out of the list first: a closing control may still send messages to this window.
    const auto closing = std::exchange(m_controls, {});
}

void HostWindow::StartAnew() {
    CloseControls();
    MakeControl();
    m_file->Forget();
    Control().TakeFocus();
}

bool HostWindow::PreTranslate(MSG& message) {
    const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
    const bool isMouse = message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST;
    if (isKey || isMouse) {
        m_data.Settle();
    }
    if (!isKey) {
        return false;
    }
    // A reference of our own: the call may take the object's activity away.
    const ComPtr<IOleInPlaceActiveObject> active =
        m_frame == nullptr ? nullptr : m_frame->ActiveObject();
    if (active != nullptr && active->TranslateAccelerator(&message) == S_OK) {
        return true;
    }
    const bool isOurs = message.hwnd == m_window || IsChild(m_window, message.hwnd);
    return isOurs && TranslateAcceleratorW(m_window, m_keys, &message) != 0;
}

int HostWindow::RunLoop() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (!PreTranslate(message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return static_cast<int>(message.wParam);
}

LRESULT CALLBACK HostWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        auto* made = static_cast<HostWindow*>(creation->lpCreateParams);
        made->m_window = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made));
    }
    auto* self = reinterpret_cast<HostWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr) {
        return DefWindowProcW(window, message, wParam, lParam);
    }
    try {
        return self->OnMessage(message, wParam, lParam);
    } catch (const ComFault& fault) {
        TellTrouble(window, fault.what + L"\n" + ErrorText(fault.result));
    } catch (const std::exception&) {
        TellTrouble(window, L"内存不足");
    }
    return 0;
}

LRESULT HostWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SIZE:
            Layout();
            return 0;
        case WM_SETFOCUS:
            PassFocusOn();
            return 0;
        case WM_ACTIVATE:
            if (m_frame != nullptr && m_frame->ActiveObject() != nullptr) {
                m_frame->ActiveObject()->OnFrameWindowActivate(LOWORD(wParam) != WA_INACTIVE);
            }
            break;
        case WM_INITMENUPOPUP:
            OnInitMenu(reinterpret_cast<HMENU>(wParam));
            break;
        case MessageRefreshStatus:
            RefreshStatus();
            return 0;
        case WM_DESTROY:
            CloseControls();
            m_window = nullptr;
            PostQuitMessage(0);
            return 0;
        case WM_COMMAND:
            if (LOWORD(wParam) >= CommandFirst && LOWORD(wParam) <= CommandLast) {
                OnCommand(LOWORD(wParam));
                return 0;
            }
            break;
        default:
            break;
    }
    return OnControlMessage(message, wParam, lParam);
}

// To the control that had it last, else to the first.
void HostWindow::PassFocusOn() {
    HWND window = nullptr;
    if (m_frame != nullptr && m_frame->ActiveObject() != nullptr &&
        SUCCEEDED(m_frame->ActiveObject()->GetWindow(&window))) {
        SetFocus(window);
    } else if (HasControl() && IsWindowVisible(m_window)) {
        Control().TakeFocus();
    }
}

LRESULT HostWindow::OnControlMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    m_messages.Add(message, wParam, lParam);
    m_story.AddMessage(L"host", message, wParam, lParam);
    if (message == WM_CLOSE) {
        OnClose();
        return 0;
    }
    if (message == Registered().SizeParentWindow) {
        OnSizeWanted(wParam, lParam);
        return 0;
    }
    if (message == Registered().ComboBoxAskForExternFill) {
        return AnswerFill(reinterpret_cast<const char*>(lParam));
    }
    if (message == Registered().AskFor) {
        return wParam == AskForDataAccess ? reinterpret_cast<LRESULT>(m_data.Access()) : 0;
    }
    return DefWindowProcW(m_window, message, wParam, lParam);
}

// Whether neither the records nor the sheet's own contents keep the user.
bool HostWindow::MayLeave() {
    return m_dataMenu->MayLeave() && m_file->MayLeave(Control().Grid());
}

void HostWindow::OnClose() {
    if (!m_isScripted && (!HasControl() || MayLeave())) {
        DestroyWindow(m_window);
    }
}

// A grid file tells the place that its window had when it was saved.
void HostWindow::OnSizeWanted(WPARAM corner, LPARAM size) {
    SetWindowPos(m_window, nullptr, static_cast<short>(LOWORD(corner)),
                 static_cast<short>(HIWORD(corner)), LOWORD(size), HIWORD(size),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

// A list asks by key: the sheet's parameter of that name holds its lines. The combo box frees the
// text.
LRESULT HostWindow::AnswerFill(const char* key) {
    if (key == nullptr || !HasControl()) {
        return 0;
    }
    const Automation& grid = Control().Grid();
    const Variant name = Variant::Of(WideFromNarrow(key));
    if (!grid.Call(L"ParamExist", {name}).Truth()) {
        return 0;
    }
    const std::wstring lines = grid.Get(L"Param", {name}).Text();
    return reinterpret_cast<LRESULT>(
        SysAllocStringLen(lines.data(), static_cast<UINT>(lines.size())));
}

void HostWindow::OnInitMenu(HMENU menu) {
    if (!HasControl()) {
        return;
    }
    const auto check = [menu, this](UINT command, const wchar_t* property) {
        const bool isOn = Control().Grid().Get(property).Truth();
        CheckMenuItem(menu, command, isOn ? MF_CHECKED : MF_UNCHECKED);
    };
    check(CommandFormView, L"GuiMode");
    check(CommandDesignMode, L"GuiDesignMode");
    m_dataMenu->Prepare(menu);
}

void HostWindow::OnCommand(UINT command) {
    if (HasControl()) {
        RunCommand(command);
        if (m_window != nullptr) {
            ShowTitle();
            RefreshStatus();
        }
    }
}

void HostWindow::RunCommand(UINT command) {
    const Automation grid = Control().Grid();
    switch (command) {
        case CommandNew:
            if (MayLeave()) {
                StartAnew();
            }
            break;
        case CommandOpen:
            AskAndOpen();
            break;
        case CommandSave:
            m_file->Save(grid);
            break;
        case CommandSaveAs:
            m_file->SaveAs(grid);
            break;
        case CommandPrint:
            grid.Call(L"Print", {Variant::Of(true)});
            break;
        case CommandPreview:
            grid.Call(L"Preview",
                      {Variant::Of(static_cast<long>(reinterpret_cast<LONG_PTR>(m_window)))});
            break;
        case CommandClose:
            PostMessageW(m_window, WM_CLOSE, 0, 0);
            break;
        case CommandFormView:
            Toggle(L"GuiMode");
            break;
        case CommandDesignMode:
            Toggle(L"GuiDesignMode");
            break;
        case CommandProperties:
            Control().ShowProperties();
            break;
        case CommandAbout:
            grid.Call(L"AboutBox");
            break;
        default:
            m_dataMenu->Run(command);
            break;
    }
}

void HostWindow::Toggle(const wchar_t* property) {
    const Automation& grid = Control().Grid();
    grid.Put(property, Variant::Of(!grid.Get(property).Truth()));
}

void HostWindow::OnEvent(const std::wstring& object, const std::wstring& event,
                         DISPPARAMS& parameters) {
    const bool isShown = object == L"Grid";
    if (isShown) {
        m_data.OnEvent(event, parameters);
    }
    if (isShown && m_data.IsBusy() && event == L"Modified") {
        return;  // the host's own doing
    }
    // Drawing asks for formats cell by cell; shown here it would hide every other event.
    if (event != L"RequestCellFormat") {
        m_lastEvent = EventText(event, parameters);
        m_story.Add(m_lastEvent);
        PostRefresh();
    }
    if (m_eventHandler) {
        m_eventHandler(object, event, parameters);
    }
}

void HostWindow::PostRefresh() {
    if (!m_isStatusDue && m_window != nullptr) {
        m_isStatusDue = PostMessageW(m_window, MessageRefreshStatus, 0, 0) != FALSE;
    }
}

std::vector<RECT> HostWindow::Places(std::size_t count) const {
    RECT client{};
    GetClientRect(m_window, &client);
    const int parts = static_cast<int>(count);
    const LONG bottom = std::max<LONG>(client.bottom - m_status.Height(), 0);
    std::vector<RECT> places;
    for (int part = 0; part < parts; ++part) {
        places.push_back(
            {MulDiv(client.right, part, parts), 0, MulDiv(client.right, part + 1, parts), bottom});
    }
    return places;
}

void HostWindow::Layout() {
    if (IsIconic(m_window)) {
        return;
    }
    RECT client{};
    GetClientRect(m_window, &client);
    m_status.Resize(client.right);
    const std::vector<RECT> places = Places(m_controls.size());
    for (std::size_t index = 0; index < m_controls.size(); ++index) {
        m_controls[index]->Move(places[index]);
    }
}

void HostWindow::RefreshStatus() {
    m_isStatusDue = false;
    if (HasControl()) {
        m_data.Settle();
        StatusLine::Content content = ContentOf(Control().Grid());
        content.lastEvent = m_lastEvent;
        content.data = m_data.Status();
        m_status.Show(content);
    }
}

void HostWindow::ShowTitle() {
    const std::wstring& path = m_file->Path();
    const std::wstring name = path.substr(path.find_last_of(L"\\/") + 1);
    SetWindowTextW(m_window, ((name.empty() ? L"未命名" : name) + L" - VeyHost").c_str());
}

}  // namespace veygrid
