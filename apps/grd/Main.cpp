// Entry of grd, the command-line tool for grid files.
#include <cstdlib>

#include "apps/grd/GrdMain.h"
#include "apps/grd/Interrupt.h"
#include "apps/grd/Pictures.h"
#include "platform/FileSystem.h"

int main(int count, char** arguments) {
    veygrid::CatchInterrupts();
    const auto console = veygrid::OpenConsole();
    const auto files = veygrid::MakeFileSystem();
    const auto pictures = veygrid::OpenPictures();
    veygrid::Session session(*console, *files, pictures.get());
    const int code = veygrid::GrdMain(session, veygrid::ArgumentsInUtf8(count, arguments));
    // Everything is written and closed; the sheet in memory goes with the process.
    std::_Exit(code);
}
