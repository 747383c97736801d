' Another client changes a record between reading and saving: nothing of the save is written, and
' nothing that was typed is lost.
' databases: sqlite postgres
' sql: CREATE TABLE 价 (号 INTEGER PRIMARY KEY, 品 TEXT, 价 INTEGER);
' sql: INSERT INTO 价 VALUES (1, '纸', 10), (2, '笔', 20), (3, '墨', 30);
Const Statement = "SELECT 号, 品, 价 FROM 价 ORDER BY 号"
Query Statement
TypeInto 1, 3, "11"
TypeInto 2, 3, "22"
Client "UPDATE 价 SET 价 = 21 WHERE 号 = 2"
Grid.SetActiveCell 3, 1
Check "refused", Word(Data.Save), "False"
Check "the row is named", Data.Problem, "第 2 行: 记录已被他人修改或删除,请重新读取后再改"
Check "it is the active one", Active(), "2,1"
Check "nothing was written", Client("SELECT 价 FROM 价 ORDER BY 号"), "10/21/30"
Check "what was typed stays", Grid.CellText(1, 3) & Grid.CellText(2, 3) & Data.ChangeCount, "11222"
Check "the log stays", Log(), "(2,3)(1,3)"
Choose "S"
Check "the menu says so", Lines(Host.Boxes), "[VeyHost, 第 2 行: 记录已被他人修改或删除,请重新读取后再改, 16, ok]"

Check "rolled back", Word(Data.RollBack) & Data.ChangeCount & Log(), "True0"
Check "and read anew", Grid.CellText(1, 3) & Grid.CellText(2, 3), "1021"
Check "queried again", Word(Data.RunQuery(Statement)), "True"
TypeInto 1, 3, "11"
TypeInto 2, 3, "22"
Check "a second save", Word(Data.Save) & Client("SELECT 价 FROM 价 ORDER BY 号"), "True11/22/30"

' A change of another column of the record is no conflict.
TypeInto 3, 3, "33"
Client "UPDATE 价 SET 品 = '砚' WHERE 号 = 3"
Check "side by side", Word(Data.Save) & Client("SELECT 品, 价 FROM 价 WHERE 号 = 3"), "True砚|33"
Check "read again", Grid.CellText(3, 2), "砚"

' A record that is gone.
TypeInto 1, 3, "12"
Client "DELETE FROM 价 WHERE 号 = 1"
Check "changed, but gone", Word(Data.Save) & Data.Problem, "False第 1 行: 记录已被他人修改或删除,请重新读取后再改"
Data.RollBack
Check "seen as it is", Data.RecordCount & Grid.CellText(1, 2), "2笔"
Data.DeleteRecord 1
Client "UPDATE 价 SET 价 = 23 WHERE 号 = 2"
Check "deleted, but changed", Word(Data.Save) & Left(Data.Problem, 7), "False删除的记录 ("
Check "still to be deleted", Data.ChangeCount & Data.RecordCount, "11"
Data.RollBack
Check "back", Data.RecordCount, 2
Host.Log "end"
