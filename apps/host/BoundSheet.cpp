// A control's sheet with a dataset bound to it, as the data session works on it.
#include "apps/host/BoundSheet.h"

#include <algorithm>
#include <array>

namespace veygrid {

namespace {

// The sheet cuts the number of its rows here when rows are put in, so that a sheet of exactly as
// many keeps its number. The name of the row behind the last tells then, for it moves with its row.
constexpr long CutRow = 65535;
constexpr const wchar_t* EndMark = L"~";
// What a column without a type or flag of its own reads.
constexpr long NoColumnEntry = 4;

// By which formats are told apart; their fonts are bytes.
constexpr std::array FormatMembers{L"DataType",   L"ShowFormat", L"HAlign",  L"VAlign",
                                   L"Foreground", L"Background", L"ReadOnly"};

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
    const Variant textsAlone = Variant::Of(2L);
    for (const auto& [row, col] : LoggedCells()) {
        const Variant atRow = Variant::Of(row);
        const Variant atCol = Variant::Of(col);
        m_grid.Call(L"ClearRange", {atRow, atCol, atRow, atCol, textsAlone});
    }
    m_grid.Call(L"ResetModifiedLog");
}

// What was typed moves as its entries in the log do, wherever they went.
void BoundSheet::Rewrite(const std::vector<Typed>& texts) {
    const Work work(*this);
    ForgetTyped();
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
    const Variant own = m_grid.Get(L"CellFormat", Indexes({0, number}));
    const bool isKept = HasOwnFormat(number);
    m_grid.Put(L"ColType", Variant::Of(column.type), index);
    m_grid.Put(L"KeyColumnFlag", Variant::Of(column.isKey ? 1L : 0L), index);
    if (isKept) {
        m_grid.Put(L"CellFormat", own, Indexes({0, number}));
    } else if (column.dataType != 0) {
        const Variant format = m_grid.Get(L"CellFormat", Indexes({0, number}));
        Automation(ComPtr<IDispatch>(format.pdispVal))
            .Put(L"DataType", Variant::Of(column.dataType));
        m_grid.Put(L"CellFormat", format, Indexes({0, number}));
    }
}

// Whether it looks other than a column that nobody has touched, far to the right.
bool BoundSheet::HasOwnFormat(long column) const {
    constexpr long untouched = 1000000;
    const auto formatOf = [this](long number) {
        const Variant format = m_grid.Get(L"CellFormat", Indexes({0, number}));
        return Automation(ComPtr<IDispatch>(format.pdispVal));
    };
    const Automation own = formatOf(column);
    const Automation other = formatOf(untouched);
    const auto differs = [&](const wchar_t* name) {
        return own.Get(name).Text() != other.Get(name).Text();
    };
    return std::ranges::any_of(FormatMembers, differs);
}

void BoundSheet::SetKeyFlag(long column, long flag) {
    const Work work(*this);
    m_grid.Put(L"KeyColumnFlag", Variant::Of(flag), {Variant::Of(column)});
}

}  // namespace veygrid
