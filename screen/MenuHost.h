// What the menu and its commands ask of the control.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "binding/DataCtrlChoice.h"
#include "grid/LogFont.h"
#include "platform/Geometry.h"
#include "screen/AlignChoice.h"

namespace veygrid {

struct FontChoice {
    LogFont font;
    Color color = Black;
};

// Dialogs are modal, with the control as owner; nothing comes back from one that was not confirmed.
// Paths are in code page 936.
class MenuHost {
  public:
    virtual ~MenuHost() = default;

    // The control's own font.
    virtual LogFont StockFont() = 0;
    virtual std::optional<FontChoice> AskFont(const LogFont& shown) = 0;
    virtual std::optional<AlignChoice> AskAlignment(const AlignChoice& shown) = 0;
    virtual std::optional<DataCtrlChoice> AskDataCtrl(const DataCtrlChoice& shown) = 0;
    // The dialog changes the parameters while it is open.
    virtual void ShowParamDlg() = 0;
    // Opens one more window for the statement of the data source, and does not wait for its end.
    virtual void OpenDataSourceWindow() = 0;
    virtual std::optional<std::string> AskFileToSave() = 0;
    virtual std::optional<std::string> AskFileToOpen() = 0;

    virtual bool SaveFile(std::string_view path) = 0;
    virtual std::int16_t OpenFile(std::string_view path, std::int16_t runQuery) = 0;
    virtual void EditCopy() = 0;
    virtual void EditCut() = 0;
    virtual void EditPaste() = 0;
    virtual bool Print(bool direct) = 0;
    // Opens the property pages.
    virtual void OnProperties() = 0;

    virtual void SetGuiMode(bool mode) = 0;
    virtual bool GuiDesignMode() = 0;
    virtual void SetGuiDesignMode(bool mode) = 0;
    virtual void ShowTabOrderDlg() = 0;
    virtual void ShowToolbox(bool show) = 0;

    // Posts the command to the control's parent, where there is one.
    virtual void PostCommandToParent(std::int32_t command) = 0;
};

}  // namespace veygrid
