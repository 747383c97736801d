' 全国的村：六十二万条记录，只有看到的部分在内存里。版面连同语句存为 villages.grd。
'
' The villages of China: of the 620,573 records only what is on view is kept in memory. Saves the sheet with
' its statement as villages.grd.
Option Explicit

Dim col, widths
If Not Data.Connect("Driver=SQLite3;Database=" & Folder() & "/villages.sqlite") Then Fail
If Not Data.RunQuery("SELECT 代码, 名称, 街道代码, 区代码, 市代码, 省代码 FROM 村 ORDER BY 代码") Then Fail

Grid.BackColor = RGB(255, 255, 255)
Grid.GridLinesColor = RGB(196, 206, 216)
Grid.DefCellHeight = 22
Grid.RowHeaderWidth = 64
widths = Array(130, 300, 110, 90, 80, 70)
For col = 1 To 6
    Grid.ColWidth(col) = widths(col - 1)
Next
Grid.RunQueryAfterSerialize = True
If Not Grid.SaveFile("villages.grd") Then Host.Quit 1

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
