' A query of many rows is scrolled to its end by hand; only a small part of it is kept in memory.
' databases: sqlite postgres
' sql: CREATE TABLE 村 (代码 INTEGER PRIMARY KEY, 名称 TEXT);
' sql: WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 100000) INSERT INTO 村 SELECT i * 10, '村' || i FROM n;
Const PageDown = 34, PageUp = 33, DownKey = 40
Dim turn, most
Check "rows", Query("SELECT 代码, 名称 FROM 村 ORDER BY 代码"), "100000,2"
Sub Keep()
    If Data.WindowCount > most Then most = Data.WindowCount
End Sub

For turn = 1 To 60
    Host.Key PageDown
    Keep
Next
Check "a page at a time comes somewhere", Grid.CellText(500, 2), "村500"
' Through the whole of it, as a thumb that is dragged does.
For turn = 1 To 100000 Step 499
    Grid.MakeCellVisible turn, 1
    Host.Pump 0
    Keep
Next
Check "few runs of rows are kept", most > 0 And most <= 64, True
Grid.SetActiveCell 99999, 2
Grid.MakeCellVisible 99999, 2
Host.Key DownKey
Check "the last", Active() & Grid.CellText(100000, 1) & Grid.CellText(100000, 2), "100000,21000000村100000"
Host.Key DownKey
Check "nothing behind it", Active() & Grid.CellText(100001, 2), "100000,2"
Host.TypeText "末"
Host.Key 13
Grid.MakeCellVisible 1, 1
Host.Pump 0
Check "and back", Grid.CellText(1, 2), "村1"
Check "saved", Word(Data.Save) & Client("SELECT 名称 FROM 村 WHERE 代码 = 1000000"), "True末"
Check "no row was lost", Data.RecordCount, 100000
Host.Log "end"
