' An error in an event handler counts, even where the script ends well.
' exit: 3
' stderr: error-in-event.vbs(6,
' stdout: after
Sub Grid_CellSelChanged()
    Err.Raise 1000, "test", "told"
End Sub
Grid.SetActiveCell 2, 2
Host.Log "after"
Host.Quit 0
