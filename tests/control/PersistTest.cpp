// The ways in which containers keep the control: stream, storage, property bag, memory and reset.
#include <gmock/gmock.h>

#include <map>

#include "control/ClassIds.h"
#include "tests/control/Support.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

ComPtr<IUnknown> NewControl() {
    return Ocx::Make(VeyGridClassId);
}

ComPtr<IStream> NewStream() {
    ComPtr<IStream> stream;
    EXPECT_EQ(::CreateStreamOnHGlobal(nullptr, TRUE, &stream), S_OK);
    return stream;
}

void Rewind(IStream& stream) {
    EXPECT_EQ(stream.Seek({}, STREAM_SEEK_SET, nullptr), S_OK);
}

void Fill(const Late& grid) {
    grid.Put(L"MaxRow", {123});
    grid.Put(L"CellText", {3, 2, L"摘要"});
    grid.Put(L"GuiDesignSnapToX", {9});
    grid.Put(L"CanWriteTable", {true});
}

struct Bag final : IPropertyBag {
    STDMETHODIMP QueryInterface(REFIID, void** target) override {
        *target = this;
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 1; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog*) override {
        const auto found = values.find(name);
        return found == values.end() ? E_INVALIDARG : ::VariantCopy(value, &found->second);
    }
    STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) override {
        return ::VariantCopy(&values[name], value);
    }
    ~Bag() {
        for (auto& [name, value] : values) {
            ::VariantClear(&value);
        }
    }
    std::map<std::wstring, VARIANT> values;
};

TEST(Persist, AStreamCarriesEverythingAndLeavesWhatComesBehind) {
    const ComPtr<IStream> stream = NewStream();
    const ComPtr<IUnknown> saved = NewControl();
    Fill(Late(saved));
    ComPtr<IPersistStreamInit> persist;
    ASSERT_EQ(saved.As(&persist), S_OK);
    EXPECT_EQ(persist->IsDirty(), S_OK);
    ASSERT_EQ(persist->Save(stream.Get(), TRUE), S_OK);
    EXPECT_EQ(persist->IsDirty(), S_FALSE);
    ULARGE_INTEGER size{};
    EXPECT_EQ(persist->GetSizeMax(&size), S_OK);
    ASSERT_EQ(stream->Write("tail", 4, nullptr), S_OK);
    Rewind(*stream.Get());

    const ComPtr<IUnknown> loaded = NewControl();
    ASSERT_EQ(loaded.As(&persist), S_OK);
    ASSERT_EQ(persist->Load(stream.Get()), S_OK);
    const Late grid(loaded);
    EXPECT_EQ(grid.Number(L"MaxRow"), 123);
    EXPECT_EQ(grid.Text(L"CellText", {3, 2}), CodePage936FromUtf8("摘要"));
    EXPECT_EQ(grid.Number(L"CanWriteTable"), -1);
    EXPECT_EQ(grid.Number(L"GuiDesignSnapToX"), 5);
    char tail[4] = {};
    EXPECT_EQ(stream->Read(tail, 4, nullptr), S_OK);
    EXPECT_EQ(std::string(tail, 4), "tail");
}

TEST(Persist, AStreamHoldsTheVersionNumber65536BehindTheBanner) {
    const ComPtr<IStream> stream = NewStream();
    ComPtr<IPersistStreamInit> persist;
    ASSERT_EQ(NewControl().As(&persist), S_OK);
    ASSERT_EQ(persist->Save(stream.Get(), TRUE), S_OK);
    Rewind(*stream.Get());
    char bytes[36] = {};
    ASSERT_EQ(stream->Read(bytes, sizeof bytes, nullptr), S_OK);
    EXPECT_EQ(std::string(bytes, 32), "\x1FVeynor Data Grid Control Ver3.0");
    EXPECT_EQ(std::string(bytes + 32, 4), std::string("\0\0\1\0", 4));
}

TEST(Persist, AStreamThatEndsEarlyIsReportedAndWhatWasReadStays) {
    const ComPtr<IStream> whole = NewStream();
    const ComPtr<IUnknown> saved = NewControl();
    Fill(Late(saved));
    ComPtr<IPersistStreamInit> persist;
    ASSERT_EQ(saved.As(&persist), S_OK);
    ASSERT_EQ(persist->Save(whole.Get(), TRUE), S_OK);
    ULARGE_INTEGER size{};
    persist->GetSizeMax(&size);
    size.QuadPart -= 9;
    ASSERT_EQ(whole->SetSize(size), S_OK);
    Rewind(*whole.Get());
    const ComPtr<IUnknown> loaded = NewControl();
    ASSERT_EQ(loaded.As(&persist), S_OK);
    EXPECT_EQ(persist->Load(whole.Get()), STG_E_DOCFILECORRUPT);
    EXPECT_EQ(Late(loaded).Number(L"MaxRow"), 123);
}

TEST(Persist, AStorageHoldsTheSameInItsContents) {
    ComPtr<IStorage> storage;
    ASSERT_EQ(
        ::StgCreateDocfile(
            nullptr, STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE | STGM_DELETEONRELEASE, 0,
            &storage),
        S_OK);
    const ComPtr<IUnknown> saved = NewControl();
    Fill(Late(saved));
    ComPtr<IPersistStorage> persist;
    ASSERT_EQ(saved.As(&persist), S_OK);
    ASSERT_EQ(::OleSave(persist.Get(), storage.Get(), FALSE), S_OK);
    persist->SaveCompleted(nullptr);
    ComPtr<IUnknown> loaded = NewControl();
    ASSERT_EQ(loaded.As(&persist), S_OK);
    ASSERT_EQ(persist->Load(storage.Get()), S_OK);
    EXPECT_EQ(Late(loaded).Text(L"CellText", {3, 2}), CodePage936FromUtf8("摘要"));
}

TEST(Persist, ABagCarriesTheTableAndNoCells) {
    Bag bag;
    const ComPtr<IUnknown> saved = NewControl();
    Fill(Late(saved));
    ComPtr<IPersistPropertyBag> persist;
    ASSERT_EQ(saved.As(&persist), S_OK);
    ASSERT_EQ(persist->Save(&bag, TRUE, TRUE), S_OK);
    EXPECT_EQ(bag.values.count(L"GuiDesignSnapToX"), 0U);
    EXPECT_EQ(bag.values.count(L"CanWriteTable"), 0U);
    EXPECT_EQ(bag.values[L"MaxRow"].lVal, 123);
    const ComPtr<IUnknown> loaded = NewControl();
    ASSERT_EQ(loaded.As(&persist), S_OK);
    ASSERT_EQ(persist->Load(&bag, nullptr), S_OK);
    const Late grid(loaded);
    EXPECT_EQ(grid.Number(L"MaxRow"), 123);
    EXPECT_EQ(grid.Text(L"CellText", {3, 2}), "");
    EXPECT_EQ(grid.Number(L"LastRow"), 3);
    EXPECT_EQ(grid.Number(L"GuiDesignSnapToX"), 5);
}

TEST(Persist, ABagOfTextsLoadsToo) {
    Bag bag;
    bag.values[L"MaxRow"] = Arg(L"77").value;
    bag.values[L"RowMode"] = Arg(L"True").value;
    bag.values[L"MaxCol"] = Arg(L"no number").value;
    const ComPtr<IUnknown> loaded = NewControl();
    ComPtr<IPersistPropertyBag> persist;
    ASSERT_EQ(loaded.As(&persist), S_OK);
    ASSERT_EQ(persist->Load(&bag, nullptr), S_OK);
    EXPECT_EQ(Late(loaded).Number(L"MaxRow"), 77);
    EXPECT_EQ(Late(loaded).Number(L"RowMode"), -1);
    EXPECT_EQ(Late(loaded).Number(L"MaxCol"), 20);
}

TEST(Persist, ResetGivesTheDefaultsAndKeepsCellsAndSwitches) {
    const ComPtr<IUnknown> control = NewControl();
    const Late grid(control);
    Fill(grid);
    ComPtr<IPersistStreamInit> persist;
    ASSERT_EQ(control.As(&persist), S_OK);
    EXPECT_EQ(persist->InitNew(), S_OK);
    EXPECT_EQ(grid.Number(L"MaxRow"), 50);
    EXPECT_EQ(grid.Text(L"CellText", {3, 2}), CodePage936FromUtf8("摘要"));
    EXPECT_EQ(grid.Number(L"CanWriteTable"), -1);
}

TEST(Persist, MemoryCarriesWhatAStreamDoes) {
    const ComPtr<IUnknown> saved = NewControl();
    Fill(Late(saved));
    ComPtr<IPersistMemory> persist;
    ASSERT_EQ(saved.As(&persist), S_OK);
    ULONG size = 0;
    ASSERT_EQ(persist->GetSizeMax(&size), S_OK);
    std::string bytes(size, '\0');
    EXPECT_EQ(persist->Save(bytes.data(), TRUE, size - 1), E_INVALIDARG);
    ASSERT_EQ(persist->Save(bytes.data(), TRUE, size), S_OK);
    const ComPtr<IUnknown> loaded = NewControl();
    ASSERT_EQ(loaded.As(&persist), S_OK);
    ASSERT_EQ(persist->Load(bytes.data(), size), S_OK);
    EXPECT_EQ(Late(loaded).Number(L"MaxRow"), 123);
}

TEST(Persist, AFileWithAChineseNameIsSavedAndOpened) {
    wchar_t folder[MAX_PATH] = {};
    ::GetTempPathW(MAX_PATH, folder);
    const std::wstring path = std::wstring(folder) + L"凭证.grd";
    const Late grid(NewControl());
    Fill(grid);
    EXPECT_EQ(grid.Number(L"SaveFile", {path.c_str()}), -1);
    EXPECT_NE(::GetFileAttributesW(path.c_str()), INVALID_FILE_ATTRIBUTES);
    const Late other(NewControl());
    EXPECT_EQ(other.Number(L"OpenFile", {path.c_str(), 0}), 1);
    EXPECT_EQ(other.Text(L"CellText", {3, 2}), CodePage936FromUtf8("摘要"));
    EXPECT_EQ(other.Number(L"Modified"), 0);
    ::DeleteFileW(path.c_str());
}

}  // namespace

}  // namespace veygrid
