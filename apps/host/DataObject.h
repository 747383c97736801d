// The object "Data" of scripts: the host's connection and the query that the first control shows.
#pragma once

#include <functional>

#include "apps/host/HostWindow.h"
#include "apps/host/ScriptFiber.h"
#include "apps/host/ScriptObject.h"

namespace veygrid {

// Members: Connect(dsn), RunQuery([statement]), AddRecord(), DeleteRecord(row), Save(), RollBack(),
// RecordCount, ChangeCount, Problem, WindowCount. What was not done answers False, or row 0, and
// Problem says why.
class DataObject : public ScriptObject {
  public:
    DataObject(HostWindow& window, ScriptFiber& fiber);

  private:
    using Work = std::function<Variant(DataSession& session, const ScriptArguments& given)>;

    // A member that works on the session as it is after what the script did to the sheet before.
    void AddWork(const wchar_t* name, std::size_t least, std::size_t most, Work work);

    HostWindow& m_window;
    ScriptFiber& m_fiber;
};

}  // namespace veygrid
