' What a program outside of Wine owns is pasted whole, under every code page.
' What stands in the third row before each paste.
Dim below
' The system hears of a new owner in its own time; until then the former one's text is pasted.
Sub PasteSoon(what, row, col, wanted)
    Dim turn
    For turn = 1 To 600
        Grid.CellText(3, 1) = below
        Grid.EditPaste
        If Grid.CellText(row, col) = wanted Then Exit For
        Host.Pump 100
    Next
    Check what, Grid.CellText(row, col), wanted
End Sub
Sub Own(target, format)
    Outside "printf '" & format & "' | xclip -i -selection clipboard -t " & target & " >own.log 2>&1"
End Sub
Function Sheet(rows, cols)
    Dim row, col
    Sheet = ""
    For row = 1 To rows
        For col = 1 To cols
            Sheet = Sheet & Grid.CellText(row, col) & "|"
        Next
    Next
End Function

Grid.MaxRow = 30
Grid.MaxCol = 6
Grid.SetActiveCell 1, 1
Own "UTF8_STRING", "甲\t乙\n龘 ~\t{丙}\n"
PasteSoon "tabs and line feeds", 2, 2, "{丙}"
Check "all of it, and an empty cell behind the last line end", Sheet(3, 2), "甲|乙|龘 ~|{丙}|||"
below = "overwritten"
Own "UTF8_STRING", "一\t二\r\n三\t四\r\n"
PasteSoon "carriage returns", 1, 1, "一"
Check "all of it", Sheet(3, 2), "一|二|三|四|||"
below = "kept"
Own "UTF8_STRING", "五\n六"
PasteSoon "no last line end", 2, 1, "六"
Check "nothing behind it", Sheet(3, 2), "五|二|六|四|kept||"
Own "STRING", "plain\ttext\nof others"
PasteSoon "STRING", 2, 1, "of others"
Check "all of it", Sheet(3, 2), "plain|text|of others|四|kept||"
Own "UTF8_STRING", "a\360\237\230\200b"
PasteSoon "a character that the sheet cannot hold", 1, 1, "a?b"
Own "UTF8_STRING", "菜单"
Grid.CellText(1, 1) = ""
Dim turn
For turn = 1 To 600
    Grid.SendCommand 1010
    If Grid.CellText(1, 1) = "菜单" Then Exit For
    Host.Pump 100
Next
Check "the menu's command", Grid.CellText(1, 1), "菜单"

' Ctrl+V in the editor.
Host.Click MiddleX(3), 50
Grid.StartEdit
Host.Key 86, 2
Host.Key 13
Check "Ctrl+V in the editor", Grid.CellText(2, 3), "菜单"

' A megabyte, in lines of two cells.
Outside "seq 1 20000 | sed 's/.*/第&行的文字在这里\t龘&/' >large.txt; wc -c <large.txt; " & _
    "xclip -i -selection clipboard -t UTF8_STRING large.txt >own.log 2>&1"
Grid.SetActiveCell 1, 1
PasteSoon "a megabyte", 20000, 2, "龘20000"
Check "its middle", Grid.CellText(10000, 1), "第10000行的文字在这里"
Check "its rows", Grid.CellText(20001, 1) & Grid.CellText(20001, 2), ""
Host.Log "end"
