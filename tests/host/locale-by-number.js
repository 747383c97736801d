// A locale may be given by its number.
// args: /locale 0x407
Check("a date", new Date(2020, 0, 5).toLocaleDateString(), "Sonntag, 5. Januar 2020");
Host.Log("end");
