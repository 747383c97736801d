// A host's dataset bound to the control: whose reference is whose, what is asked and what is shown.
#include <gmock/gmock.h>

#include "control/ClassIds.h"
#include "tests/control/Container.h"
#include "tests/control/FakeDataset.h"
#include "tests/control/OpenDialog.h"
#include "valuetext/CodePage936.h"

namespace veygrid {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

// A control without a window.
class HostDataset : public testing::Test {
  protected:
    void TearDown() override {
        grid = Late(static_cast<IDispatch*>(nullptr));
        control = nullptr;
        EXPECT_EQ(told.Alive, 0);
        EXPECT_TRUE(Ocx::CanUnload());
    }

    // With the one reference that Bind() gives away.
    FakeDataset* Make(int rows, int cols) { return new FakeDataset(told, rows, cols); }
    FakeDataset* Bound(int rows, int cols) {
        FakeDataset* const dataset = Make(rows, cols);
        EXPECT_EQ(Bind(grid, dataset), S_OK);
        told.Calls.clear();
        return dataset;
    }
    std::string Cell(int row, int col) const { return grid.Text(L"CellText", {row, col}); }
    std::vector<std::string> TakeCalls() { return std::exchange(told.Calls, {}); }

    FakeDataset::Told told;
    ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    Late grid{control};
};

// --- Whose reference is whose

TEST_F(HostDataset, BindingTakesOverTheCallersReferenceAndAddsNone) {
    FakeDataset* const dataset = Make(10, 3);
    dataset->AddRef();  // the host's own
    EXPECT_EQ(Bind(grid, dataset), S_OK);
    EXPECT_EQ(dataset->References, 2);
    EXPECT_EQ(Bind(grid, nullptr), S_OK);
    EXPECT_EQ(dataset->References, 1);
    dataset->Release();
}

TEST_F(HostDataset, TheNextBindAndTheEndOfTheControlReleaseTheDataset) {
    Bound(10, 3);
    EXPECT_EQ(told.Alive, 1);
    Bound(5, 2);
    EXPECT_EQ(told.Alive, 1);
    grid = Late(static_cast<IDispatch*>(nullptr));
    control = nullptr;
    EXPECT_EQ(told.Alive, 0);
}

TEST_F(HostDataset, TheSameObjectBoundAgainGivesTheFormerReferenceBack) {
    FakeDataset* const dataset = Bound(10, 3);
    dataset->AddRef();  // the one that is given now
    EXPECT_EQ(Bind(grid, dataset), S_OK);
    EXPECT_EQ(dataset->References, 1);
    EXPECT_EQ(Cell(1, 1), "R1C1");
}

TEST_F(HostDataset, EveryWayOfHandingAnObjectOverTakesOneReference) {
    FakeDataset* const dataset = Make(10, 3);
    const ComPtr<IDispatch> own(dataset);
    VARIANT object{};
    object.vt = VT_DISPATCH;
    object.pdispVal = dataset;
    IDispatch* behind = dataset;
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_DISPATCH;
    reference.ppdispVal = &behind;
    VARIANT unknown{};
    unknown.vt = VT_UNKNOWN;
    unknown.punkVal = dataset;
    VARIANT variant{};
    variant.vt = VT_BYREF | VT_VARIANT;
    variant.pvarVal = &object;
    for (VARIANT* const way : {&object, &reference, &unknown, &variant}) {
        DISPPARAMS parameters{way, nullptr, 1, 0};
        EXPECT_EQ(grid->Invoke(grid.IdOf(L"BindDataset"), IID_NULL, 0, DISPATCH_METHOD, &parameters,
                               nullptr, nullptr, nullptr),
                  S_OK);
        EXPECT_EQ(dataset->References, 2) << way->vt;
        EXPECT_EQ(Bind(grid, nullptr), S_OK);
        EXPECT_EQ(dataset->References, 1) << way->vt;
        dataset->AddRef();
    }
    dataset->Release();
}

TEST_F(HostDataset, WhatIsNoObjectIsRefusedAndTheBindingStays) {
    FakeDataset* const dataset = Bound(10, 3);
    EXPECT_EQ(grid.Call(L"BindDataset", {Arg(1)}), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(grid.Call(L"BindDataset", {Arg(L"x")}), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(grid.Call(L"BindDataset", {Arg()}), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(grid.Call(L"BindDataset", {}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(dataset->References, 1);
    EXPECT_EQ(Cell(1, 1), "R1C1");
}

TEST_F(HostDataset, NullOfAScriptEndsTheBinding) {
    Bound(10, 3);
    VARIANT null{};
    null.vt = VT_NULL;
    EXPECT_EQ(grid.Call(L"BindDataset", {Arg::Raw(null)}), S_OK);
    EXPECT_EQ(told.Alive, 0);
}

// --- What is bound and what is read then

TEST_F(HostDataset, RunQueryWith0AndWith1Returns1AndChangesNothing) {
    grid.Put(L"CellText", {1, 1, L"x"});
    grid.Put(L"DataSource", {L"SELECT a FROM t"});
    std::vector<DISPID> events;
    EventSink sink([&](DISPID id, DISPPARAMS&) { events.push_back(id); });
    const Connected connected(control, VeyGridEventsId, &sink);
    for (const bool modified : {false, true}) {
        grid.Put(L"Modified", {modified});
        events.clear();
        for (const int all : {0, 1}) {
            EXPECT_EQ(grid.Number(L"RunQuery", {all}), 1);
        }
        EXPECT_THAT(events, IsEmpty());
        EXPECT_EQ(grid.Number(L"Modified") != 0, modified);
    }
    EXPECT_EQ(Cell(1, 1), "x");
    EXPECT_EQ(grid.Number(L"MaxRow"), 50);
    EXPECT_EQ(grid.Number(L"MaxCol"), 20);
    EXPECT_EQ(grid.Number(L"LastRow"), 1);
    EXPECT_EQ(grid.Number(L"LastCol"), 1);
}

TEST_F(HostDataset, BindingNothingOnAFreshControlGivesMaxRow1AndMaxCol20) {
    EXPECT_EQ(Bind(grid, nullptr), S_OK);
    EXPECT_EQ(grid.Number(L"MaxRow"), 1);
    EXPECT_EQ(grid.Number(L"MaxCol"), 20);
}

TEST_F(HostDataset, ThreeColumnsAndTenRowsGiveTheSizeAndTheNamesByDispid10) {
    EXPECT_EQ(Bind(grid, Make(10, 3)), S_OK);
    EXPECT_THAT(TakeCalls(), ElementsAre("8 True", "7", "10 1", "10 2", "10 3"));
    EXPECT_EQ(grid.Number(L"MaxRow"), 10);
    EXPECT_EQ(grid.Number(L"MaxCol"), 3);
    EXPECT_EQ(grid.Text(L"ColName", {2}), CodePage936FromUtf8("列2"));
}

TEST_F(HostDataset, CellTextOf00ReadsTheActiveCellFromTheDataset) {
    Bound(10, 3);
    grid.Call(L"SetActiveCell", {4, 2});
    EXPECT_EQ(Cell(0, 0), "R4C2");
    EXPECT_THAT(TakeCalls(), ElementsAre("3 4 2 result True"));
    EXPECT_EQ(Cell(1, -1), "");
    EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(HostDataset, AWrittenCellReadsBackOnlyAfterTheDatasetIsRemoved) {
    Bound(10, 3);
    grid.Put(L"CellText", {1, 1, L"mine"});
    EXPECT_EQ(Cell(1, 1), "R1C1");
    EXPECT_EQ(Bind(grid, nullptr), S_OK);
    EXPECT_EQ(Cell(1, 1), "mine");
}

TEST_F(HostDataset, RowHeaderIsNotAffectedAndColHeaderIsAlwaysTheDatasets) {
    grid.Put(L"ColHeader", {1, L"mine"});
    grid.Put(L"RowHeader", {2, L"row"});
    Bound(10, 3);
    EXPECT_EQ(grid.Text(L"RowHeader", {1}), "1");
    EXPECT_EQ(grid.Text(L"RowHeader", {2}), "row");
    EXPECT_THAT(TakeCalls(), IsEmpty());
    EXPECT_EQ(grid.Text(L"ColHeader", {1}), CodePage936FromUtf8("列1"));
    EXPECT_THAT(TakeCalls(), ElementsAre("10 1"));
}

TEST_F(HostDataset, GetRangeTextWithAnOpenEndGoesToMaxRowAndMaxCol) {
    Bound(2, 2);
    grid.Put(L"LastRow", {9});
    EXPECT_EQ(grid.Text(L"GetRangeText", {1, 1, 0, 0}),
              CodePage936FromUtf8("列1\t列2\r\nR1C1\tR1C2\r\nR2C1\tR2C2"));
}

TEST_F(HostDataset, SaveToDBAnswers0WithoutALogAnd1WithOneAndTheLogStays) {
    EXPECT_EQ(grid.Number(L"SaveToDB"), 0);
    grid.Call(L"ModifyCellText", {1, 1, L"x"});
    EXPECT_EQ(grid.Number(L"SaveToDB"), 0);
    grid.Put(L"ModifiedLog", {3});
    grid.Call(L"ModifyCellText", {1, 1, L"y"});
    EXPECT_EQ(grid.Number(L"SaveToDB"), 1);
    EXPECT_NE(grid.Number(L"GetFirstModifiedLogPos"), 0);
}

TEST_F(HostDataset, ModifyCellTextWithRow0DoesNothing) {
    grid.Call(L"ModifyCellText", {0, 1, L"x"});
    EXPECT_EQ(Cell(1, 1), "");
    EXPECT_EQ(grid.Number(L"LastCol"), 0);
}

TEST_F(HostDataset, ModifyCellTextByColNameWithANameNoColumnHasChangesNothing) {
    Bound(3, 2);
    EXPECT_EQ(grid.Call(L"ModifyCellTextByColName", {1, L"none", L"x"}), S_OK);
    EXPECT_EQ(grid.Number(L"LastRow"), 0);
}

TEST_F(HostDataset, GetCellTextByColNameIsCaseBlind) {
    grid.Put(L"ColName", {2, L"T.A"});
    grid.Put(L"CellText", {1, 2, L"x"});
    EXPECT_EQ(grid.Text(L"GetCellTextByColName", {1, L"t.a"}), "x");
}

TEST_F(HostDataset, KeyColumnFlagReads4AndCommand42322MakesIt0Then1Then0) {
    Container container;
    ASSERT_EQ(container.Show(control), S_OK);
    EXPECT_EQ(grid.Number(L"KeyColumnFlag", {1}), 4);
    for (const int flag : {0, 1, 0}) {
        ::SendMessageW(Container::WindowOf(control), WM_COMMAND, 42322, 0);
        EXPECT_EQ(grid.Number(L"KeyColumnFlag", {1}), flag);
    }
}

// --- The statement, by the control's own routes

TEST_F(HostDataset, DataSourceNamesTheColumnsAndSetDSWhereRewritesTheTail) {
    grid.Put(L"DataSource", {L"SELECT a,f(b,c) FROM t WHERE y=2"});
    EXPECT_EQ(grid.Text(L"ColName", {2}), "f(b,c)");
    grid.Call(L"SetDSWhere", {L"x=1"});
    EXPECT_EQ(grid.Text(L"DataSource"), "SELECT a,f(b,c) FROM t WHERE x=1");
    grid.Call(L"SetDSWhere", {L"order by a"});
    EXPECT_EQ(grid.Text(L"DataSource"), "SELECT a,f(b,c) FROM t order by a");
    grid.Call(L"SetDSWhere", {L" "});
    EXPECT_EQ(grid.Text(L"DataSource"), "SELECT a,f(b,c) FROM t WHERE ");
}

TEST_F(HostDataset, ADataSourceOfASingleWordEmptiesTheColumnNames) {
    grid.Put(L"DataSource", {L"SELECT a FROM t"});
    grid.Put(L"DataSource", {L"word"});
    EXPECT_EQ(grid.Text(L"ColName", {1}), "");
}

TEST_F(HostDataset, DeletedColumnsLeaveTheStatementAndBindingNamesDoNotTouchIt) {
    grid.Put(L"DataSource", {L"SELECT T.A,T.B,U.C FROM T,U WHERE x=1"});
    grid.Put(L"LastCol", {3});
    grid.Call(L"DeleteCols", {2, 1});
    EXPECT_EQ(grid.Text(L"DataSource"), "SELECT T.A,U.C FROM T,U WHERE x=1");
    Bound(3, 2);
    EXPECT_EQ(grid.Text(L"DataSource"), "SELECT T.A,U.C FROM T,U WHERE x=1");
}

TEST_F(HostDataset, ColumnsThatTheMouseMovesChangeTheirPlacesInTheStatement) {
    grid.Put(L"DataSource", {L"SELECT T.A,T.B,U.C FROM T,U WHERE x=1"});
    grid.Put(L"LastCol", {3});
    grid.Put(L"CellText", {1, 1, L"x"});
    Container container;
    ASSERT_EQ(container.Show(control), S_OK);
    const HWND window = Container::WindowOf(control);
    std::vector<DISPID> events;
    EventSink sink([&](DISPID id, DISPPARAMS&) {
        if (id == event::CellsMove) {
            events.push_back(id);
        }
    });
    const Connected connected(control, VeyGridEventsId, &sink);
    const auto dragFromFrame = [&](int x, WPARAM keys) {
        grid.Call(L"SetSelection", {0, 1, 0, 1});
        ::InvalidateRect(window, nullptr, TRUE);
        ::UpdateWindow(window);
        ::SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON | keys, MAKELPARAM(51, 30));
        ::SendMessageW(window, WM_MOUSEMOVE, MK_LBUTTON | keys, MAKELPARAM(x, 30));
        ::SendMessageW(window, WM_LBUTTONUP, keys, MAKELPARAM(x, 30));
    };
    dragFromFrame(140, 0);  // onto column 2
    EXPECT_EQ(grid.Text(L"DataSource"), "SELECT T.B,T.A,U.C FROM T,U WHERE x=1");
    EXPECT_EQ(grid.Text(L"ColName", {1}), "T.B");
    EXPECT_EQ(grid.Text(L"ColName", {2}), "T.A");
    EXPECT_EQ(Cell(1, 2), "x");
    EXPECT_EQ(Cell(1, 1), "");
    EXPECT_EQ(events.size(), 1U);
    dragFromFrame(200, 0);  // onto column 3
    EXPECT_EQ(grid.Text(L"DataSource"), "SELECT T.A,U.C,T.B FROM T,U WHERE x=1");
    // The query that is run then changes nothing.
    EXPECT_EQ(grid.Number(L"MaxRow"), 50);
    EXPECT_EQ(grid.Number(L"LastRow"), 1);
}

TEST_F(HostDataset, CellsThatTheMouseMovesLeaveTheStatementAlone) {
    grid.Put(L"DataSource", {L"SELECT T.A,T.B FROM T"});
    grid.Put(L"CellText", {1, 1, L"x"});
    Container container;
    ASSERT_EQ(container.Show(control), S_OK);
    const HWND window = Container::WindowOf(control);
    grid.Call(L"SetSelection", {1, 1, 1, 1});
    ::InvalidateRect(window, nullptr, TRUE);
    ::UpdateWindow(window);
    ::SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(51, 30));
    ::SendMessageW(window, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(140, 30));
    ::SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(140, 30));
    EXPECT_EQ(Cell(1, 2), "x");
    EXPECT_EQ(grid.Text(L"DataSource"), "SELECT T.A,T.B FROM T");
    EXPECT_EQ(grid.Text(L"ColName", {1}), "T.A");
}

// --- What datasets answer

TEST_F(HostDataset, ValuesBecomeTextAsThePlatformConvertsThem) {
    FakeDataset* const dataset = Bound(10, 3);
    const auto shown = [&](VARTYPE type, auto put) {
        dataset->Value = [=](VARIANT& value) {
            value.vt = type;
            put(value);
        };
        return Cell(1, 1);
    };
    EXPECT_EQ(shown(VT_I4, [](VARIANT& v) { v.lVal = -12; }), "-12");
    EXPECT_EQ(shown(VT_R8, [](VARIANT& v) { v.dblVal = 1234.5; }), "1234.5");
    EXPECT_EQ(shown(VT_BOOL, [](VARIANT& v) { v.boolVal = VARIANT_TRUE; }), "-1");
    EXPECT_EQ(shown(VT_EMPTY, [](VARIANT&) {}), "");
    EXPECT_EQ(shown(VT_NULL, [](VARIANT&) {}), "");
    EXPECT_NE(shown(VT_DATE, [](VARIANT& v) { v.date = 37847; }), "");  // 2003-08-14
    EXPECT_NE(shown(VT_CY, [](VARIANT& v) { v.cyVal.int64 = 12345; }), "");
}

TEST_F(HostDataset, ValuesWithoutATextAreEmpty) {
    FakeDataset* const dataset = Bound(10, 3);
    dataset->Value = [](VARIANT& value) {
        value.vt = VT_ARRAY | VT_UI1;
        value.parray = ::SafeArrayCreateVector(VT_UI1, 0, 4);
    };
    EXPECT_EQ(Cell(1, 1), "");
    dataset->Value = [](VARIANT& value) {
        value.vt = VT_ERROR;
        value.scode = DISP_E_PARAMNOTFOUND;
    };
    EXPECT_EQ(Cell(1, 1), "");
    dataset->Value = [](VARIANT& value) { value.vt = 77; };
    EXPECT_EQ(Cell(1, 1), "");
    for (const VARTYPE type : {VT_BSTR, VT_VARIANT, VT_I4, VT_DISPATCH}) {
        dataset->Value = [type](VARIANT& value) {
            value.vt = static_cast<VARTYPE>(VT_BYREF | type);
            value.byref = nullptr;
        };
        EXPECT_EQ(Cell(1, 1), "") << type;
    }
    dataset->Value = [](VARIANT& value) {
        value.vt = VT_DISPATCH;
        value.pdispVal = nullptr;
    };
    EXPECT_EQ(Cell(1, 1), "");
}

TEST_F(HostDataset, AnObjectForAValueIsReleasedAgain) {
    FakeDataset* const dataset = Bound(10, 3);
    EventSink value([](DISPID, DISPPARAMS&) {});
    dataset->Value = [&value](VARIANT& target) {
        value.AddRef();
        target.vt = VT_DISPATCH;
        target.pdispVal = &value;
    };
    EXPECT_EQ(Cell(1, 1), "");
    EXPECT_EQ(value.References, 1);
}

TEST_F(HostDataset, TextEndsAtAZeroCharacterAndPassesThroughCodePage936) {
    FakeDataset* const dataset = Bound(10, 3);
    dataset->Value = [](VARIANT& value) {
        value.vt = VT_BSTR;
        value.bstrVal = ::SysAllocStringLen(L"借方\x20AC|\0rest", 9);
    };
    EXPECT_EQ(Cell(1, 1), CodePage936FromUtf16(u"借方\x20AC|"));
    dataset->Value = [](VARIANT& value) {
        value.vt = VT_BSTR;
        value.bstrVal = nullptr;
    };
    EXPECT_EQ(Cell(1, 1), "");
}

TEST_F(HostDataset, CountsAreConvertedAndWhatIsNoNumberFailsTheBinding) {
    const auto answering = [this](auto put) {
        FakeDataset* const dataset = Make(1, 1);
        dataset->Result = [=](DISPID id, VARIANT& result) {
            if (id == datasetid::GetRowCount) {
                put(result);
            }
        };
        return Bind(grid, dataset);
    };
    EXPECT_EQ(answering([](VARIANT& result) {
                  result.vt = VT_BSTR;
                  result.bstrVal = ::SysAllocString(L"12");
              }),
              S_OK);
    EXPECT_EQ(grid.Number(L"MaxRow"), 12);
    EXPECT_EQ(grid.Number(L"MaxCol"), 0);
    EXPECT_EQ(answering([](VARIANT& result) {
                  result.vt = VT_R8;
                  result.dblVal = 7;
              }),
              S_OK);
    EXPECT_EQ(grid.Number(L"MaxRow"), 7);
    EXPECT_EQ(answering([](VARIANT& result) {
                  result.vt = VT_R8;
                  result.dblVal = 1e300;
              }),
              DISP_E_EXCEPTION);
    EXPECT_EQ(answering([](VARIANT& result) { result.vt = VT_NULL; }), DISP_E_EXCEPTION);
    EXPECT_EQ(grid.Number(L"MaxRow"), 7);
}

TEST_F(HostDataset, NegativeAndHugeCountsAreTakenAsTheyAre) {
    EXPECT_EQ(Bind(grid, Make(-2147483647 - 1, -1)), S_OK);
    EXPECT_EQ(grid.Number(L"MaxRow"), -2147483647 - 1);
    EXPECT_EQ(grid.Number(L"MaxCol"), -1);
    EXPECT_EQ(Bind(grid, Make(2147483647, 3)), S_OK);
    EXPECT_EQ(grid.Number(L"MaxRow"), 2147483647);
}

// --- Failures

// What a caller of the control is told.
struct Told {
    HRESULT answer;
    HRESULT code;
    std::string source;
    std::string description;
};
Told CellTold(const Late& grid) {
    VARIANT arguments[2] = {Arg(1).value, Arg(1).value};
    DISPPARAMS parameters{arguments, nullptr, 2, 0};
    EXCEPINFO exception{};
    OwnedVariant result;
    const HRESULT answer = grid->Invoke(grid.IdOf(L"CellText"), IID_NULL, 0, DISPATCH_PROPERTYGET,
                                        &parameters, &result, &exception, nullptr);
    const OwnedBstr source(exception.bstrSource);
    const OwnedBstr description(exception.bstrDescription);
    return {answer, exception.scode, TakeBstr(source.Get()), TakeBstr(description.Get())};
}

TEST_F(HostDataset, AFailureIsPassedOnInTheDatasetsOwnWords) {
    FakeDataset* const dataset = Bound(10, 3);
    dataset->FailingId = datasetid::GetCellValue;
    dataset->FailingCode = DISP_E_EXCEPTION;
    const Told told = CellTold(grid);
    EXPECT_EQ(told.answer, DISP_E_EXCEPTION);
    EXPECT_EQ(told.code, static_cast<HRESULT>(0x800A03E8));
    EXPECT_EQ(told.source, "Data Server");
    EXPECT_EQ(told.description, "the table is locked");
}

TEST_F(HostDataset, AFailureWithoutWordsNamesTheRoleAndKeepsItsCode) {
    FakeDataset* const dataset = Bound(10, 3);
    dataset->FailingId = datasetid::GetCellValue;
    for (const HRESULT code :
         {E_FAIL, DISP_E_MEMBERNOTFOUND, DISP_E_TYPEMISMATCH, RPC_E_DISCONNECTED}) {
        dataset->FailingCode = code;
        const Told told = CellTold(grid);
        EXPECT_EQ(told.answer, DISP_E_EXCEPTION);
        EXPECT_EQ(told.code, code);
        EXPECT_EQ(told.description, "the bound dataset failed in GetCellValue (DISPID 3)");
    }
}

TEST_F(HostDataset, ACallerThatTakesNoExceptionGetsTheCode) {
    FakeDataset* const dataset = Bound(10, 3);
    dataset->FailingId = datasetid::GetColName;
    dataset->FailingCode = E_ACCESSDENIED;
    VARIANT argument = Arg(1).value;
    DISPPARAMS parameters{&argument, nullptr, 1, 0};
    EXPECT_EQ(grid->Invoke(grid.IdOf(L"ColHeader"), IID_NULL, 0, DISPATCH_PROPERTYGET, &parameters,
                           nullptr, nullptr, nullptr),
              E_ACCESSDENIED);
}

TEST_F(HostDataset, ABindingThatFailsAtAnyStepLeavesTheDatasetBoundAndCanBeUndone) {
    for (const DISPID id :
         {datasetid::GetRowCount, datasetid::GetColCount, datasetid::GetColName}) {
        FakeDataset* const dataset = Make(10, 3);
        dataset->FailingId = id;
        EXPECT_EQ(Bind(grid, dataset), DISP_E_EXCEPTION) << id;
        EXPECT_EQ(dataset->References, 1);
        EXPECT_EQ(Cell(2, 1), "R2C1");
        EXPECT_EQ(Bind(grid, nullptr), S_OK);
        EXPECT_EQ(told.Alive, 0);
    }
}

// --- Datasets that call back

TEST_F(HostDataset, ADatasetThatBindsNothingWhileItAnswersIsReleasedAfterItsAnswer) {
    FakeDataset* const dataset = Bound(10, 3);
    int aliveInside = 0;
    dataset->OnCall = [&](DISPID) {
        Bind(grid, nullptr);
        aliveInside = told.Alive;
    };
    EXPECT_EQ(Cell(1, 1), "R1C1");
    EXPECT_EQ(aliveInside, 1);
    EXPECT_EQ(told.Alive, 0);
    EXPECT_EQ(grid.Number(L"MaxCol"), 20);
}

TEST_F(HostDataset, ADatasetThatBindsAnotherOneWhileItAnswersIsFollowedByIt) {
    FakeDataset* const dataset = Bound(10, 3);
    dataset->OnCall = [&](DISPID) { Bind(grid, Make(4, 1)); };
    EXPECT_EQ(Cell(1, 1), "R1C1");
    EXPECT_EQ(told.Alive, 1);
    EXPECT_EQ(grid.Number(L"MaxRow"), 4);
}

TEST_F(HostDataset, ADatasetThatBindsAnotherOneWhileItIsBoundLosesItsPlace) {
    FakeDataset* const dataset = Make(10, 3);
    dataset->OnCall = [&](DISPID id) {
        if (id == datasetid::GetColCount) {
            Bind(grid, Make(4, 1));
        }
    };
    EXPECT_EQ(Bind(grid, dataset), S_OK);
    EXPECT_EQ(told.Alive, 1);
    EXPECT_EQ(grid.Number(L"MaxRow"), 4);
    EXPECT_EQ(grid.Number(L"MaxCol"), 1);
}

TEST_F(HostDataset, ADatasetThatCallsBackInItsEndMeetsAControlThatAnswers) {
    FakeDataset* const dataset = Bound(10, 3);
    std::string text = "none";
    dataset->OnEnd = [&] {
        text = Cell(1, 1);
        Bind(grid, Make(6, 1));
    };
    EXPECT_EQ(Bind(grid, Make(7, 2)), S_OK);
    EXPECT_EQ(text, "");
    EXPECT_EQ(told.Alive, 1);
    EXPECT_EQ(grid.Number(L"MaxRow"), 7);
}

TEST_F(HostDataset, ADatasetThatCallsBackAtTheEndOfTheControlMeetsAControlThatAnswers) {
    FakeDataset* const dataset = Bound(10, 3);
    IDispatch* const last = grid.Object();
    LONG rows = 0;
    dataset->OnEnd = [&] { rows = Late(last).Number(L"MaxRow"); };
    grid = Late(static_cast<IDispatch*>(nullptr));
    control = nullptr;
    EXPECT_EQ(rows, 10);
}

TEST_F(HostDataset, ADatasetThatReleasesTheControlWhileItAnswersHarmsNothing) {
    FakeDataset* const dataset = Bound(10, 3);
    dataset->OnCall = [&](DISPID) {
        dataset->OnCall = nullptr;
        grid = Late(static_cast<IDispatch*>(nullptr));
        control = nullptr;
    };
    IDispatch* const called = grid.Object();
    VARIANT arguments[2] = {Arg(1).value, Arg(1).value};
    DISPPARAMS parameters{arguments, nullptr, 2, 0};
    OwnedVariant result;
    EXPECT_EQ(called->Invoke(grid.IdOf(L"CellText"), IID_NULL, 0, DISPATCH_PROPERTYGET, &parameters,
                             &result, nullptr, nullptr),
              S_OK);
    EXPECT_EQ(result->vt, VT_BSTR);
    EXPECT_EQ(told.Alive, 0);
}

TEST_F(HostDataset, ADatasetThatGrowsAndShrinksBetweenCallsIsReadAsItIs) {
    FakeDataset* const dataset = Bound(10, 3);
    dataset->Rows = 99;
    dataset->Cols = 1;
    EXPECT_EQ(grid.Number(L"MaxRow"), 10);
    EXPECT_EQ(Cell(50, 7), "R50C7");
}

}  // namespace
}  // namespace veygrid
