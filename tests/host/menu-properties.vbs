' The menu's properties: four fields in a frame, what Apply, OK and Cancel make of them, and the file
' that the button beside the first one asks for. The frame must be the control's own.
Const PathField = 1031, BrowseButton = 1034, EditField = 1048, ModeField = 1049, SqlField = 1050, _
    ApplyButton = 103
Dim frame, file
Function Fields()
    Fields = frame.GetText(PathField) & "|" & frame.GetText(SqlField)
End Function
Function Stored()
    Stored = Grid.BkImage & "|" & Grid.DataSource & "|" & CInt(Grid.AllowEdit) & "|" & CInt(Grid.RowMode)
End Function
Sub Open(item)
    Grid.SendCommand item
    Set frame = Opened("VeyGrid Control|Grid")
    If frame Is Nothing Then Host.Log "FAILED no frame"
End Sub
Sub Leave(button)
    frame.Press button
    Check "gone", Closed("VeyGrid Control|Grid"), True
End Sub

Grid.BkImage = "没有的图象 |~.bmp"
Grid.DataSource = "SELECT 编号, 摘要 FROM 凭证"
Open 1021
Check "the fields hold the stored texts", Fields(), "没有的图象 |~.bmp|SELECT 编号, 摘要 FROM 凭证"
frame.Choose ModeField, 1
frame.Choose EditField, 0
frame.Press ApplyButton
Check "Apply stores", Stored(), "没有的图象 |~.bmp|SELECT 编号, 摘要 FROM 凭证|0|-1"
Check "and leaves the frame open", Opened("VeyGrid Control|Grid") Is Nothing, False
frame.Choose EditField, 1
Leave 2
Check "Cancel keeps what was applied and drops the rest", CInt(Grid.AllowEdit) & CInt(Grid.RowMode), "0-1"

' By the number of the menu itself.
Open 42320
frame.SetText PathField, "图.bmp"
frame.SetText SqlField, "SELECT 金额 FROM 凭证"
Leave 1
Check "OK stores texts", Stored(), "图.bmp|SELECT 金额 FROM 凭证|0|-1"
Check "and the statement is parsed", Grid.ColName(1), "金额"

Open 1021
frame.Press BrowseButton
Set file = Opened(OpenCaptions())
Check "the button asks for a file", file Is Nothing, False
file.Press 2
Check "that is put off", Closed(OpenCaptions()), True
Check "the field stays", frame.GetText(PathField), "图.bmp"
Host.File(InWork("背景 龘.bmp")).Text = "no picture"
frame.Press BrowseButton
Set file = Opened(OpenCaptions())
file.SetText 1148, InWork("背景 龘.bmp")
file.Press 1
Check "or named", Closed(OpenCaptions()), True
Check "the path is in the field", frame.GetText(PathField), InWork("背景 龘.bmp")
Check "not yet in the control", Grid.BkImage, "图.bmp"
Leave 1
Check "now it is, though it is no picture", Grid.BkImage, InWork("背景 龘.bmp")
Check "no message", Lines(Host.Boxes), ""
Host.Log "end"
