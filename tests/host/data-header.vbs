' The dialog of a header's text, from a double click, with the events around it.
Const Caption = "设置行列标题"
Const KeyEnter = 13
Const KeyEscape = 27
Dim dialog, events, vetoes
Sub Grid_BeginLabelEdit(kind, index, cancel)
    events = events & "begin " & kind & "," & index & ";"
End Sub
Sub Grid_EndLabelEdit(kind, index, text, cancel)
    events = events & "end " & kind & "," & index & "," & text & ";"
    If vetoes Then cancel = True
End Sub
Function Taken()
    Taken = events
    events = ""
End Function
EvenSheet 20, 10
Grid.ColHeader(3) = "单价"

Host.DoubleClick MiddleX(3), 8
Set dialog = Opened(Caption)
Check "the old text", dialog.GetText(1003) & dialog.GetText(1) & dialog.GetText(2), "单价确定取消"
Host.TypeText "金额 龘|~"
Host.Key KeyEnter, 0
Check "gone", Closed(Caption), True
Check "told", Taken(), "begin 1,3;end 1,3,金额 龘|~;"
Check "a column header", Grid.ColHeader(3), "金额 龘|~"

vetoes = True
Host.DoubleClick 10, MiddleY(4)
Set dialog = Opened(Caption)
Check "a row's number", dialog.GetText(1003), Grid.RowHeader(4)
Host.TypeText "x"
dialog.Press 1
Check "gone again", Closed(Caption), True
Check "vetoed", Taken() & Grid.RowHeader(4), "begin 0,4;end 0,4,x;4"

Host.DoubleClick 10, MiddleY(4)
Set dialog = Opened(Caption)
Host.TypeText "y"
Host.Key KeyEscape, 0
Check "cancelled", Closed(Caption), True
Check "told no end", Taken() & Grid.RowHeader(4), "begin 0,4;4"
Host.Log "end"
