// Automation members of the control.
#include <array>
#include <string>
#include <type_traits>

#include "binding/DataSourceText.h"
#include "control/AutomationTable.h"
#include "control/CellFormatObject.h"
#include "control/ClassIds.h"
#include "control/VeyGridCtrl.h"
#include "grid/CellShow.h"
#include "grid/PropertyWrite.h"
#include "persist/TabbedText.h"

namespace veygrid {

// Objects of this module, as the type library names them; null is legal.
struct CellFormatRef {
    ComPtr<IDispatch> object;
};
struct FormObjectRef {
    ComPtr<IDispatch> object;
};
struct FontRef {
    ComPtr<IDispatch> object;
};

template <class Ref>
struct ObjectType {
    static Ref Read(const VARIANT& given, LCID) { return {ReadObject(given)}; }
    static void Put(VARIANT& target, Ref ref) { PutObject(target, std::move(ref.object)); }
};
template <>
struct AutomationType<CellFormatRef> : ObjectType<CellFormatRef> {
    static constexpr ValueType Type{VT_DISPATCH, false, "ICellFormat*"};
};
template <>
struct AutomationType<FormObjectRef> : ObjectType<FormObjectRef> {
    static constexpr ValueType Type{VT_DISPATCH, false, "IFormObject*"};
};
template <>
struct AutomationType<FontRef> : ObjectType<FontRef> {
    static constexpr ValueType Type{VT_DISPATCH, false, "IFontDisp*"};
};

namespace {

using Ctrl = CVeyGridCtrl;
using std::int16_t;
using std::int32_t;
using std::string;

// The automation type of a stored value.
template <class Value>
struct Shown {
    using Type = Value;
};
template <>
struct Shown<std::uint32_t> {
    using Type = OleColor;
};

template <auto Member, WriteCode Code>
struct Plain;
template <class Group, class Value, Value Group::*Member, WriteCode Code>
struct Plain<Member, Code> {
    using Type = typename Shown<Value>::Type;

    static Type Get(Ctrl& c) {
        const Value& value = PropertyGroup(c.Store(), static_cast<const Group*>(nullptr)).*Member;
        return Type{value};
    }
    static void Put(Ctrl& c, Type given) {
        if constexpr (std::is_same_v<Type, OleColor>) {
            Write(c, given.value);
        } else {
            Write(c, std::move(given));
        }
    }
    static void Write(Ctrl& c, Value value) {
        if constexpr (Code == WriteCode::RepaintNotify) {
            WriteRepaint(c.Store(), Member, std::move(value));
        } else {
            WriteNotify(c.Store(), Member, std::move(value));
        }
    }
};

template <auto Get, auto Put>
constexpr DispatchMember Property(DISPID id, std::string_view name, WriteCode code,
                                  bool putByReference = false, bool listed = true) {
    return {.id = id,
            .name = name,
            .kind = MemberKind::Property,
            .get = CallFormOf<Get>::Form,
            .put = CallFormOf<Put>::Form,
            .putByReference = putByReference,
            .write = code,
            .listed = listed};
}

template <auto Member, WriteCode Code = WriteCode::Notify>
constexpr DispatchMember Stored(DISPID id, std::string_view name, bool listed = true) {
    return Property<&Plain<Member, Code>::Get, &Plain<Member, Code>::Put>(id, name, Code, false,
                                                                          listed);
}

template <auto Get, auto Put>
constexpr DispatchMember Indexed(DISPID id, std::string_view name, std::string_view indexes,
                                 bool putByReference = false) {
    return {.id = id,
            .name = name,
            .kind = MemberKind::IndexedProperty,
            .parameterNames = indexes,
            .get = CallFormOf<Get>::Form,
            .put = CallFormOf<Put>::Form,
            .putByReference = putByReference};
}

template <auto Handler>
constexpr DispatchMember Method(DISPID id, std::string_view name, std::string_view parameters = "",
                                std::size_t optional = 0) {
    return {.id = id,
            .name = name,
            .kind = MemberKind::Method,
            .parameterNames = parameters,
            .get = CallFormOf<Handler>::Form,
            .optional = optional};
}

constexpr WriteCode B = WriteCode::RepaintNotify;
using P = GridProperties;
using S = GridSwitches;

constexpr std::array Members{
    Stored<&P::ShowHGridLines>(1, "ShowHGridLines"),
    Stored<&P::ShowVGridLines>(2, "ShowVGridLines"),
    Stored<&P::ShowRowHeaders>(3, "ShowRowHeaders"),
    Stored<&P::ShowColHeaders>(4, "ShowColHeaders"),
    Stored<&P::ShowHScrollBar>(5, "ShowHScrollBar"),
    Stored<&P::ShowVScrollBar>(6, "ShowVScrollBar"),
    Stored<&P::AllowResize>(7, "AllowResize"),
    Stored<&P::AllowEdit>(8, "AllowEdit"),
    Stored<&P::AllowEditHeader>(9, "AllowEditHeader"),
    Stored<&P::AllowSelections>(10, "AllowSelections"),
    Stored<&P::AllowPopMenu>(11, "AllowPopMenu"),
    Stored<&P::AlwaysOnEdit>(12, "AlwaysOnEdit"),
    Stored<&P::ShowZeroValues>(13, "ShowZeroValues"),
    Stored<&P::EnterGoDown>(14, "EnterGoDown"),
    Stored<&P::MaxRow>(15, "MaxRow"),
    Stored<&P::MaxCol>(16, "MaxCol"),
    Stored<&P::FixedRow>(17, "FixedRow"),
    Stored<&P::FixedRows>(18, "FixedRows"),
    Stored<&P::FixedCol>(19, "FixedCol"),
    Stored<&P::FixedCols>(20, "FixedCols"),
    Stored<&P::DefCellWidth, B>(21, "DefCellWidth"),
    Stored<&P::DefCellHeight, B>(22, "DefCellHeight"),
    Stored<&P::RowHeaderWidth, B>(23, "RowHeaderWidth"),
    Stored<&P::ColHeaderHeight, B>(24, "ColHeaderHeight"),
    Stored<&P::SingleRowSelection, B>(25, "SingleRowSelection"),
    Stored<&P::GridLinesColor, B>(26, "GridLinesColor"),
    Stored<&P::RowMode, B>(27, "RowMode"),
    Stored<&P::ModifiedLog>(28, "ModifiedLog"),
    Stored<&P::LastRow>(29, "LastRow"),
    Stored<&P::LastCol>(30, "LastCol"),
    Property<[](Ctrl& c) { return c.Store().Properties.GuiMode; },
             [](Ctrl& c, bool mode) { c.SetGuiMode(mode); }>(31, "GuiMode", WriteCode::RebuildForm),
    Stored<&P::AutoMaxRC>(32, "AutoMaxRC", false),
    Property<[](Ctrl& c) { return c.Store().Properties.DataSource; },
             [](Ctrl& c, const string& text) { c.SetDataSource(text); }>(33, "DataSource",
                                                                         WriteCode::RebuildNames),
    Property<[](Ctrl& c) { return c.Store().Properties.BkImage; },
             [](Ctrl& c, const string& path) { c.SetBkImage(path); }>(34, "BkImage",
                                                                      WriteCode::LoadPicture),
    Stored<&P::ShowDefRowHeader>(35, "ShowDefRowHeader"),
    Stored<&P::ShowDefColHeader>(36, "ShowDefColHeader"),
    Stored<&S::RunQueryAfterSerialize>(37, "RunQueryAfterSerialize"),
    Stored<&S::GuiDesignSnapToX>(38, "GuiDesignSnapToX"),
    Stored<&S::GuiDesignSnapToY>(39, "GuiDesignSnapToY"),
    Stored<&S::CanWriteTable>(40, "CanWriteTable"),
    Stored<&S::AutoCommit>(41, "AutoCommit"),
    Stored<&P::AllowMoveRow>(42, "AllowMoveRow"),
    Stored<&P::AllowMoveCol>(43, "AllowMoveCol"),
    Stored<&P::AllowMoveCell>(44, "AllowMoveCell"),
    Stored<&P::FormObjectNotifyToParent>(45, "FormObjectNotifyToParent"),
    Property<[](Ctrl& c) { return c.IsModified(); },
             [](Ctrl& c, bool modified) { c.Store().SetModifiedAndNotify(modified); }>(
        46, "Modified", WriteCode::ModifiedFlag),
    Property<[](Ctrl& c) { return CellFormatRef{c.DefCellFormatObject()}; },
             [](Ctrl& c, const CellFormatRef& format) {
                 c.Store().SetDefCellFormat(CellFormatObject::RecordOf(format.object.Get()));
             }>(47, "DefCellFormat", WriteCode::CopyFormat, true),
    Property<[](Ctrl& c) { return c.GuiDesignMode(); },
             [](Ctrl& c, bool mode) { c.SetGuiDesignMode(mode); }>(48, "GuiDesignMode",
                                                                   WriteCode::ChangeMode),

    Method<[](Ctrl& c, int32_t row, int32_t col) { c.Selected().SetActiveCell(row, col); }>(
        49, "SetActiveCell", "nRow nCol"),
    Method<[](Ctrl& c, int32_t* row, int32_t* col) { c.Selected().GetActiveCell(row, col); }>(
        50, "GetActiveCell", "pRow pCol"),
    Method<[](Ctrl& c, int32_t start, int32_t rows) { c.Operations().DeleteRows(start, rows); }>(
        51, "DeleteRows", "nStartRow nRows"),
    Method<[](Ctrl& c, int32_t start, int32_t rows) { c.Operations().InsertRows(start, rows); }>(
        52, "InsertRows", "nStartRow nRows"),
    Method<[](Ctrl& c, int32_t start, int32_t cols) { c.Operations().DeleteCols(start, cols); }>(
        53, "DeleteCols", "nStartCol nCols"),
    Method<[](Ctrl& c, int32_t start, int32_t cols) { c.Operations().InsertCols(start, cols); }>(
        54, "InsertCols", "nStartCol nCols"),
    Method<[](Ctrl& c, int32_t row1, int32_t col1, int32_t row2, int32_t col2, int16_t type) {
        c.Operations().ClearRange(row1, col1, row2, col2, type);
    }>(55, "ClearRange", "nRow1 nCol1 nRow2 nCol2 nClearType"),
    Method<[](Ctrl& c, int32_t row, int32_t col, const string& data, int16_t delimiter) {
        c.Store().SetRowData(row, col, data, static_cast<char>(delimiter));
    }>(56, "SetRowData", "nRow nStartCol pData cDelimeter"),
    Method<[](Ctrl& c, const string& name) { return c.Store().Params.RemoveParam(name); }>(
        57, "RemoveParam", "pName"),
    Method<[](Ctrl& c, const string& name) { return c.Store().Params.FindParam(name); }>(
        58, "FindParam", "pName"),
    Method<[](Ctrl& c) { return GetDSColumns(c.Store()).value_or(string()); }>(59, "GetDSColumns"),
    Method<[](Ctrl& c) { return GetDSTables(c.Store()).value_or(string()); }>(60, "GetDSTables"),
    Method<[](Ctrl& c) { return GetDSWhere(c.Store()); }>(61, "GetDSWhere"),
    Method<[](Ctrl& c, const string& value) { SetDSWhere(c.Store(), value); }>(62, "SetDSWhere",
                                                                               "lpszNewValue"),
    Method<[](Ctrl& c, int32_t col) { c.SetColAutoWidth(col); }>(63, "SetColAutoWidth",
                                                                 "nColIndex"),
    Method<[](Ctrl& c, const string& path) { return c.SaveFile(path); }>(64, "SaveFile", "pFile"),
    Method<[](Ctrl& c, int16_t x, int16_t y, int32_t* row, int32_t* col) {
        return c.ScreenPosToRC(x, y, row, col);
    }>(65, "ScreenPosToRC", "x y pRow pCol"),
    Method<[](Ctrl& c) { c.RemoveAllMenuItem(); }>(66, "RemoveAllMenuItem"),
    Method<[](Ctrl& c, int32_t item, const string& text) { c.AppendMenuItem(item, text); }>(
        67, "AppendMenuItem", "nMenuItem pItemText"),
    Method<[](Ctrl& c) { c.EditCopy(); }>(68, "EditCopy"),
    Method<[](Ctrl& c) { c.EditCut(); }>(69, "EditCut"),
    Method<[](Ctrl& c) { c.EditPaste(); }>(70, "EditPaste"),
    Method<[](Ctrl& c, int32_t row1, int32_t col1, int32_t row2, int32_t col2) {
        c.Selected().SetSelection(row1, col1, row2, col2);
    }>(71, "SetSelection", "nRow1 nCol1 nRow2 nCol2"),
    Method<[](Ctrl& c, int32_t item) { c.SendCommand(item); }>(72, "SendCommand", "nMenuItem"),
    Method<[](Ctrl& c) { return c.Store().Params.GetFirstParamPos(); }>(73, "GetFirstParamPos"),
    Method<[](Ctrl& c, int32_t* pos, string* name, string* value) {
        return c.GetNextParam(pos, name, value);
    }>(74, "GetNextParam", "pPos pName pValue"),
    Method<[](Ctrl& c, int32_t row1, int32_t col1, int32_t row2, int32_t col2) {
        return GetRangeText(c.Store(), row1, col1, row2, col2);
    }>(75, "GetRangeText", "nRow1 nCol1 nRow2 nCol2"),
    Method<[](Ctrl& c, int32_t row, int32_t col, const string& text) {
        SetTabbedText(c.Store(), row, col, text);
    }>(76, "SetTabbedText", "nStartRow nStartCol pText"),
    Method<[](Ctrl& c, const string& name) { return c.Store().Params.ParamExist(name); }>(
        77, "ParamExist", "pParamName"),
    Method<[](Ctrl& c) { return c.Store().Log.GetFirstModifiedLogPos(); }>(
        78, "GetFirstModifiedLogPos"),
    Method<[](Ctrl& c, int32_t* pos, int32_t* row, int32_t* col, int16_t* type) {
        if (pos != nullptr) {
            c.Store().Log.GetNextModifiedLog(*pos, row, col, type);
        }
    }>(79, "GetNextModifiedLog", "pos pRow pCol pModifiedType"),
    Method<[](Ctrl& c) { c.Store().Log.ResetModifiedLog(); }>(80, "ResetModifiedLog"),
    Method<[](Ctrl& c, const string& path, int16_t runQuery) {
        return c.OpenFile(path, runQuery);
    }>(81, "OpenFile", "pFile bRunQuery", 1),
    Method<[](Ctrl& c, int16_t getAllRecord) { return c.RunQuery(getAllRecord); }>(
        82, "RunQuery", "bGetAllRecord", 1),
    Method<[](Ctrl& c) { return c.EndEdit(); }>(83, "EndEdit"),
    Method<[](Ctrl& c, int32_t row, int32_t col) {
        return GetCellFormatText(c.Store(), row, col);
    }>(84, "GetCellFormatText", "nRow nCol"),
    Method<[](Ctrl& c) { return c.SaveToDB(); }>(85, "SaveToDB"),
    Method<[](Ctrl& c, int32_t row, int32_t col, const string& text) {
        c.Store().ModifyCellText(row, col, text);
    }>(86, "ModifyCellText", "nRow nCol pszNewText"),
    Method<[](Ctrl& c, int32_t row, const string& name, const string& text) {
        c.Store().ModifyCellTextByColName(row, name, text);
    }>(87, "ModifyCellTextByColName", "nRow pszColName pszNewText"),
    Method<[](Ctrl& c, int32_t row, const string& name) {
        return c.Store().GetCellTextByColName(row, name);
    }>(88, "GetCellTextByColName", "nRow pszColName"),
    Method<[](Ctrl& c) { return c.StartEdit(); }>(89, "StartEdit"),
    Method<[](Ctrl& c, GivenObject dataset) { c.BindDataset(dataset.Take()); }>(90, "BindDataset",
                                                                                "pDataset"),
    Method<[](Ctrl& c, int32_t row, int32_t col) { c.MakeCellVisible(row, col); }>(
        91, "MakeCellVisible", "nRow nCol"),
    Method<[](Ctrl& c) { c.ShowAlignDlg(); }>(92, "ShowAlignDlg"),
    Method<[](Ctrl& c) { c.ShowFontDlg(); }>(93, "ShowFontDlg"),
    Method<[](Ctrl& c, bool show) { c.ShowToolbox(show); }>(94, "ShowToolbox", "bShow"),
    Method<[](Ctrl& c) { c.ShowTabOrderDlg(); }>(95, "ShowTabOrderDlg"),
    Method<[](Ctrl& c) { return c.Selected().GetSelectionCount(); }>(96, "GetSelectionCount"),
    Method<[](Ctrl& c, int32_t index, int32_t* row1, int32_t* col1, int32_t* row2, int32_t* col2) {
        return c.GetSelection(index, row1, col1, row2, col2);
    }>(97, "GetSelection", "nIndex pnRow1 pnCol1 pnRow2 pnCol2"),
    Method<[](Ctrl& c, const FormObjectRef& object) {
        return c.CreateFormObject(object.object.Get());
    }>(98, "CreateFormObject", "pFormObject"),
    Method<[](Ctrl& c, int16_t source, int32_t layout, int32_t firstId) {
        return c.CreateAutoForm(source, layout, firstId);
    }>(99, "CreateAutoForm", "nDataSourceType nLayoutType nStartCtrlID"),
    Method<[](Ctrl& c) { c.ShowPrintSetupDlg(); }>(100, "ShowPrintSetupDlg"),
    Method<[](Ctrl& c, bool showDialog) { return c.Print(showDialog); }>(101, "Print",
                                                                         "bShowPrintDlg"),
    Method<[](Ctrl& c, int32_t frame) { return c.Preview(frame); }>(102, "Preview", "hCurFrmWnd"),

    Indexed<[](Ctrl& c, int32_t col) { return c.Store().ColWidth(col); },
            [](Ctrl& c, int32_t col, int32_t width) { c.Store().SetColWidth(col, width); }>(
        103, "ColWidth", "nCol"),
    Indexed<[](Ctrl& c, int32_t row) { return c.Store().RowHeader(row); },
            [](Ctrl& c, int32_t row, const string& text) { c.Store().SetRowHeader(row, text); }>(
        104, "RowHeader", "nRow"),
    Indexed<[](Ctrl& c, int32_t col) { return c.Store().ColHeader(col); },
            [](Ctrl& c, int32_t col, const string& text) { c.Store().SetColHeader(col, text); }>(
        105, "ColHeader", "nCol"),
    Indexed<[](Ctrl& c, int32_t row, int32_t col) { return c.Store().CellText(row, col); },
            [](Ctrl& c, int32_t row, int32_t col, const string& text) {
                c.Store().SetCellText(row, col, text);
            }>(106, "CellText", "nRow nCol"),
    Indexed<[](Ctrl& c, int32_t row, int32_t col) {
        return CellFormatRef{CellFormatObject::MakeCopy(c.Store().EffectiveFormat(row, col))};
    },
            [](Ctrl& c, int32_t row, int32_t col, const CellFormatRef& format) {
                c.Store().SetCellFormat(row, col, CellFormatObject::RecordOf(format.object.Get()));
            }>(107, "CellFormat", "nRow nCol", true),
    Indexed<[](Ctrl& c, int32_t row) { return c.Store().RowName(row); },
            [](Ctrl& c, int32_t row, const string& name) { c.Store().SetRowName(row, name); }>(
        108, "RowName", "nRow"),
    Indexed<[](Ctrl& c, int32_t col) { return c.Store().ColName(col); },
            [](Ctrl& c, int32_t col, const string& name) { c.Store().SetColName(col, name); }>(
        109, "ColName", "nCol"),
    Indexed<[](Ctrl& c, const string& name) {
        return c.Store().Params.GetParam(name).value_or(string());
    },
            [](Ctrl& c, const string& name, const string& value) {
                c.Store().SetParam(name, value);
            }>(110, "Param", "pName"),
    Indexed<[](Ctrl& c, int32_t col) { return c.Store().ColType(col); },
            [](Ctrl& c, int32_t col, int16_t type) { c.Store().SetColType(col, type); }>(
        111, "ColType", "nColIndex"),
    Indexed<[](Ctrl& c, int32_t row) { return c.Store().RowHeight(row); },
            [](Ctrl& c, int32_t row, int32_t height) { c.Store().SetRowHeight(row, height); }>(
        112, "RowHeight", "nRow"),
    Indexed<[](Ctrl& c, int32_t row, int32_t col) { return c.Store().CellShowFormat(row, col); },
            [](Ctrl& c, int32_t row, int32_t col, const string& text) {
                c.Store().SetCellShowFormat(row, col, text);
            }>(113, "CellShowFormat", "nRow nCol"),
    Indexed<[](Ctrl& c, int32_t col) { return c.Store().KeyColumnFlag(col); },
            [](Ctrl& c, int32_t col, int16_t flag) { c.Store().SetKeyColumnFlag(col, flag); }>(
        114, "KeyColumnFlag", "nColIndex"),
    // Null and nothing on purpose: form objects are made, never read back.
    Indexed<[](Ctrl&, int32_t) { return FormObjectRef{}; },
            [](Ctrl&, int32_t, const FormObjectRef&) {}>(115, "FormObject", "nObjIndex", true),

    Property<[](Ctrl& c) { return OleColor{c.ForeColor()}; },
             [](Ctrl& c, OleColor color) { c.SetForeColor(color.value); }>(
        DISPID_FORECOLOR, "ForeColor", WriteCode::None),
    Property<[](Ctrl& c) { return FontRef{c.FontObject()}; },
             [](Ctrl& c, const FontRef& font) { c.SetFontObject(font.object.Get()); }>(
        DISPID_FONT, "Font", WriteCode::None, true),
    Property<[](Ctrl& c) { return c.BorderStyle(); },
             [](Ctrl& c, int16_t style) { c.SetBorderStyle(style); }>(
        DISPID_BORDERSTYLE, "BorderStyle", WriteCode::None),
    Property<[](Ctrl& c) { return OleColor{c.BackColor()}; },
             [](Ctrl& c, OleColor color) { c.SetBackColor(color.value); }>(
        DISPID_BACKCOLOR, "BackColor", WriteCode::None),
    Property<[](Ctrl& c) { return c.Enabled(); },
             [](Ctrl& c, bool enabled) { c.SetEnabled(enabled); }>(DISPID_ENABLED, "Enabled",
                                                                   WriteCode::None, false, false),
    Method<[](Ctrl& c) { c.AboutBox(); }>(DISPID_ABOUTBOX, "AboutBox"),
};

}  // namespace

const DispatchTable& VeyGridTable() {
    static const DispatchTable table(Members);
    return table;
}

const AutomationClass VeyGridAutomation{VeyGridClassId, VeyGridDispatchId, &VeyGridEventsId,
                                        VeyGridTable};

}  // namespace veygrid
