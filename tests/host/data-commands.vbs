' The commands that need no dialog: the key column, and the query that the menu does not run.
Dim modified
Sub Grid_Modified()
    modified = modified + 1
End Sub
Grid.SetActiveCell 1, 2
Check "a fresh column", Grid.KeyColumnFlag(2), 4
Grid.SendCommand 42322
Check "first", Grid.KeyColumnFlag(2), 0
Grid.SendCommand 42322
Check "second", Grid.KeyColumnFlag(2), 1

' The last item of the menu does the same, and says what it will do.
Const KeyUp = 38
Const KeyEnter = 13
Host.RightClick 300, 150
Host.Key KeyUp, 0
Host.Key KeyEnter, 0
Host.Pump 50
Check "from the menu", Grid.KeyColumnFlag(2), 0
Check "other columns", Grid.KeyColumnFlag(1), 4

modified = 0
Grid.DataSource = "SELECT a FROM t"
Host.Messages
Grid.SendCommand 1018
Grid.SendCommand 42317
Host.Pump 50
Check "42317 asks nothing and tells nobody", Lines(Host.Boxes) & Lines(Host.Messages), ""
Check "and changes nothing", Grid.DataSource & modified, "SELECT a FROM t1"
Host.Log "end"
