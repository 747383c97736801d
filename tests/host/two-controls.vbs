' Host.NewControl puts a second control beside the first, each with its own sheet and events.
Dim second, bytes, events
Sub Grid_CellSelChanged()
    events = events & "first;"
End Sub
Sub Grid2_CellSelChanged()
    events = events & "second;"
End Sub
Grid.CellText(1, 1) = "one"
Set second = Host.NewControl()
second.CellText(1, 1) = "two"
Check "own sheets", Grid.CellText(1, 1) & second.CellText(1, 1), "onetwo"
second.SetActiveCell 2, 2
Grid.SetActiveCell 3, 3
Check "own events", events, "second;first;"
Host.Shot "half.png"
bytes = Host.File("half.png").Bytes
Check "side by side", BigEndian(bytes, 16, 4), 400
Host.Log "end"
