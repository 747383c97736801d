// A small sheet that draws itself on a recording surface.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "Golden.h"
#include "grid/GridStore.h"
#include "grid/Selection.h"
#include "grid/SheetRecorder.h"
#include "platform/recording/RecordingSurface.h"
#include "screen/BackgroundImage.h"
#include "screen/DrawingContext.h"
#include "screen/SelectionDrawing.h"
#include "screen/SheetDrawing.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

inline std::string Gbk(std::string_view utf8) {
    return CodePage936FromUtf8(utf8);
}
inline std::string Gbk(std::u8string_view utf8) {
    return CodePage936FromUtf8({reinterpret_cast<const char*>(utf8.data()), utf8.size()});
}

// System colour n is 0xCC00nn.
inline constexpr Color SystemColorOf(std::uint32_t index) {
    return 0xCC0000U + index;
}

// Its calls stand between those of the surface.
class RecordingDrawingHost : public DrawingHost {
  public:
    using Handler = std::function<void(std::int32_t, std::int32_t, CCellFormat&)>;

    bool HasWindow() const override { return hasWindow; }
    std::uint32_t GetForeColor() const override { return 0x80000008U; }
    std::uint32_t AmbientBackColor() const override { return 0x80000005U; }
    Color TranslateColor(std::uint32_t color) const override {
        return (color & 0x80000000U) != 0 ? SystemColorOf(color & 0xFFU) : color;
    }
    bool ListensToRequestCellFormat() const override { return handler != nullptr; }
    void FireRequestCellFormat(std::int32_t row, std::int32_t col, CCellFormat& format) override {
        Remark("RequestCellFormat " + std::to_string(row) + "," + std::to_string(col));
        handler(row, col, format);
    }
    const ComboBoxes* Combos() const override { return combos; }
    bool InEdit() const override { return inEdit; }

    bool GuiDesignMode() const override { return guiDesignMode; }
    void DrawObjectsWindowless(Surface& /*surface*/) override { Remark("DrawObjectsWindowless"); }
    void DrawSnapGrid(Surface& /*surface*/) override { Remark("DrawSnapGrid"); }
    void DrawSelectionTrackers(Surface& /*surface*/) override { Remark("DrawSelectionTrackers"); }
    void PlaceFormObjects(bool force) override {
        Remark(force ? "PlaceFormObjects TRUE" : "PlaceFormObjects FALSE");
    }

    void OnPrepareDC(Surface& /*surface*/) override { Remark("OnPrepareDC"); }
    std::int32_t FirstRowOfPage(const Rect& bounds) override {
        Remark("FirstRowOfPage " + std::to_string(bounds.right) + "x" +
               std::to_string(bounds.bottom));
        return firstRowOfPage;
    }
    void CurrentPageIsLast() override { Remark("CurrentPageIsLast"); }

    bool hasWindow = true;
    bool inEdit = false;
    bool guiDesignMode = false;
    std::int32_t firstRowOfPage = 1;
    Handler handler;
    const ComboBoxes* combos = nullptr;
    RecordingSurface* surface = nullptr;

  private:
    void Remark(std::string line) {
        if (surface != nullptr) {
            surface->Remark(std::move(line));
        }
    }
};

// Three rows of 18 and two columns of 40 pixels in a window of 150 by 90, with headers of 30 and 20
// pixels: 40 pixels are left on the right and 16 below.
class DrawingTest : public testing::Test {
  protected:
    DrawingTest() {
        properties.MaxRow = 3;
        properties.MaxCol = 2;
        properties.DefCellWidth = 40;
        properties.RowHeaderWidth = 30;
    }

    void HideHeaders() {
        properties.ShowRowHeaders = false;
        properties.ShowColHeaders = false;
    }
    void SetSize(std::int32_t rows, std::int32_t cols) {
        properties.MaxRow = rows;
        properties.MaxCol = cols;
    }
    template <class Change>
    void Format(std::int32_t row, std::int32_t col, Change change) {
        CCellFormat format = store.EffectiveFormat(row, col);
        change(format);
        store.StoreCellFormat(row, col, format);
    }

    // One line for each call of a paint.
    std::string Draw() {
        RecordingSurface surface;
        surface.m_isPrinting = isPrinting;
        host.surface = &surface;
        OnDraw(context, image, surface, bounds, {});
        host.surface = nullptr;
        return surface.Dump();
    }
    // The calls of a paint whose lines begin so.
    Lines DrawnCalls(std::string_view beginning) { return LinesThatBegin(Draw(), beginning); }
    // The calls behind the cells.
    std::string DrawnMarks() {
        static constexpr std::string_view LastOfCells = "SelectFormerFont\n";
        const std::string dump = Draw();
        return dump.substr(dump.rfind(LastOfCells) + LastOfCells.size());
    }
    static Lines LinesThatBegin(const std::string& dump, std::string_view beginning) {
        Lines lines;
        std::istringstream stream(dump);
        for (std::string line; std::getline(stream, line);) {
            if (line.starts_with(beginning)) {
                lines.push_back(line);
            }
        }
        return lines;
    }

    SheetRecorder recorder;
    GridStore store{recorder};
    GridProperties& properties = store.Properties;
    Selection selection{store, recorder};
    Layout layout{store};
    RecordingDrawingHost host;
    DrawingContext context{store, selection, layout, host, SystemColors::Read(SystemColorOf)};
    std::string bkImageBits;
    BackgroundImage image{bkImageBits};
    Rect bounds{0, 0, 150, 90};
    bool isPrinting = false;
};

}  // namespace veygrid
