' 100,000 writes of an indexed property, against the same loop on Scripting.Dictionary. The control is
' made by its prog id, so that no host stands between it and the script. Logs, for each round, the
' milliseconds of the dictionary and of the control.
Option Explicit
Const Count = 100000

Dim round
For round = 1 To 7
    Host.Log Milliseconds("Scripting.Dictionary") & " " & Milliseconds("VEYGRID.VeyGridCtrl.1")
Next

Function Milliseconds(progId)
    Dim object, i, start
    Set object = CreateObject(progId)
    start = Timer
    If progId = "Scripting.Dictionary" Then
        For i = 1 To Count
            object.Item(i) = "x"
        Next
    Else
        For i = 1 To Count
            object.CellText(i, 1) = "x"
        Next
    End If
    Milliseconds = CLng((Timer - start) * 1000)
End Function
