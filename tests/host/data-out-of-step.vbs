' The sheet's own commands put rows and columns in and take them out: no text goes to another record,
' none is lost, and the user is told.
' databases: sqlite postgres
' sql: CREATE TABLE 物 (号 INTEGER PRIMARY KEY, 名 TEXT, 量 INTEGER);
' sql: INSERT INTO 物 VALUES (1, '甲', 10), (2, '乙', 20), (3, '丙', 30), (4, '丁', 40), (5, '戊', 50);
Const OutOfStep = "表页的行列与数据库的记录不再对应,已按记录恢复;已做的修改都还在。"
Const Key2 = 46
Query "SELECT 号, 名, 量 FROM 物 ORDER BY 号"
TypeInto 2, 2, "乙乙"
TypeInto 4, 2, "丁丁"
' Whatever happened to the sheet, it is as it was, and so are the changes.
Sub Restored(what)
    Check what & ": told", Left(Data.Problem, Len(OutOfStep)), OutOfStep
    Check what & ": rows and columns", Grid.MaxRow & "," & Grid.MaxCol, "5,3"
    Check what & ": texts", Grid.CellText(2, 2) & Grid.CellText(4, 2) & Grid.CellText(5, 1), "乙乙丁丁5"
    Check what & ": log", Log(), "(4,2)(2,2)"
    Check what & ": names", Grid.ColName(1) & Grid.ColName(2) & Grid.ColName(3), "号名量"
    Check what & ": changes", Data.ChangeCount, 2
    Check what & ": key and statement", Grid.KeyColumnFlag(1) & Grid.KeyColumnFlag(2) & Grid.DataSource, _
        "10SELECT 号, 名, 量 FROM 物 ORDER BY 号"
End Sub

Grid.InsertRows 1, 1
Restored "rows put in above"
Grid.InsertRows 3, 2
Restored "rows put in between"
Grid.InsertRows 6, 1
Restored "a row put in behind the last"
Grid.DeleteRows 1, 1
Restored "a row taken out above"
Grid.DeleteRows 2, 1
Restored "the row of a change taken out"
Grid.DeleteCols 1, 1
Restored "a column taken out"
Grid.InsertCols 1, 1
Restored "a column put in"
Grid.MaxRow = 3
Restored "fewer rows"
Grid.ResetModifiedLog
Grid.CellText(5, 3) = "x"
Restored "the log emptied"

' A text written by a script right behind it goes into the record that has the row now.
Grid.InsertRows 1, 1
Grid.ModifyCellText 5, 3, "50"
Grid.DeleteRows 1, 1
Restored "with a text that stands there already"

' Both in turn leave the number of rows, but a look at the sheet lies between.
Grid.InsertRows 2, 1
Grid.DeleteRows 5, 1
Restored "a row put in and one taken out"

' By hand: the menu's item for a row, the Delete key on a row's header, and on with typing at once.
Grid.SetActiveCell 1, 1
Grid.SendCommand 1004
TypeInto 5, 3, "55"
Check "typed behind a row that was put in", Data.ChangeCount & Grid.CellText(5, 3) & Log(), "355(5,3)(4,2)(2,2)"
Grid.SetSelection 2, 0, 2, 0
Host.Key Key2
TypeInto 1, 3, "11"
Check "typed behind a row that was taken out", Data.ChangeCount & Grid.CellText(1, 3) & Grid.CellText(2, 2), "411乙乙"
Check "the box of an interactive run is none of a script's", Lines(Host.Boxes), ""

Check "saved", Word(Data.Save) & Data.Problem, "True"
Check "each change in its record", Client("SELECT * FROM 物 ORDER BY 号"), _
    "1|甲|11/2|乙乙|20/3|丙|30/4|丁丁|40/5|戊|55"

' Without a change before it.
Grid.InsertRows 2, 1
Check "nothing to save", Word(Data.Save) & Data.ChangeCount, "True0"
Grid.DeleteRows 2, 1
TypeInto 2, 2, "二"
Check "saved", Word(Data.Save) & Client("SELECT 号, 名 FROM 物 WHERE 名 = '二'"), "True2|二"
Host.Log "end"
