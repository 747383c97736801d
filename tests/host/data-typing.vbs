' A query is shown, typed into, and saved; the database's own client reads back what was typed.
' databases: sqlite postgres
' sql: CREATE TABLE 账 (号 INTEGER PRIMARY KEY, 摘要 TEXT NOT NULL, 日期 DATE, 金额 NUMERIC(12,2), 量 INTEGER);
' sql: INSERT INTO 账 VALUES (1, '报销', '2026-01-05', 12.50, 3), (2, '购货', '2026-02-06', NULL, 4), (3, '还款', NULL, 7, 5);
Const Box = "[Veynor Grid Control, 输入的数据非法!, 64, ok]"

Check "rows and columns", Query("SELECT 号, 摘要, 日期, 金额, 量 FROM 账 ORDER BY 号"), "3,5"
Check "the statement is the sheet's", Grid.DataSource, "SELECT 号, 摘要, 日期, 金额, 量 FROM 账 ORDER BY 号"
Check "names", Grid.ColName(2) & Grid.ColHeader(4), "摘要金额"
Check "texts", Grid.CellText(1, 2) & Grid.CellText(1, 3) & Grid.CellText(2, 4), "报销2026-01-05"
Check "column types", Grid.ColType(1) & Grid.ColType(2) & Grid.ColType(3) & Grid.ColType(4), "2132"
Check "the key", Grid.KeyColumnFlag(1) & Grid.KeyColumnFlag(2), "10"
Check "changes are logged by cells", Grid.ModifiedLog, 3
Check "nothing changed yet", Data.ChangeCount & Log(), "0"

TypeInto 2, 2, "中文~龘"
Check "what was typed is on view", Grid.CellText(2, 2), "中文~龘"
Check "Enter went down", Active(), "3,2"
TypeInto 2, 4, "99.75"
TypeInto 3, 3, "2026-3-9"
Check "three changes", Data.ChangeCount, 3
Check "three entries", Log(), "(3,3)(2,4)(2,2)"
Check "nothing is written before", Client("SELECT 摘要 FROM 账 WHERE 号 = 2"), "购货"

' A text that is no number does not get into a record.
Grid.SetActiveCell 1, 5
Host.TypeText "x"
Host.Key 13
Check "refused", Lines(Host.Boxes), Box
Check "the record is as it was", Grid.CellText(1, 5) & " " & Data.ChangeCount, "3 3"
Check "no command runs with it", Word(Data.Save) & Data.Problem, "False正在编辑的单元格内容无效,请先改正。"
Host.Key 8
Host.TypeText "8"
Host.Key 13
Check "a number passes", Grid.CellText(1, 5) & " " & Data.ChangeCount, "8 4"

' What a script logs counts as typed; what it only puts there does not.
Grid.ModifyCellText 1, 2, "脚本|写入"
Check "logged by a script", Grid.CellText(1, 2) & " " & Data.ChangeCount, "脚本|写入 5"
Grid.CellText(3, 2) = "x"
Check "not logged", Grid.CellText(3, 2) & " " & Data.ChangeCount, "还款 5"
Grid.ModifyCellText 3, 2, "还款"
Check "logged, with the text that stands there", Data.ChangeCount, 5

Check "saved", Word(Data.Save) & Data.Problem, "True"
Check "nothing is left to save", Data.ChangeCount & Log(), "0"
Check "written", Client("SELECT * FROM 账 ORDER BY 号"), _
    "1|脚本|写入|2026-01-05|" & Two("12.5") & "|8/2|中文~龘|2026-02-06|99.75|4/3|还款|2026-03-09|" & Two("7") & "|5"
Check "read again", Grid.CellText(2, 2) & Grid.CellText(1, 5), "中文~龘8"
Check "an emptied cell that may be empty", Emptied(), "True"
Check "is NULL", Client("SELECT count(*) FROM 账 WHERE 金额 IS NULL AND 号 = 1"), "1"
Host.Log "end"

Function Two(number)
    Two = number
    If Database = "postgres" Then Two = Replace(FormatNumber(number, 2, True, False, False), ",", ".")
End Function
Function Emptied()
    Grid.ModifyCellText 1, 4, ""
    Emptied = Word(Data.Save) & Data.Problem
End Function
