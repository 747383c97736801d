' The database refuses a statement: all stays as it was until the change is put right or taken back.
' databases: sqlite postgres
' sql: CREATE TABLE 款 (号 INTEGER PRIMARY KEY, 名 TEXT NOT NULL, 数 INTEGER CHECK (数 > 0), 倍 INTEGER);
' sql: INSERT INTO 款 VALUES (1, '甲', 1, 10), (2, '乙', 2, 20);
Query "SELECT 号, 名, 数, 倍 * 2 AS 双 FROM 款 ORDER BY 号"

TypeInto 1, 2, "甲甲"
TypeInto 2, 3, "-5"
Check "CHECK", Word(Data.Save) & Left(Data.Problem, 16), "False第 2 行: 数据库拒绝保存: "
Check "the first row is not written either", Client("SELECT 名, 数 FROM 款 ORDER BY 号"), "甲|1/乙|2"
Check "nothing is lost", Data.ChangeCount & Log() & Grid.CellText(2, 3), "2(2,3)(1,2)-5"
TypeInto 2, 3, "5"
Check "put right", Word(Data.Save) & Client("SELECT 名, 数 FROM 款 ORDER BY 号"), "True甲甲|1/乙|5"

Data.AddRecord
TypeInto 3, 1, "3"
Check "NOT NULL", Word(Data.Save) & Left(Data.Problem, 16), "False第 3 行: 数据库拒绝保存: "
Check "still there", Data.RecordCount & Grid.CellText(3, 1) & Data.ChangeCount, "331"
Choose "R"
Check "rolled back by the menu", Lines(Host.Boxes) & Data.RecordCount & Data.ChangeCount & Log(), "20"

Data.AddRecord
TypeInto 3, 1, "1"
TypeInto 3, 2, "再"
Check "a key that is taken", Word(Data.Save) & Left(Data.Problem, 16), "False第 3 行: 数据库拒绝保存: "
Data.RollBack
TypeInto 1, 4, "7"
Check "a column that is computed", Word(Data.Save) & Data.Problem, "False第 1 行: 列 双 不是表中的列,不能修改"
Data.RollBack
Check "as read", Grid.CellText(1, 4), "20"
Grid.ModifiedLog = 2
TypeInto 1, 2, "列"
Check "a log of columns", Word(Data.Save) & Data.Problem, "False列方式的修改记录不能保存,请用行方式或单元格方式"
Data.RollBack
Grid.ModifiedLog = 3

Check "no statement", Word(Data.RunQuery("SELECT 无 FROM 款")) & Word(Data.Problem <> ""), "FalseTrue"
Check "what was on view stays", Data.RecordCount & Grid.CellText(1, 2), "2甲甲"
Check "of two tables", Word(Data.RunQuery("SELECT a.号, b.名 FROM 款 a JOIN 款 b ON a.号 = b.号 ORDER BY 1")), "True"
TypeInto 1, 2, "x"
Check "read only", Word(Data.Save) & Data.Problem, "False第 1 行: 语句不是单个表的简单查询,只能读,不能保存"
Host.Log "end"
