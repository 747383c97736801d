// Grid files as the commands open and write them, with failures told in their terms.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "apps/grd/Console.h"
#include "apps/grd/Progress.h"
#include "grid/GridStore.h"
#include "persist/FileSystem.h"
#include "persist/GridFile.h"
#include "platform/Picture.h"

namespace veygrid {

// A grid in memory.
struct Grid {
    StoreWatcher Watcher;
    GridStore Store{Watcher};
    GridDocument Document;
    std::uint64_t FileSize = 0;  // bytes; 0 for a grid that was not read from a file
    std::uint64_t LeftOver = 0;  // bytes behind the last part of the file
};

// What every command works with. Grids live as long as the session, which a program may end by
// ending itself: to give a large sheet back piece by piece takes longer than to read it.
class Session {
  public:
    // Without a maker of pictures where there is none.
    Session(Console& console, FileSystem& files, PictureMaker* pictures = nullptr)
        : Terminal(console), Files(files), Pictures(pictures) {}

    Grid& NewGrid();

    Console& Terminal;
    FileSystem& Files;
    PictureMaker* Pictures;

  private:
    std::vector<std::unique_ptr<Grid>> m_grids;
};

// The path is UTF-8 in all of these; FileTrouble names it.

// Reads the whole file. Throws FileTrouble when it cannot be read, is no grid file or is damaged.
Grid& LoadGrid(Session& session, const std::string& path);

// Puts the new content, which `write` gives to the sink, in the place of the file as a whole.
// Throws FileTrouble when that fails; an earlier file is then as it was. A progress bar counts up
// to `size` bytes; none is shown for a size of 0.
void ReplaceFile(Session& session, const std::string& path, std::uint64_t size,
                 const std::function<void(ByteSink&)>& write);

// Writes the grid in the current version; the rectangle of the window stays the one it has.
void SaveGrid(Session& session, const std::string& path, Grid& grid);

// The bytes of a file.
struct FileBytes {
    std::unique_ptr<char[]> Data;
    std::size_t Size = 0;

    std::string_view View() const { return {Data.get(), Size}; }
};
FileBytes ReadWholeFile(Session& session, const std::string& path);

// Whether two paths lead to the same existing file.
bool IsSameFile(const std::string& a, const std::string& b);

// The last part of the path.
std::string FileNameOf(const std::string& path);

}  // namespace veygrid
