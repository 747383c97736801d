Dim col, line
Host.Log Data.RecordCount & " " & Grid.MaxRow & " " & Data.ChangeCount & " " & CInt(Grid.Modified)
For col = 1 To Grid.MaxCol
    line = line & Grid.ColHeader(col) & "=" & Grid.GetCellFormatText(336, col) & "|"
Next
Host.Log line
