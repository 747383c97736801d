' The connection is lost while there are changes: nothing that was typed goes, and the program lives.
' databases: postgres
' sql: CREATE TABLE 远 (号 INTEGER PRIMARY KEY, 名 TEXT);
' sql: INSERT INTO 远 SELECT i, '名' || i FROM generate_series(1, 20000) i;
Const Statement = "SELECT 号, 名 FROM 远 ORDER BY 号"
Query Statement
TypeInto 1, 2, "一"
Client "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE datname = current_database() AND pid <> pg_backend_pid()"
Check "not saved", Word(Data.Save), "False"
Check "it is told why", InStr(Data.Problem, "连接已中断") > 0, True
Check "what was typed stays", Grid.CellText(1, 2) & Data.ChangeCount & Log(), "一1(1,2)"
Grid.MakeCellVisible 15000, 1
Host.Pump 0
Check "what was not read is empty", Grid.CellText(15000, 2), ""
Host.Key 40
Check "the reason is told", Data.Problem <> "", True
TypeInto 15003, 2, "x"
Check "what cannot be told from a record is none's", Data.ChangeCount, 1
Host.Answer "no"
Check "no query", Word(Data.RunQuery(Statement)) & Lines(Host.Boxes), "False[VeyHost, 1 处修改尚未保存到数据库,是否保存?, 35, no]"
Host.Answer "no"
Dim again
again = Word(Data.Connect(Dsn))
Check "connected again", again & Data.Problem & Lines(Host.Boxes), "True[VeyHost, 1 处修改尚未保存到数据库,是否保存?, 35, no]"
Check "queried", Word(Data.RunQuery(Statement)) & Data.Problem, "True"
TypeInto 1, 2, "壹"
Check "saved", Word(Data.Save) & Client("SELECT 名 FROM 远 WHERE 号 = 1"), "True壹"
Host.Log "end"
