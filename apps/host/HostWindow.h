// The host's window: controls side by side, a menu above them and a status line below.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "apps/host/DataMenu.h"
#include "apps/host/DataSession.h"
#include "apps/host/GridFile.h"
#include "apps/host/HostedControl.h"
#include "apps/host/MessageRecord.h"
#include "apps/host/StatusLine.h"
#include "apps/host/Story.h"

namespace veygrid {

// `object` is "Grid" for the first control, "Grid2" for the second and so on.
using ObjectEventHandler = std::function<void(const std::wstring& object, const std::wstring& event,
                                              DISPPARAMS& parameters)>;

class HostWindow {
  public:
    HostWindow(const ControlModule& module, LCID locale);
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;
    ~HostWindow();

    // Makes the window, not yet shown, with one control of the given size in pixels. Throws
    // ComFault.
    void Create(SIZE controlSize);
    void Show();
    // Closes the controls and the window without a question.
    void Destroy();

    HWND Window() const { return m_window; }
    // The first control; the window must stand.
    HostedControl& Control() const { return *m_controls.front(); }
    bool HasControl() const { return !m_controls.empty(); }
    // Puts one more control beside the others. Throws ComFault.
    HostedControl& AddControl();
    GridFile& File() { return *m_file; }
    // Opens the file in place of what is on view and shows its name, and with a connection the rows
    // of its statement. False when it cannot be opened, which the user was told.
    bool OpenFile(const std::wstring& path);
    DataSession& Data() { return m_data; }
    // Before Create, so that the control finds the connection, or later; the changes of a query
    // that is on view are asked about first. False when it was not done.
    bool Connect(const std::wstring& connection);
    // The same for a query; an empty statement stands for the control's own.
    bool RunQuery(const std::wstring& statement);
    MessageRecord& Messages() { return m_messages; }
    Story& TheStory() { return m_story; }

    // Where events go besides the status line.
    void SetEventHandler(ObjectEventHandler handler) { m_eventHandler = std::move(handler); }
    // Before Create. A script decides when the program ends: the window does not close when it is
    // told to, and messages of the controls are kept from the first one on.
    void SetScripted() {
        m_isScripted = true;
        m_messages.Begin();
    }

    // What comes before TranslateMessage in every loop: true when the message is used up.
    bool PreTranslate(MSG& message);
    // Runs until the window is closed; the result is the process's exit code.
    int RunLoop();

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnControlMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void OnCommand(UINT command);
    void RunCommand(UINT command);
    void PassFocusOn();
    bool MayLeave();
    void OnClose();
    void OnInitMenu(HMENU menu);
    void OnSizeWanted(WPARAM corner, LPARAM size);
    LRESULT AnswerFill(const char* key);

    HostedControl& MakeControl();
    void CloseControls();
    void StartAnew();
    void AskAndOpen();
    void RunOwnQuery();
    void Toggle(const wchar_t* property);
    void OnEvent(const std::wstring& object, const std::wstring& event, DISPPARAMS& parameters);
    std::vector<RECT> Places(std::size_t count) const;
    void Layout();
    void PostRefresh();
    void RefreshStatus();
    void ShowTitle();

    const ControlModule& m_module;
    LCID m_locale;
    HWND m_window = nullptr;
    HACCEL m_keys = nullptr;
    StatusLine m_status;
    std::unique_ptr<GridFile> m_file;
    // Before the controls, which hold what it hands out.
    DataSession m_data;
    std::unique_ptr<DataMenu> m_dataMenu;
    ComPtr<HostFrame> m_frame;
    std::vector<std::unique_ptr<HostedControl>> m_controls;
    MessageRecord m_messages;
    Story m_story;
    ObjectEventHandler m_eventHandler;
    std::wstring m_lastEvent;
    bool m_isScripted = false;
    bool m_isStatusDue = false;
};

}  // namespace veygrid
