// The grid file that the host shows: its path, and loading and saving it through the control.
#pragma once

#include <windows.h>

#include <string>

#include "apps/host/Automation.h"

namespace veygrid {

class GridFile {
  public:
    // `owner` is the window that dialogs stand before.
    explicit GridFile(HWND owner) : m_owner(owner) {}

    // Empty for a sheet without a file.
    const std::wstring& Path() const { return m_path; }
    void Forget() { m_path.clear(); }

    // Each tells the user of a failure and returns whether it was done.
    bool Open(const Automation& grid, const std::wstring& path);
    bool Save(const Automation& grid);
    bool SaveAs(const Automation& grid);
    // Asks what to do with changes; false when the user wants to stay.
    bool MayLeave(const Automation& grid);
    // `path` is what the dialog begins with, and what was chosen; false when the user cancels.
    bool AskForPath(bool isSaving, std::wstring& path) const;

  private:
    bool SaveTo(const Automation& grid, const std::wstring& path);

    HWND m_owner;
    std::wstring m_path;
};

// The box in which the host tells of a failure.
void TellTrouble(HWND owner, const std::wstring& text);
// The same for what the user must know.
void TellNotice(HWND owner, const std::wstring& text);
// The host's question what to do with changes: IDYES to save them, IDNO or IDCANCEL.
int AskUser(HWND owner, const std::wstring& question);

}  // namespace veygrid
