// What the parameter dialog does with the sheet's parameters, apart from its window.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "grid/GridStore.h"

namespace veygrid {

// No name of the dialog's list.
inline constexpr std::int32_t NoName = -1;

// Where the focus went when a field lost it.
enum class FocusTarget { ExitButton, Dialog, Elsewhere };

// The dialog's window: a field for the name with a list of names, counted from 0, and a field for
// the value. Texts are in code page 936.
class ParamFields {
  public:
    virtual ~ParamFields() = default;

    virtual std::string NameText() = 0;
    virtual std::string ValueText() = 0;
    // The text counts as not modified from then on.
    virtual void SetValueText(std::string_view text) = 0;
    // Whether the user has changed the value's text since it was set or marked.
    virtual bool IsValueModified() = 0;
    virtual void ClearValueModified() = 0;

    // At the end of the list; chooses nothing.
    virtual void AddName(std::string_view name) = 0;
    virtual void DeleteName(std::int32_t index) = 0;
    virtual std::int32_t ChosenName() = 0;
    // Shows the name in its field, which NoName empties.
    virtual void ChooseName(std::int32_t index) = 0;

    virtual void FocusName() = 0;
    virtual void FocusValue() = 0;
    // Whether a name that is not in the list is to be added. Messages go on meanwhile.
    virtual bool AskToAdd() = 0;
};

// Works on the parameters while the dialog is open: there is nothing to confirm or to take back.
// What happens while the user is asked has no effect.
class ParamEditing {
  public:
    // Both must outlive it.
    ParamEditing(GridStore& store, ParamFields& fields) : m_store(store), m_fields(fields) {}

    // Fills the list.
    void OnOpen();
    void OnNameChosen();
    void OnNameLeft(FocusTarget target);
    void OnValueLeft();
    void OnDelete();

    // While this is so the dialog must not end.
    bool IsAsking() const { return m_isAsking; }

  private:
    bool IsName(std::int32_t index) const;
    std::int32_t FindName(std::string_view name) const;
    bool AskToAdd();

    GridStore& m_store;
    ParamFields& m_fields;
    // The list of the dialog, which may hold a name twice.
    std::vector<std::string> m_names;
    bool m_isAsking = false;
};

}  // namespace veygrid
