// The automation object of a cell format: a record of its own, or the control's default one.
#include "control/CellFormatObject.h"

#include <utility>

#include "control/AutomationTable.h"

namespace veygrid {

namespace {

constexpr GUID RecordAccessId{
    0x6D0B53C1, 0x88E2, 0x4A0F, {0x95, 0x3C, 0x27, 0xE9, 0x14, 0xB0, 0x6A, 0x7D}};

}  // namespace

CellFormatObject::CellFormatObject(IUnknown* outer, CCellFormat format)
    : OleObject(outer), m_own(std::move(format)), m_automation(*this, CellFormatAutomation, this) {}

IUnknown* CellFormatObject::Make(IUnknown* outer) {
    return (new CellFormatObject(outer))->Inner();
}

ComPtr<IDispatch> CellFormatObject::MakeCopy(const CCellFormat& format) {
    auto* const object = new CellFormatObject(nullptr, format);
    return Adopt(object->Dispatch());
}

const CCellFormat* CellFormatObject::RecordOf(IDispatch* object) {
    ComPtr<IRecordAccess> access;
    if (object == nullptr ||
        FAILED(object->QueryInterface(RecordAccessId,
                                      reinterpret_cast<void**>(access.GetAddressOf())))) {
        return nullptr;
    }
    return access->RecordFor(module::Instance());
}

void CellFormatObject::Leave() {
    m_own = *m_record;
    m_record = &m_own;
}

const CCellFormat* STDMETHODCALLTYPE CellFormatObject::RecordPart::RecordFor(HINSTANCE module) {
    return module == module::Instance() ? m_owner.m_record : nullptr;
}

IUnknown* CellFormatObject::FindInterface(REFIID iid) {
    return iid == RecordAccessId ? &m_access : m_automation.Find(iid);
}

}  // namespace veygrid
