// One control in the host window, from creation to its end.
#pragma once

#include <string>

#include "apps/host/Automation.h"
#include "apps/host/ControlModule.h"
#include "apps/host/ControlSite.h"
#include "apps/host/EventSink.h"

namespace veygrid {

class HostedControl {
  public:
    struct Setting {
        HWND window;  // the control's parent
        ComPtr<HostFrame> frame;
        LCID locale;
        RECT place;  // client pixels of the window
    };

    // Creates a control and activates it in place; throws ComFault.
    HostedControl(const ControlModule& module, const Setting& setting, EventHandler handler);
    HostedControl(const HostedControl&) = delete;
    HostedControl& operator=(const HostedControl&) = delete;
    // Disconnects the events and closes the control.
    ~HostedControl();

    const Automation& Grid() const { return m_grid; }
    // Null when the control has no window.
    HWND Window() const;
    bool HasFocus() const;

    void Move(const RECT& place);
    void TakeFocus();
    void ShowProperties();

  private:
    void Initialise(const Setting& setting);
    void SetExtent(const RECT& place);
    void DoVerb(LONG verb);

    ComPtr<IUnknown> m_control;
    ComPtr<IOleObject> m_object;
    ComPtr<IOleInPlaceObject> m_inPlace;
    ComPtr<ControlSite> m_site;
    ComPtr<EventSink> m_sink;
    Automation m_grid;
    HWND m_parent;
};

}  // namespace veygrid
