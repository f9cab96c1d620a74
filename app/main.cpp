#include <iostream>
#include <string>
#include <vector>

#include "app/command_line.h"

int main(int argc, char** argv) {
    return ledgerwick::app::runCommandLine(std::vector<std::string>(argv + 1, argv + argc),
                                           std::cout, std::cerr);
}
