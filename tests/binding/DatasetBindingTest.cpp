// Binding a dataset: what is asked in which order, and what a host may do meanwhile.
#include "binding/DatasetBinding.h"

#include <gmock/gmock.h>

#include <stdexcept>

#include "Recorded.h"

namespace veygrid {
namespace {

using ::testing::ElementsAre;

class DatasetBindingTest : public testing::Test {
  protected:
    std::shared_ptr<LinesDataset> Make(std::string name, std::int32_t rows, std::int32_t cols) {
        return std::make_shared<LinesDataset>(m_lines, std::move(name), rows, cols);
    }
    template <class Action>
    Lines CallsOf(Action action) {
        m_lines.clear();
        action();
        return std::exchange(m_lines, {});
    }

  private:
    Lines m_lines;

  protected:
    LinesWatcher watcher{m_lines};
    GridStore store{watcher};
    DatasetBinding binding{store};
    GridProperties& properties = store.Properties;
};

// --- What is bound and what is read then

TEST_F(DatasetBindingTest, BindingNullOnAFreshControlGivesOneRowAndTwentyColumnsNotFiftyRows) {
    EXPECT_EQ(properties.MaxRow, 50);
    EXPECT_THAT(CallsOf([&] { binding.BindDataset(nullptr); }), ElementsAre("InvalidateControl"));
    EXPECT_EQ(properties.MaxRow, 1);
    EXPECT_EQ(properties.MaxCol, 20);
}

TEST_F(DatasetBindingTest, ADatasetOf3ColumnsAnd10RowsGivesTheSizeAndTheColumnNames) {
    binding.BindDataset(Make("d", 10, 3));
    EXPECT_EQ(properties.MaxRow, 10);
    EXPECT_EQ(properties.MaxCol, 3);
    EXPECT_EQ(store.ColName(2), "d.C2");
    EXPECT_EQ(properties.LastCol, 3);
    EXPECT_EQ(properties.LastRow, 0);
}

TEST_F(DatasetBindingTest, WithADatasetAttachedCellTextOf00ReadsTheActiveCellFromTheDataset) {
    binding.BindDataset(Make("d", 10, 3));
    store.ActiveRow = 4;
    store.ActiveCol = 2;
    EXPECT_EQ(store.CellText(0, 0), "d42");
}

TEST_F(DatasetBindingTest, AWrittenCellReadsAsTheDatasetsValueUntilTheDatasetIsRemoved) {
    binding.BindDataset(Make("d", 10, 3));
    store.SetCellText(1, 1, "written");
    EXPECT_EQ(store.CellText(1, 1), "d11");
    binding.BindDataset(nullptr);
    EXPECT_EQ(store.CellText(1, 1), "written");
}

TEST_F(DatasetBindingTest, RowHeaderIsNotAffectedByADataset) {
    binding.BindDataset(Make("d", 10, 3));
    store.SetRowHeader(2, "mine");
    EXPECT_EQ(store.RowHeader(1), "1");
    EXPECT_EQ(store.RowHeader(2), "mine");
}

// --- What is asked of the dataset, and when

TEST_F(DatasetBindingTest, RowsAreAskedForBeforeColumnsAndNamesAreStoredOneByOne) {
    EXPECT_THAT(CallsOf([&] { binding.BindDataset(Make("d", 10, 2)); }),
                ElementsAre("d GetRowCount", "d GetColCount", "d GetColName 1",
                            "SetModifiedFlag TRUE", "Modified", "d GetColName 2",
                            "SetModifiedFlag TRUE", "Modified", "InvalidateControl"));
}

TEST_F(DatasetBindingTest, TheFormerDatasetIsReleasedBeforeTheNewOneIsAsked) {
    binding.BindDataset(Make("a", 5, 0));
    EXPECT_THAT(CallsOf([&] { binding.BindDataset(Make("b", 6, 0)); }),
                ElementsAre("a released", "b GetRowCount", "b GetColCount", "InvalidateControl"));
    EXPECT_EQ(store.CellText(1, 1), "b11");
}

TEST_F(DatasetBindingTest, BindingNullReleasesTheDatasetAndKeepsTheColumnNames) {
    binding.BindDataset(Make("a", 5, 2));
    EXPECT_THAT(CallsOf([&] { binding.BindDataset(nullptr); }),
                ElementsAre("a released", "InvalidateControl"));
    EXPECT_EQ(store.ColName(2), "a.C2");
    EXPECT_EQ(store.BoundDataset, nullptr);
}

TEST_F(DatasetBindingTest, TheEndOfTheControlReleasesTheDataset) {
    EXPECT_THAT(CallsOf([&] {
                    DatasetBinding passing(store);
                    passing.BindDataset(Make("a", 1, 0));
                }),
                ElementsAre("a GetRowCount", "a GetColCount", "InvalidateControl", "a released"));
}

TEST_F(DatasetBindingTest, ADatasetOf0ColumnsLeavesMaxColAt0AndNoNameIsRead) {
    EXPECT_THAT(CallsOf([&] { binding.BindDataset(Make("d", 10, 0)); }),
                ElementsAre("d GetRowCount", "d GetColCount", "InvalidateControl"));
    EXPECT_EQ(properties.MaxCol, 0);
}

TEST_F(DatasetBindingTest, NegativeCountsAreTakenAsTheyAreAndNameNothing) {
    binding.BindDataset(Make("d", -7, -3));
    EXPECT_EQ(properties.MaxRow, -7);
    EXPECT_EQ(properties.MaxCol, -3);
    EXPECT_EQ(store.ColNameMap.Count(), 0U);
}

TEST_F(DatasetBindingTest, ManyMoreColumnsThanASheetHasAreNotAllNamed) {
    binding.BindDataset(Make("d", 2147483647, 2147483647));
    EXPECT_EQ(properties.MaxRow, 2147483647);
    EXPECT_EQ(properties.MaxCol, 2147483647);
    EXPECT_EQ(store.ColNameMap.Count(), std::size_t{DatasetBinding::MostNamedCols});
    binding.RefreshColumnNames();
    EXPECT_EQ(store.ColNameMap.Count(), std::size_t{DatasetBinding::MostNamedCols});
}

TEST_F(DatasetBindingTest, ColHeaderIsAlwaysTheDatasetsName) {
    store.SetColHeader(1, "mine");
    binding.BindDataset(Make("d", 1, 1));
    EXPECT_EQ(store.ColHeader(1), "d.C1");
    EXPECT_EQ(store.ColHeader(9), "d.C9");
}

TEST_F(DatasetBindingTest, AColumnBelowOneIsNotAskedFor) {
    binding.BindDataset(Make("d", 1, 1));
    EXPECT_EQ(CallsOf([&] { EXPECT_EQ(store.CellText(1, -1), ""); }), Lines{});
}

TEST_F(DatasetBindingTest, TheRefreshAsksForTheColumnCountAfreshAtEachStep) {
    const auto dataset = Make("d", 1, 1);
    binding.BindDataset(dataset);
    dataset->cols = 3;
    dataset->onCall = [&](const std::string& call) {
        dataset->cols = call == "GetColName 2" ? 2 : dataset->cols;
    };
    EXPECT_THAT(CallsOf([&] { binding.RefreshColumnNames(); }),
                ElementsAre("d GetColCount", "d GetColName 1", "SetModifiedFlag TRUE", "Modified",
                            "d GetColCount", "d GetColName 2", "SetModifiedFlag TRUE", "Modified",
                            "d GetColCount"));
    dataset->onCall = nullptr;
}

TEST_F(DatasetBindingTest, ARefreshWithoutADatasetDoesNothing) {
    EXPECT_EQ(CallsOf([&] { binding.RefreshColumnNames(); }), Lines{});
}

// --- Failures

TEST_F(DatasetBindingTest, AFailureWhileBindingPassesThroughAndTheDatasetStaysBound) {
    const auto dataset = Make("d", 9, 3);
    dataset->onCall = [](const std::string& call) {
        if (call == "GetColName 2") {
            throw std::runtime_error("gone");
        }
    };
    EXPECT_THROW(binding.BindDataset(dataset), std::runtime_error);
    dataset->onCall = nullptr;
    EXPECT_EQ(properties.MaxRow, 9);
    EXPECT_EQ(store.ColName(1), "d.C1");
    EXPECT_EQ(store.ColName(2), "");
    EXPECT_EQ(store.CellText(1, 1), "d11");
}

// --- A host whose dataset binds another one from within its answers

TEST_F(DatasetBindingTest, ADatasetReplacedWhileItAnswersLivesUntilItsAnswerIsThrough) {
    auto first = Make("a", 5, 1);
    binding.BindDataset(first);
    first->onCall = [&](const std::string&) { binding.BindDataset(Make("b", 7, 1)); };
    first.reset();
    Lines calls = CallsOf([&] { EXPECT_EQ(store.CellText(1, 1), "a11"); });
    EXPECT_EQ(calls.front(), "a GetCellValue 1,1");
    EXPECT_EQ(calls.back(), "a released");
    EXPECT_EQ(properties.MaxRow, 7);
    EXPECT_EQ(store.CellText(1, 1), "b11");
}

TEST_F(DatasetBindingTest, ADatasetRemovedWhileItAnswersLivesUntilItsAnswerIsThrough) {
    auto first = Make("a", 5, 1);
    binding.BindDataset(first);
    first->onCall = [&](const std::string&) { binding.BindDataset(nullptr); };
    first.reset();
    EXPECT_THAT(CallsOf([&] { EXPECT_EQ(store.CellText(1, 1), "a11"); }),
                ElementsAre("a GetCellValue 1,1", "InvalidateControl", "a released"));
    EXPECT_EQ(store.CellText(1, 1), "");
}

TEST_F(DatasetBindingTest, ABindingReplacedOnTheWayEndsThere) {
    for (const char* const step : {"GetRowCount", "GetColCount", "GetColName 1"}) {
        auto first = Make("a", 5, 2);
        first->onCall = [&, step](const std::string& call) {
            if (call == step) {
                binding.BindDataset(nullptr);
            }
        };
        const std::weak_ptr<LinesDataset> watched = first;
        binding.BindDataset(first);
        first.reset();
        EXPECT_EQ(properties.MaxRow, 1) << step;
        EXPECT_EQ(properties.MaxCol, 20) << step;
        EXPECT_EQ(store.BoundDataset, nullptr) << step;
        EXPECT_EQ(store.ColName(1), "") << step;
        EXPECT_TRUE(watched.expired()) << step;
    }
}

TEST_F(DatasetBindingTest, AHandlerOfModifiedThatBindsAnotherDatasetEndsTheFirstBinding) {
    int left = 1;
    watcher.onModified = [&] {
        if (left-- > 0) {
            binding.BindDataset(Make("b", 8, 1));
        }
    };
    binding.BindDataset(Make("a", 5, 3));
    EXPECT_EQ(properties.MaxRow, 8);
    EXPECT_EQ(properties.MaxCol, 1);
    EXPECT_EQ(store.ColName(1), "b.C1");
    EXPECT_EQ(store.ColName(2), "");
    EXPECT_EQ(store.CellText(1, 1), "b11");
}

TEST_F(DatasetBindingTest, ADatasetWhoseEndBindsAnotherOneIsFollowedByTheOneThatWasAskedFor) {
    auto first = Make("a", 5, 0);
    first->onRelease = [&] { binding.BindDataset(Make("b", 6, 0)); };
    binding.BindDataset(first);
    first.reset();
    EXPECT_THAT(CallsOf([&] { binding.BindDataset(Make("c", 7, 0)); }),
                ElementsAre("a released", "b GetRowCount", "b GetColCount", "InvalidateControl",
                            "c GetRowCount", "c GetColCount", "InvalidateControl", "b released"));
    EXPECT_EQ(properties.MaxRow, 7);
    EXPECT_EQ(store.CellText(1, 1), "c11");
}

TEST_F(DatasetBindingTest, ARefreshEndsWhenTheDatasetIsRemovedMeanwhile) {
    const auto dataset = Make("d", 1, 2);
    binding.BindDataset(dataset);
    dataset->onCall = [&](const std::string& call) {
        if (call == "GetColName 1") {
            binding.BindDataset(nullptr);
        }
    };
    EXPECT_THAT(CallsOf([&] { binding.RefreshColumnNames(); }),
                ElementsAre("d GetColCount", "d GetColName 1", "InvalidateControl",
                            "SetModifiedFlag TRUE", "Modified"));
    dataset->onCall = nullptr;
}

}  // namespace
}  // namespace veygrid
