' The data menu by hand: connecting, querying, and the questions about changes.
' databases: sqlite postgres
' sql: CREATE TABLE 单 (号 INTEGER PRIMARY KEY, 名 TEXT);
' sql: INSERT INTO 单 VALUES (1, '甲'), (2, '乙');
Const Question = "[VeyHost, 1 处修改尚未保存到数据库,是否保存?, 35, "
Dim dialog, box

Choose "C"
Set dialog = Opened("连接数据库")
dialog.SetText 1001, "Driver=None"
dialog.Press 1
Check "a connection that fails is told", BoxTold(), True
Check "and there is none", Word(Data.RunQuery("SELECT 1")) & Data.Problem, "False没有连接数据库。"
Choose "C"
Set dialog = Opened("连接数据库")
Check "it was remembered", dialog.GetText(1001), "Driver=None"
dialog.SetText 1001, Dsn
dialog.Press 1
Check "gone", Closed("连接数据库"), True
Check "connected", Data.Problem & Lines(Host.Boxes), ""

Choose "Q"
Set dialog = Opened("执行查询")
dialog.SetText 1001, "SELECT 号, 名" & vbCrLf & "FROM 单 ORDER BY 号"
dialog.Press 1
Check "gone", Closed("执行查询"), True
Check "shown", Data.RecordCount & Grid.CellText(2, 2), "2乙"

' Changes hold the user until he says what is to become of them.
TypeInto 1, 2, "丙"
Host.Answer "cancel"
Host.Key 116
Check "F5 asks", Lines(Host.Boxes), Question & "cancel]"
Check "and stays", Grid.CellText(1, 2) & Data.ChangeCount, "丙1"
Host.Answer "no"
Host.Key 116
Check "asked", Lines(Host.Boxes), Question & "no]"
Check "queried again", Grid.CellText(1, 2) & Data.ChangeCount, "甲0"
TypeInto 1, 2, "丙"
Host.Answer "yes"
Host.Key 116
Check "asked", Lines(Host.Boxes), Question & "yes]"
Check "saved and queried again", Client("SELECT 名 FROM 单 WHERE 号 = 1") & Grid.CellText(1, 2), "丙丙"

' A text that is still being typed counts.
Grid.SetActiveCell 2, 2
Host.TypeText "己"
Host.Answer "no"
Host.Key 116
Check "an open edit is asked about", Lines(Host.Boxes), Question & "no]"
Check "and gone with the answer", Grid.CellText(2, 2) & Grid.EndEdit(), "乙1"
Grid.SetActiveCell 2, 1
Host.TypeText "x"
Host.Key 116
Check "a text that is refused keeps the user", InStr(Lines(Host.Boxes), "正在编辑的单元格内容无效") > 0, True
Host.Key 8
Host.TypeText "2"
Host.Key 13
Check "the same text again is no change", Data.ChangeCount, 0

Grid.SaveFile "data.grd"
Grid.Modified = False
TypeInto 1, 2, "丁"
Client "UPDATE 单 SET 名 = '戊' WHERE 号 = 1"
Host.Answer "yes"
Host.Answer "ok"
Host.Key Asc("O"), 2
Check "a save that fails keeps the user", Lines(Host.Boxes), Question & "yes]" & _
    "[VeyHost, 第 1 行: 记录已被他人修改或删除,请重新读取后再改, 16, ok]"
Check "with what was typed", Grid.CellText(1, 2), "丁"
Host.Answer "cancel"
Host.Key Asc("N"), 2
Check "a new sheet asks too", Lines(Host.Boxes), Question & "cancel]"
Host.Answer "no"
Host.Answer "no"
Choose "C"
Set dialog = Opened("连接数据库")
dialog.Press 2
Check "left", Closed("连接数据库"), True
Check "not asked twice", Lines(Host.Boxes), Question & "no]"
Host.Log "end"

Function BoxTold()
    Dim turn
    For turn = 1 To 400
        box = Lines(Host.Boxes)
        If box <> "" Then Exit For
        Host.Pump 50
    Next
    BoxTold = InStr(box, "[VeyHost, ") = 1
End Function
