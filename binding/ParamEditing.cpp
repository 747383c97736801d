// What the parameter dialog does with the sheet's parameters, apart from its window.
#include "binding/ParamEditing.h"

#include <algorithm>

#include "binding/Asking.h"
#include "valuetext/Fields.h"
#include "valuetext/MultiByte.h"

namespace veygrid {

void ParamEditing::OnOpen() {
    m_store.Params.ForEachRaw(
        [this](const std::string& entry) { m_names.emplace_back(GetField(entry, 0, Tab)); });
    for (const std::string& name : m_names) {
        m_fields.AddName(name);
    }
}

void ParamEditing::OnNameChosen() {
    if (m_isAsking) {
        return;
    }
    const std::int32_t index = m_fields.ChosenName();
    if (!IsName(index)) {
        m_fields.ChooseName(NoName);
        m_fields.SetValueText({});
        return;
    }
    const std::string& name = m_names[static_cast<std::size_t>(index)];
    m_fields.SetValueText(m_store.Params.GetParam(name).value_or(std::string()));
}

void ParamEditing::OnNameLeft(FocusTarget target) {
    if (m_isAsking || target != FocusTarget::Elsewhere) {
        return;
    }
    const std::string text = m_fields.NameText();
    const std::string_view name = Trim(text);
    if (name.empty()) {
        return;
    }
    if (const std::int32_t found = FindName(name); found != NoName) {
        m_fields.ChooseName(found);
        OnNameChosen();
        return;
    }
    const std::string value = m_fields.ValueText();
    if (AskToAdd()) {
        m_names.emplace_back(name);
        m_fields.AddName(name);
        m_store.SetParam(name, value);
        m_fields.SetValueText({});
        m_fields.FocusValue();
    } else {
        m_fields.ChooseName(NoName);
        m_fields.SetValueText({});
        m_fields.FocusName();
    }
}

// The name is taken as it stands, blanks and all.
void ParamEditing::OnValueLeft() {
    if (m_isAsking) {
        return;
    }
    const std::string name = m_fields.NameText();
    const std::string value = m_fields.ValueText();
    if (m_fields.IsValueModified() && !name.empty()) {
        m_store.SetParam(name, value);
        m_fields.ClearValueModified();
    }
}

void ParamEditing::OnDelete() {
    const std::int32_t chosen = m_fields.ChosenName();
    if (m_isAsking || !IsName(chosen)) {
        return;
    }
    m_store.Params.RemoveParam(m_fields.NameText());
    m_names.erase(m_names.begin() + chosen);
    m_fields.DeleteName(chosen);
    OnNameChosen();
}

bool ParamEditing::IsName(std::int32_t index) const {
    return index >= 0 && static_cast<std::size_t>(index) < m_names.size();
}

std::int32_t ParamEditing::FindName(std::string_view name) const {
    const std::string wanted = UpperCase(name);
    const auto found = std::ranges::find_if(
        m_names, [&wanted](const std::string& known) { return UpperCase(known) == wanted; });
    return found == m_names.end() ? NoName : static_cast<std::int32_t>(found - m_names.begin());
}

bool ParamEditing::AskToAdd() {
    const Asking asking(m_isAsking);
    return m_fields.AskToAdd();
}

}  // namespace veygrid
