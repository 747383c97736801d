// What the leak check passes over: tables of the libraries that last as long as the process.

// fontconfig keeps one block of its configuration until the process ends, however many font maps
// come and go.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig.so\n";
}
