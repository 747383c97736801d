// The automation object of a cell format: a record of its own, or the control's default one.
#pragma once

#include "grid/CellFormat.h"
#include "platform/win32/ole/DispatchPart.h"

namespace veygrid {

class CellFormatObject final : public OleObject {
  public:
    // A record of its own, which starts as `format`.
    explicit CellFormatObject(IUnknown* outer, CCellFormat format = {});

    // Class object's maker.
    static IUnknown* Make(IUnknown* outer);
    // A new object with a copy of the record, in one reference.
    static ComPtr<IDispatch> MakeCopy(const CCellFormat& format);
    // The record behind an object of this module; null for null and for any foreign object.
    static const CCellFormat* RecordOf(IDispatch* object);

    CCellFormat& Record() { return *m_record; }
    IDispatch* Dispatch() { return m_automation.Dispatch(); }

    // From now on changes act on a record of another owner, until Leave gives this object a copy.
    void Refer(CCellFormat& record) { m_record = &record; }
    void Leave();

  private:
    // The way back from an interface to the record, for this very module only.
    struct IRecordAccess : IUnknown {
        virtual const CCellFormat* STDMETHODCALLTYPE RecordFor(HINSTANCE module) = 0;
    };
    class RecordPart final : public Part<IRecordAccess, CellFormatObject> {
      public:
        using Part::Part;
        const CCellFormat* STDMETHODCALLTYPE RecordFor(HINSTANCE module) override;
    };

    IUnknown* FindInterface(REFIID iid) override;

    CCellFormat m_own;
    CCellFormat* m_record = &m_own;
    AutomationParts m_automation;
    RecordPart m_access{*this};
};

}  // namespace veygrid
