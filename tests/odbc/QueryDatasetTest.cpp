// The dataset object as the control and scripts call it.
#ifdef _WIN32
#include "apps/host/odbc/QueryDataset.h"

#include "apps/host/odbc/SaveTexts.h"
#include "tests/odbc/DatabaseDesk.h"

namespace veygrid {
namespace {

// A late-bound call with the arguments in their written order.
HRESULT CallBy(IDispatch* object, DISPID id, std::vector<Variant> arguments, Variant* answer,
               WORD flags = DISPATCH_METHOD) {
    std::reverse(arguments.begin(), arguments.end());
    DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    return object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, answer, nullptr,
                          nullptr);
}
Variant ByReference(Variant& out) {
    Variant argument;
    argument.vt = VT_BYREF | VT_VARIANT;
    argument.pvarVal = &out;
    return argument;
}

class QueryDatasetTest : public DatabaseTest {
  protected:
    void Fill() {
        Run(u"CREATE TABLE t(id INTEGER PRIMARY KEY, name TEXT)");
        Run(u"INSERT INTO t VALUES (1, '多福巷'), (2, ''), (3, NULL)");
    }
    ComPtr<QueryDataset> Open(std::u16string_view text = u"SELECT id, name FROM t") {
        return MakeCom<QueryDataset>(Conn(), text);
    }
    static Variant Cell(QueryDataset& dataset, long row, long col) {
        Variant out = Variant::Of(7L);
        Variant answer;
        EXPECT_EQ(CallBy(&dataset, 3,
                         {Variant::Of(row), Variant::Of(col), ByReference(out), Variant::Of(true)},
                         &answer),
                  S_OK);
        EXPECT_EQ(answer.vt, VT_I4);
        return out;
    }
};
EACH_DATABASE(QueryDatasetTest);

TEST_P(QueryDatasetTest, AnswersTheFiveDispids) {
    Fill();
    const auto dataset = Open();
    Variant answer;
    EXPECT_EQ(CallBy(dataset.Get(), 7, {}, &answer), S_OK);
    EXPECT_EQ(answer.Number(), 2);
    EXPECT_EQ(CallBy(dataset.Get(), 8, {Variant::Of(true)}, &answer), S_OK);
    EXPECT_EQ(answer.Number(), 3);
    EXPECT_EQ(CallBy(dataset.Get(), 10, {Variant::Of(2L)}, &answer), S_OK);
    EXPECT_EQ(answer.Text(), L"name");
    EXPECT_EQ(Cell(*dataset.Get(), 1, 2).Text(), L"多福巷");
    EXPECT_EQ(CallBy(dataset.Get(), 9, {Variant::Of(2L), Variant::Of(L"名称")}, &answer), S_OK);
    EXPECT_GE(answer.Number(-9), 0);
    EXPECT_EQ(CallBy(dataset.Get(), 10, {Variant::Of(2L)}, &answer), S_OK);
    EXPECT_EQ(answer.Text(), L"名称");
}

TEST_P(QueryDatasetTest, NullIsAnEmptyVariantAndEmptyTextIsText) {
    Fill();
    const auto dataset = Open();
    EXPECT_EQ(Cell(*dataset.Get(), 2, 2).vt, VT_BSTR);
    EXPECT_EQ(Cell(*dataset.Get(), 3, 2).vt, VT_EMPTY);
}

TEST_P(QueryDatasetTest, PlacesOutsideAreEmptyAndTheirCaptionsRefused) {
    Fill();
    const auto dataset = Open();
    for (const long place : {0L, -1L, 4L, 2147483647L, -2147483647L - 1}) {
        EXPECT_EQ(Cell(*dataset.Get(), place, 1).vt, VT_EMPTY);
        EXPECT_EQ(Cell(*dataset.Get(), 1, place == 0 ? 3 : place).vt, VT_EMPTY);
        Variant answer;
        EXPECT_EQ(CallBy(dataset.Get(), 10, {Variant::Of(place)}, &answer), S_OK);
        EXPECT_EQ(answer.Text(), L"");
        EXPECT_EQ(CallBy(dataset.Get(), 9, {Variant::Of(place), Variant::Of(L"x")}, &answer), S_OK);
        EXPECT_LT(answer.Number(), 0);
    }
}

TEST_P(QueryDatasetTest, NamesAreKnownWithoutRegardToCase) {
    Fill();
    const auto dataset = Open();
    const std::pair<const wchar_t*, DISPID> names[] = {{L"GetCellValue", 3},
                                                       {L"getcolcount", 7},
                                                       {L"GETROWCOUNT", 8},
                                                       {L"SetColCaption", 9},
                                                       {L"GetColName", 10}};
    for (const auto& [name, expected] : names) {
        auto* text = const_cast<wchar_t*>(name);
        DISPID id = 0;
        EXPECT_EQ(dataset->GetIDsOfNames(IID_NULL, &text, 1, 0, &id), S_OK);
        EXPECT_EQ(id, expected);
    }
    auto* unknown = const_cast<wchar_t*>(L"Nothing");
    DISPID id = 0;
    EXPECT_EQ(dataset->GetIDsOfNames(IID_NULL, &unknown, 1, 0, &id), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(id, DISPID_UNKNOWN);
    EXPECT_EQ(dataset->GetIDsOfNames(IID_NULL, nullptr, 1, 0, &id), E_INVALIDARG);
}

TEST_P(QueryDatasetTest, WrongCallsAreAnsweredWithErrors) {
    Fill();
    const auto dataset = Open();
    Variant answer;
    EXPECT_EQ(CallBy(dataset.Get(), 1, {}, &answer), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(CallBy(dataset.Get(), 7, {}, &answer, DISPATCH_PROPERTYGET), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(CallBy(dataset.Get(), 7, {Variant::Of(1L)}, &answer), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(CallBy(dataset.Get(), 10, {Variant::Of(L"x")}, &answer), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(
        CallBy(dataset.Get(), 3,
               {Variant::Of(1L), Variant::Of(1L), Variant::Of(1L), Variant::Of(true)}, &answer),
        DISP_E_TYPEMISMATCH);
    EXPECT_EQ(dataset->Invoke(7, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr),
              DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(CallBy(dataset.Get(), 7, {}, nullptr), S_OK);
}

TEST_P(QueryDatasetTest, PendingTextsAppendedAndDeletedRowsAreOnView) {
    Fill();
    const auto dataset = Open();
    EXPECT_TRUE(dataset->SetPending(2, 2, u"新"));
    EXPECT_TRUE(dataset->DeleteRow(1));
    EXPECT_EQ(dataset->AppendRow(), 3);
    EXPECT_EQ(dataset->RowCount(), 3);
    EXPECT_EQ(Cell(*dataset.Get(), 1, 2).Text(), L"新");
    EXPECT_EQ(Cell(*dataset.Get(), 3, 1).vt, VT_EMPTY);
    dataset->ClearPending();
    EXPECT_EQ(Cell(*dataset.Get(), 1, 2).Text(), L"多福巷");
}

TEST_P(QueryDatasetTest, AStatementThatIsNoSelectHasNoColumns) {
    Fill();
    const auto dataset = Open(u"UPDATE t SET name = 'x'");
    EXPECT_EQ(dataset->ColCount(), 0);
    EXPECT_EQ(dataset->RowCount(), 0);
    EXPECT_EQ(Cell(*dataset.Get(), 1, 1).vt, VT_EMPTY);
}

TEST_P(QueryDatasetTest, AFaultIsToldOnceAndLeavesPendingTextsOnView) {
    Fill();
    const auto dataset = Open();
    int told = 0;
    dataset->WhenFaulty([&](const OdbcError&) { ++told; });
    dataset->SetPending(3, 2, u"新");
    dataset->Reload();
    Run(u"ALTER TABLE t RENAME TO u");
    EXPECT_EQ(Cell(*dataset.Get(), 1, 2).vt, VT_EMPTY);
    EXPECT_EQ(Cell(*dataset.Get(), 2, 2).vt, VT_EMPTY);
    EXPECT_EQ(Cell(*dataset.Get(), 3, 2).Text(), L"新");
    EXPECT_EQ(told, 1);
    ASSERT_NE(dataset->Fault(), nullptr);
    EXPECT_THROW(dataset->Reload(), OdbcError);
    Run(u"ALTER TABLE u RENAME TO t");
    dataset->Reload();
    EXPECT_EQ(dataset->Fault(), nullptr);
    EXPECT_EQ(Cell(*dataset.Get(), 1, 2).Text(), L"多福巷");
}

TEST_P(QueryDatasetTest, TheLastReferenceLetsGoOfEverything) {
    Fill();
    const int before = openOdbcHandles;
    const auto connection = Desk().Connect();
    {
        auto dataset = MakeCom<QueryDataset>(connection, u"SELECT DISTINCT name FROM t");
        IDispatch* const raw = dataset.Get();
        raw->AddRef();
        EXPECT_EQ(raw->Release(), 1u);
        ComPtr<IUnknown> unknown;
        EXPECT_EQ(raw->QueryInterface(IID_PPV_ARGS(&unknown)), S_OK);
        EXPECT_EQ(connection.use_count(), 3);
    }
    EXPECT_EQ(connection.use_count(), 1);
    EXPECT_EQ(openOdbcHandles, before + 2);
}

}  // namespace
}  // namespace veygrid
#endif
