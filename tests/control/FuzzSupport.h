// What random tests of the control share: their time and seed, random values, answered dialogs, and
// the counts of what must not be left behind.
#pragma once

#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <limits>
#include <random>

#include "tests/control/Container.h"

namespace veygrid {

class Random {
  public:
    explicit Random(unsigned seed) : m_engine(seed) {}

    // Whether absurd numbers are among the random ones; decided once for a session, because what
    // such a sheet can be asked for takes minutes and gigabytes where it is no error.
    bool IsHuge() const { return m_isHuge; }

    // 0 to count - 1.
    int Below(int count) { return static_cast<int>(m_engine() % static_cast<unsigned>(count)); }
    bool OneIn(int count) { return Below(count) == 0; }
    unsigned Bits() { return m_engine(); }
    template <class List>
    const auto& Of(const List& list) {
        return list[static_cast<std::size_t>(Below(static_cast<int>(std::size(list))))];
    }

  private:
    std::mt19937 m_engine;
    bool m_isHuge = m_engine() % 2 == 0;
};

// Whole seconds for each of the random tests: VEYGRID_FUZZ_SECONDS is for all of them together.
inline double FuzzSeconds() {
    constexpr int RandomTests = 2;
    const char* const text = std::getenv("VEYGRID_FUZZ_SECONDS");
    return (text == nullptr ? 3.0 : std::atof(text)) / RandomTests;
}

// The seed of the first session; each further one has the next. It is printed, and
// VEYGRID_FUZZ_SEED repeats it.
inline unsigned FuzzSeed() {
    const char* const text = std::getenv("VEYGRID_FUZZ_SEED");
    const unsigned seed =
        text == nullptr ? std::random_device{}() : static_cast<unsigned>(std::atoll(text));
    std::printf("VEYGRID_FUZZ_SEED=%u\n", seed);
    std::fflush(stdout);
    return seed;
}

// While it lives, every dialog, message box and menu of the thread is closed soon after it is up.
class DialogsClosed {
  public:
    DialogsClosed() : m_timer(::SetTimer(nullptr, 0, 10, OnTimer)) {}
    DialogsClosed(const DialogsClosed&) = delete;
    DialogsClosed& operator=(const DialogsClosed&) = delete;
    ~DialogsClosed() { ::KillTimer(nullptr, m_timer); }

  private:
    static BOOL CALLBACK Close(HWND window, LPARAM) {
        wchar_t name[16] = {};
        ::GetClassNameW(window, name, 16);
        if (std::wcscmp(name, L"#32770") == 0 && ::IsWindowEnabled(window)) {
            for (const int button : {IDCANCEL, IDNO, IDOK}) {
                ::PostMessageW(window, WM_COMMAND, static_cast<WPARAM>(button), 0);
            }
        }
        return TRUE;
    }
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
        ::EndMenu();
        ::EnumThreadWindows(::GetCurrentThreadId(), Close, 0);
    }

    UINT_PTR m_timer;
};

// A folder of its own in the temporary one; it is the current one while this lives, so that
// relative paths stay inside.
class FuzzFolder {
  public:
    FuzzFolder() {
        wchar_t base[MAX_PATH] = {};
        ::GetCurrentDirectoryW(MAX_PATH, m_before);
        ::GetTempPathW(MAX_PATH, base);
        m_path = std::wstring(base) + L"veygrid-fuzz-" + std::to_wstring(::GetCurrentProcessId());
        ::CreateDirectoryW(m_path.c_str(), nullptr);
        EXPECT_TRUE(::SetCurrentDirectoryW(m_path.c_str()));
    }
    FuzzFolder(const FuzzFolder&) = delete;
    FuzzFolder& operator=(const FuzzFolder&) = delete;
    ~FuzzFolder() {
        Empty();
        ::SetCurrentDirectoryW(m_before);
        ::RemoveDirectoryW(m_path.c_str());
    }
    void Empty() const {
        WIN32_FIND_DATAW found{};
        const HANDLE search = ::FindFirstFileW((m_path + L"\\*").c_str(), &found);
        if (search == INVALID_HANDLE_VALUE) {
            return;
        }
        do {
            ::DeleteFileW((m_path + L"\\" + found.cFileName).c_str());
        } while (::FindNextFileW(search, &found));
        ::FindClose(search);
    }

  private:
    wchar_t m_before[MAX_PATH] = {};
    std::wstring m_path;
};

inline std::wstring RandomText(Random& random) {
    static const std::array<std::wstring, 14> texts{
        L"",
        L"A1",
        L"R1C2",
        L"{2}汉字|~",
        L"乗亅丂{|}\\~龘",
        L"yyyy-mm-dd hh:nn:ss",
        L"[CB_TEXT]",
        L"#,##0.00",
        L"SELECT a,b AS 借方 FROM t WHERE a=1 ORDER BY b",
        L"1\t2\r\n3\t4\r\n\"5\t6\"",
        std::wstring(L"a\0b", 3),
        L"\xD800 lone \xDC00",
        L"-1",
        L"99999999999999999999"};
    std::wstring text = random.Of(texts);
    if (random.OneIn(4)) {
        for (int i = random.Below(random.OneIn(20) ? 20000 : 60); i > 0; --i) {
            text += static_cast<wchar_t>(random.OneIn(2) ? random.Below(128)
                                                         : 0x4E00 + random.Below(0x5200));
        }
    }
    return text;
}

inline int RandomNumber(Random& random) {
    static constexpr int small[] = {0, -1, 1, 2, 3, 5, 17, 50, 255, 1004, 1008, 1009, 1011, 1019};
    static constexpr int huge[] = {32767, 32768, 65535,      -32769,      42303,
                                   42310, 65536, 2147483647, -2147483647, -2147483647 - 1};
    if (random.OneIn(3)) {
        return random.Below(60);
    }
    return random.IsHuge() && random.OneIn(2) ? random.Of(huge) : random.Of(small);
}

// Values for the arguments of one call. Addresses stay, because references point into them.
class RandomArguments {
  public:
    RandomArguments(Random& random, IDispatch* object) : m_random(random), m_object(object) {}
    RandomArguments(const RandomArguments&) = delete;
    RandomArguments& operator=(const RandomArguments&) = delete;
    ~RandomArguments() {
        for (VARIANT& value : m_owned) {
            ::VariantClear(&value);
        }
    }

    // Owned by this object.
    VARIANT Next() { return m_random.OneIn(4) ? Reference() : Value(); }

  private:
    VARIANT Own(const VARIANT& value) {
        m_owned.push_back(value);
        return value;
    }
    VARIANT Value() {
        VARIANT value{};
        switch (m_random.Below(12)) {
            case 0:
            case 1:
                return Text();
            case 2:
                return Object();
            case 3:
                return Array();
            case 4:
                value.vt = VT_ERROR;
                value.scode = m_random.OneIn(4) ? E_FAIL : DISP_E_PARAMNOTFOUND;
                return value;
            case 5:
                value.vt = VT_BOOL;
                value.boolVal = static_cast<VARIANT_BOOL>(-m_random.Below(2));
                return value;
            case 6:
                return Odd();
            default:
                value.vt = m_random.OneIn(3) ? VT_I2 : VT_I4;
                value.lVal = RandomNumber(m_random);
                return value;
        }
    }
    VARIANT Text() {
        VARIANT value{};
        const std::wstring text = RandomText(m_random);
        value.vt = VT_BSTR;
        value.bstrVal = m_random.OneIn(10)
                            ? nullptr
                            : ::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
        return Own(value);
    }
    VARIANT Object() {
        VARIANT value{};
        value.vt = m_random.OneIn(3) ? VT_UNKNOWN : VT_DISPATCH;
        value.pdispVal = m_random.OneIn(3) ? nullptr : m_object;
        if (value.pdispVal != nullptr) {
            value.pdispVal->AddRef();
        }
        return Own(value);
    }
    VARIANT Array() {
        static constexpr VARTYPE types[] = {VT_UI1, VT_I4, VT_VARIANT, VT_BSTR, VT_R8};
        const VARTYPE type = m_random.Of(types);
        VARIANT value{};
        value.vt = static_cast<VARTYPE>(VT_ARRAY | type);
        SAFEARRAYBOUND bounds[2] = {{static_cast<ULONG>(m_random.Below(80)), -3},
                                    {static_cast<ULONG>(m_random.Below(3)), 7}};
        value.parray =
            m_random.OneIn(6) ? nullptr : ::SafeArrayCreate(type, 1U + m_random.Bits() % 2, bounds);
        return Own(value);
    }
    // Types that hosts seldom give; the last ones are none at all.
    VARIANT Odd() {
        static constexpr VARTYPE types[] = {VT_EMPTY, VT_NULL, VT_I1, VT_UI1, VT_UI2, VT_UI4,
                                            VT_I8,    VT_UI8,  VT_R4, VT_R8,  VT_CY,  VT_DATE,
                                            VT_INT,   VT_UINT, 15,    77};
        static constexpr double reals[] = {0.5,
                                           -2.5,
                                           1e300,
                                           -1e300,
                                           std::numeric_limits<double>::quiet_NaN(),
                                           std::numeric_limits<double>::infinity()};
        VARIANT value{};
        value.vt = m_random.Of(types);
        value.llVal = m_random.IsHuge()
                          ? static_cast<LONGLONG>(m_random.Bits()) << m_random.Below(32)
                          : m_random.Below(256);
        if (value.vt == VT_R8 || value.vt == VT_DATE) {
            value.dblVal = m_random.Of(reals);
        }
        return value;
    }
    VARIANT Reference() {
        VARIANT reference{};
        VARIANT& target = m_targets.emplace_back(Value());
        if (m_random.OneIn(2) && target.vt != VT_EMPTY && target.vt != VT_NULL) {
            reference.vt = static_cast<VARTYPE>(VT_BYREF | target.vt);
            reference.byref = m_random.OneIn(10) ? nullptr : &target.llVal;
        } else {
            // What a call puts there is freed; what stood there is owned already, so a copy stands.
            m_owned.emplace_back();
            if (FAILED(::VariantCopy(&m_owned.back(), &target))) {
                ::VariantInit(&m_owned.back());
            }
            reference.vt = VT_BYREF | VT_VARIANT;
            reference.pvarVal = m_random.OneIn(10) ? nullptr : &m_owned.back();
        }
        return reference;
    }

    Random& m_random;
    IDispatch* m_object;
    std::deque<VARIANT> m_owned;
    std::deque<VARIANT> m_targets;
};

// Handles of the process that windows and drawing use.
struct Handles {
    DWORD gdi = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS);
    DWORD user = ::GetGuiResources(::GetCurrentProcess(), GR_USEROBJECTS);
};

// Tells which session crashed or came to no end, and ends the program at once.
class CrashTold {
  public:
    CrashTold() : m_before(::SetUnhandledExceptionFilter(OnCrash)) {
        ::CreateTimerQueueTimer(&m_timer, nullptr, OnTick, nullptr, 1000, 1000, 0);
    }
    CrashTold(const CrashTold&) = delete;
    CrashTold& operator=(const CrashTold&) = delete;
    ~CrashTold() {
        ::DeleteTimerQueueTimer(nullptr, m_timer, INVALID_HANDLE_VALUE);
        ::SetUnhandledExceptionFilter(m_before);
    }

    // The DISPID of the call that was begun last.
    static inline std::atomic<DISPID> LastCall = DISPID_UNKNOWN;

    static void Begin(unsigned sessionSeed) {
        seed = sessionSeed;
        start = ::GetTickCount64();
    }

  private:
    // A session takes well below a second.
    static constexpr ULONGLONG MostMilliseconds = 120000;

    static void CALLBACK OnTick(void*, BOOLEAN) {
        if (::GetTickCount64() - start > MostMilliseconds) {
            std::printf("no end of VEYGRID_FUZZ_SEED=%u, last call %ld\n", seed.load(),
                        LastCall.load());
            std::fflush(stdout);
            ::TerminateProcess(::GetCurrentProcess(), 4);
        }
    }
    static LONG WINAPI OnCrash(EXCEPTION_POINTERS* pointers) {
        const auto* const place =
            static_cast<const char*>(pointers->ExceptionRecord->ExceptionAddress);
        HMODULE module = nullptr;
        ::GetModuleHandleExW(
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
            reinterpret_cast<const wchar_t*>(place), &module);
        char name[MAX_PATH] = {};
        ::GetModuleFileNameA(module, name, MAX_PATH);
        std::printf("exception %lX at %s+%llX in VEYGRID_FUZZ_SEED=%u, last call %ld\n",
                    pointers->ExceptionRecord->ExceptionCode, name,
                    static_cast<unsigned long long>(place - reinterpret_cast<const char*>(module)),
                    seed.load(), LastCall.load());
        std::fflush(stdout);
        ::TerminateProcess(::GetCurrentProcess(), 3);
        return EXCEPTION_EXECUTE_HANDLER;
    }

    static inline std::atomic<unsigned> seed = 0;
    static inline std::atomic<ULONGLONG> start = 0;

    LPTOP_LEVEL_EXCEPTION_FILTER m_before;
    HANDLE m_timer = nullptr;
};

// Runs sessions, each with a seed of its own, until the time is over; then the counts are compared
// with those after the first one. Each session leaves a module that may be unloaded.
template <class Session>
void RunSessions(Session session) {
    const FuzzFolder folder;
    const DialogsClosed closed;
    const CrashTold told;
    unsigned seed = FuzzSeed();
    const auto once = [&] {
        CrashTold::Begin(seed);
        Random random(seed);
        session(random);
        folder.Empty();
        ASSERT_EQ(Ocx::Entry<HRESULT WINAPI()>("DllCanUnloadNow")(), S_OK) << "seed " << seed;
        ++seed;
    };
    once();
    const Handles before;
    const ULONGLONG end = ::GetTickCount64() + static_cast<ULONGLONG>(FuzzSeconds() * 1000);
    do {
        once();
    } while (::GetTickCount64() < end && !::testing::Test::HasFailure());
    const Handles after;
    EXPECT_LE(after.gdi, before.gdi + 2);
    EXPECT_LE(after.user, before.user + 2);
    std::printf("sessions up to VEYGRID_FUZZ_SEED=%u\n", seed - 1);
}

}  // namespace veygrid
