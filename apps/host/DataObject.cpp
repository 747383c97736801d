// The object "Data" of scripts: the host's connection and the query that the first control shows.
#include "apps/host/DataObject.h"

#include <memory>
#include <utility>

namespace veygrid {

DataObject::DataObject(HostWindow& window, ScriptFiber& fiber) : m_window(window), m_fiber(fiber) {
    AddWork(L"Connect", 1, 1, [this](DataSession&, const ScriptArguments& given) {
        return Variant::Of(m_window.Connect(given.Text(0)));
    });
    AddWork(L"RunQuery", 0, 1, [this](DataSession&, const ScriptArguments& given) {
        return Variant::Of(m_window.RunQuery(given.Text(0)));
    });
    AddWork(L"AddRecord", 0, 0, [](DataSession& session, const ScriptArguments&) {
        return Variant::Of(session.AddRecord());
    });
    AddWork(L"DeleteRecord", 1, 1, [](DataSession& session, const ScriptArguments& given) {
        return Variant::Of(session.DeleteRecord(given.Number(0)));
    });
    AddWork(L"Save", 0, 0, [](DataSession& session, const ScriptArguments&) {
        return Variant::Of(session.Save());
    });
    AddWork(L"RollBack", 0, 0, [](DataSession& session, const ScriptArguments&) {
        return Variant::Of(session.RollBack());
    });
    AddWork(L"RecordCount", 0, 0, [](DataSession& session, const ScriptArguments&) {
        return Variant::Of(session.RecordCount());
    });
    AddWork(L"ChangeCount", 0, 0, [](DataSession& session, const ScriptArguments&) {
        return Variant::Of(session.ChangeCount());
    });
    AddWork(L"Problem", 0, 0, [](DataSession& session, const ScriptArguments&) {
        return Variant::Of(session.Problem());
    });
    AddWork(L"WindowCount", 0, 0, [](DataSession& session, const ScriptArguments&) {
        return Variant::Of(session.WindowCount());
    });
}

// On the loop's stack, because a question may come up. The arguments do not outlive the script's
// call, which goes on only when a box is up for longer than scripts wait; then the answer is empty.
void DataObject::AddWork(const wchar_t* name, std::size_t least, std::size_t most, Work work) {
    Add(name, least, most, [this, work = std::move(work)](const ScriptArguments& given) {
        const auto answer = std::make_shared<Variant>();
        const auto fault = std::make_shared<std::exception_ptr>();
        m_fiber.Call([this, &work, &given, answer, fault] {
            try {
                m_window.Data().Settle();
                *answer = work(m_window.Data(), given);
            } catch (...) {
                *fault = std::current_exception();
            }
        });
        if (*fault != nullptr) {
            std::rethrow_exception(*fault);
        }
        return *answer;
    });
}

}  // namespace veygrid
