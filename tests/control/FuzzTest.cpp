// Random calls of every member: no crash, nothing left behind, always a defined answer.
#include <gmock/gmock.h>

#include <optional>

#include "control/AutomationTable.h"
#include "control/ClassIds.h"
#include "tests/control/FuzzSupport.h"
#include "tests/control/HostileDataset.h"

namespace veygrid {

namespace {

// Printing goes to whatever printer the machine has. A huge sheet is copied and pasted for minutes.
// What is bound is given away, and has a call of its own.
bool IsLeftOut(const Random& random, std::string_view name) {
    const bool copies = name.starts_with("Edit") || name == "SendCommand";
    return name == "Print" || name == "BindDataset" || (copies && random.IsHuge());
}

DISPID RandomMember(Random& random, const DispatchTable& table) {
    const DispatchMember& member = random.Of(table.Members());
    if (random.OneIn(50)) {
        return static_cast<DISPID>(random.Bits());
    }
    return IsLeftOut(random, member.name) ? DISPID_UNKNOWN : member.id;
}

int CountOf(const DispatchTable& table, DISPID id, bool isPut) {
    const DispatchMember* const member = table.FindById(id);
    return member == nullptr ? 0 : static_cast<int>(isPut ? member->put.count : member->get.count);
}

WORD RandomFlags(Random& random) {
    static constexpr WORD usual[] = {DISPATCH_METHOD, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                                     DISPATCH_PROPERTYGET, DISPATCH_PROPERTYPUT,
                                     DISPATCH_PROPERTYPUTREF};
    return random.OneIn(20) ? static_cast<WORD>(random.Below(32)) : random.Of(usual);
}

std::vector<DISPID> RandomNames(Random& random, bool isPut, std::size_t most) {
    std::vector<DISPID> named;
    if (isPut && most > 0 && !random.OneIn(30)) {
        named.push_back(DISPID_PROPERTYPUT);
    }
    while (named.size() < most && random.OneIn(10)) {
        static constexpr DISPID odd[] = {DISPID_PROPERTYPUT, -1, 99, 2147483647};
        named.push_back(random.OneIn(4) ? random.Of(odd) : random.Below(6));
    }
    return named;
}

// An exception is an answer where the memory does not hold the result, and says so.
void ExpectDefined(HRESULT answer, const EXCEPINFO& exception, const VARIANT& result, DISPID id) {
    using ::testing::AnyOf;
    EXPECT_THAT(answer, AnyOf(S_OK, DISP_E_MEMBERNOTFOUND, DISP_E_BADPARAMCOUNT,
                              DISP_E_PARAMNOTFOUND, DISP_E_TYPEMISMATCH, DISP_E_OVERFLOW,
                              DISP_E_BADVARTYPE, DISP_E_EXCEPTION, E_INVALIDARG))
        << "member " << id;
    const std::string told = exception.bstrDescription == nullptr
                                 ? std::string()
                                 : TextFromWide(exception.bstrDescription);
    EXPECT_TRUE(answer != DISP_E_EXCEPTION || exception.scode == E_OUTOFMEMORY ||
                told.find("longer than") != std::string::npos ||
                told.find("dataset") != std::string::npos)
        << "member " << id << ": " << told;
    EXPECT_TRUE(answer == S_OK || result.vt == VT_EMPTY) << "member " << id;
}

void CallAtRandom(Random& random, const DispatchTable& table, IDispatch* object, IDispatch* other) {
    const DISPID id = RandomMember(random, table);
    const WORD flags = RandomFlags(random);
    const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    const int count = CountOf(table, id, isPut) + (random.OneIn(8) ? random.Below(4) - 1 : 0);
    RandomArguments arguments(random, other);
    std::vector<VARIANT> values;
    for (int i = 0; i < count; ++i) {
        values.push_back(arguments.Next());
    }
    std::vector<DISPID> named = RandomNames(random, isPut, values.size());
    DISPPARAMS parameters{values.data(), named.data(), static_cast<UINT>(values.size()),
                          static_cast<UINT>(named.size())};
    static constexpr LCID locales[] = {0, 0x804, 0x409, 0x407, 0xFFFF};
    OwnedVariant result;
    EXCEPINFO exception{};
    UINT wrong = 0;
    CrashTold::LastCall = id;
    const HRESULT answer = object->Invoke(id, IID_NULL, random.Of(locales), flags, &parameters,
                                          random.OneIn(5) ? nullptr : &result, &exception,
                                          random.OneIn(5) ? nullptr : &wrong);
    ExpectDefined(answer, exception, result.Get(), id);
    EXPECT_LT(wrong, std::max<std::size_t>(values.size(), 1)) << "member " << id;
    ::SysFreeString(exception.bstrDescription);
    ::SysFreeString(exception.bstrSource);
}

// Binds an object whose reference goes with it, or nothing.
void BindAtRandom(Random& random, IDispatch* grid, IDispatch* object) {
    VARIANT given{};
    given.vt = VT_DISPATCH;
    given.pdispVal = object;
    const ComPtr<IDispatch> kept(object);
    DISPPARAMS parameters{&given, nullptr, 1, 0};
    OwnedVariant result;
    EXCEPINFO exception{};
    const DISPID id = Late(grid).IdOf(L"BindDataset");
    CrashTold::LastCall = id;
    const HRESULT answer = grid->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &parameters, &result,
                                        random.OneIn(5) ? nullptr : &exception, nullptr);
    EXPECT_TRUE(answer == S_OK || exception.bstrDescription == nullptr ||
                answer == DISP_E_EXCEPTION);
    ::SysFreeString(exception.bstrDescription);
    ::SysFreeString(exception.bstrSource);
}

void PutOnClipboard(Random& random, HWND owner) {
    if (!::OpenClipboard(owner)) {
        return;
    }
    ::EmptyClipboard();
    const std::string text = TextFromWide(RandomText(random));
    const HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
    if (auto* const bytes = static_cast<char*>(::GlobalLock(block))) {
        std::copy(text.begin(), text.end(), bytes);
        // Not every program ends its text.
        bytes[text.size()] = random.OneIn(3) ? 'x' : '\0';
        ::GlobalUnlock(block);
    }
    ::SetClipboardData(CF_TEXT, block);
    ::CloseClipboard();
}

void SendAtRandom(Random& random, HWND window) {
    static constexpr UINT messages[] = {
        WM_KEYDOWN,   WM_KEYUP,   WM_CHAR,       WM_LBUTTONDOWN, WM_LBUTTONUP,
        WM_MOUSEMOVE, WM_HSCROLL, WM_VSCROLL,    WM_RBUTTONDOWN, WM_LBUTTONDBLCLK,
        WM_SIZE,      WM_PAINT,   WM_MOUSEWHEEL, WM_CANCELMODE,  WM_SYSCOLORCHANGE};
    static constexpr const wchar_t* names[] = {L"VeynorGrid_CtrlKeyDown",
                                               L"VeynorGrid_CellSelChange",
                                               L"VeynorGrid_SaveRecord",
                                               L"VeynorGrid_InsertRecord",
                                               L"VeynorGrid_DeleteeRecord",
                                               L"VeynorGrid_CloseParent",
                                               L"VeynorGrid_NextRecord",
                                               L"VeynorGrid_PriorRecord",
                                               L"VeynorGrid_FirstRecord",
                                               L"VeynorGrid_LastRecord",
                                               L"VeynorGrid_CtrlKeyMsg",
                                               L"MSG_DRAGOVER",
                                               L"MSG_DROP"};
    const UINT message =
        random.OneIn(2) ? ::RegisterWindowMessageW(random.Of(names)) : random.Of(messages);
    ::PostMessageW(window, message, static_cast<WPARAM>(RandomNumber(random)),
                   static_cast<LPARAM>(RandomNumber(random)));
}

void Pump() {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

// A control in a container, or without one, and an object of each other class; all are called at
// random, from outside and from the control's own events.
void OneSession(Random& random) {
    Container container;
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    const Late grid(control);
    const Late format(Ocx::Make(CellFormatClassId));
    const Late description(Ocx::Make(FormObjectClassId));
    const std::array<IDispatch*, 4> objects{grid.Object(), format.Object(), description.Object(),
                                            nullptr};
    int depth = 0;
    int datasets = 0;
    std::function<void()> act;
    const auto bind = [&] {
        IDispatch* object = nullptr;
        if (random.OneIn(4)) {
            // Any object; the reference that goes with it.
            object = random.Of(objects);
            if (object != nullptr) {
                object->AddRef();
            }
        } else if (!random.OneIn(4)) {
            object = new HostileDataset(random, random.Of(objects), act, datasets);
        }
        BindAtRandom(random, grid.Object(), object);
    };
    int left = 100;  // pasting fires thousands of events, and each call may be a long one
    EventSink sink([&](DISPID, DISPPARAMS&) {
        if (depth < 3 && left > 0 && random.OneIn(10)) {
            --left;
            ++depth;
            CallAtRandom(random, VeyGridTable(), grid.Object(), random.Of(objects));
            --depth;
        }
    });
    act = [&] {
        if (depth < 3 && left > 0) {
            --left;
            ++depth;
            if (random.OneIn(3)) {
                bind();
            } else {
                CallAtRandom(random, VeyGridTable(), grid.Object(), random.Of(objects));
            }
            --depth;
        }
    };
    PutOnClipboard(random, container.Window());
    {
        std::optional<Connected> connected(std::in_place, control, VeyGridEventsId, &sink);
        if (random.OneIn(2)) {
            container.Show(control);
        }
        for (int i = 0; i < 200; ++i) {
            CallAtRandom(random, VeyGridTable(), grid.Object(), random.Of(objects));
            CallAtRandom(random, CellFormatTable(), format.Object(), random.Of(objects));
            CallAtRandom(random, FormObjectTable(), description.Object(), random.Of(objects));
            if (random.OneIn(40)) {
                PutOnClipboard(random, container.Window());
            }
            if (random.OneIn(20)) {
                bind();
            }
            if (const HWND window = Container::WindowOf(control); window && random.OneIn(4)) {
                SendAtRandom(random, window);
                Pump();
            }
        }
    }
    container.Close();
    // It may have been bound to itself.
    left = 0;
    BindAtRandom(random, grid.Object(), nullptr);
    EXPECT_EQ(datasets, 0);
    EXPECT_EQ(sink.References, 1);
    EXPECT_EQ(container.References, 1);
}

TEST(Fuzz, RandomCallsOfEveryMemberHaveDefinedAnswersAndLeaveNothingBehind) {
    RunSessions(OneSession);
}

}  // namespace

}  // namespace veygrid
