' Borders of rows and columns under the mouse: the line follows, the size comes with the release.
Sub Drag(x1, y1, x2, y2)
    Host.Press x1, y1
    Host.Move x2, (y1 + y2) \ 2
    Host.Release x2, y2
    Host.Pump 0
End Sub
EvenSheet 20, 10
Host.Pump 0
Host.Watch "WM_SETCURSOR"

Host.Move 10, 79
Host.Press 10, 79
Host.Move 10, 90
Told "a press on a row's border", Array("cursor 32645", "grid WM_LBUTTONDOWN 10,79")
Check "sizes nothing yet", Grid.RowHeight(3), 20
Host.Release 10, 95
Told "its release", Array( _
    "grid WM_LBUTTONUP 10,95", "Modified", "Modified", "MouseUp(1, 0, 10, 95)")
Check "sizes the row to there", Grid.RowHeight(3), 35
Grid.RowHeight(3) = 20
Host.Pump 0
Host.Story
Drag 10, 81, 10, 90
Told "the top border", Array( _
    "grid WM_LBUTTONDOWN 10,81", "grid WM_LBUTTONUP 10,90", "Modified", "Modified", _
    "MouseUp(1, 0, 10, 90)")
Check "is that of the row above", Grid.RowHeight(3) & "," & Grid.RowHeight(4), "30,20"
Drag 10, 89, 10, 25
Told "up past the row's top", Array( _
    "grid WM_LBUTTONDOWN 10,89", "grid WM_LBUTTONUP 10,25", "Modified", "Modified", _
    "MouseUp(1, 0, 10, 25)")
Check "leaves it no height", Grid.RowHeight(3), 0
Grid.RowHeight(3) = 20
Host.Pump 0
Host.Story
Drag 169, 8, 200, 8
Told "a column's border", Array( _
    "cursor 32644", "grid WM_LBUTTONDOWN 169,8", "grid WM_LBUTTONUP 200,8", "Modified", _
    "Modified", "MouseUp(1, 0, 200, 8)")
Check "sizes the column", Grid.ColWidth(2), 90
Drag 10, 59, 10, 59
Told "a press and release at one point", Array( _
    "cursor 32645", "grid WM_LBUTTONDOWN 10,59", "grid WM_LBUTTONUP 10,59", _
    "MouseUp(1, 0, 10, 59)")
Check "sizes nothing", Grid.RowHeight(2), 20
Drag 10, 21, 10, 32
Told "the top band of the first row", Array( _
    "grid WM_LBUTTONDOWN 10,21", "grid WM_LBUTTONUP 10,32", "Modified", "MouseUp(1, 0, 10, 32)")
Check "sizes the column headers", Grid.ColHeaderHeight, 32
Drag 51, 8, 70, 8
Told "the left band of the first column", Array( _
    "cursor 32644", "grid WM_LBUTTONDOWN 51,8", "grid WM_LBUTTONUP 70,8", "Modified", _
    "MouseUp(1, 0, 70, 8)")
Check "sizes the row headers", Grid.RowHeaderWidth, 70
Grid.RowHeaderWidth = 50
Grid.ColHeaderHeight = 20
Grid.ShowColHeaders = False
Host.Move MiddleX(5), MiddleY(9)
Host.Pump 0
Host.Story
Drag 10, 1, 10, 12
Told "the top band without column headers", Array( _
    "cursor 32645", "grid WM_LBUTTONDOWN 10,1", "grid WM_LBUTTONUP 10,12", _
    "MouseUp(1, 0, 10, 12)")
Check "sizes nothing", Grid.ColHeaderHeight & "," & Grid.RowHeight(1), "20,20"
Grid.ShowColHeaders = True
Grid.ShowRowHeaders = False
Host.Move MiddleX(5), MiddleY(9)
Host.Pump 0
Host.Story
Drag 1, 8, 22, 8
Told "the left band without row headers", Array( _
    "cursor 32644", "grid WM_LBUTTONDOWN 1,8", "grid WM_LBUTTONUP 22,8", "MouseUp(1, 0, 22, 8)")
Check "sizes nothing either", Grid.RowHeaderWidth & "," & Grid.ColWidth(1), "50,60"
Grid.ShowRowHeaders = True
Grid.ColHeaderHeight = 32
Host.Pump 0
Grid.AllowResize = False
Host.Story
Drag 10, 32 + 19, 10, 32 + 30
Told "without AllowResize", Array( _
    "cursor 32645", "grid WM_LBUTTONDOWN 10,51", "cursor 1027", "grid WM_LBUTTONUP 10,62", _
    "MouseUp(1, 0, 10, 62)")
Check "nothing is sized", Grid.RowHeight(1), 20
Host.Log "end"
