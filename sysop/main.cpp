#include "sysop/command_line.h"

#include <iostream>

int main(int argc, char* argv[]) {
    return morvek::runSysop({argv + 1, argv + argc}, std::cout, std::cerr);
}
