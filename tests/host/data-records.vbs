' Records are added and deleted by the data menu; what was typed stays with its record.
' databases: sqlite postgres
' sql: CREATE TABLE 人 (号 INTEGER PRIMARY KEY, 名 TEXT NOT NULL, 级 INTEGER DEFAULT 5);
' sql: INSERT INTO 人 VALUES (1, '甲', 1), (2, '乙', 2), (3, '丙', 3), (4, '丁', 4);
Query "SELECT 号, 名, 级 FROM 人 ORDER BY 号"
TypeInto 4, 2, "丁丁"
TypeInto 1, 2, "甲甲"
Grid.SetActiveCell 2, 1
Choose "D"
Check "one record less", Data.RecordCount & "," & Grid.MaxRow, "3,3"
Check "those below came up", Grid.CellText(2, 2) & Grid.CellText(3, 2), "丙丁丁"
Check "the log with them", Log(), "(3,2)(1,2)"
Check "the active cell stays", Active(), "2,1"

Choose "A"
Check "a record more", Data.RecordCount & "," & Grid.MaxRow, "4,4"
Check "it is the active one", Active(), "4,1"
Check "and empty", Grid.CellText(4, 1) & Grid.CellText(4, 2), ""
Host.TypeText "9"
Host.Key 13
TypeInto 4, 2, "戊"
Check "filled", Grid.CellText(4, 1) & Grid.CellText(4, 2), "9戊"
Check "by a script", Data.AddRecord, 5
TypeInto 5, 1, "8"
TypeInto 5, 2, "己"
Check "and taken out again", Word(Data.DeleteRecord(5)) & Data.RecordCount, "True4"
Check "there is no such record", Word(Data.DeleteRecord(5)) & Word(Data.DeleteRecord(0)) & Data.Problem, "FalseFalse没有这条记录。"
Check "two texts, one record less, one more", Data.ChangeCount, 4
Check "not written yet", Client("SELECT count(*) FROM 人"), "4"

Choose "S"
Check "saved without a word", Lines(Host.Boxes) & Data.ChangeCount & Log(), "0"
Check "written", Client("SELECT * FROM 人 ORDER BY 号"), "1|甲甲|1/3|丙|3/4|丁丁|4/9|戊|5"
Check "what the table gave is on view", Grid.CellText(4, 3), "5"

' Down to the last record, and on from none.
Dim row
For row = 4 To 1 Step -1
    Data.DeleteRecord 1
Next
Check "no record", Data.RecordCount & "," & Grid.MaxRow, "0,0"
Check "saved", Word(Data.Save) & Client("SELECT count(*) FROM 人"), "True0"
Check "the first one", Data.AddRecord & Active(), "11,1"
TypeInto 1, 1, "1"
TypeInto 1, 2, "首"
Check "saved", Word(Data.Save) & Client("SELECT * FROM 人"), "True1|首|5"
Host.Log "end"
