// The command that draws the sheet as a picture.
#include <cmath>
#include <limits>

#include "apps/grd/CellAddress.h"
#include "apps/grd/Commands.h"
#include "apps/grd/ConsoleOutput.h"
#include "apps/grd/NoControl.h"
#include "apps/grd/Trouble.h"
#include "platform/SystemPalette.h"
#include "screen/LineWalk.h"
#include "screen/SheetDrawing.h"

namespace veygrid {

namespace {

// A picture of more pixels would take more than a gigabyte of memory.
constexpr double MostPixels = 250'000'000;

// The lines of a range on one axis: those named, or, where the range names none, those that have
// been in use, or the whole sheet where none has. Never more than the sheet has.
LineSpan LinesToDraw(const GridStore& store, const std::optional<CellRange>& range, Axis axis) {
    const GridProperties& properties = store.Properties;
    const std::int32_t last = axis == Axis::Rows ? properties.LastRow : properties.LastCol;
    const std::int32_t most = MaxLine(store, axis);
    LineSpan lines = range ? LinesOf(*range, axis) : LineSpan{0, 0};
    if (lines.first == 0) {
        lines = {1, last > 0 ? last : most};
    }
    return {lines.first, std::min(lines.last, most)};
}

CellRange RangeToDraw(const GridStore& store, const RenderOptions& options) {
    const LineSpan rows = LinesToDraw(store, options.range, Axis::Rows);
    const LineSpan cols = LinesToDraw(store, options.range, Axis::Cols);
    if (rows.Count() < 1 || cols.Count() < 1) {
        throw FileTrouble(options.file, "there is nothing to draw: the sheet has " +
                                            std::to_string(store.Properties.MaxRow) + " rows and " +
                                            std::to_string(store.Properties.MaxCol) + " columns");
    }
    return {rows.first, cols.first, rows.last, cols.last};
}

struct Extent {
    std::int64_t Width;
    std::int64_t Height;
};

// Pixels that the range takes with its headers.
Extent ExtentOf(const GridStore& store, const CellRange& range) {
    const GridProperties& properties = store.Properties;
    const auto length = [&](Axis axis, std::int32_t header) {
        const LineSpan lines = LinesOf(range, axis);
        return WalkLines(store, axis, lines.first, std::int64_t{lines.last} + 1, header,
                         std::numeric_limits<std::int64_t>::max())
            .end;
    };
    return {length(Axis::Cols, properties.ShowRowHeaders ? properties.RowHeaderWidth : 0),
            length(Axis::Rows, properties.ShowColHeaders ? properties.ColHeaderHeight : 0)};
}

std::string InPixels(std::int64_t width, std::int64_t height) {
    return std::to_string(width) + " x " + std::to_string(height) + " pixels";
}

Extent Scaled(const Extent& extent, double scale) {
    return {std::llround(static_cast<double>(extent.Width) * scale),
            std::llround(static_cast<double>(extent.Height) * scale)};
}

void CheckExtent(const RenderOptions& options, const Extent& extent) {
    if (extent.Width < 1 || extent.Height < 1) {
        throw FileTrouble(options.file, "there is nothing to draw: all rows or columns are hidden");
    }
    const Extent size = Scaled(extent, options.scale);
    const std::int32_t most = MostPictureSide(options.form);
    const double area = static_cast<double>(size.Width) * static_cast<double>(size.Height);
    if (extent.Width > most || extent.Height > most || size.Width > most || size.Height > most ||
        area > MostPixels) {
        throw FileTrouble(options.file, "a picture of " + InPixels(size.Width, size.Height) +
                                            " is too large: at most " + InPixels(most, most) +
                                            " and " +
                                            std::to_string(static_cast<int>(MostPixels / 1e6)) +
                                            " million of them; --range draws a part");
    }
}

void DrawSheet(Grid& grid, const CellRange& range, const Extent& extent, Surface& surface) {
    NoControl control(grid.Document.Stock);
    // Row 0 is on no picture.
    grid.Store.ActiveRow = 0;
    grid.Store.ActiveCol = 0;
    const Selection nothing(grid.Store, control);
    Layout view(grid.Store);
    view.m_rcClient = {0, 0, static_cast<std::int32_t>(extent.Width),
                       static_cast<std::int32_t>(extent.Height)};
    view.FirstVisibleRow = range.Row1;
    view.FirstVisibleCol = range.Col1;
    view.m_visible = view.CalcVisible(view.m_rcClient, false, range.Row1, range.Col1);
    const DrawingContext context{grid.Store, nothing, view, control,
                                 SystemColors::Read(UsualSystemColor)};
    DrawView(context, surface, view.m_rcClient);
}

void WritePicture(Session& session, const RenderOptions& options,
                  const std::function<void(ByteSink&)>& write) {
    if (!options.output.empty()) {
        ReplaceFile(session, options.output, 0, write);
        return;
    }
    ConsoleSink sink(session.Terminal);
    write(sink);
}

}  // namespace

int RunCommand(Session& session, const RenderOptions& options) {
    if (session.Pictures == nullptr) {
        throw UsageTrouble("render: this build of grd draws no pictures");
    }
    if (!options.output.empty() && IsSameFile(options.file, options.output)) {
        throw UsageTrouble("render: " + options.output + " cannot be read and written at once");
    }
    if (options.output.empty() && session.Terminal.OutIsTerminal()) {
        throw UsageTrouble("render: a picture is nothing for a terminal; send it to a file");
    }
    Grid& grid = LoadGrid(session, options.file);
    const CellRange range = RangeToDraw(grid.Store, options);
    const Extent extent = ExtentOf(grid.Store, range);
    CheckExtent(options, extent);
    WritePicture(session, options, [&](ByteSink& sink) {
        const auto picture =
            session.Pictures->Begin({options.form, static_cast<std::int32_t>(extent.Width),
                                     static_cast<std::int32_t>(extent.Height), options.scale,
                                     grid.Document.Stock.Font, FileNameOf(options.file)},
                                    sink);
        DrawSheet(grid, range, extent, picture->Canvas());
        picture->Finish();
    });
    if (!options.output.empty()) {
        const Extent size = Scaled(extent, options.scale);
        session.Terminal.WriteOut(options.output + ": " + InPixels(size.Width, size.Height) + "\n");
    }
    return ExitOk;
}

}  // namespace veygrid
