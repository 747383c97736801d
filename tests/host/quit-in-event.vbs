' Host.Quit in an event handler ends the script as well.
' exit: 5
Sub Grid_CellSelChanged()
    Host.Quit 5
End Sub
Grid.SetActiveCell 2, 2
Host.Log "FAILED: went on after Quit"
