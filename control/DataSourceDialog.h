// Dialog 2318: the windows in which the statement of the data source is read and changed.
#pragma once

#include <memory>
#include <vector>

#include "platform/win32/ole/Platform.h"

namespace veygrid {

class CVeyGridCtrl;
class CDataSourceDlg;

// The open windows of a control. They do not outlive its window, and go with it unasked.
class DataSourceWindows {
  public:
    // The control, which must outlive this, has a window while one is opened.
    explicit DataSourceWindows(CVeyGridCtrl& control) : m_control(control) {}
    DataSourceWindows(const DataSourceWindows&) = delete;
    DataSourceWindows& operator=(const DataSourceWindows&) = delete;
    ~DataSourceWindows() { CloseAll(); }

    // One more window, with the statement as it is now; throws OleError when there can be none.
    void Open();
    // Whether they take input.
    void EnableAll(bool enable);
    void CloseAll();
    // A window is gone.
    void Forget(const CDataSourceDlg& dialog);

  private:
    CVeyGridCtrl& m_control;
    std::vector<std::shared_ptr<CDataSourceDlg>> m_open;
};

}  // namespace veygrid
