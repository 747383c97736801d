// The parameter dialog without its window.
#include "binding/ParamEditing.h"

#include <gmock/gmock.h>

#include <functional>

#include "grid/SheetRecorder.h"

namespace veygrid {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The fields as the system's behave: choosing a name shows it, typing one chooses none.
class Fields final : public ParamFields {
  public:
    std::string name;
    std::string value;
    bool modified = false;
    std::int32_t chosen = NoName;
    std::vector<std::string> list;
    std::string focus;
    // The user's answer, and what happens before it.
    bool answer = false;
    int asked = 0;
    std::function<void()> meanwhile = [] {};

    void TypeName(std::string_view text) {
        name = text;
        chosen = NoName;
    }
    void TypeValue(std::string_view text) {
        value = text;
        modified = true;
    }

    std::string NameText() override { return name; }
    std::string ValueText() override { return value; }
    void SetValueText(std::string_view text) override {
        value = text;
        modified = false;
    }
    bool IsValueModified() override { return modified; }
    void ClearValueModified() override { modified = false; }
    void AddName(std::string_view added) override { list.emplace_back(added); }
    void DeleteName(std::int32_t index) override {
        list.erase(list.begin() + index);
        chosen = NoName;
    }
    std::int32_t ChosenName() override { return chosen; }
    void ChooseName(std::int32_t index) override {
        chosen = index;
        name = index == NoName ? std::string() : list[static_cast<std::size_t>(index)];
    }
    void FocusName() override { focus = "name"; }
    void FocusValue() override { focus = "value"; }
    bool AskToAdd() override {
        ++asked;
        meanwhile();
        return answer;
    }
};

class ParamEditingTest : public SheetTest {
  protected:
    Fields fields;
    ParamEditing editing{store, fields};

    void Open(std::vector<std::string> entries) {
        for (std::string& entry : entries) {
            store.Params.AppendRaw(std::move(entry));
        }
        editing.OnOpen();
    }
    void Choose(std::int32_t index) {
        fields.ChooseName(index);
        editing.OnNameChosen();
    }
    Lines Entries() const {
        Lines entries;
        store.Params.ForEachRaw([&](const std::string& entry) { entries.push_back(entry); });
        return entries;
    }
};

TEST_F(ParamEditingTest, TheListIsFilledWithTheNameOfEachParameterInTheirOrder) {
    Open({"b\t1", "a\t2\t3", CodePage936FromUtf8("单位") + "\tx", "no tab", "\tblank", "B\t9"});
    EXPECT_THAT(fields.list, ElementsAre("b", "a", CodePage936FromUtf8("单位"), "no tab", "", "B"));
    EXPECT_EQ(fields.chosen, NoName);
}

TEST_F(ParamEditingTest, AChosenNameShowsItsValueWhichCountsAsUnmodified) {
    Open({"a\t1", "b\t100%\tcut"});
    Choose(1);
    EXPECT_EQ(fields.value, "100%");
    EXPECT_FALSE(fields.modified);
}

TEST_F(ParamEditingTest, OfANameThatIsThereTwiceTheFirstValueShows) {
    Open({"a\tfirst", "A\tsecond"});
    Choose(1);
    EXPECT_EQ(fields.value, "first");
}

TEST_F(ParamEditingTest, AnEntryOfABlankNameShowsNoValueSinceNoSearchFindsIt) {
    Open({"\tvalue"});
    Choose(0);
    EXPECT_EQ(fields.value, "");
}

TEST_F(ParamEditingTest, WithNoSelectionTheMarkAndTheValueAreCleared) {
    Open({"a\t1"});
    fields.TypeName("typed");
    fields.TypeValue("typed");
    editing.OnNameChosen();
    EXPECT_EQ(fields.name, "");
    EXPECT_EQ(fields.value, "");
}

TEST_F(ParamEditingTest, AnIndexBehindTheListCountsAsNoSelection) {
    Open({"a\t1"});
    fields.chosen = 7;
    editing.OnNameChosen();
    EXPECT_EQ(fields.chosen, NoName);
}

TEST_F(ParamEditingTest, ANameThatIsLeftForTheExitButtonOrTheDialogAsksNothing) {
    Open({"a\t1"});
    fields.TypeName("new");
    editing.OnNameLeft(FocusTarget::ExitButton);
    editing.OnNameLeft(FocusTarget::Dialog);
    fields.TypeName("A");
    editing.OnNameLeft(FocusTarget::Dialog);
    EXPECT_EQ(fields.asked, 0);
    EXPECT_EQ(fields.chosen, NoName);
    EXPECT_THAT(Entries(), ElementsAre("a\t1"));
}

TEST_F(ParamEditingTest, ABlankNameAsksNothing) {
    Open({"a\t1"});
    for (const char* const name : {"", "  ", "\t"}) {
        fields.TypeName(name);
        editing.OnNameLeft(FocusTarget::Elsewhere);
    }
    EXPECT_EQ(fields.asked, 0);
    EXPECT_EQ(store.Params.Count(), 1U);
}

TEST_F(ParamEditingTest, AKnownNameIsChosenWhateverItsCaseAndBlanksAroundItAndItsValueShows) {
    Open({"a\t1", CodePage936FromUtf8("Rate率") + "\t2"});
    fields.TypeName("  " + CodePage936FromUtf8("rATE率") + " ");
    fields.TypeValue("lost");
    editing.OnNameLeft(FocusTarget::Elsewhere);
    EXPECT_EQ(fields.asked, 0);
    EXPECT_EQ(fields.chosen, 1);
    EXPECT_EQ(fields.name, CodePage936FromUtf8("Rate率"));
    EXPECT_EQ(fields.value, "2");
}

TEST_F(ParamEditingTest, OnlyTheWholeNameCountsAndNoTrailByteIsALetter) {
    Open({"rate\t1", "\x81\x41\t2"});
    fields.TypeName("rat");
    editing.OnNameLeft(FocusTarget::Elsewhere);
    fields.TypeName("\x81\x61");
    editing.OnNameLeft(FocusTarget::Elsewhere);
    EXPECT_EQ(fields.asked, 2);
}

TEST_F(ParamEditingTest,
       TypingANewNameAndAnsweringYesAddsAParameterWhoseValueIsWhatStoodInTheField) {
    Open({"a\t1"});
    fields.TypeName(" New ");
    fields.TypeValue("50%|\x81\x7C");
    fields.answer = true;
    EXPECT_THAT(CallsOf([&] { editing.OnNameLeft(FocusTarget::Elsewhere); }),
                ElementsAre("SetModifiedFlag TRUE", "Modified"));
    EXPECT_THAT(Entries(), ElementsAre("a\t1", "New\t50%|\x81\x7C"));
    EXPECT_THAT(fields.list, ElementsAre("a", "New"));
    EXPECT_EQ(fields.value, "");
    EXPECT_FALSE(fields.modified);
    EXPECT_EQ(fields.focus, "value");
}

TEST_F(ParamEditingTest, AnsweringNoClearsTheSelectionAndTheValueAndGoesBackToTheName) {
    Open({"a\t1"});
    fields.TypeName("new");
    fields.TypeValue("v");
    EXPECT_THAT(CallsOf([&] { editing.OnNameLeft(FocusTarget::Elsewhere); }), IsEmpty());
    EXPECT_THAT(Entries(), ElementsAre("a\t1"));
    EXPECT_EQ(fields.name, "");
    EXPECT_EQ(fields.value, "");
    EXPECT_EQ(fields.focus, "name");
}

TEST_F(ParamEditingTest, AnAddedNameIsKnownFromThenOn) {
    Open({});
    fields.answer = true;
    fields.TypeName("new");
    editing.OnNameLeft(FocusTarget::Elsewhere);
    fields.TypeName("NEW");
    editing.OnNameLeft(FocusTarget::Elsewhere);
    EXPECT_EQ(fields.asked, 1);
    EXPECT_EQ(fields.chosen, 0);
}

TEST_F(ParamEditingTest, NothingThatHappensWhileTheUserIsAskedHasAnEffect) {
    Open({"a\t1"});
    fields.TypeName("new");
    fields.TypeValue("v");
    fields.meanwhile = [&] {
        EXPECT_TRUE(editing.IsAsking());
        editing.OnValueLeft();
        editing.OnNameLeft(FocusTarget::Elsewhere);
        editing.OnNameChosen();
        fields.chosen = 0;
        editing.OnDelete();
    };
    editing.OnNameLeft(FocusTarget::Elsewhere);
    EXPECT_EQ(fields.asked, 1);
    EXPECT_FALSE(editing.IsAsking());
    EXPECT_THAT(Entries(), ElementsAre("a\t1"));
}

TEST_F(ParamEditingTest, AQuestionThatFailsLeavesADialogThatWorks) {
    Open({"a\t1"});
    fields.TypeName("new");
    fields.meanwhile = [] { throw std::bad_alloc(); };
    EXPECT_THROW(editing.OnNameLeft(FocusTarget::Elsewhere), std::bad_alloc);
    EXPECT_FALSE(editing.IsAsking());
}

TEST_F(ParamEditingTest, AModifiedValueIsStoredWhenItsFieldIsLeftAndCountsAsUnmodifiedThen) {
    Open({"a\t1"});
    Choose(0);
    fields.TypeValue("2");
    EXPECT_THAT(CallsOf([&] { editing.OnValueLeft(); }),
                ElementsAre("SetModifiedFlag TRUE", "Modified"));
    EXPECT_THAT(Entries(), ElementsAre("a\t2"));
    EXPECT_THAT(CallsOf([&] { editing.OnValueLeft(); }), IsEmpty());
}

TEST_F(ParamEditingTest, AnUntouchedValueIsNotStored) {
    Open({"a\t1\tbehind"});
    Choose(0);
    EXPECT_THAT(CallsOf([&] { editing.OnValueLeft(); }), IsEmpty());
    EXPECT_THAT(Entries(), ElementsAre("a\t1\tbehind"));
}

TEST_F(ParamEditingTest, AValueWithoutANameIsNotStoredAndStaysModified) {
    Open({});
    fields.TypeValue("v");
    EXPECT_THAT(CallsOf([&] { editing.OnValueLeft(); }), IsEmpty());
    EXPECT_TRUE(fields.modified);
    EXPECT_EQ(store.Params.Count(), 0U);
}

TEST_F(ParamEditingTest, AValueUnderANameOfBlanksBecomesAnEntryThatNoSearchFinds) {
    Open({});
    fields.TypeName("  ");
    fields.TypeValue("v");
    editing.OnValueLeft();
    EXPECT_THAT(Entries(), ElementsAre("\tv"));
}

TEST_F(ParamEditingTest, APercentSignPassesAndATabInAValueCutsWhatIsReadBack) {
    Open({});
    fields.answer = true;
    fields.TypeName("%<a>%");
    fields.TypeValue("1%\t2");
    editing.OnNameLeft(FocusTarget::Elsewhere);
    EXPECT_THAT(Entries(), ElementsAre("%<a>%\t1%\t2"));
    Choose(0);
    EXPECT_EQ(fields.value, "1%");
}

TEST_F(ParamEditingTest, ATabInANameMakesAParameterOfTheTextInFrontOfIt) {
    Open({});
    fields.answer = true;
    fields.TypeName("a\tb");
    fields.TypeValue("v");
    editing.OnNameLeft(FocusTarget::Elsewhere);
    EXPECT_THAT(fields.list, ElementsAre("a\tb"));
    EXPECT_EQ(store.Params.GetParam("a"), "b");
    Choose(0);
    EXPECT_EQ(fields.value, "");
}

TEST_F(ParamEditingTest, DeletingRemovesTheParameterAndItsNameAndFiresNothing) {
    Open({"a\t1", "b\t2", "c\t3"});
    Choose(1);
    EXPECT_THAT(CallsOf([&] { editing.OnDelete(); }), IsEmpty());
    EXPECT_THAT(Entries(), ElementsAre("a\t1", "c\t3"));
    EXPECT_THAT(fields.list, ElementsAre("a", "c"));
    EXPECT_EQ(fields.name, "");
    EXPECT_EQ(fields.value, "");
    Choose(1);
    EXPECT_EQ(fields.value, "3");
}

TEST_F(ParamEditingTest, DeletingWithNoSelectionDoesNothing) {
    Open({"a\t1"});
    fields.TypeName("a");
    fields.TypeValue("2");
    editing.OnDelete();
    EXPECT_THAT(Entries(), ElementsAre("a\t1"));
    EXPECT_EQ(fields.name, "a");
    EXPECT_EQ(fields.value, "2");
}

TEST_F(ParamEditingTest, DeletingTheBlankEntryEmptiesTheWholeListAsRemoveParamDoes) {
    Open({"a\t1", "\t2"});
    Choose(1);
    editing.OnDelete();
    EXPECT_EQ(store.Params.Count(), 0U);
    EXPECT_THAT(fields.list, ElementsAre("a"));
    Choose(0);
    EXPECT_EQ(fields.value, "");
}

TEST_F(ParamEditingTest, ParametersThatTheHostTakesAwayMeanwhileShowNoValue) {
    Open({"a\t1"});
    store.Params.RemoveParam("");
    Choose(0);
    EXPECT_EQ(fields.value, "");
    editing.OnDelete();
    EXPECT_THAT(fields.list, IsEmpty());
}

}  // namespace

}  // namespace veygrid
