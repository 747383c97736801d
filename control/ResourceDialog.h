// A dialog from the module's resources: its window and its messages.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/win32/ole/Platform.h"

namespace veygrid {

// Translates the texts before the first message, and lets no exception through. One with shared
// owners lives until its last message has been answered, whatever those do meanwhile.
class ResourceDialog : public std::enable_shared_from_this<ResourceDialog> {
  public:
    ResourceDialog() = default;
    ResourceDialog(const ResourceDialog&) = delete;
    ResourceDialog& operator=(const ResourceDialog&) = delete;
    virtual ~ResourceDialog() = default;

  protected:
    // To be made with the dialog itself as the parameter.
    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    // Null before the dialog is made and when it is gone.
    HWND Window() const { return m_window; }
    HWND Item(int id) const { return ::GetDlgItem(m_window, id); }
    LRESULT Send(int item, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    // In code page 936; what it lacks becomes a question mark.
    std::string ItemText(int id) const;
    void SetItemText(int id, std::string_view text) const;

    // The answer of a dialog procedure.
    virtual INT_PTR OnMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;
    // A message could not be answered.
    virtual void OnFailure() = 0;
    // The window is gone.
    virtual void OnGone(HWND) {}

  private:
    HWND m_window = nullptr;
};

}  // namespace veygrid
