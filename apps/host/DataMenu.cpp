// The commands of the data menu: what they ask the user, and which of them are possible.
#include "apps/host/DataMenu.h"

#include <algorithm>

#include "apps/host/GridFile.h"
#include "apps/host/MainMenu.h"
#include "apps/host/TextDialog.h"

namespace veygrid {

void DataMenu::Run(UINT command) {
    switch (command) {
        case CommandConnect:
            AskAndConnect();
            break;
        case CommandRunQuery:
            AskAndRunQuery();
            break;
        case CommandAddRecord:
            Tell(m_session.AddRecord() != 0);
            break;
        case CommandDeleteRecord:
            Tell(m_session.DeleteRecord(m_session.ActiveRow()));
            break;
        case CommandSaveRecords:
            Tell(m_session.Save());
            break;
        case CommandRollBack:
            Tell(m_session.RollBack());
            break;
        default:
            break;
    }
}

void DataMenu::Prepare(HMENU menu) const {
    const auto enable = [menu](UINT command, bool isPossible) {
        EnableMenuItem(menu, command, isPossible ? MF_ENABLED : MF_GRAYED);
    };
    const bool hasQuery = m_session.HasQuery();
    const bool hasChanges = m_session.ChangeCount() > 0;
    enable(CommandRunQuery, m_session.IsConnected());
    enable(CommandAddRecord, hasQuery);
    enable(CommandDeleteRecord, hasQuery && m_session.RecordCount() > 0);
    enable(CommandSaveRecords, hasChanges);
    enable(CommandRollBack, hasChanges);
}

bool DataMenu::MayLeave() {
    if (!m_session.Finish()) {
        Tell(false);
        return false;
    }
    const bool hasUnknown = m_session.HasQuery() && !m_session.Problem().empty();
    const long changes = std::max(m_session.ChangeCount(), hasUnknown ? 1L : 0L);
    if (changes == 0) {
        return true;
    }
    const std::wstring question = std::to_wstring(changes) + L" 处修改尚未保存到数据库,是否保存?";
    const int answer = AskUser(m_owner, question);
    if (answer == IDYES) {
        const bool isSaved = m_session.Save();
        Tell(isSaved);
        return isSaved;
    }
    if (answer == IDNO) {
        m_session.LeaveRecordsOut();
    }
    return answer == IDNO;
}

bool DataMenu::AskAndConnect() {
    if (!MayLeave()) {
        return false;
    }
    const std::optional<std::wstring> given =
        AskForText(m_owner, {L"连接数据库", L"ODBC 连接串:", m_connection});
    if (!given) {
        return false;
    }
    m_connection = *given;
    const bool isDone = m_session.Connect(*given);
    Tell(isDone);
    return isDone;
}

void DataMenu::AskAndRunQuery() {
    std::wstring statement = m_session.Statement();
    if (statement.empty()) {
        const std::optional<std::wstring> given =
            AskForText(m_owner, {L"执行查询", L"SELECT 语句:", {}, true});
        if (!given) {
            return;
        }
        statement = *given;
    }
    if (MayLeave()) {
        Tell(m_session.RunQuery(statement));
    }
}

void DataMenu::Tell(bool isDone) const {
    if (!isDone) {
        TellTrouble(m_owner, m_session.Problem());
    }
}

}  // namespace veygrid
