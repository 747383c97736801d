' The windows of the data source: beside the sheet, several at once, with keys of their own.
Const Caption = "查看/修改数据源"
Const Question = "[Veynor Grid Control, 是否确认对数据源的修改?, 36, "
Const KeyEnter = 13
Const KeyEscape = 27
Const KeyTab = 9
Const KeyEnd = 35
Dim dialog, modified
Sub Grid_Modified()
    modified = modified + 1
End Sub

Grid.DataSource = "SELECT 编号,name FROM t"
modified = 0
' Closing without an edit asks nothing.
Grid.SendCommand 1012
Set dialog = Opened(Caption)
Check "the statement", dialog.GetText(1047), "SELECT 编号,name FROM t"
Host.Key KeyEscape, 0
Check "gone by Esc", Closed(Caption), True
Check "no question", Lines(Host.Boxes), ""

' A statement typed on two lines goes on one, with a blank at the joint; keys that the host knows
' as its own, and Tab, do not leave the window.
Grid.SendCommand 42311
Set dialog = Opened(Caption)
Host.Key KeyEnd, 2
Host.Key KeyEnter, 0
Host.TypeText "WHERE 名称='龘|~'"
Host.Key KeyTab, 0
Host.TypeText "!"
Check "typed", dialog.GetText(1047), "SELECT 编号,name FROM t" & vbCrLf & "WHERE 名称='龘|~'!"
Host.Key 79, 2
Host.Pump 100
Check "Ctrl+O is not the host's", Host.Dialog("Open") Is Nothing And Host.Dialog("打开") Is Nothing, True
Check "the sheet saw nothing", Grid.CellText(1, 1) & Active(), "1,1"
Host.Answer "yes"
Host.Key KeyEscape, 0
Check "closed", Closed(Caption), True
Check "asked", Lines(Host.Boxes), Question & "yes]"
Check "stored", Grid.DataSource, "SELECT 编号,name FROM t WHERE 名称='龘|~'!"
Check "columns stay", Grid.ColName(1) & "," & Grid.ColName(2), "编号,name"
Check "no Modified", modified, 0

' Answered with No, the statement stays.
Grid.SendCommand 42311
Set dialog = Opened(Caption)
Host.TypeText "x"
Host.Answer "no"
Host.Key KeyEscape, 0
Check "closed again", Closed(Caption), True
Check "asked again", Lines(Host.Boxes), Question & "no]"
Check "unchanged", Grid.DataSource, "SELECT 编号,name FROM t WHERE 名称='龘|~'!"

' Two at once; the sheet goes on beside them.
Grid.DataSource = "a"
Grid.SendCommand 42311
Set dialog = Opened(Caption)
Host.TypeText "1"
Grid.SendCommand 42311
Host.Pump 50
Host.TypeText "2"
Host.Answer "yes"
Host.Key KeyEscape, 0
Host.Pump 50
Check "one has stored", Grid.DataSource, "2a"
Check "one is still there", Opened(Caption).GetText(1047), "1a"
Grid.CellText(2, 2) = "beside"
' It goes with the host's window, unasked.
Host.Boxes
Host.Log "end"
