' 用脚本填写一张记账凭证，并存为当前目录下的 voucher.grd：
'
'     VeyHost.exe /script voucher.vbs
'
' Grid 是表格控件本身。其他宿主（VB、C++、网页）中的写法完全相同，只是控件对象的来源不同。
' 各成员的说明见 docs/automation.zh.md。
'
' Fills in an accounting voucher and saves it as voucher.grd in the current folder. Grid is the control;
' the members are told in docs/automation.md.
Option Explicit

Const TitleRow = 1, SheetRow = 2, HeadRow = 3, FirstEntry = 4
Const Summary = 1, Account = 2, Detail = 3, Debit = 4, Credit = 5, Posted = 6

' 对齐方式：水平 1 左、2 中、4 右；垂直 256 中
Const Left_ = 1, Center = 2, Right_ = 4, Middle = 256

Dim Ink, Frame, HeadBack, TotalBack
Ink = RGB(31, 41, 55)
Frame = RGB(46, 125, 50)
HeadBack = RGB(226, 240, 217)
TotalBack = RGB(255, 248, 220)

Dim Entries, LastEntry, TotalRow, SignRow
Entries = Array( _
    "报销销售部差旅费|管理费用|差旅费|3680.50|", _
    "购买办公用品|管理费用|办公费|1245.00|", _
    "购入服务器一台|固定资产|电子设备|28600.00|", _
    "购入服务器进项税额|应交税费|应交增值税（进项税额）|3718.00|", _
    "支付设备及办公用品款|银行存款|工商银行城东支行||32318.00", _
    "冲销欧阳静出差借款|其他应收款|欧阳静||4925.50")
LastEntry = FirstEntry + UBound(Entries)
TotalRow = LastEntry + 1
SignRow = TotalRow + 1

SetUpSheet
FillTitle
FillEntries
FillTotal
FillSignatures

' 填写完毕：当前单元格放在第一条分录，清除修改标志，存盘。
Grid.SetActiveCell FirstEntry, Summary
Grid.Modified = False
If Not Grid.SaveFile("voucher.grd") Then Host.Quit 1

' 表页的大小、行高、列宽、标题，以及整页和整列的默认格式。
Sub SetUpSheet()
    Dim col, widths, names
    Grid.MaxRow = SignRow
    Grid.MaxCol = Posted
    Grid.BackColor = RGB(255, 255, 255)
    Grid.ForeColor = Ink
    Grid.GridLinesColor = RGB(169, 199, 169)
    Grid.DefCellHeight = 28
    Grid.RowHeaderWidth = 44
    Grid.ColHeaderHeight = 22
    Grid.ShowDefRowHeader = False
    ' 用户修改过的单元格记入修改日志，供宿主保存到数据库。
    Grid.ModifiedLog = 3

    widths = Array(178, 104, 262, 112, 112, 44)
    ' 列名就是数据字段名，可以用 GetCellTextByColName 按名称读写。
    names = Array("摘要", "总账科目", "明细科目", "借方金额", "贷方金额", "记账")
    For col = Summary To Posted
        Grid.ColWidth(col) = widths(col - 1)
        Grid.ColName(col) = names(col - 1)
    Next

    ' 行号 0 表示整列：没有自己格式的单元格都用列的格式。
    SetFormat 0, Summary, Left_, 4
    SetFormat 0, Account, Left_, 4
    SetFormat 0, Detail, Left_, 4
    SetFormat 0, Debit, Right_, 2
    SetFormat 0, Credit, Right_, 2
    SetFormat 0, Posted, Center, 4
End Sub

' 凭证的名称、单位、日期和编号。
Sub FillTitle()
    Dim format
    Grid.RowHeight(TitleRow) = 46
    Grid.CellText(TitleRow, Detail) = "记 账 凭 证"
    Set format = NewFormat(Center, 4)
    format.Font = FontBytes(28, 700, SimHei)
    format.Foreground = Frame
    format.ReadOnly = 1
    Set Grid.CellFormat(TitleRow, Detail) = format

    Grid.CellText(SheetRow, Summary) = "单位：维诺贸易有限公司"
    ' 日期按“20260731”保存，按显示格式显示为“2026年07月31日”。
    Grid.CellText(SheetRow, Detail) = "20260731"
    Set format = NewFormat(Center, 3)
    format.ShowFormat = "YYYY年MM月DD日"
    Set Grid.CellFormat(SheetRow, Detail) = format
    Grid.CellText(SheetRow, Debit) = "附单据 6 张"
    SetFormat SheetRow, Debit, Right_, 4
    Grid.CellText(SheetRow, Credit) = "记字第0128号"
    SetFormat SheetRow, Credit, Right_, 4
    Grid.Param("单位") = "维诺贸易有限公司"
    Grid.Param("期间") = "2026-07"
End Sub

' 表头和各条分录。
Sub FillEntries()
    Dim row, col, format
    Set format = NewFormat(Center, 4)
    format.Font = FontBytes(16, 700, SimSun)
    format.Background = HeadBack
    format.Foreground = Frame
    format.ReadOnly = 1
    For col = Summary To Posted
        Grid.CellText(HeadRow, col) = Grid.ColName(col)
        ' 写入时复制格式，同一个对象可以反复使用。
        Set Grid.CellFormat(HeadRow, col) = format
    Next
    For row = FirstEntry To LastEntry
        ' 一次写入一行，字段以“|”分隔。
        Grid.SetRowData row, Summary, Entries(row - FirstEntry), Asc("|")
        Grid.RowHeader(row) = CStr(row - FirstEntry + 1)
    Next
    Grid.CellText(FirstEntry, Posted) = "√"
End Sub

' 合计行：借贷必须平衡；大写金额由显示格式得出，单元格里存的仍是数字。
Sub FillTotal()
    Dim debits, credits, format, col
    debits = SumOf(Debit)
    credits = SumOf(Credit)
    If debits <> credits Then
        Host.Log "借贷不平衡：" & debits & " / " & credits
        Host.Quit 1
    End If
    Grid.RowHeight(TotalRow) = 32
    Grid.CellText(TotalRow, Summary) = "合计"
    Grid.CellText(TotalRow, Account) = "金额大写"
    Grid.CellText(TotalRow, Detail) = Money(debits)
    Grid.CellText(TotalRow, Debit) = Money(debits)
    Grid.CellText(TotalRow, Credit) = Money(credits)
    For col = Summary To Posted
        ' 先取得该单元格现有的格式（来自列），改动之后写回。
        Set format = Grid.CellFormat(TotalRow, col)
        format.Font = FontBytes(16, 700, SimSun)
        format.Background = TotalBack
        format.ReadOnly = 1
        If col = Detail Then format.ShowFormat = "[RMB_UPPER]"
        If col = Summary Or col = Account Then format.HAlign = Center
        Set Grid.CellFormat(TotalRow, col) = format
    Next
End Sub

Sub FillSignatures()
    Dim col, names
    names = Array("会计主管：东方明", "记账：司徒远", "审核：上官云", "出纳：夏侯青", "制单：慕容雪")
    Grid.RowHeight(SignRow) = 34
    For col = Summary To Credit
        Grid.CellText(SignRow, col) = names(col - 1)
        SetFormat SignRow, col, Left_, 4
    Next
End Sub

Function SumOf(col)
    Dim row
    SumOf = CCur(0)
    For row = FirstEntry To LastEntry
        If Grid.CellText(row, col) <> "" Then SumOf = SumOf + CCur(Grid.CellText(row, col))
    Next
End Function

' 两位小数的金额，不受区域设置影响。
Function Money(value)
    Dim cents
    cents = CLng(value * 100)
    Money = (cents \ 100) & "." & Right("0" & (cents Mod 100), 2)
End Function

' 数据类型：2 浮点数，3 日期值，4 字符型。
Function NewFormat(hAlign, dataType)
    Set NewFormat = CreateObject("VeyGrid.CellFormat")
    NewFormat.HAlign = hAlign
    NewFormat.VAlign = Middle
    NewFormat.DataType = dataType
    NewFormat.Font = FontBytes(16, 400, SimSun)
End Function

Sub SetFormat(row, col, hAlign, dataType)
    Set Grid.CellFormat(row, col) = NewFormat(hAlign, dataType)
End Sub

Function SimSun()
    SimSun = "CBCECCE5"  ' 宋体
End Function
Function SimHei()
    SimHei = "BADACCE5"  ' 黑体
End Function

' 单元格的字体是 60 个字节的 LOGFONT 结构。脚本不能直接构造字节数组，借 XML 的 bin.hex 类型转换得到。
' height 为字符高度（像素），weight 为粗细（400 常规，700 加粗），face 为 GBK 编码的字体名。
Function FontBytes(height, weight, face)
    Dim hexes, node
    hexes = LongHex(-height) & String(24, "0") & LongHex(weight) & "00000086" & "00000000" & face
    Set node = CreateObject("Microsoft.XMLDOM").createElement("font")
    node.dataType = "bin.hex"
    node.text = hexes & String(120 - Len(hexes), "0")
    FontBytes = node.nodeTypedValue
End Function

' 32 位整数的四个字节，低位在前。
Function LongHex(value)
    Dim text
    text = Right("0000000" & Hex(CLng(value)), 8)
    LongHex = Mid(text, 7, 2) & Mid(text, 5, 2) & Mid(text, 3, 2) & Mid(text, 1, 2)
End Function
