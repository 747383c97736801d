' 凭证分录：读出数据库中的记录，设好版面，连同语句存为 journal.grd。以后随时打开：
'
'     VeyHost.exe journal.grd /dsn "Driver=SQLite3;Database=journal.sqlite"
'
' 修改之后用“数据”菜单存回数据库。数据库由 samples/make-data 建立。
'
' Lays out the lines of accounting vouchers out of a database and saves the sheet with its statement as
' journal.grd. Data is the host's connection, Grid the control; docs/databases.md tells of both.
Option Explicit

Const Number = 1, Day_ = 2, Voucher = 3, Summary = 4, Account = 5, Debit = 6, Credit = 7, Upper = 8, Maker = 9

' 对齐方式：水平 1 左、2 中、4 右；垂直 256 中
Const Left_ = 1, Center = 2, Right_ = 4, Middle = 256

' 列名取自语句；大写金额由显示格式得出，它不是表中的列，只能看。
If Not Data.Connect("Driver=SQLite3;Database=" & Folder() & "/journal.sqlite") Then Fail
If Not Data.RunQuery("SELECT 序号, 日期, 凭证号, 摘要, 科目, 借方金额, 贷方金额, " & _
    "COALESCE(借方金额, 贷方金额) AS 大写金额, 制单 FROM 凭证 ORDER BY 序号") Then Fail

SetUpSheet
' 打开这个文件时，如果已连接数据库，就执行其中的语句。
Grid.RunQueryAfterSerialize = True
If Not Grid.SaveFile("journal.grd") Then Host.Quit 1

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
    widths = Array(44, 116, 122, 110, 150, 86, 86, 250, 60)
    For col = Number To Maker
        Grid.ColWidth(col) = widths(col - 1)
    Next

    ' 行号 0 表示整列。
    SetFormat Number, Center, 4, ""
    SetFormat Day_, Center, 3, "yyyy年mm月dd日"
    SetFormat Voucher, Left_, 4, ""
    SetFormat Summary, Left_, 4, ""
    SetFormat Account, Left_, 4, ""
    SetFormat Debit, Right_, 2, ""
    SetFormat Credit, Right_, 2, ""
    SetFormat Upper, Right_, 4, "[RMB_UPPER]"
    SetFormat Maker, Center, 4, ""
End Sub

' 数据类型：2 浮点数，3 日期值，4 字符型。
Sub SetFormat(col, hAlign, dataType, showFormat)
    Dim format
    Set format = CreateObject("VeyGrid.CellFormat")
    format.HAlign = hAlign
    format.VAlign = Middle
    format.DataType = dataType
    format.ShowFormat = showFormat
    If col = Number Or col = Upper Then
        format.ReadOnly = 1
        format.Background = RGB(243, 246, 249)
    End If
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
