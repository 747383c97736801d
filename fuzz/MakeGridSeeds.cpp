// Writes seeds for the grid file's fuzz target with the system's own writer: files of this version
// and of the older ones. Use: GridFile_seeds FOLDER
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "persist/GridFile.h"
#include "valuetext/CodePage936.h"

namespace veygrid {
namespace {

struct Sheet {
    StoreWatcher Watcher;
    GridStore Store{Watcher};
    GridDocument Document;
};

std::string BytesOf(Sheet& sheet) {
    MemorySink sink;
    GridFileHost host;
    ArchiveWriter archive(sink);
    WriteGrid(archive, sheet.Store, sheet.Document, host);
    archive.Close();
    return sink.Bytes;
}

void FillSheet(GridStore& store) {
    store.SetCellText(1, 1, CodePage936FromUtf16(u"数据网格"));
    store.SetCellText(2, 3, "2003-08-14");
    store.SetCellText(100, 100, std::string(300, 'x'));
    store.SetRowHeight(2, 40);
    store.SetColWidth(3, 0);
    store.SetRowHeader(1, "r");
    store.SetColHeader(1, "c");
    store.SetRowName(1, "first");
    store.SetColName(1, "T.A");
    store.SetColType(3, 3);
    store.SetKeyColumnFlag(1, 1);
    store.SetCellShowFormat(1, 1, "[RMB_UPPER]");
    store.Params.SetParam("name", "value");
    store.Properties.DataSource = "SELECT T.A FROM T";
}

void AddFormObjects(GridDocument& document) {
    for (std::uint16_t type = 0; type <= 9; ++type) {
        GuiObjRecord object;
        object.m_nType = type;
        object.m_nCtrlID = document.m_nNextCtrlID++;
        object.m_rcPos = {1, 2, 3, 4};
        object.Window = MakeWindowRecord(type);
        if (auto* label = std::get_if<LabelRecord>(&object.Window)) {
            label->LogFont = LogFont{};
            label->HDib = "dib";
        }
        document.m_guiObjects.push_back(object);
    }
}

// The same stream under an older banner of the same shape, cut where that version ended.
std::string WithBanner(const std::string& bytes, const std::string& version, std::size_t cut) {
    const std::string banner = std::string(BannerPrefix) + version;
    std::string older(1, static_cast<char>(banner.size()));
    older += banner;
    older += bytes.substr(1 + CurrentBanner.size());
    older.resize(older.size() - cut);
    return older;
}

void Save(const std::filesystem::path& folder, const char* name, const std::string& bytes) {
    std::ofstream(folder / name, std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

void MakeSeeds(const std::filesystem::path& folder) {
    constexpr std::size_t PrinterBytes = 8;
    constexpr std::size_t QuerySwitchBytes = 4;
    constexpr std::size_t SwitchBytes = 8;
    Sheet empty;
    const std::string smallest = BytesOf(empty);
    Save(folder, "empty", smallest);
    Save(folder, "version-1.1.1", WithBanner(smallest, "1.1.1", PrinterBytes));
    Save(folder, "version-1.1", WithBanner(smallest, "1.1", PrinterBytes + QuerySwitchBytes));
    Save(folder, "version-1.0",
         WithBanner(smallest, "1.0", PrinterBytes + QuerySwitchBytes + SwitchBytes));
    Save(folder, "cut-short", smallest.substr(0, smallest.size() - 9));
    Sheet cells;
    FillSheet(cells.Store);
    Save(folder, "cells", BytesOf(cells));
    Sheet form;
    AddFormObjects(form.Document);
    form.Document.BkImageBits = std::string(40, '\x28');
    form.Document.PrintDevNames = "printer";
    form.Document.PrintDevMode = std::string(16, '\1');
    Save(folder, "form", BytesOf(form));
    Save(folder, "foreign", "PK\3\4 no grid file");
}

}  // namespace
}  // namespace veygrid

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("use: GridFile_seeds FOLDER\n", stderr);
        return 2;
    }
    std::filesystem::create_directories(argv[1]);
    veygrid::MakeSeeds(argv[1]);
    return 0;
}
