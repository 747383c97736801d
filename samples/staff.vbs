' 员工表：读出数据库中的记录，设好版面，连同语句存为 staff.grd。以后随时打开：
'
'     VeyHost.exe staff.grd /dsn "Driver=SQLite3;Database=staff.sqlite"
'
' 修改之后用“数据”菜单存回数据库。数据库由 samples/make-data 建立。
'
' Lays out a list of staff out of a database and saves the sheet with its statement as staff.grd.
Option Explicit

Const Number = 1, Name = 2, Sex = 3, Department = 4, Post = 5, Since = 6, Salary = 7, Remark = 8

' 对齐方式：水平 1 左、2 中、4 右；垂直 256 中
Const Left_ = 1, Center = 2, Right_ = 4, Middle = 256

' 列名取自语句。
If Not Data.Connect("Driver=SQLite3;Database=" & Folder() & "/staff.sqlite") Then Fail
If Not Data.RunQuery("SELECT 工号, 姓名, 性别, 部门, 职务, 入职日期, 月薪, 备注 FROM 员工 ORDER BY 工号") Then Fail

SetUpSheet
' 打开这个文件时，如果已连接数据库，就执行其中的语句。
Grid.RunQueryAfterSerialize = True
If Not Grid.SaveFile("staff.grd") Then Host.Quit 1

Sub SetUpSheet()
    Dim col, widths
    Grid.BackColor = RGB(255, 255, 255)
    Grid.ForeColor = RGB(31, 41, 55)
    Grid.GridLinesColor = RGB(196, 206, 216)
    Grid.DefCellHeight = 24
    Grid.ColHeaderHeight = 26
    Grid.RowHeaderWidth = 44
    ' 回车到右边的单元格。
    Grid.EnterGoDown = False
    widths = Array(60, 110, 48, 96, 96, 126, 96, 160)
    For col = Number To Remark
        Grid.ColWidth(col) = widths(col - 1)
    Next

    ' 行号 0 表示整列。
    SetFormat Number, Center, 1, ""
    SetFormat Name, Left_, 4, ""
    SetFormat Sex, Center, 4, ""
    SetFormat Department, Left_, 4, ""
    SetFormat Post, Left_, 4, ""
    SetFormat Since, Center, 3, "yyyy年mm月dd日"
    SetFormat Salary, Right_, 2, ""
    SetFormat Remark, Left_, 4, ""
End Sub

' 数据类型：1 整数，2 浮点数，3 日期值，4 字符型。
Sub SetFormat(col, hAlign, dataType, showFormat)
    Dim format
    Set format = CreateObject("VeyGrid.CellFormat")
    format.HAlign = hAlign
    format.VAlign = Middle
    format.DataType = dataType
    format.ShowFormat = showFormat
    Set Grid.CellFormat(0, col) = format
End Sub

' 当前目录，写成数据库驱动程序认识的路径。
Function Folder()
    Folder = CreateObject("Scripting.FileSystemObject").GetAbsolutePathName(".")
    ' Wine 的 Z: 是本机的根目录，而驱动程序是本机的程序。
    If Left(Folder, 2) = "Z:" Then Folder = Replace(Mid(Folder, 3), "\", "/")
End Function

Sub Fail()
    Host.Log Data.Problem
    Host.Quit 1
End Sub
