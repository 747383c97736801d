// Sees every message box of the thread come up, answers it and keeps what it said.
#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace veygrid {

// While one stands, no message box waits for a user: each gets the next queued answer, or its
// default button where none is queued or the box has no such button.
class MessageBoxWatch {
  public:
    MessageBoxWatch();
    MessageBoxWatch(const MessageBoxWatch&) = delete;
    MessageBoxWatch& operator=(const MessageBoxWatch&) = delete;
    ~MessageBoxWatch();

    // "ok", "cancel", "abort", "retry", "ignore", "yes", "no" in any case; false for another word.
    bool QueueAnswer(const std::wstring& button);

    // "caption, text, style, answer" of each box since the last call. The style is the number that
    // the box was asked for with, as far as its buttons, its icon and its default button tell.
    std::vector<std::wstring> Take() { return std::exchange(m_lines, {}); }

    // Told of each box, by its text, as it is answered.
    std::function<void(const std::wstring&)> onBox;

  private:
    static LRESULT CALLBACK OnHook(int code, WPARAM wParam, LPARAM lParam);
    void OnActivate(HWND window);
    static LRESULT CALLBACK OnBoxMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                         UINT_PTR id, DWORD_PTR self);
    void Answer(HWND box);
    int ChooseAnswer(HWND box);

    HHOOK m_hook = nullptr;
    std::deque<int> m_answers;
    std::vector<std::wstring> m_lines;
};

}  // namespace veygrid
