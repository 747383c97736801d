' A sheet of as many rows as its own row insertion cuts it at keeps its number of rows; it is brought
' back all the same.
' databases: sqlite
' sql: CREATE TABLE 长 (号 INTEGER PRIMARY KEY, 名 TEXT);
' sql: WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 65535) INSERT INTO 长 SELECT i, '名' || i FROM n;
Check "rows", Query("SELECT 号, 名 FROM 长 ORDER BY 号"), "65535,2"
Grid.SetActiveCell 10, 2
Grid.InsertRows 10, 1
Check "nothing changed", Grid.MaxRow & Data.ChangeCount & Log() & Grid.CellText(10, 2), "655350名10"
TypeInto 10, 2, "十"
TypeInto 11, 2, "十一"
Grid.SetActiveCell 10, 2
Grid.InsertRows 10, 1
Check "each in its place", Grid.CellText(10, 2) & Grid.CellText(11, 2) & Grid.CellText(12, 2) & Log(), _
    "十十一名12(11,2)(10,2)"
Check "saved", Word(Data.Save) & Client("SELECT 号, 名 FROM 长 WHERE 名 NOT LIKE '名%'"), "True10|十/11|十一"
Check "one more record", Data.AddRecord, 65536
Grid.InsertRows 10, 1
Check "cut, and brought back", Data.ChangeCount & "," & Grid.MaxRow, "1,65536"
Host.Log "end"
