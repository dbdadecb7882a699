// tzassistant: the module on the command line.
#include "cli/program.h"

int main(int argc, char** argv) { return tz::cli::runProgram(argc, argv); }
