// Saving a grid to a file and opening one, as hosts and menu commands ask for it.
#include "persist/FileCommands.h"

#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

const std::string& CreationFailedText() {
    static const std::string text = CodePage936FromUtf16(u"文件创建失败!");
    return text;
}

void ReadWhole(ByteSource& file, GridStore& store, GridDocument& document, GridFileHost& host) {
    ArchiveReader archive(file);
    ReadGrid(archive, store, document, host);
}

}  // namespace

bool SaveFile(FileSystem& files, std::string_view path, const GridStore& store,
              GridDocument& document, GridFileHost& host) {
    const std::unique_ptr<FileReplacement> file = files.Replace(path);
    if (file == nullptr) {
        host.ShowMessage(CreationFailedText(), StopMessageStyle);
        return false;
    }
    ArchiveWriter archive(*file);
    WriteGrid(archive, store, document, host);
    archive.Close();
    file->Commit();
    return true;
}

std::int16_t OpenFile(FileSystem& files, std::string_view path, std::int16_t /*bRunQuery*/,
                      GridStore& store, GridDocument& document, GridFileHost& host) {
    std::unique_ptr<ByteSource> file = files.OpenForReading(path);
    if (file == nullptr) {
        return 0;
    }
    ReadWhole(*file, store, document, host);
    // Closed before the query: it may take the file as its own.
    file.reset();
    if (!store.Properties.DataSource.empty()) {
        host.RunQuery(0);
    }
    return 1;
}

}  // namespace veygrid
