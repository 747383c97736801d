// Random calls of every member and random states: no crash, no leak, always a defined answer.
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "control/AutomationTable.h"
#include "control/ClassIds.h"
#include "tests/control/Container.h"

namespace veygrid {

namespace {

using Random = std::mt19937;

// Members that open a modal window or write a file are left to tests of their own.
bool IsLeftOut(std::string_view name) {
    return name == "AboutBox" || name == "SaveFile" || name == "SendCommand" ||
           name == "EditPaste" || name == "ShowFontDlg" || name == "ShowAlignDlg";
}

int Pick(Random& random, int count) {
    return static_cast<int>(random() % static_cast<unsigned>(count));
}

Arg RandomArgument(Random& random, VARIANT* target, IDispatch* object) {
    constexpr int Numbers[] = {0, -1, 1, 2, 3, 17, 50, 255, 32767, 65535, 2147483647, -2147483647};
    switch (Pick(random, 9)) {
        case 0:
            return Arg(L"汉字\tA|B~{R1C2}");
        case 1:
            return Arg(std::wstring(static_cast<std::size_t>(Pick(random, 300)), L'x').c_str());
        case 2:
            return Arg(object);
        case 3:
            return Arg::Reference(target);
        case 4:
            return Arg::Missing();
        case 5:
            return Arg();
        case 6:
            return Arg(Pick(random, 2) == 0);
        default:
            return Arg(Numbers[Pick(random, static_cast<int>(std::size(Numbers)))]);
    }
}

void CallAtRandom(Random& random, const DispatchTable& table, const Late& object,
                  IDispatch* other) {
    const auto members = table.Members();
    const DispatchMember& member =
        members[static_cast<std::size_t>(Pick(random, static_cast<int>(members.size())))];
    if (IsLeftOut(member.name)) {
        return;
    }
    constexpr WORD Flags[] = {DISPATCH_METHOD, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                              DISPATCH_PROPERTYPUT, DISPATCH_PROPERTYPUTREF};
    OwnedVariant target;
    OwnedVariant result;
    std::vector<Arg> arguments;
    const int count = static_cast<int>(member.get.count) + Pick(random, 3) - 1;
    for (int i = 0; i < count; ++i) {
        arguments.push_back(RandomArgument(random, &target, other));
    }
    const WORD flags = Flags[Pick(random, 4)];
    const bool isPut = flags >= DISPATCH_PROPERTYPUT;
    if (isPut && arguments.empty()) {
        return;
    }
    object.Invoke(member.id, flags, std::move(arguments), &result);
}

// Rows and columns far apart are legal; a sheet is emptied before it fills the memory.
void LoadMutated(Random& random, const ComPtr<IUnknown>& control) {
    ComPtr<IPersistMemory> memory;
    ASSERT_EQ(control.As(&memory), S_OK);
    ULONG size = 0;
    ASSERT_EQ(memory->GetSizeMax(&size), S_OK);
    std::string bytes(size, '\0');
    ASSERT_EQ(memory->Save(bytes.data(), FALSE, size), S_OK);
    // The banner stays: refusing it shows a message box.
    constexpr int BannerBytes = 32;
    for (int i = Pick(random, 8); i > 0; --i) {
        bytes[static_cast<std::size_t>(BannerBytes +
                                       Pick(random, static_cast<int>(size) - BannerBytes))] =
            static_cast<char>(random());
    }
    const ComPtr<IUnknown> other = Ocx::Make(VeyGridClassId);
    ComPtr<IPersistMemory> target;
    ASSERT_EQ(other.As(&target), S_OK);
    target->Load(bytes.data(), size - static_cast<ULONG>(Pick(random, 20)));
}

struct Handles {
    DWORD gdi = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS);
    DWORD user = ::GetGuiResources(::GetCurrentProcess(), GR_USEROBJECTS);
};

void OneSession(Random& random) {
    Container container;
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    const ComPtr<IUnknown> format = Ocx::Make(CellFormatClassId);
    const ComPtr<IUnknown> description = Ocx::Make(FormObjectClassId);
    const Late grid(control);
    const Late formatObject(format);
    const Late descriptionObject(description);
    if (Pick(random, 2) == 0) {
        container.Show(control);
    }
    for (int i = 0; i < 300; ++i) {
        CallAtRandom(random, VeyGridTable(), grid, formatObject.Object());
        CallAtRandom(random, CellFormatTable(), formatObject, grid.Object());
        CallAtRandom(random, FormObjectTable(), descriptionObject, grid.Object());
    }
    // A query makes deletions ask the user.
    LoadMutated(random, control);
}

int Seconds() {
    const char* const text = std::getenv("VEYGRID_FUZZ_SECONDS");
    return text == nullptr ? 5 : std::atoi(text);
}

TEST(Fuzz, RandomCallsAndMutatedStatesLeaveNothingBehind) {
    Random random(20260101);
    OneSession(random);
    const Handles before;
    const ULONGLONG end = ::GetTickCount64() + static_cast<ULONGLONG>(Seconds()) * 1000;
    int sessions = 0;
    for (; ::GetTickCount64() < end; ++sessions) {
        OneSession(random);
    }
    const Handles after;
    EXPECT_GT(sessions, 0);
    EXPECT_EQ(Ocx::Entry<HRESULT WINAPI()>("DllCanUnloadNow")(), S_OK);
    EXPECT_LE(after.gdi, before.gdi + 2);
    EXPECT_LE(after.user, before.user + 2);
}

}  // namespace

}  // namespace veygrid
