// The object "Data" of scripts: the host's connection and the query that the first control shows.
#pragma once

#include "apps/host/HostWindow.h"
#include "apps/host/ScriptObject.h"

namespace veygrid {

// Members: Connect(dsn), RunQuery([statement]), AddRecord(), DeleteRecord(row), Save(), RollBack(),
// RecordCount, ChangeCount, Problem, WindowCount. What was not done answers False, or row 0, and
// Problem says why.
class DataObject : public ScriptObject {
  public:
    explicit DataObject(HostWindow& window);

  private:
    HostWindow& m_window;
};

}  // namespace veygrid
