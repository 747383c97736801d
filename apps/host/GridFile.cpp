// The grid file that the host shows: its path, and loading and saving it through the control.
#include "apps/host/GridFile.h"

#include <commdlg.h>

namespace veygrid {

namespace {

constexpr const wchar_t* BoxCaption = L"VeyHost";

std::wstring FullPath(const std::wstring& path) {
    std::wstring full(32768, L'\0');
    full.resize(
        GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full.empty() ? path : full;
}

}  // namespace

void TellTrouble(HWND owner, const std::wstring& text) {
    MessageBoxW(owner, text.c_str(), BoxCaption, MB_OK | MB_ICONHAND);
}

void TellNotice(HWND owner, const std::wstring& text) {
    MessageBoxW(owner, text.c_str(), BoxCaption, MB_OK | MB_ICONINFORMATION);
}

int AskUser(HWND owner, const std::wstring& question) {
    return MessageBoxW(owner, question.c_str(), BoxCaption, MB_YESNOCANCEL | MB_ICONQUESTION);
}

bool GridFile::Open(const Automation& grid, const std::wstring& path) {
    const std::wstring full = FullPath(path);
    constexpr long withoutQuery = 0;
    const Variant answer = grid.Call(L"OpenFile", {Variant::Of(full), Variant::Of(withoutQuery)});
    if (answer.Number() <= 0) {
        TellTrouble(m_owner, L"无法打开文件:\n" + full);
        return false;
    }
    grid.Put(L"Modified", Variant::Of(false));
    m_path = full;
    return true;
}

bool GridFile::Save(const Automation& grid) {
    return m_path.empty() ? SaveAs(grid) : SaveTo(grid, m_path);
}

bool GridFile::SaveAs(const Automation& grid) {
    std::wstring path = m_path;
    return AskForPath(true, path) && SaveTo(grid, path);
}

bool GridFile::SaveTo(const Automation& grid, const std::wstring& path) {
    if (!grid.Call(L"SaveFile", {Variant::Of(path)}).Truth()) {
        TellTrouble(m_owner, L"无法保存文件:\n" + path);
        return false;
    }
    grid.Put(L"Modified", Variant::Of(false));
    m_path = path;
    return true;
}

bool GridFile::MayLeave(const Automation& grid) {
    if (!grid.Get(L"Modified").Truth()) {
        return true;
    }
    const int answer = AskUser(m_owner, L"内容已修改,是否保存?");
    return answer == IDNO || (answer == IDYES && Save(grid));
}

bool GridFile::AskForPath(bool isSaving, std::wstring& path) const {
    std::wstring buffer = path;
    buffer.resize(32768);
    OPENFILENAMEW question{};
    question.lStructSize = sizeof question;
    question.hwndOwner = m_owner;
    question.lpstrFilter = L"表格文件 (*.grd)\0*.grd\0所有文件 (*.*)\0*.*\0";
    question.lpstrFile = buffer.data();
    question.nMaxFile = static_cast<DWORD>(buffer.size());
    question.lpstrDefExt = L"grd";
    question.Flags = OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST |
                     (isSaving ? OFN_OVERWRITEPROMPT : OFN_FILEMUSTEXIST);
    const BOOL isChosen = isSaving ? GetSaveFileNameW(&question) : GetOpenFileNameW(&question);
    path = buffer.c_str();
    return isChosen != FALSE;
}

}  // namespace veygrid
