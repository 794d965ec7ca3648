// Scripts that complete the command line in shells.
#include "commands/start.h"

#include "documentation/pages.h"

#include <iostream>
#include <set>
#include <stdexcept>

namespace host::commands {
namespace {

std::string joined(const std::vector<std::string>& words, const char* between) {
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : between) + word;
    return text;
}

std::vector<std::string> namesOf(const std::vector<Word>& words) {
    std::vector<std::string> names;
    for (const Word& word : words)
        names.push_back(word.name);
    return names;
}

// Words, and behind an option its values; where neither is known, names of files.
void writeBash(const std::vector<CommandWords>& commands, std::ostream& out) {
    std::vector<std::string> names;
    for (const CommandWords& command : commands)
        names.push_back(command.command.name);
    out << "# Completion of chromahost in bash.\n_chromahost() {\n"
           "    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} command= word\n"
           "    for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
           "        case $word in "
        << joined(names, " | ")
        << ") command=$word; break ;; esac\n    done\n"
           "    COMPREPLY=()\n    case $previous in\n";
    std::set<std::string> known; // an option means the same wherever it is
    for (const CommandWords& command : commands) {
        for (const Word& option : command.options) {
            if (!option.takesValue || !known.insert(option.name).second) continue;
            const std::string values = joined(option.values, " ");
            out << "    " << option.name << ") COMPREPLY=($(compgen " << (values.empty() ? "-f" : "-W \"" + values + "\"")
                << " -- \"$current\")); return ;;\n";
        }
    }
    out << "    esac\n    case $command in\n    '') COMPREPLY=($(compgen -W \"" << joined(names, " ")
        << " --help --version\" -- \"$current\")) ;;\n";
    for (const CommandWords& command : commands) {
        out << "    " << command.command.name << ")\n        if [[ $current == -* ]]; then COMPREPLY=($(compgen -W \""
            << joined(namesOf(command.options), " ") << "\" -- \"$current\"))\n        else COMPREPLY=($("
            << (command.command.values.empty() ? "compgen -f" : "compgen -W \"" + joined(command.command.values, " ") + "\"")
            << " -- \"$current\")); fi ;;\n";
    }
    out << "    esac\n}\ncomplete -o filenames -F _chromahost chromahost\n";
}

// As a word between single quotes of _arguments and _values: without what these give a meaning.
std::string quoted(const std::string& text) {
    std::string result;
    for (const char c : text) {
        if (c == '\'') {
            result += "'\\''";
        } else if (c == '[' || c == ']' || c == ':') {
            result += std::string("\\") + c;
        } else {
            result += c;
        }
    }
    return result;
}

void writeZsh(const std::vector<CommandWords>& commands, std::ostream& out) {
    out << "#compdef chromahost\n# Completion of chromahost in zsh.\nlocal -a commands\ncommands=(\n";
    for (const CommandWords& command : commands)
        out << "    '" << command.command.name << ":" << quoted(command.command.text) << "'\n";
    out << ")\nlocal command word\nfor word in \"${(@)words[2,CURRENT-1]}\"; do\n"
           "    (( ${commands[(I)$word:*]} )) && { command=$word; break }\ndone\ncase $command in\n"
           "'') _describe command commands ;;\n";
    for (const CommandWords& command : commands) {
        out << command.command.name << ")\n    _arguments";
        for (const Word& option : command.options) {
            out << " \\\n        '*" << option.name << "[" << quoted(option.text) << "]"
                << (!option.takesValue      ? ""
                    : option.values.empty() ? ":value:_files"
                                            : ":value:(" + joined(option.values, " ") + ")")
                << "'";
        }
        out << " \\\n        '*:argument:"
            << (command.command.values.empty() ? "_files" : "(" + joined(command.command.values, " ") + ")")
            << "'\n    ;;\n";
    }
    out << "esac\n";
}

} // namespace

int completion(const Start& start, const std::string& shell, std::vector<CommandWords> commands) {
    startHost(start, true);
    for (CommandWords& command : commands) {
        if (command.command.name == "browse") command.command.values = documentation::classNames(registry());
    }
    if (shell == "bash") {
        writeBash(commands, std::cout);
    } else if (shell == "zsh") {
        writeZsh(commands, std::cout);
    } else {
        throw std::invalid_argument("there is completion for bash and zsh, not for " + shell);
    }
    return success;
}

} // namespace host::commands
