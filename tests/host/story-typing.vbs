' A typed value goes the whole road: the first key opens the editor and replaces the text, whatever
' takes the focus from it commits, and then the cell moves.
EvenSheet 20, 6
Grid.EnterGoDown = True
Grid.CellText(2, 2) = "old"
Grid.SetActiveCell 2, 2
Host.Pump 0
Host.Watch

Host.TypeText "n"
Told "the first key opens the editor and goes there", Array( _
    "grid WM_KEYDOWN 231", "KeyDown(231, 0)", "StartingEdit(2, 2, 1)", "edit WM_CHAR 110")
Check "it stands for the old text", Grid.CellText(2, 2), "old"
Host.TypeText "e"
Told "the next one finds the editor open", Array("edit WM_KEYDOWN 231", "edit WM_CHAR 101")
Host.Key 13
Told "Enter takes the focus, which commits, then the cell moves down", Array( _
    "grid VeynorGrid_CtrlKeyDown 13", "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", _
    "EndEdit(2, 2, ne, 0)", "Modified", "edit WM_CLOSE", "CellSelChanging(3, 2, 1)", _
    "grid VeynorGrid_CellSelChange 3,2", "CellSelChanged", "KeyUp(13, 0)")
Check "stored, without the old text", Grid.CellText(2, 2), "ne"

Host.TypeText "中"
Told "a Chinese character opens as well", Array( _
    "grid WM_KEYDOWN 231", "KeyDown(231, 0)", "StartingEdit(3, 2, 1)", "edit WM_CHAR 20013")
Host.Key 9
Told "Tab commits and moves right", Array( _
    "grid VeynorGrid_CtrlKeyDown 9", "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", _
    "EndEdit(3, 2, 中, 0)", "Modified", "edit WM_CLOSE", "CellSelChanging(3, 3, 1)", _
    "grid VeynorGrid_CellSelChange 3,3", "CellSelChanged", "KeyUp(9, 0)")
Check "the character is stored", Grid.CellText(3, 2), "中"

Host.TypeText "a"
Host.Story
Host.Key 13, 2
Told "Ctrl+Enter is the editor's", Array( _
    "edit WM_KEYDOWN 17", "edit WM_KEYDOWN 13", "edit WM_CHAR 10")
Host.Key 9, 2
Told "and so is Ctrl+Tab", Array("edit WM_KEYDOWN 17", "edit EM_REPLACESEL")
Host.Click MiddleX(5), MiddleY(6)
Told "a press on another cell takes the focus: commit, then the press", Array( _
    "grid WM_LBUTTONDOWN 320,130", "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", _
    "EndEdit(3, 3, a" & vbCrLf & Chr(9) & ", 0)", "Modified", "edit WM_CLOSE", "CellSelChanging(6, 5, 1)", _
    "grid VeynorGrid_CellSelChange 6,5", "CellSelChanged", "grid WM_LBUTTONUP 320,130", _
    "MouseUp(1, 0, 320, 130)")
Check "a new line and a tab in the text", Grid.CellText(3, 3), "a" & vbCrLf & Chr(9)

Host.Key 13, 2
Told "Ctrl+Enter without an edit is an Enter", Array( _
    "grid WM_KEYDOWN 17", "KeyDown(17, 2)", "grid VeynorGrid_CtrlKeyDown 13", _
    "CellSelChanging(7, 5, 1)", "grid VeynorGrid_CellSelChange 7,5", "CellSelChanged", _
    "KeyUp(13, 2)", "KeyUp(17, 0)")
Grid.StartEdit
Host.Story
Host.Key 39
Host.Key 40
Host.Key 33
Host.Key 36
Told "arrows, page keys and Home stay in the editor", Array( _
    "edit WM_KEYDOWN 39", "edit WM_KEYDOWN 40", "edit WM_KEYDOWN 33", "edit WM_KEYDOWN 36")
Host.Key 13
Told "an untouched text is not checked, tells no event and is not stored", Array( _
    "grid VeynorGrid_CtrlKeyDown 13", "grid WM_COMMAND 1000 EN_KILLFOCUS", "edit EM_GETMODIFY", _
    "edit WM_CLOSE", "CellSelChanging(8, 5, 1)", "grid VeynorGrid_CellSelChange 8,5", _
    "CellSelChanged", "KeyUp(13, 0)")

Grid.AllowEdit = False
Host.Story
Host.TypeText "q"
Told "without AllowEdit a key opens nothing", Array( _
    "grid WM_KEYDOWN 231", "KeyDown(231, 0)", "grid WM_CHAR 113", "KeyUp(231, 0)")
Host.Log "end"
