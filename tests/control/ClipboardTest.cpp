// The clipboard as other programs have it: what is put for them, and what they do to it.
#include <optional>

#include "control/VeyGridCtrl.h"
#include "tests/control/Handles.h"
#include "tests/control/OwnModule.h"
#include "tests/control/SheetDesk.h"

namespace veygrid {

namespace {

// A limit that only a hang reaches.
constexpr DWORD LongTime = 120000;

class Opened {
  public:
    Opened() {
        while (!::OpenClipboard(nullptr)) {
            ::Sleep(10);
        }
    }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;
    ~Opened() { ::CloseClipboard(); }
};

void Put(UINT format, std::string_view bytes) {
    const HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE, bytes.size());
    auto* const target = static_cast<char*>(::GlobalLock(block));
    bytes.copy(target, bytes.size());
    ::GlobalUnlock(block);
    EXPECT_NE(::SetClipboardData(format, block), nullptr);
}

// Nothing where the clipboard has no such format.
std::optional<std::string> Bytes(UINT format) {
    const HANDLE block = ::GetClipboardData(format);
    const auto* const bytes =
        static_cast<const char*>(block == nullptr ? nullptr : ::GlobalLock(block));
    if (bytes == nullptr) {
        return std::nullopt;
    }
    std::string copy(bytes, ::GlobalSize(block));
    ::GlobalUnlock(block);
    return copy;
}

constexpr const wchar_t* HeldName = L"VeyGrid.ClipboardTest.Held";
constexpr const wchar_t* LetGoName = L"VeyGrid.ClipboardTest.LetGo";

// The other process: this program once more, with one test of the two that only it runs.
class OtherProcess {
  public:
    explicit OtherProcess(const wchar_t* test) {
        std::wstring path(MAX_PATH, L'\0');
        path.resize(::GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
        std::wstring line = L"\"" + path + L"\" --gtest_also_run_disabled_tests --gtest_brief=1 " +
                            L"--gtest_filter=ClipboardOfAnotherProcess.DISABLED_" + test;
        STARTUPINFOW start{};
        start.cb = sizeof start;
        start.dwFlags = STARTF_USESTDHANDLES;  // none: what it prints is not a result of this run
        EXPECT_TRUE(::CreateProcessW(path.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                                     nullptr, &start, &m_process));
        const HANDLE either[] = {m_held, m_process.hProcess};
        EXPECT_EQ(::WaitForMultipleObjects(2, either, FALSE, LongTime), WAIT_OBJECT_0);
    }
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;
    ~OtherProcess() {
        LetGo();
        for (const HANDLE handle : {m_process.hThread, m_process.hProcess, m_held, m_letGo}) {
            ::CloseHandle(handle);
        }
    }
    void LetGo() {
        ::SetEvent(m_letGo);
        EXPECT_EQ(::WaitForSingleObject(m_process.hProcess, LongTime), WAIT_OBJECT_0);
    }
    void Die() {
        ::TerminateProcess(m_process.hProcess, 1);
        EXPECT_EQ(::WaitForSingleObject(m_process.hProcess, LongTime), WAIT_OBJECT_0);
    }

  private:
    HANDLE m_held = ::CreateEventW(nullptr, TRUE, FALSE, HeldName);
    HANDLE m_letGo = ::CreateEventW(nullptr, TRUE, FALSE, LetGoName);
    PROCESS_INFORMATION m_process{};
};

void TellAndWait() {
    const HANDLE held = ::OpenEventW(EVENT_MODIFY_STATE, FALSE, HeldName);
    const HANDLE letGo = ::OpenEventW(SYNCHRONIZE, FALSE, LetGoName);
    ::SetEvent(held);
    ::WaitForSingleObject(letGo, LongTime);
    ::CloseHandle(held);
    ::CloseHandle(letGo);
}

TEST(ClipboardOfAnotherProcess, DISABLED_HoldsItOpen) {
    const Opened clipboard;
    TellAndWait();
}

TEST(ClipboardOfAnotherProcess, DISABLED_PromisesTextAndNeverGivesIt) {
    const HWND owner = ::CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 1, 1, HWND_MESSAGE, nullptr,
                                         nullptr, nullptr);
    ASSERT_TRUE(::OpenClipboard(owner));
    ::EmptyClipboard();
    ::SetClipboardData(CF_UNICODETEXT, nullptr);
    ::CloseClipboard();
    TellAndWait();
}

class Clipboard : public ::testing::Test {
  protected:
    void SetUp() override {
        desk.grid.Put(L"CellText", {1, 1, L"凭证"});
        desk.grid.Put(L"CellText", {5, 5, L"other"});
    }
    // Copies the cell that is not the first, so that a failure shows.
    void CopyOther() {
        desk.grid.Call(L"SetActiveCell", {5, 5});
        EXPECT_EQ(desk.grid.Call(L"EditCopy"), S_OK);
        desk.grid.Call(L"SetActiveCell", {1, 1});
    }
    std::string Cell(int row, int col) const { return desk.Cell(row, col); }

    SheetDesk desk;
};

TEST_F(Clipboard, ACopyIsTextOfCodePage936WithItsLocaleAndTheSameInUnicode) {
    EXPECT_EQ(desk.grid.Call(L"EditCopy"), S_OK);
    const Opened clipboard;
    const std::string text = CodePage936FromUtf8("凭证");
    EXPECT_EQ(Bytes(CF_TEXT), text + '\0');
    EXPECT_EQ(Bytes(CF_UNICODETEXT), std::string("\xED\x51\xC1\x8B\0\0", 6));
    EXPECT_EQ(Bytes(CF_LOCALE), std::string("\x04\x08\0\0", 4));
}

// The bytes of the Chinese text of a program of another locale, or of another program's of this
// one.
TEST_F(Clipboard, TextWithItsLocaleIsPastedWholeWhateverTheSystemsCodePage) {
    {
        const Opened clipboard;
        ::EmptyClipboard();
        Put(CF_TEXT, CodePage936FromUtf8("龘 单价|\t{乗}") + '\0');
        Put(CF_LOCALE, std::string_view("\x04\x08\0\0", 4));
    }
    EXPECT_EQ(desk.grid.Call(L"EditPaste"), S_OK);
    EXPECT_EQ(Cell(1, 1), CodePage936FromUtf8("龘 单价|"));
    EXPECT_EQ(Cell(1, 2), CodePage936FromUtf8("{乗}"));
}

TEST_F(Clipboard, WithoutTextThereNothingIsPasted) {
    {
        const Opened clipboard;
        ::EmptyClipboard();
        Put(CF_DIB, std::string_view("xxxx", 4));
    }
    EXPECT_EQ(desk.grid.Call(L"EditPaste"), S_OK);
    EXPECT_EQ(Cell(1, 1), CodePage936FromUtf8("凭证"));
}

TEST_F(Clipboard, WhileAnotherProcessHoldsItACopyAndAPasteChangeNothing) {
    CopyOther();
    const Handles before;
    OtherProcess holder(L"HoldsItOpen");
    for (int round = 0; round < 50; ++round) {
        EXPECT_EQ(desk.grid.Call(L"EditCopy"), S_OK);
        EXPECT_EQ(desk.grid.Call(L"EditPaste"), S_OK);
    }
    EXPECT_EQ(Cell(1, 1), CodePage936FromUtf8("凭证"));
    EXPECT_EQ(Handles(), before);
    holder.LetGo();
    EXPECT_EQ(desk.grid.Call(L"EditPaste"), S_OK);
    EXPECT_EQ(Cell(1, 1), "other");
    EXPECT_EQ(desk.grid.Call(L"EditCopy"), S_OK);
}

// A cut does not see that its copy failed; that is on purpose.
TEST_F(Clipboard, WhileAnotherProcessHoldsItACutClearsAllTheSame) {
    CopyOther();
    OtherProcess holder(L"HoldsItOpen");
    EXPECT_EQ(desk.grid.Call(L"EditCut"), S_OK);
    EXPECT_EQ(Cell(1, 1), "");
    holder.LetGo();
    EXPECT_EQ(desk.grid.Call(L"EditPaste"), S_OK);
    EXPECT_EQ(Cell(1, 1), "other");
}

TEST_F(Clipboard, AHolderThatDiesLeavesItFree) {
    CopyOther();
    OtherProcess holder(L"HoldsItOpen");
    holder.Die();
    EXPECT_EQ(desk.grid.Call(L"EditPaste"), S_OK);
    EXPECT_EQ(Cell(1, 1), "other");
}

TEST_F(Clipboard, AnOwnerThatDiesBeforeItGivesItsTextLeavesTheSheetAsItWas) {
    const Handles before;
    OtherProcess owner(L"PromisesTextAndNeverGivesIt");
    owner.Die();
    EXPECT_EQ(desk.grid.Call(L"EditPaste"), S_OK);
    EXPECT_EQ(Cell(1, 1), CodePage936FromUtf8("凭证"));
    EXPECT_EQ(Handles(), before);
    CopyOther();
    EXPECT_EQ(desk.grid.Call(L"EditPaste"), S_OK);
    EXPECT_EQ(Cell(1, 1), "other");
}

TEST_F(Clipboard, AControlWithoutAWindowCopiesAndPastesToo) {
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    const Late grid(control);
    grid.Put(L"CellText", {1, 1, L"无窗"});
    EXPECT_EQ(grid.Call(L"EditCopy"), S_OK);
    EXPECT_EQ(desk.grid.Call(L"EditPaste"), S_OK);
    EXPECT_EQ(Cell(1, 1), CodePage936FromUtf8("无窗"));
}

// A control of this program with nine cells and a record of each kind, and no window.
class Cut : public ::testing::Test {
  protected:
    Cut() : made(*new CVeyGridCtrl(nullptr)), control(Adopt(made.Inner())), grid(control) {
        for (std::int32_t row = 1; row <= 3; ++row) {
            for (std::int32_t col = 1; col <= 3; ++col) {
                made.Store().SetCellText(row, col, std::to_string(row) + std::to_string(col));
            }
        }
        CCellFormat format;
        format.SetReadOnly(true);
        for (const CellPos key : {CellPos{1, 1}, CellPos{2, 0}, CellPos{0, 3}, CellPos{0, 0}}) {
            made.Store().StoreCellFormat(key.Row, key.Col, format);
        }
    }
    // The clipboard's text after the cut.
    std::string CutOf(std::initializer_list<CellRange> ranges) {
        made.Selected().SelectionList.assign(ranges.begin(), ranges.end());
        EXPECT_EQ(grid.Call(L"EditCut"), S_OK);
        EXPECT_EQ(made.Store().CellFormatMap.Count(), 4U);
        const Opened clipboard;
        return Bytes(CF_TEXT).value_or("none").c_str();
    }
    // Row by row, an empty cell as a point.
    std::string Texts() const {
        std::string all;
        for (int row = 1; row <= 3; ++row) {
            for (int col = 1; col <= 3; ++col) {
                const std::string text = grid.Text(L"CellText", {row, col});
                all += (text.empty() ? "." : text) + (col < 3 ? " " : row < 3 ? " / " : "");
            }
        }
        return all;
    }

    OwnModule own;
    CVeyGridCtrl& made;
    ComPtr<IUnknown> control;
    Late grid;
};

TEST_F(Cut, WithoutASelectionTakesTheActiveCellThoughItIsReadOnlyAndKeepsItsFormat) {
    EXPECT_EQ(CutOf({}), "11");
    EXPECT_EQ(Texts(), ". 12 13 / 21 22 23 / 31 32 33");
    EXPECT_TRUE(made.Store().EffectiveFormat(1, 1).GetReadOnly());
}

TEST_F(Cut, OfSeveralRangesCopiesTheLastAndClearsTheFirst) {
    EXPECT_EQ(CutOf({{1, 1, 1, 2}, {2, 2, 2, 2}, {3, 2, 3, 3}}), "B\tC\r\n32\t33");
    EXPECT_EQ(Texts(), ". . 13 / 21 22 23 / 31 32 33");
}

TEST_F(Cut, OfABlockSparesNoReadOnlyCell) {
    EXPECT_EQ(CutOf({{1, 1, 2, 2}}), "A\tB\r\n11\t12\r\n21\t22");
    EXPECT_EQ(Texts(), ". . 13 / . . 23 / 31 32 33");
}

TEST_F(Cut, OfWholeRowsCopiesAndClearsTheirCellsAndKeepsTheRowsRecord) {
    EXPECT_EQ(CutOf({{1, 0, 2, 0}}), "A\tB\tC\r\n11\t12\t13\r\n21\t22\t23");
    EXPECT_EQ(Texts(), ". . . / . . . / 31 32 33");
    EXPECT_EQ(grid.Number(L"LastRow"), 3);
}

TEST_F(Cut, OfWholeColumnsCopiesAndClearsTheirCellsAndKeepsTheColumnsRecordAndHeader) {
    grid.Put(L"ColHeader", {2, L"kept"});
    EXPECT_EQ(CutOf({{0, 2, 0, 3}}), "kept\tC\r\n12\t13\r\n22\t23\r\n32\t33");
    EXPECT_EQ(Texts(), "11 . . / 21 . . / 31 . .");
    EXPECT_EQ(grid.Text(L"ColHeader", {2}), "kept");
}

TEST_F(Cut, OfTheWholeSheetCopiesAndClearsEveryCell) {
    EXPECT_EQ(CutOf({CellRange::WholeSheet()}),
              "A\tB\tC\r\n11\t12\t13\r\n21\t22\t23\r\n31\t32\t33");
    EXPECT_EQ(Texts(), ". . . / . . . / . . .");
}

TEST_F(Cut, ByTheCommandIsTheSameAndNeitherLogsNorTellsOfAChange) {
    Container container;
    ASSERT_EQ(container.Show(control), S_OK);
    grid.Put(L"ModifiedLog", {3});
    grid.Put(L"Modified", {false});
    made.Selected().SelectionList = {{3, 3, 3, 3}};
    ::SendMessageW(Container::WindowOf(control), WM_COMMAND, 42308, 0);
    EXPECT_EQ(Texts(), "11 12 13 / 21 22 23 / 31 32 .");
    EXPECT_TRUE(made.Store().Log.IsEmpty());
    EXPECT_EQ(grid.Number(L"Modified"), 0);
}

}  // namespace

}  // namespace veygrid
