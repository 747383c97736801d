' A refused text holds the user in the cell: its box is shown once, the focus comes back, and the key,
' press or scroll that caused it is dropped.
Dim events, vetoes
Sub Grid_EndEdit(row, col, value, cancel)
    events = events & "end " & row & "," & col & "=" & value & ";"
    If vetoes Then cancel = 1
End Sub
Sub Grid_CellSelChanging(row, col, allow)
    events = events & "changing;"
End Sub
Function Taken()
    Taken = events
    events = ""
End Function
Const Box = "[Veynor Grid Control, 输入的数据非法!, 64, ok]"

Grid.MaxRow = 100
Grid.ColType(2) = 2
Grid.SetActiveCell 3, 2
Taken
Grid.CellText(3, 2) = "5"
Dim number
Set number = Grid.CellFormat(3, 2)
number.DataType = 1
Grid.CellFormat(3, 2) = number

Host.TypeText "x"
Host.Key 13
Check "Enter: the box", Lines(Host.Boxes), Box
Check "Enter: the event once, no move", Taken(), "end 3,2=x;"
Check "the cell keeps its value", Grid.CellText(3, 2), "5"
Host.Key 9
Check "Tab: the box", Lines(Host.Boxes), Box
Check "Tab: no move", Active(), "3,2"
Host.Click 300, 200
Check "a press: the box", Lines(Host.Boxes), Box
Check "a press: dropped", Active(), "3,2"
Host.Click 792, 300
Check "a scroll: the box", Lines(Host.Boxes), Box
Taken
Host.TypeText "y"
Check "EndEdit gives 0 and shows nothing", Grid.EndEdit() & Lines(Host.Boxes), "0"
Check "the focus came back and the text stood", Taken(), "end 3,2=xy;"
Host.Key 8
Host.Key 8
Host.TypeText "12"
Host.Key 13
Check "a good text passes", Grid.CellText(3, 2) & Lines(Host.Boxes), "12"
Check "and the cell moves", Active(), "4,2"

' A host that vetoes everything.
vetoes = True
Taken
Host.TypeText "7"
Host.Key 13
Check "a veto is refused like a bad text", Lines(Host.Boxes), Box
Host.Key 9
Check "on Tab", Lines(Host.Boxes), Box
Host.Click 300, 200
Check "on a press", Lines(Host.Boxes), Box
Host.Click 20, 10
Check "on a header", Lines(Host.Boxes), Box
Host.Click 792, 300
Check "on a scroll", Lines(Host.Boxes), Box
Check "no move", Active(), "4,2"
Check "each time one event", Taken(), "end 4,2=7;end 4,2=7;end 4,2=7;end 4,2=7;end 4,2=7;"
Check "the cell is empty still", Grid.CellText(4, 2), ""
vetoes = False
Host.Key 13
Check "let go, it commits", Grid.CellText(4, 2), "7"
Host.Click 80, 20 + 21
Check "nothing scrolled", Active(), "2,1"
Grid.SetActiveCell 5, 2

' A character that the sheet cannot hold.
Host.TypeText "a😀"
Host.Key 13
Check "such a text is refused", Lines(Host.Boxes), Box
Check "and not stored", Grid.CellText(5, 2), ""
Host.Key 8
Host.Key 8
Host.Key 13
Host.Log "end"
