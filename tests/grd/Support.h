// What the tests of the tool share: a console that records, files in memory, a rich grid.
#pragma once

#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "apps/grd/GrdMain.h"
#include "apps/grd/Trouble.h"
#include "persist/Archive.h"
#include "persist/GridFile.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

inline std::string Gbk(std::string_view utf8) {
    return CodePage936FromUtf8(utf8);
}

class RecordingConsole : public Console {
  public:
    void WriteOut(std::string_view utf8) override {
        if (Closed) {
            throw OutputClosed();
        }
        Out += utf8;
    }
    void WriteError(std::string_view utf8) override { Error += utf8; }
    bool OutIsTerminal() override { return IsTerminal; }
    std::ostream* ProgressStream() override { return nullptr; }

    bool Closed = false;
    bool IsTerminal = false;
    std::string Out;
    std::string Error;
};

// Files by path. A path in `Full` opens for writing and then has no room.
class MemoryFiles : public FileSystem {
  public:
    std::unique_ptr<ByteSource> OpenForReading(std::string_view path) override {
        const auto file = Content.find(std::string(path));
        return file == Content.end() ? nullptr : std::make_unique<MemorySource>(file->second);
    }
    std::unique_ptr<FileReplacement> Replace(std::string_view path) override {
        return path.starts_with("locked/")
                   ? nullptr
                   : std::make_unique<Replacement>(Content, std::string(path));
    }

    std::map<std::string, std::string> Content;

  private:
    class Replacement : public FileReplacement {
      public:
        Replacement(std::map<std::string, std::string>& files, std::string path)
            : m_files(files), m_path(std::move(path)) {}
        void Write(std::string_view bytes) override {
            if (m_path.starts_with("full/")) {
                throw ArchiveError("writing " + m_path + " failed at byte 0: no room", 0);
            }
            m_bytes += bytes;
        }
        void Commit() override { m_files[m_path] = m_bytes; }

      private:
        std::map<std::string, std::string>& m_files;
        std::string m_path;
        std::string m_bytes;
    };
};

// One call of the tool after another, on the same files.
class Tool {
  public:
    int Run(const std::vector<std::string>& arguments) {
        Terminal.Out.clear();
        Terminal.Error.clear();
        Session session(Terminal, Files, Pictures);
        return GrdMain(session, arguments);
    }
    // The standard output of a call.
    std::string Ask(const std::vector<std::string>& arguments) {
        Run(arguments);
        return Terminal.Out + Terminal.Error;
    }

    void Put(const std::string& path, Grid& grid) {
        MemorySink sink;
        ArchiveWriter archive(sink);
        GridFileHost host;
        WriteGrid(archive, grid.Store, grid.Document, host);
        archive.Close();
        Files.Content[path] = sink.Bytes;
    }

    RecordingConsole Terminal;
    MemoryFiles Files;
    PictureMaker* Pictures = nullptr;
};

// A grid with something in every part.
inline void FillRichly(Grid& grid) {
    GridStore& store = grid.Store;
    store.SetCellText(1, 1, Gbk("名称"));
    store.SetCellText(2, 2, "1234.5");
    store.SetCellText(3, 2, "2003-8-5");
    store.SetColHeader(1, Gbk("甲 & <乙>"));
    store.SetColName(2, "AMOUNT");
    store.SetColWidth(2, 90);
    store.SetRowHeight(2, 30);
    store.SetRowHeader(2, Gbk("行"));
    store.SetRowName(3, "r3");
    store.SetKeyColumnFlag(2, 1);
    store.Properties.MaxRow = 9;
    store.Properties.DataSource = Gbk("SELECT * FROM 表");
    store.Params.SetParam(Gbk("单位"), "42");
    CCellFormat format;
    format.SetHAlign(2);
    format.Foreground = 0x0000FF;
    format.Background = 0x00FF00;
    format.Font.lfWeight = 700;
    format.Font.lfHeight = -16;
    store.StoreCellFormat(1, 1, format);
    CCellFormat dates;
    dates.ShowFormat = "YYYY-MM-DD";
    store.StoreCellFormat(3, 2, dates);
    GuiObjRecord edit;
    edit.m_nCtrlID = 1001;
    edit.m_rcPos = {1, 2, 1, 2};
    edit.Window = MakeWindowRecord(edit.m_nType);
    std::get<FieldRecord>(edit.Window).Name = Gbk("编辑");
    grid.Document.m_guiObjects.push_back(edit);
    grid.Document.m_nNextCtrlID = 1002;
    grid.Document.BkImageBits = "picture";
    grid.Document.PrintDevNames = "names";
}

}  // namespace veygrid
