// The modal data dialogs: 2306 for the data side of formats, and 2316 for the parameters.
#include "control/DataDialogs.h"

#include <utility>

#include "binding/ParamEditing.h"
#include "control/MessageBox.h"
#include "control/ModalDialog.h"
#include "control/VeyGridCtrl.h"
#include "grid/Messages.h"
#include "platform/win32/ole/Module.h"
#include "platform/win32/ole/OleText.h"

namespace veygrid {

namespace {

constexpr UINT DataCtrlDialogId = 2306;
constexpr int DataTypeList = 1014;
constexpr int ShowFormatField = 1018;
constexpr int ValidityField = 1020;
// String resources: what the lists of the dialog offer.
constexpr UINT FirstDataTypeText = 23060;
constexpr UINT FirstShowFormatText = 23070;
constexpr UINT OfferedShowFormats = 10;

constexpr UINT ParamDialogId = 2316;
constexpr int NameField = 1030;
constexpr int ValueField = 1045;
constexpr int DeleteButton = 1001;
constexpr int ExitButton = IDCANCEL;

constexpr wchar_t AddQuestion[] = L"该参数不存在,是否增加该参数?";

class CDataCtrlDlg final : public ModalDialog {
  public:
    explicit CDataCtrlDlg(DataCtrlChoice choice) : m_choice(std::move(choice)) {}

    const DataCtrlChoice& Choice() const { return m_choice; }

  private:
    // What filling the fields tells is no change.
    void OnInitDialog() override {
        FillList(DataTypeList, FirstDataTypeText, OfferedDataTypes);
        FillList(ShowFormatField, FirstShowFormatText, OfferedShowFormats);
        Send(DataTypeList, CB_SETCURSEL, static_cast<WPARAM>(m_choice.dataType));
        for (const int field : {ShowFormatField, ValidityField}) {
            Send(field, CB_LIMITTEXT);
        }
        SetItemText(ShowFormatField, m_choice.showFormat);
        SetItemText(ValidityField, m_choice.validity);
        m_choice.showFormatChanged = m_choice.validityChanged = false;
    }
    bool OnCommand(int id, UINT notification) override {
        const bool isChange = notification == CBN_SELCHANGE || notification == CBN_EDITCHANGE;
        m_choice.showFormatChanged |= isChange && id == ShowFormatField;
        m_choice.validityChanged |= isChange && id == ValidityField;
        return false;
    }
    void OnOk() override {
        m_choice.dataType = static_cast<std::int32_t>(Send(DataTypeList, CB_GETCURSEL));
        m_choice.showFormat = ItemText(ShowFormatField);
        m_choice.validity = ItemText(ValidityField);
    }

    void FillList(int list, UINT firstText, UINT count) const {
        for (UINT id = firstText; id < firstText + count; ++id) {
            Send(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(module::String(id).c_str()));
        }
    }

    DataCtrlChoice m_choice;
};

class CParamDlg final : public ModalDialog, private ParamFields {
  public:
    explicit CParamDlg(CVeyGridCtrl& control)
        : m_control(control), m_editing(control.Store(), *this) {}

  private:
    void OnInitDialog() override {
        Send(NameField, CB_LIMITTEXT);
        Send(ValueField, EM_SETLIMITTEXT);
        m_editing.OnOpen();
    }
    bool OnCommand(int id, UINT notification) override {
        if (id == NameField && notification == CBN_SELCHANGE) {
            m_editing.OnNameChosen();
        } else if (id == NameField && notification == CBN_KILLFOCUS) {
            m_editing.OnNameLeft(Target());
        } else if (id == ValueField && notification == EN_KILLFOCUS) {
            m_editing.OnValueLeft();
        } else if (id == DeleteButton && notification == BN_CLICKED) {
            m_editing.OnDelete();
        }
        return m_editing.IsAsking();
    }
    FocusTarget Target() const {
        const HWND focus = ::GetFocus();
        return focus == Window()           ? FocusTarget::Dialog
               : focus == Item(ExitButton) ? FocusTarget::ExitButton
                                           : FocusTarget::Elsewhere;
    }

    std::string NameText() override { return ItemText(NameField); }
    std::string ValueText() override { return ItemText(ValueField); }
    // Selected, as a field is that the user goes on to by Tab.
    void SetValueText(std::string_view text) override {
        SetItemText(ValueField, text);
        Send(ValueField, EM_SETSEL, 0, -1);
    }
    bool IsValueModified() override { return Send(ValueField, EM_GETMODIFY) != 0; }
    void ClearValueModified() override { Send(ValueField, EM_SETMODIFY, FALSE); }
    void AddName(std::string_view name) override {
        const std::wstring text = WideFromText(name);
        Send(NameField, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
    void DeleteName(std::int32_t index) override {
        Send(NameField, CB_DELETESTRING, static_cast<WPARAM>(index));
    }
    std::int32_t ChosenName() override {
        return static_cast<std::int32_t>(Send(NameField, CB_GETCURSEL));
    }
    void ChooseName(std::int32_t index) override {
        Send(NameField, CB_SETCURSEL, static_cast<WPARAM>(index));
    }
    void FocusName() override { ::SetFocus(Item(NameField)); }
    void FocusValue() override { ::SetFocus(Item(ValueField)); }
    bool AskToAdd() override {
        return ShowMessageBox(m_control, nullptr, TextFromWide(AddQuestion), YesNoMessageStyle) ==
               IDYES;
    }

    CVeyGridCtrl& m_control;
    ParamEditing m_editing;
};

}  // namespace

std::optional<DataCtrlChoice> AskDataCtrl(HWND owner, const DataCtrlChoice& shown) {
    CDataCtrlDlg dialog(shown);
    return dialog.DoModal(DataCtrlDialogId, owner) ? std::optional(dialog.Choice()) : std::nullopt;
}

void EditParams(CVeyGridCtrl& control) {
    CParamDlg(control).DoModal(ParamDialogId, control.Window());
}

}  // namespace veygrid
