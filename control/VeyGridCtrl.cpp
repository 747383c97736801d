// The control: an assembly of the sheet, its selection, its operations and its document.
#include "control/VeyGridCtrl.h"

#include "binding/DataSourceText.h"
#include "control/AutomationTable.h"
#include "persist/FileCommands.h"
#include "platform/FileSystem.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

constexpr UINT UserTypeNameId = 1;

const ControlClass& GridClass() {
    static const ControlClass gridClass{VeyGridAutomation, CVeyGridCtrl::MiscStatus,
                                        UserTypeNameId};
    return gridClass;
}

}  // namespace

CVeyGridCtrl::CVeyGridCtrl(IUnknown* outer)
    : CVeyOleControl(outer, GridClass(), this), m_defCellFormat(new CellFormatObject(nullptr)) {
    m_defCellFormat->Refer(m_store.DefCellFormat);
}

// A host may hold the object of the default format longer than the control.
CVeyGridCtrl::~CVeyGridCtrl() {
    m_defCellFormat->Leave();
    m_defCellFormat->Inner()->Release();
}

IUnknown* CVeyGridCtrl::Make(IUnknown* outer) {
    return (new CVeyGridCtrl(outer))->Inner();
}

void CVeyGridCtrl::SetGuiDesignMode(bool mode) {
    m_bGuiDesignMode = mode;
}

void CVeyGridCtrl::SetGuiMode(bool mode) {
    m_store.Properties.GuiMode = mode;
    m_store.SetModifiedAndNotify(true);
    m_host.InvalidateControl();
    m_host.UpdateScrollBars();
}

void CVeyGridCtrl::SetDataSource(std::string_view text) {
    m_store.Properties.DataSource = text;
    OnDataSourceChanged(m_store);
}

void CVeyGridCtrl::SetBkImage(std::string_view path) {
    m_store.Properties.BkImage = path;
}

bool CVeyGridCtrl::GetSelection(std::int32_t index, std::int32_t* row1, std::int32_t* col1,
                                std::int32_t* row2, std::int32_t* col2) {
    CellRange range;
    const bool answer = m_selection.GetSelection(index, range);
    const auto put = [](std::int32_t* target, std::int32_t value) {
        if (target != nullptr) {
            *target = value;
        }
    };
    put(row1, range.Row1);
    put(col1, range.Col1);
    put(row2, range.Row2);
    put(col2, range.Col2);
    return answer;
}

bool CVeyGridCtrl::GetNextParam(std::int32_t* pos, std::string* name, std::string* value) {
    if (pos == nullptr) {
        return false;
    }
    std::string unused;
    return m_store.Params.GetNextParam(*pos, name == nullptr ? unused : *name,
                                       value == nullptr ? unused : *value);
}

void CVeyGridCtrl::SetColAutoWidth(std::int32_t) {}

bool CVeyGridCtrl::SaveFile(std::string_view path) {
    return veygrid::SaveFile(*MakeFileSystem(), Utf8FromCodePage936(path), m_store, m_document,
                             m_host);
}

std::int16_t CVeyGridCtrl::OpenFile(std::string_view path, std::int16_t runQuery) {
    return veygrid::OpenFile(*MakeFileSystem(), Utf8FromCodePage936(path), runQuery, m_store,
                             m_document, m_host);
}

std::int16_t CVeyGridCtrl::RunQuery(std::int16_t) {
    return 1;
}

std::int16_t CVeyGridCtrl::SaveToDB() {
    return m_store.Log.IsEmpty() ? 0 : 1;
}

void CVeyGridCtrl::EditCopy() {}
void CVeyGridCtrl::EditCut() {}
void CVeyGridCtrl::EditPaste() {}
void CVeyGridCtrl::SendCommand(std::int32_t) {}
void CVeyGridCtrl::AboutBox() {}

}  // namespace veygrid
