// Random and damaged states in streams, storages, files and property bags: no crash, nothing left
// behind, and what was taken is kept from then on.
#include <gmock/gmock.h>

#include <algorithm>

#include "control/ClassIds.h"
#include "tests/control/FuzzSupport.h"

namespace veygrid {

namespace {

void FillAtRandom(Random& random, const Late& grid) {
    for (int i = random.Below(30); i > 0; --i) {
        const std::wstring text = RandomText(random);
        const int row = 1 + random.Below(20);
        const int col = 1 + random.Below(10);
        static constexpr const wchar_t* ofCell[] = {L"CellText", L"CellShowFormat"};
        static constexpr const wchar_t* ofLine[] = {L"RowHeader", L"ColHeader", L"RowName",
                                                    L"ColName"};
        grid.Put(random.Of(ofCell), {row, col, text.c_str()});
        grid.Put(random.Of(ofLine), {row, text.c_str()});
        grid.Put(L"Param", {text.c_str(), text.c_str()});
        grid.Put(L"RowHeight", {row, RandomNumber(random)});
        grid.Put(L"ColWidth", {col, RandomNumber(random)});
    }
}

std::string SavedBytes(const ComPtr<IUnknown>& control) {
    ComPtr<IPersistMemory> memory;
    ULONG size = 0;
    EXPECT_EQ(control.As(&memory), S_OK);
    EXPECT_EQ(memory->GetSizeMax(&size), S_OK);
    std::string bytes(size, '\0');
    EXPECT_EQ(memory->Save(bytes.data(), FALSE, size), S_OK);
    return bytes;
}

// Some bytes changed, put in, left out or cut off.
std::string Damaged(Random& random, std::string bytes) {
    static constexpr unsigned char extremes[] = {0, 1, 0x7F, 0x80, 0xFE, 0xFF};
    for (int i = random.Below(6); i > 0 && !bytes.empty(); --i) {
        const auto at = static_cast<std::size_t>(random.Below(static_cast<int>(bytes.size())));
        const auto length = static_cast<std::size_t>(random.Below(9));
        switch (random.Below(5)) {
            case 0:
                bytes.erase(at, length);
                break;
            case 1:
                bytes.insert(at, length, static_cast<char>(random.Bits()));
                break;
            case 2:
                bytes.resize(random.OneIn(4) ? at : bytes.size());
                break;
            default:
                bytes[at] =
                    static_cast<char>(random.OneIn(2) ? random.Of(extremes) : random.Bits());
                break;
        }
    }
    return bytes;
}

void Write(IStream& stream, const std::string& bytes) {
    EXPECT_EQ(stream.Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr), S_OK);
    EXPECT_EQ(stream.Seek({}, STREAM_SEEK_SET, nullptr), S_OK);
}

HRESULT LoadFromMemory(const ComPtr<IUnknown>& control, std::string& bytes) {
    ComPtr<IPersistMemory> memory;
    EXPECT_EQ(control.As(&memory), S_OK);
    return memory->Load(bytes.data(), static_cast<ULONG>(bytes.size()));
}

HRESULT LoadFromStream(const ComPtr<IUnknown>& control, const std::string& bytes) {
    ComPtr<IPersistStreamInit> persist;
    ComPtr<IStream> stream;
    EXPECT_EQ(control.As(&persist), S_OK);
    EXPECT_EQ(::CreateStreamOnHGlobal(nullptr, TRUE, &stream), S_OK);
    Write(*stream.Get(), bytes);
    return persist->Load(stream.Get());
}

HRESULT LoadFromStorage(const ComPtr<IUnknown>& control, const std::string& bytes,
                        const wchar_t* name) {
    ComPtr<IPersistStorage> persist;
    ComPtr<IStorage> storage;
    constexpr DWORD mode = STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE;
    EXPECT_EQ(control.As(&persist), S_OK);
    EXPECT_EQ(::StgCreateDocfile(nullptr, mode | STGM_DELETEONRELEASE, 0, &storage), S_OK);
    {
        ComPtr<IStream> stream;
        EXPECT_EQ(storage->CreateStream(name, mode, 0, 0, &stream), S_OK);
        Write(*stream.Get(), bytes);
    }
    return persist->Load(storage.Get());
}

HRESULT LoadFromFile(const ComPtr<IUnknown>& control, const std::string& bytes) {
    const wchar_t* const name = L"损坏.grd";
    const HANDLE file = ::CreateFileW(name, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    EXPECT_TRUE(
        ::WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr));
    ::CloseHandle(file);
    OwnedVariant opened;
    constexpr DISPID openFile = 81;
    const HRESULT answer = Late(control).Invoke(openFile, DISPATCH_METHOD, {name, 0}, &opened);
    EXPECT_THAT(answer, ::testing::AnyOf(S_OK, DISP_E_EXCEPTION));
    return answer == S_OK && opened->iVal > 0 ? S_OK : STG_E_DOCFILECORRUPT;
}

// A bag that gives a random value for every name, and takes what it is given.
struct RandomBag final : IPropertyBag {
    RandomBag(Random& random, IDispatch* object) : values(random, object) {}
    STDMETHODIMP QueryInterface(REFIID, void** target) override {
        *target = this;
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP Read(LPCOLESTR, VARIANT* value, IErrorLog*) override {
        VARIANT given = values.Next();
        const bool isHollow = (given.vt & VT_BYREF) != 0 && given.byref == nullptr;
        return isHollow ? E_INVALIDARG : ::VariantCopyInd(value, &given);
    }
    STDMETHODIMP Write(LPCOLESTR, VARIANT*) override { return S_OK; }
    RandomArguments values;
};

HRESULT LoadFromBag(Random& random, const ComPtr<IUnknown>& control) {
    ComPtr<IPersistPropertyBag> persist;
    EXPECT_EQ(control.As(&persist), S_OK);
    RandomBag bag(random, Late(control).Object());
    return persist->Load(&bag, nullptr);
}

HRESULT LoadSomehow(Random& random, const ComPtr<IUnknown>& control, std::string bytes) {
    switch (random.Below(8)) {
        case 0:
            return LoadFromStorage(control, bytes, random.OneIn(4) ? L"Other" : L"Contents");
        case 1:
            return LoadFromFile(control, bytes);
        case 2:
            return LoadFromBag(random, control);
        case 3:
            return LoadFromStream(control, bytes);
        default:
            return LoadFromMemory(control, bytes);
    }
}

// Entries of the maps stand in the order of their coming, so that loading turns some of them round.
std::string Sorted(std::string bytes) {
    std::ranges::sort(bytes);
    return bytes;
}

// What was taken is saved and loaded again without a change; the first saving settles what the
// damaged bytes left open.
void ExpectKept(const ComPtr<IUnknown>& control) {
    std::string settled = SavedBytes(control);
    const ComPtr<IUnknown> second = Ocx::Make(VeyGridClassId);
    ASSERT_EQ(LoadFromMemory(second, settled), S_OK);
    std::string once = SavedBytes(second);
    const ComPtr<IUnknown> third = Ocx::Make(VeyGridClassId);
    ASSERT_EQ(LoadFromMemory(third, once), S_OK);
    EXPECT_EQ(Sorted(SavedBytes(third)), Sorted(once));
}

void OneSession(Random& random) {
    const ComPtr<IUnknown> whole = Ocx::Make(VeyGridClassId);
    FillAtRandom(random, Late(whole));
    const std::string bytes = SavedBytes(whole);
    for (int i = 0; i < 20; ++i) {
        Container container;
        const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
        if (random.OneIn(10)) {
            container.Show(control);
        }
        const HRESULT answer = LoadSomehow(random, control, Damaged(random, bytes));
        EXPECT_THAT(answer, ::testing::AnyOf(S_OK, STG_E_DOCFILECORRUPT, STG_E_FILENOTFOUND,
                                             E_OUTOFMEMORY));
        if (answer == S_OK) {
            ExpectKept(control);
        }
        const Late grid(control);
        grid.Text(L"CellText", {1, 1});
        grid.Call(L"InsertRows", {1, 1});
        container.Close();
        EXPECT_EQ(container.References, 1);
    }
}

TEST(Fuzz, RandomAndDamagedStatesAreTakenOrRefusedAndLeaveNothingBehind) {
    RunSessions(OneSession);
}

}  // namespace

}  // namespace veygrid
