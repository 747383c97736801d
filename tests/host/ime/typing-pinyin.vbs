' Pinyin typed with real keys: it opens the editor on the sheet, nothing of it is lost, and the keys of a
' composition are the input method's.
Dim events
Sub Grid_StartingEdit(row, col, allow)
    events = events & "starting " & row & "," & col & ";"
End Sub
Sub Grid_EndEdit(row, col, value, cancel)
    events = events & "end " & row & "," & col & "=" & value & ";"
End Sub
Function Taken()
    Taken = events
    events = ""
End Function
EvenSheet 20, 6
Grid.EnterGoDown = True
Grid.CellText(2, 2) = "old"
Host.Click MiddleX(2), MiddleY(2)
UserLetters "nihao"
UserKeys "space Return"
CheckCellSoon "the characters take the place of the old text, the first of them too", 2, 2, "你好"
CheckActiveSoon "the Enter behind them moves the cell", "3,2"
Check "one edit, one commit", Taken(), "starting 2,2;end 2,2=你好;"

UserLetters "nihao"
UserKeys "Return"
UserLetters "zhongguo"
UserKeys "space Return"
CheckCellSoon "an Enter that ends a composition stays in the cell", 3, 2, "nihao中国"
CheckActiveSoon "the next one moves", "4,2"
Check "one edit again", Taken(), "starting 3,2;end 3,2=nihao中国;"

UserLetters "nihao"
UserKeys "space"
UserLetters "shijie"
UserKeys "space comma"
UserLetters "zhongguo"
UserKeys "space period Return"
CheckCellSoon "compositions and punctuation stand in their order", 4, 2, "你好世界，中国。"
CheckActiveSoon "moved", "5,2"
Taken

UserKeys "comma Return"
CheckCellSoon "punctuation alone opens the editor", 5, 2, "，"
CheckActiveSoon "moved on", "6,2"
Host.Log "end"
