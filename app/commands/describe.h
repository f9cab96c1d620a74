// The man page and the shell completions, made from the options that the parser really has.
#pragma once

#include <iosfwd>

namespace CLI {
class App;
}

namespace ledgerwick::app {

// The man page, in the macros of man(7).
void writeManPage(const CLI::App& root, std::ostream& out);
// The completion of bash and of zsh: commands, options, the values that an option knows, and files.
void writeBashCompletion(const CLI::App& root, std::ostream& out);
void writeZshCompletion(const CLI::App& root, std::ostream& out);

}  // namespace ledgerwick::app
