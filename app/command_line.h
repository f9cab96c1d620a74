// The whole command as a function, so that a test can run it.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace ledgerwick::app {

// Runs the command line, without the program's name in front, and returns the exit code.
int runCommandLine(std::vector<std::string> arguments, std::ostream& out, std::ostream& err);

}  // namespace ledgerwick::app
