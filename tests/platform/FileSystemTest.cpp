// The files of the machine: saving and opening for real, and what failures leave behind.
#include "platform/FileSystem.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

#include "persist/FileCommands.h"
#include "platform/UnsizedFile.h"

#ifndef _WIN32
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <csignal>
#endif

namespace veygrid {
namespace {

namespace fs = std::filesystem;

std::string Utf8(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {reinterpret_cast<const char*>(text.data()), text.size()};
}

struct Host : GridFileHost {
    void ShowMessage(std::string_view, std::int32_t style) override { styles.push_back(style); }
    std::vector<std::int32_t> styles;
};

class FileSystemTest : public testing::Test {
  protected:
    void SetUp() override {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        folder = fs::temp_directory_path() / (std::string("veygrid-test-") + test->name() +
                                              std::to_string(std::random_device{}()));
        fs::remove_all(folder);
        fs::create_directories(folder);
    }
    void TearDown() override { fs::remove_all(folder); }

    static void Put(const fs::path& path, std::string_view content) {
        std::ofstream(path, std::ios::binary) << content;
    }
    static std::string Get(const fs::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
    // Names in the folder, sorted.
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder)) {
            names.push_back(Utf8(entry.path().filename()));
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    void Replace(const fs::path& path, std::string_view content) {
        const auto file = files->Replace(Utf8(path));
        ASSERT_NE(file, nullptr);
        file->Write(content);
        file->Commit();
    }
    std::string ReadAll(const std::string& path) {
        const auto file = files->OpenForReading(path);
        EXPECT_NE(file, nullptr);
        std::string bytes(static_cast<std::size_t>(file->Size()), '\0');
        for (std::size_t filled = 0; filled < bytes.size();) {
            const std::size_t got = file->Read(bytes.data() + filled, bytes.size() - filled);
            EXPECT_NE(got, 0U);
            filled += got;
        }
        return bytes;
    }

    std::unique_ptr<FileSystem> files = MakeFileSystem();
    fs::path folder;
    StoreWatcher watcher;
    GridStore store{watcher};
    GridDocument document;
    Host host;
};

TEST_F(FileSystemTest, ANewFileHoldsWhatWasWrittenAndNothingStandsBesideIt) {
    Replace(folder / "a.grd", "content");
    EXPECT_EQ(Get(folder / "a.grd"), "content");
    EXPECT_EQ(ReadAll(Utf8(folder / "a.grd")), "content");
    EXPECT_EQ(Names(), std::vector<std::string>{"a.grd"});
}

TEST_F(FileSystemTest, TheOldFileStandsUntilTheCommit) {
    Put(folder / "a.grd", "a longer old content");
    {
        const auto file = files->Replace(Utf8(folder / "a.grd"));
        file->Write("new");
        EXPECT_EQ(Get(folder / "a.grd"), "a longer old content");
        EXPECT_EQ(Names().size(), 2U);
        file->Commit();
        EXPECT_EQ(Get(folder / "a.grd"), "new");
    }
    EXPECT_EQ(Get(folder / "a.grd"), "new");
    EXPECT_EQ(Names(), std::vector<std::string>{"a.grd"});
}

TEST_F(FileSystemTest, AReplacementGivenUpLeavesTheOldFileAndNothingBeside) {
    Put(folder / "a.grd", "old");
    files->Replace(Utf8(folder / "a.grd"))->Write("new");
    EXPECT_EQ(Get(folder / "a.grd"), "old");
    EXPECT_EQ(Names(), std::vector<std::string>{"a.grd"});
    files->Replace(Utf8(folder / "b.grd"))->Write("new");
    EXPECT_EQ(Names(), std::vector<std::string>{"a.grd"});
}

TEST_F(FileSystemTest, ChineseFileNamesWork) {
    const fs::path path = folder / u8"维诺表格" / u8"数据～丂.grd";
    fs::create_directories(path.parent_path());
    Replace(path, "content");
    EXPECT_TRUE(fs::exists(path));
    EXPECT_EQ(ReadAll(Utf8(path)), "content");
}

TEST_F(FileSystemTest, ANameAsLongAsTheSystemAllowsWorks) {
    const fs::path path = folder / (std::string(251, 'n') + ".grd");
    Replace(path, "content");
    EXPECT_EQ(Get(path), "content");
}

TEST_F(FileSystemTest, AGridGoesToTheDiskAndComesBack) {
    const std::string path = Utf8(folder / u8"表.grd");
    for (std::int32_t row = 1; row <= 50000; ++row) {
        store.CellTextMap.Set({row, row % 7}, "text " + std::to_string(row));
    }
    ASSERT_TRUE(SaveFile(*files, path, store, document, host));
    ASSERT_TRUE(SaveFile(*files, path, store, document, host));
    GridStore loaded(watcher);
    EXPECT_EQ(OpenFile(*files, path, 1, loaded, document, host), 1);
    EXPECT_EQ(loaded.CellTextMap.Count(), 50000U);
    EXPECT_EQ(loaded.CellText(49999, 49999 % 7), "text 49999");
    EXPECT_TRUE(host.styles.empty());
}

TEST_F(FileSystemTest, WhatIsMissingOrAFolderCannotBeOpened) {
    EXPECT_EQ(files->OpenForReading(Utf8(folder / "none.grd")), nullptr);
    EXPECT_EQ(files->OpenForReading(Utf8(folder)), nullptr);
    EXPECT_EQ(files->OpenForReading(""), nullptr);
    EXPECT_EQ(OpenFile(*files, Utf8(folder), 1, store, document, host), 0);
    EXPECT_TRUE(host.styles.empty());
}

TEST_F(FileSystemTest, WhereNoFileCanBeTheCreationFails) {
    Put(folder / "file", "");
    for (const fs::path& path : {folder, folder / "none" / "a.grd", folder / "file" / "a.grd"}) {
        EXPECT_EQ(files->Replace(Utf8(path)), nullptr) << path;
    }
    EXPECT_EQ(files->Replace(""), nullptr);
    EXPECT_FALSE(SaveFile(*files, Utf8(folder), store, document, host));
    EXPECT_EQ(host.styles, std::vector<std::int32_t>{16});
    EXPECT_EQ(Names(), std::vector<std::string>{"file"});
}

TEST_F(FileSystemTest, AnEmptyFileIsReadAsSuch) {
    Put(folder / "empty", "");
    EXPECT_EQ(ReadAll(Utf8(folder / "empty")), "");
    EXPECT_THROW(OpenFile(*files, Utf8(folder / "empty"), 1, store, document, host), ArchiveError);
}

TEST(UnsizedFile, IsReadToItsEnd) {
    std::string given;
    for (int i = 0; i < 300000; ++i) {
        given += static_cast<char>(i * 31);
    }
    std::size_t next = 0;
    const auto source = ReadUnsized([&](char* buffer, std::size_t room) {
        const std::size_t got = std::min({room, given.size() - next, std::size_t{1000}});
        std::copy_n(given.data() + next, got, buffer);
        next += got;
        return got;
    });
    std::string read(given.size(), '\0');
    EXPECT_EQ(source->Size(), given.size());
    EXPECT_EQ(source->Read(read.data(), read.size()), given.size());
    EXPECT_EQ(read, given);
}

TEST(UnsizedFile, OneThatGoesOnBehindTheBoundIsAnError) {
    const auto endless = [](char* buffer, std::size_t room) {
        std::fill_n(buffer, room, 'x');
        return room;
    };
    EXPECT_THROW(ReadUnsized(endless, 100000), ArchiveError);
    std::size_t left = 100000;
    const auto bounded = [&](char* buffer, std::size_t room) {
        const std::size_t got = std::min(room, left);
        std::fill_n(buffer, got, 'x');
        left -= got;
        return got;
    };
    EXPECT_EQ(ReadUnsized(bounded, 100000)->Size(), 100000U);
}

#ifndef _WIN32

TEST_F(FileSystemTest, ThePermissionsOfTheTargetStay) {
    Put(folder / "a.grd", "old");
    for (const unsigned mode : {0640U, 0600U, 0666U, 0755U}) {
        fs::permissions(folder / "a.grd", static_cast<fs::perms>(mode));
        Replace(folder / "a.grd", "new");
        EXPECT_EQ(static_cast<unsigned>(fs::status(folder / "a.grd").permissions()), mode);
    }
}

TEST_F(FileSystemTest, ANewFileHasThePermissionsThatTheUserWants) {
    const mode_t before = ::umask(027);
    Replace(folder / "a.grd", "new");
    ::umask(before);
    EXPECT_EQ(static_cast<unsigned>(fs::status(folder / "a.grd").permissions()), 0640U);
}

TEST_F(FileSystemTest, ALinkKeepsPointingToTheFileThatIsReplaced) {
    fs::create_directories(folder / "there");
    Put(folder / "there" / "real.grd", "old");
    fs::create_symlink("there/middle", folder / "link.grd");
    fs::create_symlink("real.grd", folder / "there" / "middle");
    Replace(folder / "link.grd", "new");
    EXPECT_TRUE(fs::is_symlink(folder / "link.grd"));
    EXPECT_TRUE(fs::is_symlink(folder / "there" / "middle"));
    EXPECT_EQ(Get(folder / "there" / "real.grd"), "new");
    EXPECT_EQ(Names(), (std::vector<std::string>{"link.grd", "there"}));
}

TEST_F(FileSystemTest, ALinkToNothingMakesTheFileItNames) {
    fs::create_symlink("real.grd", folder / "link.grd");
    Replace(folder / "link.grd", "new");
    EXPECT_TRUE(fs::is_symlink(folder / "link.grd"));
    EXPECT_EQ(Get(folder / "real.grd"), "new");
}

TEST_F(FileSystemTest, ALinkToItselfCannotBeCreated) {
    fs::create_symlink("loop", folder / "loop");
    EXPECT_EQ(files->Replace(Utf8(folder / "loop")), nullptr);
}

TEST_F(FileSystemTest, TheFullDeviceIsAFailureOfWritingAndNotOfCreation) {
    EXPECT_THROW(SaveFile(*files, "/dev/full", store, document, host), ArchiveError);
    EXPECT_TRUE(host.styles.empty());
    try {
        files->Replace("/dev/full")->Write("x");
        FAIL();
    } catch (const ArchiveError& error) {
        EXPECT_STREQ(error.what(), "writing /dev/full failed at byte 0: No space left on device");
    }
}

TEST_F(FileSystemTest, ANullDeviceTakesEverything) {
    EXPECT_TRUE(SaveFile(*files, "/dev/null", store, document, host));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

struct Pipe {
    Pipe() { EXPECT_EQ(::pipe(ends), 0); }
    ~Pipe() {
        ::close(ends[0]);
        ::close(ends[1]);
    }
    int ends[2] = {-1, -1};
};

TEST_F(FileSystemTest, AnOpenPipeIsWrittenStraight) {
    Pipe pipe;
    Replace("/dev/fd/" + std::to_string(pipe.ends[1]), "through");
    char buffer[16] = {};
    EXPECT_EQ(::read(pipe.ends[0], buffer, sizeof buffer), 7);
    EXPECT_STREQ(buffer, "through");
}

TEST_F(FileSystemTest, AnOpenPipeIsReadWhole) {
    Pipe pipe;
    ASSERT_EQ(::write(pipe.ends[1], "through", 7), 7);
    ::close(std::exchange(pipe.ends[1], -1));
    EXPECT_EQ(ReadAll("/dev/fd/" + std::to_string(pipe.ends[0])), "through");
}

TEST_F(FileSystemTest, ADescriptorOfAFileGoesOnWhereTheFileStands) {
    Put(folder / "out", "");
    const int file = ::open(Utf8(folder / "out").c_str(), O_WRONLY);
    ASSERT_EQ(::write(file, "head ", 5), 5);
    fs::create_symlink("/proc/self/fd/" + std::to_string(file), folder / "link");
    Replace(folder / "link", "tail");
    ::close(file);
    EXPECT_EQ(Get(folder / "out"), "head tail");
}

TEST_F(FileSystemTest, FilesThatTheSystemMakesUpAreReadToTheirEnd) {
    EXPECT_NE(ReadAll("/proc/self/status").find("Name:"), std::string::npos);
}

// Rights of a user who may not do everything, for as long as it lives.
class OrdinaryUser {
  public:
    OrdinaryUser() {
        if (::geteuid() == 0) {
            EXPECT_EQ(::setegid(65534), 0);
            EXPECT_EQ(::seteuid(65534), 0);
            m_changed = true;
        }
    }
    ~OrdinaryUser() {
        if (m_changed) {
            EXPECT_EQ(::seteuid(0), 0);
            EXPECT_EQ(::setegid(0), 0);
        }
    }

  private:
    bool m_changed = false;
};

TEST_F(FileSystemTest, InAReadOnlyFolderNoFileCanBeCreated) {
    fs::permissions(folder, fs::perms(0555));
    {
        const OrdinaryUser user;
        EXPECT_EQ(files->Replace(Utf8(folder / "a.grd")), nullptr);
        EXPECT_FALSE(SaveFile(*files, Utf8(folder / "a.grd"), store, document, host));
    }
    EXPECT_EQ(host.styles, std::vector<std::int32_t>{16});
    fs::permissions(folder, fs::perms(0755));
}

TEST_F(FileSystemTest, AWritableFileInAReadOnlyFolderIsOverwrittenOnceAllIsKnown) {
    Put(folder / "a.grd", "a longer old content");
    fs::permissions(folder / "a.grd", fs::perms(0666));
    fs::permissions(folder, fs::perms(0555));
    {
        const OrdinaryUser user;
        files->Replace(Utf8(folder / "a.grd"))->Write("given up");
        EXPECT_EQ(Get(folder / "a.grd"), "a longer old content");
        Replace(folder / "a.grd", "new");
        EXPECT_EQ(Get(folder / "a.grd"), "new");
        Replace(folder / "a.grd", "");
        EXPECT_EQ(Get(folder / "a.grd"), "");
    }
    fs::permissions(folder, fs::perms(0755));
}

TEST_F(FileSystemTest, AReadOnlyFileIsNotReplaced) {
    fs::permissions(folder, fs::perms(0777));
    Put(folder / "a.grd", "old");
    fs::permissions(folder / "a.grd", fs::perms(0444));
    {
        const OrdinaryUser user;
        EXPECT_FALSE(SaveFile(*files, Utf8(folder / "a.grd"), store, document, host));
    }
    EXPECT_EQ(Get(folder / "a.grd"), "old");
    EXPECT_EQ(host.styles, std::vector<std::int32_t>{16});
    EXPECT_EQ(Names(), std::vector<std::string>{"a.grd"});
}

TEST_F(FileSystemTest, AFileThatMayNotBeReadIsUnreadable) {
    Put(folder / "a.grd", "secret");
    fs::permissions(folder / "a.grd", fs::perms(0));
    const OrdinaryUser user;
    EXPECT_EQ(files->OpenForReading(Utf8(folder / "a.grd")), nullptr);
}

// Files may not grow beyond so many bytes, for as long as it lives.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes) {
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        EXPECT_EQ(::getrlimit(RLIMIT_FSIZE, &m_before), 0);
        const rlimit limit{bytes, m_before.rlim_max};
        EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    ~FileSizeLimit() {
        EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &m_before), 0);
        std::signal(SIGXFSZ, m_handler);
    }

  private:
    rlimit m_before{};
    void (*m_handler)(int) = nullptr;
};

TEST_F(FileSystemTest, ADiskThatFillsUpInTheMiddleLeavesTheOldFileWholeAndNothingBeside) {
    Put(folder / "a.grd", "old");
    for (std::int32_t row = 1; row <= 50000; ++row) {
        store.CellTextMap.Set({row, 1}, "some text");
    }
    {
        const FileSizeLimit limit(300000);
        EXPECT_THROW(SaveFile(*files, Utf8(folder / "a.grd"), store, document, host), ArchiveError);
    }
    EXPECT_EQ(Get(folder / "a.grd"), "old");
    EXPECT_EQ(Names(), std::vector<std::string>{"a.grd"});
    EXPECT_TRUE(host.styles.empty());
}

TEST_F(FileSystemTest, ADiskWithoutRoomLeavesAFileThatCannotBeReplacedWhole) {
    Put(folder / "a.grd", "old");
    fs::permissions(folder / "a.grd", fs::perms(0666));
    fs::permissions(folder, fs::perms(0555));
    {
        const OrdinaryUser user;
        const FileSizeLimit limit(1000);
        const auto file = files->Replace(Utf8(folder / "a.grd"));
        file->Write(std::string(2000, 'x'));
        EXPECT_THROW(file->Commit(), ArchiveError);
    }
    fs::permissions(folder, fs::perms(0755));
    EXPECT_EQ(Get(folder / "a.grd"), "old");
}

#endif

}  // namespace
}  // namespace veygrid
