// The commands of the command line. Each starts a host and returns the exit code. All throw std::invalid_argument for
// arguments that have no meaning, and std::runtime_error for what cannot be done.
#pragma once

#include "entries/entries.h"

#include <string>
#include <utility>
#include <vector>

namespace host::commands {

enum ExitCode { success = 0, failure = 1, usage = 2, leaked = 3, nothingTested = 4 };

// The host that a command works in.
struct Start {
    HostOptions host;
    std::vector<std::string> plugins; // none: the bundled one, in the program's folder
    bool noSibling = false;
};

// A program: a file, "-" for standard input, or its text.
struct Program {
    std::string file;
    std::vector<std::string> text; // the lines of the program; if not empty, the file is its first argument
    std::vector<std::string> arguments;
};

struct RunOptions {
    Program program;
    bool checkLeaks = false;
};
int run(const Start& start, const RunOptions& options);

struct CheckOptions {
    std::vector<std::string> files; // "-": standard input
    std::vector<std::string> text;  // the lines of one more program; empty: none
};

// Reports all errors of programs without running them: for a person, or as JSON on standard output.
int check(const Start& start, const CheckOptions& options, bool json);

int prompt(const Start& start);

// Prints the class records as the host received them, without the sibling's.
int records(const Start& start, bool json);

struct BrowseOptions {
    std::string name;      // the name of a class, a function or another word of the language; empty: everything
    std::string member;    // the name of a member; empty: all members
    bool markdown = false; // for everything or a class
    bool json = false;
};
int browse(const Start& start, const BrowseOptions& options);

struct SwatchesOptions {
    std::string picture;           // the file to write; "-": standard output; empty: standard output, as lines of text
    std::string form;              // "svg", "png" or "text"; empty: the file name decides
    std::string list;              // a colour list's file; empty: no list
    std::vector<std::string> keys; // keys of the list; none: all
    std::string color;             // a colour to show in every space; empty: none
    bool dark = false;             // draws a dark page
};
int swatches(const Start& start, const SwatchesOptions& options);

struct ValidateOptions {
    std::string plugin;            // empty: the bundled one
    std::vector<std::string> only; // names of checks; none: all
    std::vector<std::string> skip; // names of checks
    double timeout = 10;           // seconds for one call
    std::string call;              // a function, "Class.member/0", to call instead; empty: none
    bool inProcess = false;        // calls it in this process
    bool list = false;             // lists the checks and runs none
    bool json = false;
    bool junit = false;
};
// Checks a plugin against the contract. Returns failure for a breach. Returns nothingTested if nothing of the plugin's
// classes was tested.
int validate(const Start& start, const ValidateOptions& options);
std::vector<std::string> checkNames();

// Prints a TextMate grammar of the language for editors.
int grammar(const Start& start);

// Prints the versions and files of this program, the platform and the plugins, and the classes of the plugins.
int version(const Start& start);

// The words of the command line, from the descriptions that its parser holds.
struct Word {
    std::string name, text;
    std::vector<std::string> values; // the values that may follow it; empty: unknown
    bool takesValue = false;
    std::string form; // the form that help shows: "--list FILE"
};
struct CommandWords {
    Word command;
    std::vector<Word> options;          // includes the common ones, which come last
    std::vector<Word> own, positionals; // without the common ones
    std::string examples;               // one per line
};
struct CompletedWords {
    std::vector<Word> common; // options before the command
    std::vector<CommandWords> commands;
    std::vector<std::pair<std::string, std::vector<std::string>>> members = {}; // the members of each class
};

// Prints a script that completes the commands, their options, and the options' values. `shell` is "bash" or "zsh".
int completion(const Start& start, const std::string& shell, CompletedWords words);

// Prints the manual page in the format of man.
int manual(const Word& program, const std::vector<Word>& options, const std::vector<CommandWords>& commands);

} // namespace host::commands
