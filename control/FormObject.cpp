// The automation object that describes a form object to be made, and its automation members.
#include "control/FormObject.h"

#include <array>

#include "control/AutomationTable.h"
#include "control/ClassIds.h"

namespace veygrid {

namespace {

template <auto Member>
struct Plain;
template <class Value, Value FormObjectDescription::*Member>
struct Plain<Member> {
    static Value Get(CFormObject& object) { return object.Description.*Member; }
    static void Put(CFormObject& object, Value value) {
        object.Description.*Member = std::move(value);
    }
};

template <auto Member>
constexpr DispatchMember Property(DISPID id, std::string_view name) {
    return {.id = id,
            .name = name,
            .kind = MemberKind::Property,
            .get = CallFormOf<&Plain<Member>::Get>::Form,
            .put = CallFormOf<&Plain<Member>::Put>::Form};
}

using D = FormObjectDescription;

constexpr std::array Members{
    Property<&D::Name>(1, "Name"),
    Property<&D::DataType>(2, "DataType"),
    Property<&D::Style>(3, "Style"),
    Property<&D::StyleEx>(4, "StyleEx"),
    Property<&D::BindSource>(5, "BindSource"),
    Property<&D::ShowFormat>(6, "ShowFormat"),
    Property<&D::Label>(7, "Label"),
    Property<&D::LableLocate>(8, "LableLocate"),
    Property<&D::LabelWidth>(9, "LabelWidth"),
    Property<&D::LabelGap>(10, "LabelGap"),
    Property<&D::LabelAutoWidth>(11, "LabelAutoWidth"),
    Property<&D::DataClass>(12, "DataClass"),
    Property<&D::Data>(13, "Data"),
    Property<&D::CanNull>(14, "CanNull"),
    Property<&D::ObjectType>(15, "ObjectType"),
    Property<&D::PosLeft>(16, "PosLeft"),
    Property<&D::PosTop>(17, "PosTop"),
    Property<&D::PosRight>(18, "PosRight"),
    Property<&D::PosBottom>(19, "PosBottom"),
    Property<&D::CtrlID>(20, "CtrlID"),
};

}  // namespace

const DispatchTable& FormObjectTable() {
    static const DispatchTable table(Members);
    return table;
}

const AutomationClass FormObjectAutomation{FormObjectClassId, FormObjectDispatchId, nullptr,
                                           FormObjectTable};

CFormObject::CFormObject(IUnknown* outer)
    : OleObject(outer), m_automation(*this, FormObjectAutomation, this) {}

IUnknown* CFormObject::Make(IUnknown* outer) {
    return (new CFormObject(outer))->Inner();
}

}  // namespace veygrid
