// Events in JScript.
var order = "";
function Grid_CellSelChanging(row, column, allow) { order += "changing " + row + "," + column + ";"; }
function Grid_CellSelChanged() { order += "changed;"; }
Grid.SetActiveCell(3, 2);
Check("order and arguments", order, "changing 3,2;changed;");
Host.Log("end");
