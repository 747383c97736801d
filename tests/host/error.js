// An error of JScript is told with its line.
// exit: 3
// stderr: error.js(4, 1): boom
throw new Error("boom");
