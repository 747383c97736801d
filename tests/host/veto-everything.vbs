' A host that vetoes whatever it can while a user does whatever comes to mind: nothing hangs, nothing
' changes, and afterwards everything works.
Dim vetoes, vetoesStart, asked
Sub Grid_StartingEdit(row, col, allow)
    If vetoes And vetoesStart Then allow = 0
    asked = asked + 1
End Sub
Sub Grid_EndEdit(row, col, value, cancel)
    If vetoes Then cancel = 1
    asked = asked + 1
End Sub
Sub Grid_CellSelChanging(row, col, allow)
    If vetoes Then allow = 0
    asked = asked + 1
End Sub
Sub Grid_BeginLabelEdit(kind, index, cancel)
    If vetoes Then cancel = True
    asked = asked + 1
End Sub

' The same numbers in each run.
Dim state
state = 20240229
Function Below(limit)
    state = (state * 1103 + 12345) Mod 1000003
    Below = state Mod limit
End Function

Sub Act()
    Dim x, y, keys, texts
    keys = Array(9, 13, 27, 33, 34, 35, 36, 37, 38, 39, 40, 113)
    texts = Array("a", "7", "中", "乗~", "😀")
    x = Below(380)
    y = Below(260)
    Select Case Below(8)
        Case 0, 1: Host.Key keys(Below(12)), Below(3)
        Case 2, 3: Host.TypeText texts(Below(5))
        Case 4: Host.Click x, y, Below(3)
        Case 5: Host.DoubleClick x, y
        Case 6
            Host.Press x, y
            Host.Move Below(380), Below(260)
            Host.Release Below(380), Below(260)
        Case 7: Host.DoubleClick 60 + Below(300), 8
    End Select
End Sub

Function Everything()
    Dim row, col
    Everything = Grid.ColHeader(1) & Grid.ColHeader(2) & Grid.RowHeader(1)
    For row = 1 To 12
        For col = 1 To 6
            Everything = Everything & "|" & Grid.CellText(row, col)
        Next
    Next
    Everything = Everything & "|" & Grid.LastRow & "," & Grid.LastCol & "," & Active()
End Function

Const Box = "[Veynor Grid Control, 输入的数据非法!, 64, ok]"
Dim row, col, before, turn, seen
Grid.MaxRow = 12
Grid.MaxCol = 6
For row = 1 To 12
    For col = 1 To 6
        Grid.CellText(row, col) = "第" & row & "~" & col
    Next
Next
Grid.AllowMoveCell = False
Grid.AllowMoveRow = False
Grid.AllowMoveCol = False
Grid.AllowResize = False
Grid.AllowPopMenu = False
Grid.AlwaysOnEdit = True
Host.Click MiddleX(2), 50
Grid.EndEdit
before = Everything()

vetoes = True
vetoesStart = True
For turn = 1 To 60
    Act
Next
Check "every step was asked for", asked > 10, True
Check "no edit is open", Grid.EndEdit(), 1
Check "nothing changed", Everything(), before
Check "no box", Lines(Host.Boxes), ""

' Edits open now, and no text is ever taken.
vetoesStart = False
For turn = 1 To 60
    Act
Next
seen = Lines(Host.Boxes)
Check "no other box than that of a refusal", Replace(seen, Box, ""), ""
Check "but that one, again and again", Len(seen) > 10 * Len(Box), True
Check "nothing changed again", Everything(), before

' What is open may hold a character that the sheet lacks.
vetoes = False
Host.Key 36, 2
Host.Key 35, 3
Host.Key 8
Check "let go, the edit ends", Grid.EndEdit(), 1
Grid.AlwaysOnEdit = False
Grid.SetActiveCell 5, 5
Grid.MakeCellVisible 1, 1
Host.Click MiddleX(1), 30
Check "let go, the active cell moves", Active(), "1,1"
Host.TypeText "好"
Host.Key 13
Check "and typing is taken", Grid.CellText(1, 1), "好"
Host.Log "end"
