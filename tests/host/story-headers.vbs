' A double click on a header asks for its text in a dialog, between two events.
Const Caption = "设置行列标题"
Dim cancelsBegin, cancelsEnd, dialog
Sub Grid_BeginLabelEdit(kind, index, cancel)
    cancel = cancelsBegin
End Sub
Sub Grid_EndLabelEdit(kind, index, text, cancel)
    cancel = cancelsEnd
End Sub
Sub Answer(text, button)
    Set dialog = Opened(Caption)
    If dialog Is Nothing Then Host.Log "FAILED no dialog"
    dialog.SetText 1003, text
    dialog.Press button
    Check "gone", Closed(Caption), True
    Host.Pump 0
End Sub
cancelsBegin = False
cancelsEnd = False
EvenSheet 20, 10
Host.Pump 0
Host.Watch

Host.DoubleClick 10, MiddleY(4)
Told "a row header", Array( _
    "grid WM_LBUTTONDOWN 10,90", "CellSelChanging(4, 1, 1)", "grid VeynorGrid_CellSelChange 4,1", _
    "CellSelChanged", "grid WM_LBUTTONUP 10,90", "MouseUp(1, 0, 10, 90)", _
    "grid WM_LBUTTONDBLCLK 10,90", "DblClick", "BeginLabelEdit(0, 4, False)")
Check "with the text that it has", Opened(Caption).GetText(1003), "4"
Answer "行标题", 1
Told "OK", Array("EndLabelEdit(0, 4, 行标题, False)", "Modified")
Check "is the new text", Grid.RowHeader(4), "行标题"
Host.DoubleClick MiddleX(3), 8
Told "a column header", Array( _
    "grid WM_LBUTTONDOWN 200,8", "CellSelChanging(4, 3, 1)", "grid VeynorGrid_CellSelChange 4,3", _
    "CellSelChanged", "grid WM_LBUTTONUP 200,8", "MouseUp(1, 0, 200, 8)", _
    "grid WM_LBUTTONDBLCLK 200,8", "DblClick", "BeginLabelEdit(1, 3, False)")
Answer "列标题", 1
Told "OK again", Array("EndLabelEdit(1, 3, 列标题, False)", "Modified")
Check "is its text", Grid.ColHeader(3), "列标题"
Host.DoubleClick MiddleX(3), 8
Host.Story
Answer "other", 2
Told "Cancel tells nothing", Array()
cancelsEnd = True
Host.DoubleClick MiddleX(3), 8
Host.Story
Answer "other", 1
Told "a host that refuses the text", Array("EndLabelEdit(1, 3, other, False)")
Check "keeps the old one", Grid.ColHeader(3), "列标题"
cancelsBegin = True
Host.DoubleClick MiddleX(3), 8
Told "a host that refuses the question", Array( _
    "grid WM_LBUTTONDOWN 200,8", "CellSelChanging(4, 3, 1)", "grid VeynorGrid_CellSelChange 4,3", _
    "CellSelChanged", "grid WM_LBUTTONUP 200,8", "MouseUp(1, 0, 200, 8)", _
    "grid WM_LBUTTONDBLCLK 200,8", "DblClick", "BeginLabelEdit(1, 3, False)", _
    "grid WM_LBUTTONUP 200,8", "MouseUp(1, 0, 200, 8)")
Check "has no dialog", Host.Dialog(Caption) Is Nothing, True
Host.DoubleClick 10, 8
Told "the corner has no text", Array( _
    "grid WM_LBUTTONDOWN 10,8", "grid WM_LBUTTONUP 10,8", "MouseUp(1, 0, 10, 8)", _
    "grid WM_LBUTTONDBLCLK 10,8", "DblClick", "grid WM_LBUTTONUP 10,8", "MouseUp(1, 0, 10, 8)")
Host.Log "end"
