// Scripts that complete the command line in shells.
#include "commands/start.h"

#include "documentation/pages.h"
#include "text/characters.h"

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

// Returns a case of the script, which completes words or file names. For file names it calls readline's completion, which
// handles blanks and quotes.
std::string bashCase(const std::string& pattern, const std::vector<std::string>& words, bool areFiles) {
    return "    " + pattern + ") " + (areFiles ? "compopt -o default; return" : "words=\"" + joined(words, " ") + "\"") +
           " ;;\n";
}

void writeBash(const CompletedWords& all, std::ostream& out) {
    std::vector<std::string> names, withValue;
    std::string valueCases;
    for (const CommandWords& command : all.commands)
        names.push_back(command.command.name);
    std::set<std::string> known; // an option means the same in every command
    for (const CommandWords& command : all.commands) {
        for (const Word& option : command.options) {
            if (!option.takesValue || !known.insert(option.name).second) continue;
            withValue.push_back(option.name);
            valueCases += bashCase(option.name, option.values, option.values.empty());
        }
    }
    out << "# Completion of chromahost in bash.\n_chromahost() {\n"
           "    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} command= isValue= word words\n"
           "    COMPREPLY=()\n"
           "    # bash separates an option, = and the value\n"
           "    if [[ $current == = ]]; then current=; elif [[ $previous == = ]]; then previous=${COMP_WORDS[COMP_CWORD-2]}; fi\n"
           "    for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
           "        if [[ $isValue && $word != = ]]; then isValue=; continue; fi\n"
           "        case $word in\n        = | "
        << joined(withValue, " | ") << ") isValue=1 ;;\n        " << joined(names, " | ")
        << ") command=$word; break ;;\n        esac\n    done\n    case $previous in\n"
        << valueCases << "    *)\n    case $command:$current in\n"
        << bashCase(":-*", namesOf(all.common), false) << bashCase(":*", names, false);
    for (const CommandWords& command : all.commands) {
        const std::string& name = command.command.name;
        out << bashCase(name + ":-*", namesOf(command.options), false);
        if (name == "browse") {
            out << "    browse:*)\n        case $previous in\n";
            for (const auto& [subject, members] : all.members)
                out << "    " << bashCase(subject, members, false);
            out << "        browse) words=\"" << joined(command.command.values, " ") << "\" ;;\n        esac ;;\n";
        } else {
            out << bashCase(name + ":*", command.command.values,
                            command.command.values.empty() && !command.positionals.empty());
        }
    }
    out << "    esac ;;\n    esac\n    COMPREPLY=($(compgen -W \"$words\" -- \"$current\"))\n}\n"
           "complete -F _chromahost chromahost\n";
}

// Quotes a word for single quotes in _arguments and _values, and escapes the characters that have a meaning for them.
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

// Returns the options in the form of _arguments, each after a line break. A value may follow a blank or "=".
std::string zshOptions(const std::vector<Word>& options) {
    std::string text;
    for (const Word& option : options) {
        const bool isLong = option.name.rfind("--", 0) == 0;
        text += " \\\n        '*" + option.name + (option.takesValue && isLong ? "=" : "") + "[" + quoted(option.text) + "]";
        if (option.takesValue)
            text += ":value:" + (option.values.empty() ? "_files" : "(" + joined(option.values, " ") + ")");
        text += "'";
    }
    return text;
}

void writeZsh(const CompletedWords& all, std::ostream& out) {
    out << "#compdef chromahost\n# Completion of chromahost in zsh.\nlocal -a commands line\nlocal state state_descr context\n"
           "typeset -A opt_args\ncommands=(\n";
    for (const CommandWords& command : all.commands)
        out << "    '" << command.command.name << ":" << quoted(command.command.text) << "'\n";
    out << ")\n_arguments -C" << zshOptions(all.common)
        << " \\\n        '1:command:->command' '*::argument:->arguments'\n"
           "[[ $state == command ]] && _describe command commands\n[[ $state == arguments ]] || return\nstate=\n"
           "case $words[1] in\n";
    for (const CommandWords& command : all.commands) {
        out << command.command.name << ")\n    _arguments -C" << zshOptions(command.options);
        const std::vector<std::string>& values = command.command.values;
        if (!command.positionals.empty()) {
            out << " \\\n        '" << (values.empty() ? "*" : "1")
                << ":argument:" << (values.empty() ? "_files" : "(" + joined(values, " ") + ")") << "'";
        }
        if (command.command.name == "browse") {
            out << " '2:member:->member'\n    [[ $state == member ]] && case $line[1] in\n";
            for (const auto& [subject, members] : all.members)
                out << "    " << subject << ") compadd " << joined(members, " ") << " ;;\n";
            out << "    esac";
        }
        out << "\n    ;;\n";
    }
    out << "esac\n";
}

} // namespace

int completion(const Start& start, const std::string& shell, CompletedWords words) {
    startHost(start, true);
    for (const auto& info : registry().classes()) {
        std::vector<std::string> members;
        for (const documentation::Section& section : documentation::pageOf(*info).sections) {
            for (const documentation::MemberPage& member : section.members)
                members.push_back(member.name);
        }
        words.members.emplace_back(info->name(), std::move(members));
    }
    for (CommandWords& command : words.commands) {
        if (command.command.name != "browse") continue;
        for (const std::string& name : documentation::pageNames(registry()))
            if (isNamePart(name[0])) command.command.values.push_back(name);
    }
    if (shell == "bash") {
        writeBash(words, std::cout);
    } else if (shell == "zsh") {
        writeZsh(words, std::cout);
    } else {
        throw std::invalid_argument("completion exists for bash and zsh, not for " + shell);
    }
    return success;
}

} // namespace host::commands
