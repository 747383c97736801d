// Saving to and opening from files: results, messages, and what a failure leaves behind.
#include "persist/FileCommands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>

#include "Support.h"

namespace veygrid {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Files in memory that fail on demand.
class MemoryFiles final : public FileSystem {
  public:
    std::unique_ptr<ByteSource> OpenForReading(std::string_view path) override {
        const auto found = Contents.find(path);
        return found == Contents.end() ? nullptr : std::make_unique<MemorySource>(found->second);
    }
    std::unique_ptr<FileReplacement> Replace(std::string_view path) override {
        return MayCreate ? std::make_unique<Replacement>(*this, std::string(path)) : nullptr;
    }

    std::map<std::string, std::string, std::less<>> Contents;
    bool MayCreate = true;
    bool MayCommit = true;
    std::size_t Room = static_cast<std::size_t>(-1);
    int Beside = 0;

  private:
    class Replacement final : public FileReplacement {
      public:
        Replacement(MemoryFiles& files, std::string path)
            : m_files(files), m_path(std::move(path)) {
            ++m_files.Beside;
        }
        ~Replacement() override { --m_files.Beside; }
        void Write(std::string_view bytes) override {
            if (m_bytes.size() + bytes.size() > m_files.Room) {
                throw ArchiveError("disk full", m_bytes.size());
            }
            m_bytes.append(bytes);
        }
        void Commit() override {
            if (!m_files.MayCommit) {
                throw ArchiveError("cannot be put in place", m_bytes.size());
            }
            m_files.Contents[m_path] = m_bytes;
        }

      private:
        MemoryFiles& m_files;
        std::string m_path;
        std::string m_bytes;
    };
};

struct Commands : testing::Test {
    bool Save(std::string_view path) {
        return SaveFile(files, path, grid.Store, grid.Document, host);
    }
    std::int16_t Open(std::string_view path, std::int16_t runQuery = 1) {
        return OpenFile(files, path, runQuery, grid.Store, grid.Document, host);
    }

    MemoryFiles files;
    Grid grid;
    RecordingHost host;
};

using FileCommands = Commands;

TEST_F(FileCommands, SavingPutsTheWholeStreamIntoTheFile) {
    FillRichly(grid);
    EXPECT_TRUE(Save("a.grd"));
    EXPECT_EQ(files.Contents["a.grd"], grid.Save());
    EXPECT_THAT(host.Calls, IsEmpty());
    EXPECT_EQ(files.Beside, 0);
}

TEST_F(FileCommands, AFileThatCannotBeCreatedIsSaidAndFalse) {
    files.MayCreate = false;
    EXPECT_FALSE(Save("a.grd"));
    EXPECT_THAT(host.Calls, ElementsAre("ShowMessage 16 文件创建失败!"));
}

TEST_F(FileCommands, ADiskFullInTheMiddleLeavesTheOldFileWholeAndNothingBeside) {
    files.Contents["a.grd"] = "old";
    for (std::int32_t row = 1; row <= 100000; ++row) {
        grid.Store.CellTextMap.Set({row, 1}, "some text");
    }
    files.Room = 1000000;
    EXPECT_THROW(Save("a.grd"), ArchiveError);
    EXPECT_EQ(files.Contents["a.grd"], "old");
    EXPECT_EQ(files.Beside, 0);
    EXPECT_THAT(host.Calls, IsEmpty());
}

TEST_F(FileCommands, ADiskFullInTheLastBytesIsNotTakenForSuccess) {
    files.Contents["a.grd"] = "old";
    files.Room = grid.Save().size() - 1;
    EXPECT_THROW(Save("a.grd"), ArchiveError);
    EXPECT_EQ(files.Contents["a.grd"], "old");
}

TEST_F(FileCommands, AFileThatCannotBePutInPlaceIsAnException) {
    files.Contents["a.grd"] = "old";
    files.MayCommit = false;
    EXPECT_THROW(Save("a.grd"), ArchiveError);
    EXPECT_EQ(files.Contents["a.grd"], "old");
}

TEST_F(FileCommands, AFileThatCannotBeOpenedIs0WithNoMessageAndNoQuery) {
    grid.Store.Properties.DataSource = "SELECT";
    EXPECT_EQ(Open("none.grd"), 0);
    EXPECT_THAT(host.Calls, IsEmpty());
}

TEST_F(FileCommands, OpenFileOnAFileThatIsNotAGridFileShowsTheMessageAndReturns1) {
    files.Contents["a.txt"] = "this is a text";
    files.Contents["b.txt"] = Bytes().Text("Another Data Grid").Repeat(0, 50);
    for (const char* const path : {"a.txt", "b.txt"}) {
        host.Calls.clear();
        EXPECT_EQ(Open(path), 1);
        EXPECT_THAT(host.Calls, ElementsAre("ShowMessage 16 无效的文件格式或错误版本号,打开失败!"));
    }
}

TEST_F(FileCommands, TheQueryRunsAfterTheFileIsReadWheneverThereIsADataSource) {
    Grid saved;
    saved.Store.Properties.DataSource = "SELECT";
    files.Contents["a.grd"] = saved.Save();
    EXPECT_EQ(Open("a.grd"), 1);
    EXPECT_THAT(host.Calls, ElementsAre("DestroyFormWindows", "RunQuery 0"));
}

TEST_F(FileCommands, WithAWindowTheQueryRunsTwice) {
    Grid saved;
    saved.Store.Properties.DataSource = "SELECT";
    files.Contents["a.grd"] = saved.Save();
    host.Window = true;
    EXPECT_EQ(Open("a.grd"), 1);
    EXPECT_THAT(host.Calls,
                ElementsAre("DestroyFormWindows", "CreateFormWindows", "RunQuery 0", "RunQuery 0"));
}

TEST_F(FileCommands, TheQueryOfTheEarlierDataSourceRunsAfterARefusedFile) {
    grid.Store.Properties.DataSource = "SELECT";
    files.Contents["a.txt"] = "text";
    EXPECT_EQ(Open("a.txt"), 1);
    EXPECT_EQ(host.Calls.back(), "RunQuery 0");
}

TEST_F(FileCommands, OpenFileWithBRunQuery0BehavesExactlyAsWith1) {
    Grid saved;
    FillRichly(saved);
    files.Contents["a.grd"] = saved.Save();
    host.Window = true;
    EXPECT_EQ(Open("a.grd", 1), 1);
    const std::vector<std::string> calls = host.Calls;
    Grid other;
    RecordingHost otherHost;
    otherHost.Window = true;
    EXPECT_EQ(OpenFile(files, "a.grd", 0, other.Store, other.Document, otherHost), 1);
    EXPECT_EQ(otherHost.Calls, calls);
    EXPECT_EQ(other.Save(), grid.Save());
}

TEST_F(FileCommands, AFileCutShortIsAnExceptionAndNoQueryRuns) {
    Grid saved;
    FillRichly(saved);
    const std::string bytes = saved.Save();
    files.Contents["a.grd"] = bytes.substr(0, bytes.size() / 2);
    EXPECT_THROW(Open("a.grd"), ArchiveError);
    EXPECT_THAT(host.Calls, IsEmpty());
    EXPECT_EQ(grid.Store.Properties.DataSource, "SELECT * FROM T");
}

}  // namespace
}  // namespace veygrid
