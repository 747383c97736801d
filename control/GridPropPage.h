// The control's own property page.
#pragma once

#include <string>

#include "platform/win32/ole/PropertyPage.h"

namespace veygrid {

class CVeyGridPropPage final : public COlePropertyPage {
  public:
    explicit CVeyGridPropPage(IUnknown* outer);

    // Class object's maker.
    static IUnknown* Make(IUnknown* outer);

  private:
    void DoDataExchange(PageExchange& exchange) override;
    void OnButton(int control) override;
    // Puts the path of a picture file that the user picks into its field.
    void OnBrowseBkImage();

    std::wstring m_strBkImage;
    bool m_bAllowEdit = false;
    bool m_bRowMode = false;
    std::wstring m_strDataSource;
};

}  // namespace veygrid
