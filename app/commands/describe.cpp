#include "app/commands/describe.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

#include "app/commands/commands.h"
#include "app/context.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::app {

namespace {

struct Command {
    std::string path;  // "run open"; empty for the program itself
    const CLI::App* app;
    std::vector<const CLI::App*> children;
};

bool isHidden(const CLI::App& app) {
    return app.get_group().empty();
}

std::vector<const CLI::App*> childrenOf(const CLI::App& app) {
    return app.get_subcommands([](const CLI::App*) { return true; });
}

// The command and those below it, in the order of the help. A group of options is a nameless child.
void collect(const CLI::App& app, const std::string& path, std::vector<Command>& commands) {
    const std::size_t here = commands.size();
    commands.push_back({path, &app, {}});
    for (const CLI::App* child : childrenOf(app)) {
        if (child->get_name().empty() || isHidden(*child)) continue;
        commands[here].children.push_back(child);
        collect(*child, path.empty() ? child->get_name() : path + " " + child->get_name(),
                commands);
    }
}

std::vector<Command> commandsOf(const CLI::App& root) {
    std::vector<Command> commands;
    collect(root, "", commands);
    return commands;
}

bool isPositional(const CLI::Option& option) {
    return option.get_lnames().empty() && option.get_snames().empty();
}

// What a command takes: its arguments, its options, and those of its groups. `--help` stands with
// the program alone.
std::vector<const CLI::Option*> optionsOf(const CLI::App& app) {
    std::vector<const CLI::Option*> options;
    for (const CLI::Option* option : app.get_options()) {
        if (option != app.get_help_ptr() || !app.get_parent()) options.push_back(option);
    }
    std::stable_partition(options.begin(), options.end(),
                          [](const auto* option) { return isPositional(*option); });
    for (const CLI::App* child : childrenOf(app)) {
        if (!child->get_name().empty()) continue;
        const auto more = optionsOf(*child);
        options.insert(options.end(), more.begin(), more.end());
    }
    return options;
}

bool takesValue(const CLI::Option& option) {
    return option.get_items_expected_max() > 0;
}

std::vector<std::string> splitAt(std::string_view text, std::string_view separator) {
    std::vector<std::string> parts;
    while (true) {
        const auto end = text.find(separator);
        parts.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + separator.size());
    }
}

// The values that an option knows: those of a list, "{a,b->1}" in its type, or for a NAME those that
// end its help.
std::vector<std::string> choicesOf(const CLI::Option& option) {
    const std::string type = option.get_type_name();
    if (const auto open = type.find('{'); open != std::string::npos) {
        auto names = splitAt(type.substr(open + 1, type.find('}', open) - open - 1), ",");
        for (auto& name : names) name.erase(std::min(name.find("->"), name.size()));
        return names;
    }
    if (type != "NAME") return {};
    const std::string& help = option.get_description();
    for (const std::string_view opening : {": ", "One of "}) {
        const auto place = help.rfind(opening);
        if (place != std::string::npos) return splitAt(help.substr(place + opening.size()), ", ");
    }
    return {};
}

std::string joined(const std::vector<std::string>& parts, std::string_view separator) {
    std::string text;
    for (const auto& part : parts) text.append(text.empty() ? "" : separator).append(part);
    return text;
}

// "DATE", "2001..9990" for a range as "INT in [2001 - 9990]", "left|p46" for a list.
std::string valueOf(const CLI::Option& option) {
    const std::string type = option.get_type_name();
    if (type.find('{') != std::string::npos) return joined(choicesOf(option), "|");
    if (const auto open = type.find('['); open != std::string::npos) {
        return replaceAll(type.substr(open + 1, type.find(']') - open - 1), " - ", "..");
    }
    return type.substr(0, type.find(':'));
}

std::vector<std::string> flagsOf(const CLI::Option& option) {
    std::vector<std::string> flags;
    for (const auto& name : option.get_snames()) flags.push_back("-" + name);
    for (const auto& name : option.get_lnames()) flags.push_back("--" + name);
    return flags;
}

// ---- the man page -------------------------------------------------------------------------------

constexpr const char* manHead =
    R"(.\" Made by scripts/command-docs --update out of the command's options.
.TH LEDGERWICK 1 "" "ledgerwick" "User Commands"
.SH NAME
ledgerwick \- run a UK payroll database
.SH SYNOPSIS
.B ledgerwick
.RI [ OPTIONS ]
.I COMMAND
.RI [ ARGUMENTS ]
.SH DESCRIPTION
.B ledgerwick
is a payroll host on the command line. It keeps a company in one SQLite file, takes it in from CSV
files and gives it out again, lists whose pay falls due, opens and closes pay runs, adds employments,
and writes the tables and letters of pension auto-enrolment. It does not work out pay, tax or
National Insurance.
.PP
Dates are written as 2016\-04\-29 or day first as 29/4/2016.
.SH OPTIONS
These stand in front of the command or after it; \-\-help after a command is about that command.
)";

constexpr const char* manFoot = R"(.SH FILES
.TP
.I PREFIX/share/ledgerwick/schema.sql
The tables of a company.
.TP
.I PREFIX/share/ledgerwick/examples/company
The sample company, which
.B ledgerwick demo
takes through a pay run.
.SH EXAMPLES
.nf
ledgerwick import company.db PREFIX/share/ledgerwick/examples/company
ledgerwick \-\-today 2026\-01\-30 due company.db
ledgerwick \-\-today 2026\-01\-30 run open company.db \-\-pay\-date 2026\-01\-30
.fi
)";

// Text as roff shows it: a backslash and a hyphen stand for themselves, and a line does not begin
// with a control character.
std::string roff(std::string_view text) {
    std::string escaped = replaceAll(replaceAll(text, "\\", "\\e"), "-", "\\-");
    if (!escaped.empty() && (escaped[0] == '.' || escaped[0] == '\'')) escaped.insert(0, "\\&");
    return escaped;
}

void writeManOptions(const CLI::App& app, std::ostream& out) {
    for (const CLI::Option* option : optionsOf(app)) {
        out << ".TP\n";
        if (isPositional(*option)) {
            out << ".I " << roff(option->get_name()) << '\n';
        } else {
            out << ".BR " << roff(joined(flagsOf(*option), ", "));
            if (takesValue(*option))
                out << " \" \" " << roff(replaceAll(valueOf(*option), " ", "\\~"));
            out << '\n';
        }
        out << roff(option->get_description()) << (option->get_required() ? " (required)" : "")
            << ".\n";
    }
}

// "Exit codes:" and what follows, one entry a code.
void writeManExitCodes(const std::string& footer, std::ostream& out) {
    out << ".SH EXIT STATUS\n";
    for (const auto& line : splitAt(footer, "\n")) {
        const auto text = trim(line);
        if (line.size() > 2 && line[0] == ' ' && line[2] >= '0' && line[2] <= '9') {
            out << ".TP\n" << text.substr(0, 1) << '\n' << roff(trim(text.substr(1))) << '\n';
        } else if (!line.empty() && line[0] == ' ') {
            out << roff(text) << '\n';
        }
    }
}

std::string usageOf(const Command& command) {
    std::string usage = "ledgerwick " + command.path;
    for (const CLI::Option* option : optionsOf(*command.app)) {
        if (isPositional(*option)) usage += " " + option->get_name();
    }
    return usage + (command.children.empty() ? "" : " COMMAND");
}

// ---- the completions ----------------------------------------------------------------------------

constexpr const char* bashHead =
    R"sh(# Completion of ledgerwick for bash; made by scripts/command-docs --update.

# The options that may stand after every command.
_ledgerwick_options() {
  echo ")sh";

constexpr const char* bashWords = R"sh("
}

# The commands and options that may stand after a command.
_ledgerwick_words() {
  case "$1" in
)sh";

constexpr const char* bashValues = R"sh(  esac
}

# The values that an option of a command knows; "-" for an option with any other value, nothing for
# a flag.
_ledgerwick_values() {
  case "$1 $2" in
)sh";

constexpr const char* bashFoot = R"sh(  esac
}

_ledgerwick() {
  local current="${COMP_WORDS[COMP_CWORD]}" at="" i word values="" words=""
  for ((i = 1; i < COMP_CWORD; i++)); do
    word="${COMP_WORDS[i]}"
    if [[ "$word" == -* ]]; then
      [[ -n "$(_ledgerwick_values "$at" "$word")" ]] && ((i++))
    elif [[ " $(_ledgerwick_words "$at") " == *" $word "* ]]; then
      at="${at:+$at }$word"
    fi
  done
  # The loop has gone past the end when the word in hand is an option's value.
  ((i > COMP_CWORD)) && values="$(_ledgerwick_values "$at" "${COMP_WORDS[COMP_CWORD - 1]}")"
  if [[ -z "$values" ]]; then
    for word in $(_ledgerwick_words "$at"); do
      [[ "$word" != -* || "$current" == -* ]] && words+=" $word"
    done
    [[ -z "$words" ]] && values=-
  fi
  if [[ "$values" == - ]]; then
    mapfile -t COMPREPLY < <(compgen -f -- "$current")
  else
    mapfile -t COMPREPLY < <(compgen -W "$words$values" -- "$current")
  fi
}
complete -o filenames -F _ledgerwick ledgerwick
)sh";

constexpr const char* zshHead = R"sh(#compdef ledgerwick
# Completion of ledgerwick for zsh; made by scripts/command-docs --update.

# The commands and options that may stand after a command, and the values of an option.
_ledgerwick_known() {
  case "$1" in
)sh";

constexpr const char* zshValues = R"sh(  esac
}

# In `reply`: the values that an option knows, "-" for any other value, nothing for a flag.
_ledgerwick_values() {
  reply=()
  case "$1 $2" in
)sh";

constexpr const char* zshFoot = R"sh(  esac
}

_ledgerwick() {
  local at="" i word
  local -a subcommands flags reply
  for ((i = 2; i < CURRENT; i++)); do
    word="${words[i]}"
    if [[ "$word" == -* ]]; then
      _ledgerwick_values "$at" "$word"
      (( $#reply )) && ((i++))
    else
      _ledgerwick_known "$at"
      (( ${(M)#subcommands:#${word}:*} )) && at="${at:+$at }$word"
    fi
  done
  _ledgerwick_known "$at"
  [[ -n "$at" ]] && _ledgerwick_known options
  # The loop has gone past the end when the word in hand is an option's value.
  reply=()
  ((i > CURRENT)) && _ledgerwick_values "$at" "${words[CURRENT - 1]}"
  if [[ "$reply" == - ]]; then
    _files
  elif (( $#reply )); then
    compadd -a reply
  elif [[ "$PREFIX" == -* ]]; then
    _describe -o option flags
  elif (( $#subcommands )); then
    _describe command subcommands
  else
    _files
  fi
}

_ledgerwick "$@"
)sh";

// The flags of a command itself; those of the program may stand after every command and are written
// once.
std::vector<const CLI::Option*> flaggedOf(const CLI::App& app) {
    auto options = optionsOf(app);
    std::erase_if(options, [](const CLI::Option* option) { return isPositional(*option); });
    return options;
}

// One line for each option with a value, in the form that both shells read.
void writeValueCases(const std::vector<Command>& commands, std::ostream& out,
                     std::string_view before, std::string_view after) {
    for (const auto& command : commands) {
        for (const CLI::Option* option : optionsOf(*command.app)) {
            if (isPositional(*option) || !takesValue(*option)) continue;
            const auto choices = choicesOf(*option);
            const std::string place = command.path.empty() ? "*\" " : "\"" + command.path + " ";
            for (const auto& flag : flagsOf(*option)) {
                out << "    " << place << flag << "\") " << before
                    << (choices.empty() ? "-" : joined(choices, " ")) << after << " ;;\n";
            }
        }
    }
}

// 'name:help' in single quotes.
std::string zshEntry(const std::string& name, const std::string& help) {
    return "'" + name + ":" + replaceAll(replaceAll(help, "'", "'\\''"), ":", "\\:") + "'";
}

}  // namespace

void writeManPage(const CLI::App& root, std::ostream& out) {
    out << manHead;
    writeManOptions(root, out);
    out << ".SH COMMANDS\n";
    for (const auto& command : commandsOf(root)) {
        if (command.path.empty()) continue;
        out << ".SS " << roff(usageOf(command)) << '\n'
            << roff(command.app->get_description()) << ".\n";
        writeManOptions(*command.app, out);
    }
    writeManExitCodes(root.get_footer(), out);
    out << manFoot;
}

void writeBashCompletion(const CLI::App& root, std::ostream& out) {
    const auto commands = commandsOf(root);
    std::vector<std::string> everywhere;
    for (const CLI::Option* option : flaggedOf(root)) {
        everywhere.push_back("--" + option->get_lnames().at(0));
    }
    out << bashHead << joined(everywhere, " ") << bashWords;
    for (const auto& command : commands) {
        std::vector<std::string> words;
        for (const CLI::App* child : command.children) words.push_back(child->get_name());
        for (const CLI::Option* option : flaggedOf(*command.app)) {
            words.push_back("--" + option->get_lnames().at(0));
        }
        if (!command.path.empty()) words.emplace_back("$(_ledgerwick_options)");
        out << "    \"" << command.path << "\") echo \"" << joined(words, " ") << "\" ;;\n";
    }
    out << bashValues;
    writeValueCases(commands, out, "echo \"", "\"");
    out << bashFoot;
}

void writeZshCompletion(const CLI::App& root, std::ostream& out) {
    const auto commands = commandsOf(root);
    const auto writeFlags = [&out](const CLI::App& app) {
        for (const CLI::Option* option : flaggedOf(app)) {
            out << "\n        "
                << zshEntry("--" + option->get_lnames().at(0), option->get_description());
        }
        out << ") ;;\n";
    };
    out << zshHead;
    for (const auto& command : commands) {
        out << "    \"" << command.path << "\")\n      subcommands=(";
        for (const CLI::App* child : command.children) {
            out << "\n        " << zshEntry(child->get_name(), child->get_description());
        }
        out << ")\n      flags=(";
        writeFlags(*command.app);
    }
    out << "    options)\n      flags+=(";  // what may stand after every command
    writeFlags(root);
    out << zshValues;
    writeValueCases(commands, out, "reply=(", ")");
    out << zshFoot;
}

void addDescribeCommand(CLI::App& app, Context& context) {
    auto* command = app.add_subcommand("describe", "Write the man page or a shell's completion");
    command->group("");  // for scripts/command-docs
    using Writer = void (*)(const CLI::App&, std::ostream&);
    const std::vector<std::pair<std::string, Writer>> forms{
        {"man", writeManPage}, {"bash", writeBashCompletion}, {"zsh", writeZshCompletion}};
    command
        ->add_option_function<std::string>(
            "FORM",
            [&app, &context, forms](const std::string& form) {
                for (const auto& [name, write] : forms) {
                    if (name != form) continue;
                    context.action = [&app, &context, writer = write] { writer(app, context.out); };
                    return;
                }
                throw CLI::ValidationError("FORM", "\"" + form + "\" is not man, bash or zsh");
            },
            "man, bash or zsh")
        ->required();
}

}  // namespace ledgerwick::app
