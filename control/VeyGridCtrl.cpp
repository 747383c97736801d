// The control: an assembly of the sheet, its selection, its operations and its document.
#include "control/VeyGridCtrl.h"

#include <array>
#include <memory>

#include "binding/DataSourceText.h"
#include "control/AutomationTable.h"
#include "control/ClassIds.h"
#include "control/DispatchDataset.h"
#include "control/GdiTextMeasure.h"
#include "control/GridPropPage.h"
#include "control/RegisteredMessages.h"
#include "persist/FileCommands.h"
#include "persist/PropertyBag.h"
#include "persist/PropertyExchange.h"
#include "persist/TabbedText.h"
#include "platform/FileSystem.h"
#include "platform/win32/Clipboard.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

constexpr UINT UserTypeNameId = 1;

constexpr UINT AboutBoxId = 2300;
// 320 by 240 pixels on the usual screen, in HIMETRIC.
constexpr SIZEL FirstExtent{8467, 6350};

// The control's own page first.
constexpr std::array Pages{PageEntry{PropertyPageClassId, CVeyGridPropPage::Make},
                           PageEntry{StockFontPageId, nullptr},
                           PageEntry{StockColorPageId, nullptr}};

const ControlClass& GridClass() {
    static const ControlClass gridClass{VeyGridAutomation, CVeyGridCtrl::MiscStatus, UserTypeNameId,
                                        Pages};
    return gridClass;
}

INT_PTR CALLBACK AboutProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) {
        ::EndDialog(dialog, LOWORD(wParam));
        return TRUE;
    }
    return message == WM_INITDIALOG ? TRUE : FALSE;
}

}  // namespace

CVeyGridCtrl::CVeyGridCtrl(IUnknown* outer)
    : CVeyOleControl(outer, GridClass(), this), m_defCellFormat(new CellFormatObject(nullptr)) {
    m_defCellFormat->Refer(m_store.DefCellFormat);
    m_document.Stock.ExtentWidth = FirstExtent.cx;
    m_document.Stock.ExtentHeight = FirstExtent.cy;
    // Hosts may ask for the numbers by name from now on.
    NumberOf(Message::AskFor);
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
    m_sheet.Image().LoadBkImage(*MakeFileSystem(), path);
    m_host.InvalidateControl();
    m_store.SetModifiedAndNotify(true);
}

bool CVeyGridCtrl::ScreenPosToRC(std::int16_t x, std::int16_t y, std::int32_t* row,
                                 std::int32_t* col) {
    std::int32_t unused = 0;
    return m_sheet.ScreenPosToRC(x, y, row == nullptr ? unused : *row,
                                 col == nullptr ? unused : *col);
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

void CVeyGridCtrl::SetColAutoWidth(std::int32_t col) {
    veygrid::SetColAutoWidth(m_store, col, GdiTextMeasure(m_sheet.StockFontHandle()));
}

bool CVeyGridCtrl::SaveFile(std::string_view path) {
    return veygrid::SaveFile(*MakeFileSystem(), Utf8FromCodePage936(path), m_store, m_document,
                             m_host);
}

std::int16_t CVeyGridCtrl::OpenFile(std::string_view path, std::int16_t runQuery) {
    try {
        const std::int16_t answer = veygrid::OpenFile(*MakeFileSystem(), Utf8FromCodePage936(path),
                                                      runQuery, m_store, m_document, m_host);
        m_sheet.SheetReplaced();
        return answer;
    } catch (...) {
        // What was read of a damaged file is in the sheet.
        m_sheet.SheetReplaced();
        throw;
    }
}

std::int16_t CVeyGridCtrl::RunQuery(std::int16_t) {
    return 1;
}

std::int16_t CVeyGridCtrl::SaveToDB() {
    if (m_store.Log.IsEmpty()) {
        return 0;
    }
    return SaveRecord() == 1 ? 1 : -1;
}

void CVeyGridCtrl::BindDataset(ComPtr<IDispatch> dataset) {
    m_bound.BindDataset(dataset == nullptr ? nullptr
                                           : std::make_shared<DispatchDataset>(std::move(dataset)));
    m_sheet.SheetResized();
}

// A dataset may call the control back when it goes, so it goes while the control still answers.
void CVeyGridCtrl::OnFinalRelease() {
    CVeyOleControl::OnFinalRelease();
    m_bound.Release();
}

void CVeyGridCtrl::EditCopy() {
    PutClipboardText(Window(), SelectionText(m_store, m_selection.SelectionList));
}

// Copying takes the last selected range and cutting clears the first; that is on purpose.
void CVeyGridCtrl::EditCut() {
    EditCopy();
    const CellRange range = m_selection.SelectionList.empty() ? m_selection.ActiveCellRange()
                                                              : m_selection.SelectionList.front();
    m_operations.ClearRange(range.Row1, range.Col1, range.Row2, range.Col2,
                            static_cast<std::int16_t>(ClearType::Texts));
}

void CVeyGridCtrl::EditPaste() {
    if (const std::optional<std::string> text = GetClipboardText(Window())) {
        SetTabbedText(m_store, m_store.ActiveRow, m_store.ActiveCol, *text);
    }
}

void CVeyGridCtrl::AboutBox() {
    const KeepAlive keep(*this);
    ::DialogBoxParamW(module::Instance(), MAKEINTRESOURCEW(AboutBoxId), DialogOwner(),
                      AboutProcedure, 0);
}

void CVeyGridCtrl::SaveState(ByteSink& sink) {
    ArchiveWriter archive(sink);
    WriteGrid(archive, m_store, m_document, m_host);
    archive.Close();
}

std::uint64_t CVeyGridCtrl::LoadState(ByteSource& source) {
    ArchiveReader archive(source);
    ReadGrid(archive, m_store, m_document, m_host);
    m_sheet.SheetReplaced();
    return archive.Position();
}

void CVeyGridCtrl::SaveInBag(PropertyBag& bag) {
    SaveToBag(bag, m_document.Stock, m_store.Properties);
}

void CVeyGridCtrl::LoadFromBag(PropertyBag& bag) {
    veygrid::LoadFromBag(bag, m_document.Stock, m_store.Properties);
    m_sheet.SheetReplaced();
}

void CVeyGridCtrl::OnResetState() {
    ResetProperties(m_document.Stock, m_store.Properties);
}

std::vector<PredefinedValue> CVeyGridCtrl::OnGetPredefinedStrings(DISPID id) {
    constexpr DISPID ModifiedLogId = 28;
    if (id != ModifiedLogId) {
        return {};
    }
    const auto cookie = [](ModifiedLogMode mode) { return static_cast<DWORD>(mode); };
    return {{L"关闭", cookie(ModifiedLogMode::Off)},
            {L"行方式", cookie(ModifiedLogMode::Rows)},
            {L"列方式", cookie(ModifiedLogMode::Columns)},
            {L"单元格方式", cookie(ModifiedLogMode::Cells)}};
}

const CLSID* CVeyGridCtrl::OnMapPropertyToPage(DISPID id) {
    constexpr DISPID BkImageId = 34;
    switch (id) {
        case BkImageId:
            return &PropertyPageClassId;
        case DISPID_FONT:
            return &StockFontPageId;
        case DISPID_BACKCOLOR:
        case DISPID_FORECOLOR:
            return &StockColorPageId;
        default:
            return nullptr;
    }
}

}  // namespace veygrid
