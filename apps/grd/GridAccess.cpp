// Grid files as the commands open and write them, with failures told in their terms.
#include "apps/grd/GridAccess.h"

#include <filesystem>
#include <optional>
#include <system_error>

#include "apps/grd/Trouble.h"
#include "persist/Archive.h"

namespace veygrid {

namespace {

namespace fs = std::filesystem;

fs::path PathFromUtf8(const std::string& path) {
    return {std::u8string(path.begin(), path.end())};
}

// Why a file does not open; the port tells only that it does not.
std::string WhyUnreadable(const std::string& path) {
    std::error_code error;
    const fs::file_status status = fs::status(PathFromUtf8(path), error);
    switch (status.type()) {
        case fs::file_type::not_found:
            return "no such file";
        case fs::file_type::directory:
            return "is a folder";
        case fs::file_type::none:
            return error.message();
        default:
            return "may not be read";
    }
}

std::string WhyUnwritable(const std::string& path) {
    std::error_code error;
    if (fs::is_directory(PathFromUtf8(path), error)) {
        return "is a folder";
    }
    const fs::path folder = PathFromUtf8(path).parent_path();
    if (!folder.empty() && !fs::is_directory(folder, error)) {
        return "there is no such folder";
    }
    return "may not be written";
}

class ProgressSource final : public ByteSource {
  public:
    ProgressSource(ByteSource& source, Progress& progress)
        : m_source(source), m_progress(progress) {}

    std::uint64_t Size() const override { return m_source.Size(); }
    std::size_t Read(char* buffer, std::size_t room) override {
        const std::size_t got = m_source.Read(buffer, room);
        m_progress.Reach(m_done += got);
        return got;
    }

  private:
    ByteSource& m_source;
    Progress& m_progress;
    std::uint64_t m_done = 0;
};

class ProgressSink final : public ByteSink {
  public:
    ProgressSink(ByteSink& sink, Progress& progress) : m_sink(sink), m_progress(progress) {}

    void Write(std::string_view bytes) override {
        m_sink.Write(bytes);
        m_progress.Reach(m_done += bytes.size());
    }

  private:
    ByteSink& m_sink;
    Progress& m_progress;
    std::uint64_t m_done = 0;
};

// Keeps the rectangle that the file had: writing asks the host for the present one.
class KeepingHost final : public GridFileHost {
  public:
    explicit KeepingHost(const StoredRect& rect) : m_rect(rect) {}
    std::optional<StoredRect> ParentWindowRect() override { return m_rect; }

  private:
    StoredRect m_rect;
};

// The port's messages name the path, which stands in front of them already.
[[noreturn]] void ThrowTrouble(const std::string& path, const ArchiveError& error) {
    std::string what = error.what();
    const std::string named = " " + path;
    const std::size_t at = path.empty() ? std::string::npos : what.find(named);
    throw FileTrouble(path, at == std::string::npos ? what : what.erase(at, named.size()));
}

std::unique_ptr<ByteSource> OpenSource(Session& session, const std::string& path) {
    auto source = session.Files.OpenForReading(path);
    if (source == nullptr) {
        throw FileTrouble(path, WhyUnreadable(path));
    }
    return source;
}

}  // namespace

Grid& Session::NewGrid() {
    return *m_grids.emplace_back(std::make_unique<Grid>());
}

Grid& LoadGrid(Session& session, const std::string& path) {
    try {
        const auto source = OpenSource(session, path);
        if (source->Size() == 0) {
            throw FileTrouble(path, "is empty, and no grid file");
        }
        Progress progress(session.Terminal.ProgressStream(), source->Size());
        ProgressSource watched(*source, progress);
        ArchiveReader archive(watched);
        Grid& grid = session.NewGrid();
        GridFileHost host;
        grid.FileSize = source->Size();
        if (!ReadGrid(archive, grid.Store, grid.Document, host)) {
            throw FileTrouble(path, "is not a grid file");
        }
        grid.LeftOver = archive.Left();
        return grid;
    } catch (const ArchiveError& error) {
        ThrowTrouble(path, error);
    }
}

void ReplaceFile(Session& session, const std::string& path, std::uint64_t size,
                 const std::function<void(ByteSink&)>& write) {
    try {
        const auto replacement = session.Files.Replace(path);
        if (replacement == nullptr) {
            throw FileTrouble(path, WhyUnwritable(path));
        }
        Progress progress(session.Terminal.ProgressStream(), size);
        ProgressSink watched(*replacement, progress);
        write(watched);
        replacement->Commit();
    } catch (const ArchiveError& error) {
        ThrowTrouble(path, error);
    }
}

void SaveGrid(Session& session, const std::string& path, Grid& grid) {
    ReplaceFile(session, path, grid.FileSize, [&](ByteSink& sink) {
        ArchiveWriter archive(sink);
        KeepingHost host(grid.Document.SavedWindowRect);
        WriteGrid(archive, grid.Store, grid.Document, host);
        archive.Close();
    });
}

FileBytes ReadWholeFile(Session& session, const std::string& path) {
    try {
        const auto source = OpenSource(session, path);
        const auto size = static_cast<std::size_t>(source->Size());
        FileBytes bytes{std::make_unique_for_overwrite<char[]>(size), 0};
        std::size_t got = 1;
        while (bytes.Size < size && got != 0) {
            got = source->Read(bytes.Data.get() + bytes.Size, size - bytes.Size);
            bytes.Size += got;
        }
        return bytes;
    } catch (const ArchiveError& error) {
        ThrowTrouble(path, error);
    } catch (const std::bad_alloc&) {
        throw FileTrouble(path, "does not fit into memory");
    }
}

bool IsSameFile(const std::string& a, const std::string& b) {
    std::error_code error;
    return fs::equivalent(PathFromUtf8(a), PathFromUtf8(b), error) && !error;
}

std::string FileNameOf(const std::string& path) {
    const std::u8string name = PathFromUtf8(path).filename().u8string();
    return {name.begin(), name.end()};
}

}  // namespace veygrid
