' A handler that brings about its own event without end comes to an end all the same.
Dim depth, deepest
Sub Grid_Modified()
    depth = depth + 1
    If depth > deepest Then deepest = depth
    Grid.CellText(depth, 1) = "inside"
    depth = depth - 1
End Sub
depth = 0
deepest = 0
Grid.CellText(100, 1) = "outside"
Check "nested", deepest > 1, True
Check "inside", Grid.CellText(deepest, 1), "inside"
Check "outside", Grid.CellText(100, 1), "outside"
Dim before
before = deepest
Check "as deep as before", Again(), before
Host.Log "end"

Function Again()
    deepest = 0
    Grid.CellText(100, 1) = "again"
    Again = deepest
End Function
