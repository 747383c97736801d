// The control through the script host: what stands at the end shows that nothing went wrong.
var grid = new ActiveXObject("VEYGRID.VeyGridCtrl.1");
function check(isTrue, code) {
    if (!isTrue) {
        WScript.Quit(code);
    }
}
check(grid.MaxRow == 50 && grid.MaxCol == 20, 1);
grid.MaxRow = 100;
check(grid.MaxRow == 100, 2);
grid.ModifyCellText(3, 2, "abc");
check(grid.CellText(3, 2) == "abc" && grid.LastRow == 3, 3);
check(grid.GetRangeText(3, 2, 3, 2) == "B\r\nabc", 4);
var format = grid.CellFormat(1, 1);
check(format.Background == -1, 5);
grid.DefCellFormat = format;
check(grid.Modified, 6);
check(grid.FormObject(1) == null, 7);
WScript.Echo("smoke.js: success");
WScript.Quit(0);
