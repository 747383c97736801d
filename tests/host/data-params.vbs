' The parameter dialog: names and values by the focus of its fields.
Const Caption = "参数设置"
Const Question = "[Veynor Grid Control, 该参数不存在,是否增加该参数?, 36, "
Const KeyEnter = 13
Const KeyEscape = 27
Const KeyTab = 9
Const ModShift = 1
Dim dialog, modified
Sub Grid_Modified()
    modified = modified + 1
End Sub
Function Params()
    Dim pos, name, value
    pos = Grid.GetFirstParamPos()
    Do While Grid.GetNextParam(pos, name, value)
        Params = Params & "[" & name & "=" & value & "]"
    Loop
End Function

Grid.Param("单位") = "万元"
Grid.Param("Rate") = "5%"
modified = 0
Grid.SendCommand 1017
Set dialog = Opened(Caption)
Check "its buttons", dialog.GetText(2) & "|" & dialog.GetText(1001), "退  出|删  除"
dialog.Choose 1030, 1
Check "a value", dialog.GetText(1045), "5%"
dialog.Choose 1030, 0
Check "a Chinese one", dialog.GetText(1045), "万元"

' A value is stored when its field is left.
Host.Key KeyTab, 0
Host.TypeText "千元|龘"
Check "not yet", Params(), "[单位=万元][Rate=5%]"
Host.Key KeyTab, ModShift
Check "stored", Params(), "[单位=千元|龘][Rate=5%]"
Check "Modified fired", modified, 1

' A known name in another case is chosen.
dialog.SetText 1030, ""
Host.TypeText "RATE"
Host.Key KeyTab, 0
Check "found", dialog.GetText(1030) & "," & dialog.GetText(1045), "Rate,5%"
Check "not asked", Lines(Host.Boxes), ""

' A new name: No forgets it, Yes adds it with what stands beside it.
Host.Key KeyTab, ModShift
dialog.SetText 1030, ""
Host.TypeText "日期"
Host.Answer "no"
Host.Key KeyTab, 0
Check "asked", Lines(Host.Boxes), Question & "no]"
Check "cleared", dialog.GetText(1030) & dialog.GetText(1045), ""
dialog.SetText 1045, "2003%<x>%"
Host.TypeText "日期"
Host.Answer "yes"
Host.Key KeyTab, 0
Check "asked again", Lines(Host.Boxes), Question & "yes]"
Check "added", Params(), "[单位=千元|龘][Rate=5%][日期=2003%<x>%]"
Check "the value is empty", dialog.GetText(1045), ""
Host.TypeText "2004"
Host.Key KeyTab, 0
Check "and typed anew", Params(), "[单位=千元|龘][Rate=5%][日期=2004]"

' Deleting with no selection does nothing; with one the parameter goes.
dialog.Choose 1030, -1
modified = 0
dialog.Press 1001
Check "nothing chosen", Params(), "[单位=千元|龘][Rate=5%][日期=2004]"
dialog.Choose 1030, 1
dialog.Press 1001
Host.Pump 0
Check "deleted", Params(), "[单位=千元|龘][日期=2004]"
Check "without Modified", modified, 0
Check "fields empty", dialog.GetText(1030) & dialog.GetText(1045), ""

' Left by Enter with a new name in its field, nothing is asked.
dialog.Press 2
Check "gone by its button", Closed(Caption), True
Grid.SendCommand 42316
Set dialog = Opened(Caption)
Host.TypeText "new"
Check "a new name", dialog.GetText(1030), "new"
Host.Key KeyEnter, 0
Check "gone", Closed(Caption), True
Check "no box", Lines(Host.Boxes), ""
' Left by Esc, a changed value is stored all the same: there is no cancelling.
Grid.SendCommand 42316
Set dialog = Opened(Caption)
dialog.Choose 1030, 0
Host.Key KeyTab, 0
Host.TypeText "元"
Host.Key KeyEscape, 0
Check "gone by Esc", Closed(Caption), True
Check "stored in leaving", Params(), "[单位=元][日期=2004]"
Host.Log "end"
