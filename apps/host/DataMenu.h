// The commands of the data menu: what they ask the user, and which of them are possible.
#pragma once

#include <windows.h>

#include "apps/host/DataSession.h"

namespace veygrid {

class DataMenu {
  public:
    // `owner` is the window that dialogs stand before.
    DataMenu(HWND owner, DataSession& session) : m_owner(owner), m_session(session) {}

    // Runs a command of the menu and tells the user what hindered it.
    void Run(UINT command);
    // Greys what is not possible now.
    void Prepare(HMENU menu) const;
    // Asks what to do with changes that are not saved; false when the user wants to stay.
    bool MayLeave();

  private:
    bool AskAndConnect();
    void AskAndRunQuery();
    void Tell(bool isDone) const;

    HWND m_owner;
    DataSession& m_session;
    std::wstring m_connection;  // as it was asked for last
};

}  // namespace veygrid
