// The object "Data" of scripts: the host's connection and the query that the first control shows.
#include "apps/host/DataObject.h"

namespace veygrid {

DataObject::DataObject(HostWindow& window) : m_window(window) {
    const auto session = [this]() -> DataSession& { return m_window.Data(); };
    Add(L"Connect", 1, 1, [this](const ScriptArguments& given) {
        return Variant::Of(m_window.Connect(given.Text(0)));
    });
    Add(L"RunQuery", 0, 1, [this](const ScriptArguments& given) {
        return Variant::Of(m_window.RunQuery(given.Text(0)));
    });
    Add(L"AddRecord", 0, 0,
        [session](const ScriptArguments&) { return Variant::Of(session().AddRecord()); });
    Add(L"DeleteRecord", 1, 1, [session](const ScriptArguments& given) {
        return Variant::Of(session().DeleteRecord(given.Number(0)));
    });
    Add(L"Save", 0, 0, [session](const ScriptArguments&) { return Variant::Of(session().Save()); });
    Add(L"RollBack", 0, 0,
        [session](const ScriptArguments&) { return Variant::Of(session().RollBack()); });
    Add(L"RecordCount", 0, 0,
        [session](const ScriptArguments&) { return Variant::Of(session().RecordCount()); });
    Add(L"ChangeCount", 0, 0, [session](const ScriptArguments&) {
        session().Settle();
        return Variant::Of(session().ChangeCount());
    });
    Add(L"Problem", 0, 0,
        [session](const ScriptArguments&) { return Variant::Of(session().Problem()); });
    Add(L"WindowCount", 0, 0,
        [session](const ScriptArguments&) { return Variant::Of(session().WindowCount()); });
}

}  // namespace veygrid
