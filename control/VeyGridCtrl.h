// The control: an assembly of the sheet, its selection, its operations and its document.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "binding/DatasetBinding.h"
#include "binding/QueryBinding.h"
#include "control/CellFormatObject.h"
#include "control/ControlMenu.h"
#include "control/HostAdapter.h"
#include "control/SheetInput.h"
#include "control/SheetView.h"
#include "grid/GridStore.h"
#include "grid/RowColumnOperations.h"
#include "grid/Selection.h"
#include "persist/GridFile.h"
#include "platform/win32/ole/OleControl.h"

namespace veygrid {

class CVeyGridCtrl final : public CVeyOleControl {
  public:
    // Recomposes on resizing, cannot be linked inside, is inside out, activated when visible, and
    // wants its client site first.
    static constexpr DWORD MiscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE |
                                        OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
                                        OLEMISC_SETCLIENTSITEFIRST;
    static_assert(MiscStatus == 131473);

    explicit CVeyGridCtrl(IUnknown* outer);
    ~CVeyGridCtrl() override;

    static IUnknown* Make(IUnknown* outer);

    GridStore& Store() { return m_store; }
    Selection& Selected() { return m_selection; }
    RowColumnOperations& Operations() { return m_operations; }
    GridDocument& Document() { return m_document; }
    SheetView& Sheet() { return m_sheet; }
    SheetInput& Input() { return m_input; }
    DatasetBinding& Bound() { return m_bound; }
    // A data layer of the host finds its flags here.
    QueryBinding& Query() { return m_query; }

    // Automation members that are more than a call of a part.
    ComPtr<IDispatch> DefCellFormatObject() { return m_defCellFormat->Dispatch(); }
    bool GuiDesignMode() const { return m_bGuiDesignMode; }
    void SetGuiDesignMode(bool mode);
    void SetGuiMode(bool mode);
    void SetDataSource(std::string_view text);
    void SetBkImage(std::string_view path);
    bool GetSelection(std::int32_t index, std::int32_t* row1, std::int32_t* col1,
                      std::int32_t* row2, std::int32_t* col2);
    bool GetNextParam(std::int32_t* pos, std::string* name, std::string* value);
    void SetColAutoWidth(std::int32_t col);
    bool SaveFile(std::string_view path);
    std::int16_t OpenFile(std::string_view path, std::int16_t runQuery);
    std::int16_t RunQuery(std::int16_t getAllRecord);
    std::int16_t SaveToDB();
    void EditCopy();
    void EditCut();
    void EditPaste();
    void RemoveAllMenuItem() { m_menu.Context().RemoveAllMenuItem(); }
    void AppendMenuItem(std::int32_t item, std::string_view text) {
        m_menu.Context().AppendMenuItem(item, text);
    }
    // Sends the command of a menu item to the control's own window; nothing without one.
    void SendCommand(std::int32_t item);
    void ShowFontDlg();
    void ShowAlignDlg();
    bool ScreenPosToRC(std::int16_t x, std::int16_t y, std::int32_t* row, std::int32_t* col);
    void MakeCellVisible(std::int32_t row, std::int32_t col) { m_sheet.MakeCellVisible(row, col); }
    void AboutBox();
    std::int16_t StartEdit() { return m_input.Editor().StartEdit(); }
    std::int16_t EndEdit() { return m_input.Editor().EndEdit(); }
    // Null ends the binding. The last reference to the former dataset may go here.
    void BindDataset(ComPtr<IDispatch> dataset);

    // Members whose behaviour the windows of the control will bring; until then each gives its
    // refusing answer and changes nothing.
    void ShowToolbox(bool) {}
    void ShowTabOrderDlg() {}
    std::int32_t CreateFormObject(IDispatch*) { return 0; }
    std::int32_t CreateAutoForm(std::int16_t, std::int32_t, std::int32_t) { return 0; }
    void ShowPrintSetupDlg() {}
    bool Print(bool) { return false; }
    bool Preview(std::int32_t) { return false; }

    // Handler of the message that saves the current record: it is acknowledged and written nowhere.
    std::int32_t SaveRecord() { return 1; }

    void SaveState(ByteSink& sink) override;
    std::uint64_t LoadState(ByteSource& source) override;
    void SaveInBag(PropertyBag& bag) override;
    void LoadFromBag(PropertyBag& bag) override;
    void OnResetState() override;
    std::vector<PredefinedValue> OnGetPredefinedStrings(DISPID id) override;
    const CLSID* OnMapPropertyToPage(DISPID id) override;
    bool PreTranslateMessage(MSG& message) override { return m_input.PreTranslateMessage(message); }

  private:
    void OnFinalRelease() override;
    void OnDraw(HDC target, const RECT& bounds, const RECT& invalid) override;
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    // The answer to a registered message; nothing for one without a handler.
    std::optional<LRESULT> OnRegisteredMessage(UINT message, WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnRecordMessage(UINT message);
    void OnCreate();
    void MoveToRow(std::int32_t row);

    StockProperties& Stock() override { return m_document.Stock; }
    std::uint32_t& StockBackColor() override { return m_store.Properties.BackColor; }

    HostAdapter m_host{*this};
    GridStore m_store{m_host};
    Selection m_selection{m_store, m_host};
    DatasetBinding m_bound{m_store};
    QueryBinding m_query{m_store};
    RowColumnOperations m_operations{m_store, m_selection, m_host};
    GridDocument m_document;
    SheetView m_sheet{*this, m_store, m_selection, m_document.BkImageBits};
    ControlMenu m_menu{*this, m_store, m_selection, m_operations};
    SheetInput m_input{*this};
    bool m_bGuiDesignMode = false;
    CellFormatObject* m_defCellFormat;  // one reference of it is the control's
};

}  // namespace veygrid
