// A control's sheet with a dataset bound to it, as the data session works on it.
#include "apps/host/BoundSheet.h"

namespace veygrid {

namespace {

// The sheet cuts the number of its rows here when rows are put in, so that a sheet of exactly as
// many keeps its number. The name of the row behind the last tells then, for it moves with its row.
constexpr long CutRow = 65535;
constexpr const wchar_t* EndMark = L"~";
// What a column without a type or flag of its own reads.
constexpr long NoColumnEntry = 4;

std::vector<Variant> Indexes(SheetCell cell) {
    return {Variant::Of(cell.first), Variant::Of(cell.second)};
}

}  // namespace

class BoundSheet::Work {
  public:
    explicit Work(BoundSheet& sheet) : m_sheet(sheet), m_wasModified(sheet.IsModified()) {
        ++m_sheet.m_depth;
    }
    Work(const Work&) = delete;
    Work& operator=(const Work&) = delete;
    ~Work() {
        try {
            if (m_sheet.IsModified() != m_wasModified) {
                m_sheet.SetModified(m_wasModified);
            }
        } catch (const ComFault&) {
            // A control that refuses this is about to close.
        }
        --m_sheet.m_depth;
    }

  private:
    BoundSheet& m_sheet;
    bool m_wasModified;
};

void BoundSheet::Bind(IDispatch* dataset) {
    const Work work(*this);
    m_dataset = dataset;
    // The control takes over a reference of its caller's.
    if (dataset != nullptr) {
        dataset->AddRef();
    }
    m_grid.Call(L"BindDataset", {Variant::Of(dataset)});
    MarkEnd();
}

void BoundSheet::MarkEnd() {
    if (m_grid.Get(L"MaxRow").Number() == CutRow) {
        m_grid.Put(L"RowName", Variant::Of(EndMark), {Variant::Of(CutRow + 1)});
    }
}

bool BoundSheet::HasSize(long rows, long cols) const {
    return m_grid.Get(L"MaxRow").Number() == rows && m_grid.Get(L"MaxCol").Number() == cols &&
           (rows != CutRow || m_grid.Get(L"RowName", {Variant::Of(CutRow + 1)}).Text() == EndMark);
}

SheetCell BoundSheet::ActiveCell() const {
    SheetCell cell;
    m_grid.Call(L"GetActiveCell",
                {Variant::ByReference(cell.first), Variant::ByReference(cell.second)});
    return cell;
}

std::vector<SheetCell> BoundSheet::LoggedCells() const {
    std::vector<SheetCell> cells;
    long position = m_grid.Call(L"GetFirstModifiedLogPos").Number();
    while (position != 0) {
        SheetCell cell;
        short kind = 0;
        m_grid.Call(L"GetNextModifiedLog",
                    {Variant::ByReference(position), Variant::ByReference(cell.first),
                     Variant::ByReference(cell.second), Variant::ByReference(kind)});
        cells.push_back(cell);
    }
    return cells;
}

std::vector<std::wstring> BoundSheet::TypedTexts(const std::vector<SheetCell>& cells) {
    const Work work(*this);
    const ComPtr<IDispatch> dataset = m_dataset;
    std::vector<std::wstring> texts;
    Bind(nullptr);
    try {
        for (const SheetCell& cell : cells) {
            texts.push_back(m_grid.Get(L"CellText", Indexes(cell)).Text());
        }
    } catch (...) {
        Bind(dataset.Get());
        throw;
    }
    Bind(dataset.Get());
    return texts;
}

bool BoundSheet::EndEdit() {
    return m_grid.Call(L"EndEdit").Number() != 0;
}

void BoundSheet::ForgetTyped() {
    const Work work(*this);
    for (const auto& [row, col] : LoggedCells()) {
        ClearTexts(row, col, row, col);
    }
    m_grid.Call(L"ResetModifiedLog");
}

void BoundSheet::Rewrite(const std::vector<Typed>& texts) {
    const Work work(*this);
    ClearTexts(-1, -1, -1, -1);
    m_grid.Call(L"ResetModifiedLog");
    FollowDataset();
    for (const Typed& typed : texts) {
        std::vector<Variant> arguments = Indexes(typed.cell);
        arguments.push_back(Variant::Of(typed.text));
        m_grid.Call(L"ModifyCellText", std::move(arguments));
    }
}

void BoundSheet::RemoveRow(long row) {
    const Work work(*this);
    m_grid.Call(L"DeleteRows", {Variant::Of(row), Variant::Of(1L)});
    FollowDataset();
}

// The whole sheet where all are -1.
void BoundSheet::ClearTexts(long row1, long col1, long row2, long col2) {
    constexpr long textsAlone = 2;
    m_grid.Call(L"ClearRange", {Variant::Of(row1), Variant::Of(col1), Variant::Of(row2),
                                Variant::Of(col2), Variant::Of(textsAlone)});
}

// Binding anew asks the dataset for its rows and names, and repaints.
void BoundSheet::FollowDataset() {
    Bind(ComPtr<IDispatch>(m_dataset).Get());
}

void BoundSheet::GoTo(SheetCell cell) {
    const Work work(*this);
    m_grid.Call(L"SetActiveCell", Indexes(cell));
    m_grid.Call(L"MakeCellVisible", Indexes(cell));
}

void BoundSheet::SetLogMode(long mode) {
    const Work work(*this);
    m_grid.Put(L"ModifiedLog", Variant::Of(mode));
}

void BoundSheet::DescribeColumn(long number, const Column& column) {
    const Work work(*this);
    const std::vector<Variant> index{Variant::Of(number)};
    if (m_grid.Get(L"ColType", index).Number() != NoColumnEntry ||
        m_grid.Get(L"KeyColumnFlag", index).Number() != NoColumnEntry) {
        return;
    }
    m_grid.Put(L"ColType", Variant::Of(column.type), index);
    m_grid.Put(L"KeyColumnFlag", Variant::Of(column.isKey ? 1L : 0L), index);
    if (column.dataType != 0) {
        const Variant format = m_grid.Get(L"CellFormat", Indexes({0, number}));
        Automation(ComPtr<IDispatch>(format.pdispVal))
            .Put(L"DataType", Variant::Of(column.dataType));
        m_grid.Put(L"CellFormat", format, Indexes({0, number}));
    }
}

}  // namespace veygrid
