' Taking a script's text over, saving and rolling back leave the view, the active cell and the
' selection where they were.
' databases: sqlite
' sql: CREATE TABLE 行 (号 INTEGER PRIMARY KEY, a TEXT, b TEXT, c TEXT);
' sql: WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 2000) INSERT INTO 行 SELECT i, 'a' || i, 'b' || i, 'c' || i FROM n;
Dim before
Query "SELECT 号, a, b, c FROM 行 ORDER BY 号"
Grid.SetActiveCell 1003, 3
Grid.MakeCellVisible 1000, 2
Grid.SetSelection 1001, 2, 1005, 3
Host.Pump 0
Host.Shot "before.png"
before = Lines(Host.File("before.png").Bytes)
Check "drawn twice alike", Drawn() = before, True
Function Drawn()
    Host.Pump 0
    Host.Shot "after.png"
    Drawn = Lines(Host.File("after.png").Bytes)
End Function

Grid.ModifyCellText 7, 2, "far away"
Check "taken over", Grid.CellText(7, 2) & Data.ChangeCount, "far away1"
Check "the picture is the same", Drawn() = before, True
Check "saved", Word(Data.Save), "True"
Check "and still", Drawn() = before, True
Grid.ModifyCellText 8, 2, "as far"
Data.RollBack
Check "rolled back", Drawn() = before, True
Check "the active cell and the selection", Active() & Selected(), "1003,3(1001,2,1005,3)"
Check "the modified flag tells of no record", Flag(), "False"
Host.Log "end"

Function Flag()
    Grid.Modified = False
    TypeInto 1003, 2, "x"
    Data.Save
    Flag = Word(Grid.Modified)
End Function
