// A full repaint of a filled sheet to memory, against the grids of two toolkits.
#include <wx/app.h>
#include <wx/dcmemory.h>
#include <wx/frame.h>
#include <wx/grid.h>

#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QPainter>
#include <QStandardItemModel>
#include <QTableView>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "apps/grd/NoControl.h"
#include "bench/Ratio.h"
#include "grid/GridStore.h"
#include "platform/cairo/CairoPicture.h"
#include "screen/SheetDrawing.h"
#include "valuetext/CodePage936.h"

namespace veygrid::bench {
namespace {

constexpr int Width = 1600;
constexpr int Height = 1000;
constexpr int RowHeaderWidth = 60;
constexpr int ColHeaderHeight = 20;
// Wide enough for every text with the margins of each of them: none is cut or shortened.
constexpr int CellWidth = 77;
constexpr int CellHeight = 20;
constexpr int Columns = (Width - RowHeaderWidth) / CellWidth;
constexpr int Rows = (Height - ColHeaderHeight) / CellHeight;
constexpr const char* Face = "WenQuanYi Zen Hei";
constexpr int CharacterHeight = 12;

// In UTF-8: a code, a name, a date and an amount.
std::string TextOf(int row, int col) {
    constexpr std::array<const char*, 6> names{"东方明", "欧阳静", "司徒远",
                                               "财务部", "仓储部", "信息中心"};
    switch (col % 4) {
        case 0:
            return "P" + std::to_string(1000 + row * 31 + col);
        case 1:
            return names[static_cast<std::size_t>(row + col) % names.size()];
        case 2:
            return "2024-" + std::to_string(10 + row % 3) + "-" + std::to_string(10 + row % 19);
        default:
            return std::to_string(100 + row * col) + ".25";
    }
}

template <class Visit>
void ForEachCell(Visit visit) {
    for (int row = 0; row < Rows; ++row) {
        for (int col = 0; col < Columns; ++col) {
            visit(row, col);
        }
    }
}

LogFont FontRecord() {
    LogFont font{.lfHeight = -CharacterHeight, .lfWeight = 400};
    std::copy_n(Face, std::string_view(Face).size(), font.lfFaceName.begin());
    return font;
}

class OurSheet {
  public:
    OurSheet() {
        GridProperties& properties = m_store.Properties;
        properties.MaxRow = Rows;
        properties.MaxCol = Columns;
        properties.RowHeaderWidth = RowHeaderWidth;
        properties.ColHeaderHeight = ColHeaderHeight;
        properties.DefCellWidth = CellWidth;
        properties.DefCellHeight = CellHeight;
        ForEachCell([&](int row, int col) {
            m_store.SetCellText(row + 1, col + 1, CodePage936FromUtf8(TextOf(row, col)));
        });
    }

    void Paint() {
        const DrawingContext context{m_store, m_selection, m_view, m_control, m_colors};
        const Rect bounds{0, 0, Width, Height};
        OnDraw(context, m_image, m_picture.Canvas(), bounds, bounds);
        cairo_surface_flush(m_picture.Image());
    }
    void Save(const std::string& path) {
        cairo_surface_write_to_png(m_picture.Image(), path.c_str());
    }

  private:
    StoreWatcher m_watcher;
    GridStore m_store{m_watcher};
    StockProperties m_stock;
    NoControl m_control{m_stock};
    Selection m_selection{m_store, m_control};
    Layout m_view{m_store};
    std::string m_noImage;
    BackgroundImage m_image{m_noImage};
    SystemColors m_colors = SystemColors::Read(UsualSystemColor);
    CairoFonts m_fonts{{1, true}};
    MemoryPicture m_picture{m_fonts, {Width, Height, FontRecord()}};
};

class QtSheet {
  public:
    QtSheet() {
        ForEachCell([&](int row, int col) {
            m_model.setItem(row, col, new QStandardItem(QString::fromStdString(TextOf(row, col))));
        });
        QFont font(Face);
        font.setPixelSize(CharacterHeight);
        m_view.setFont(font);
        m_view.setModel(&m_model);
        m_view.setTextElideMode(Qt::ElideNone);
        m_view.setFrameShape(QFrame::NoFrame);
        m_view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        m_view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        m_view.horizontalHeader()->setMinimumSectionSize(1);
        m_view.horizontalHeader()->setDefaultSectionSize(CellWidth);
        m_view.verticalHeader()->setMinimumSectionSize(1);
        m_view.verticalHeader()->setDefaultSectionSize(CellHeight);
        m_view.horizontalHeader()->setFixedHeight(ColHeaderHeight);
        m_view.verticalHeader()->setFixedWidth(RowHeaderWidth);
        m_view.resize(Width, Height);
        m_view.show();
        QApplication::processEvents();
    }

    void Paint() { m_view.render(&m_image); }
    void Save(const std::string& path) { m_image.save(QString::fromStdString(path)); }

  private:
    QStandardItemModel m_model{Rows, Columns};
    QTableView m_view;
    QImage m_image{Width, Height, QImage::Format_RGB32};
};

class WxSheet {
  public:
    WxSheet() : m_frame(new wxFrame(nullptr, wxID_ANY, "sheet")), m_grid(new wxGrid(m_frame, 1)) {
        m_grid->CreateGrid(Rows, Columns);
        const wxFont font(wxFontInfo(wxSize(0, CharacterHeight)).FaceName(Face));
        m_grid->SetDefaultCellFont(font);
        m_grid->SetLabelFont(font);
        m_grid->SetRowLabelSize(RowHeaderWidth);
        m_grid->SetColLabelSize(ColHeaderHeight);
        m_grid->SetDefaultColSize(CellWidth, true);
        m_grid->SetDefaultRowSize(CellHeight, true);
        ForEachCell([&](int row, int col) {
            m_grid->SetCellValue(row, col, wxString::FromUTF8(TextOf(row, col).c_str()));
        });
    }
    ~WxSheet() { m_frame->Destroy(); }
    WxSheet(const WxSheet&) = delete;
    WxSheet& operator=(const WxSheet&) = delete;

    void Paint() {
        wxMemoryDC context(m_bitmap);
        context.SetBackground(*wxWHITE_BRUSH);
        context.Clear();
        m_grid->Render(context);
    }
    void Save(const std::string& path) {
        wxImage::AddHandler(new wxPNGHandler);
        m_bitmap.SaveFile(path, wxBITMAP_TYPE_PNG);
    }

  private:
    wxFrame* m_frame;
    wxGrid* m_grid;
    wxBitmap m_bitmap{Width, Height, 24};
};

// Where a folder is named, the painted sheets are put there, to see that they are alike.
template <class Sheet>
void SaveIfAsked(Sheet& sheet, const char* name) {
    sheet.Paint();
    if (const char* const folder = std::getenv("VEYGRID_PAINTED")) {
        sheet.Save(std::string(folder) + "/" + name + ".png");
    }
}

template <class Peer>
void Compare(const char* peerName, OurSheet& ours, Peer& peer) {
    constexpr int rounds = 15;
    Ratio(std::string("repaint of 1600 x 1000, against ") + peerName, 0.7)
        .Run([&] { return Seconds([&] { ours.Paint(); }); },
             [&] { return Seconds([&] { peer.Paint(); }); }, rounds);
}

int Run() {
    OurSheet ours;
    QtSheet qt;
    WxSheet wx;
    SaveIfAsked(ours, "ours");
    SaveIfAsked(qt, "qt");
    SaveIfAsked(wx, "wx");
    Compare("QTableView", ours, qt);
    Compare("wxGrid", ours, wx);
    return 0;
}

}  // namespace
}  // namespace veygrid::bench

int main(int count, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, arguments);
    wxApp::SetInstance(new wxApp);
    wxEntryStart(count, arguments);
    const int code = veygrid::bench::Run();
    wxEntryCleanup();
    return code;
}
