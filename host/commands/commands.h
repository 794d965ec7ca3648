// The commands of the command line, over a host that they start. They answer the exit code. All throw std::invalid_argument
// for what no user can mean and std::runtime_error for what cannot be done.
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
    std::vector<std::string> plugins; // none: the one beside the program
    bool noSibling = false;
};

// A program: a file, "-" for standard input, or its text.
struct Program {
    std::string file;
    std::vector<std::string> text; // lines; not empty: the program, and the file is its first argument
    std::vector<std::string> arguments;
};

struct RunOptions {
    Program program;
    bool checkLeaks = false;
};
int run(const Start& start, const RunOptions& options);

struct CheckOptions {
    std::vector<std::string> files; // "-": standard input
    std::vector<std::string> text;  // lines; not empty: one more program
};

// Reports all errors of programs, which do not run: for a person, or as JSON on standard output.
int check(const Start& start, const CheckOptions& options, bool json);

int prompt(const Start& start);

// The class records as the host received them, without the sibling's.
int records(const Start& start, bool json);

struct BrowseOptions {
    std::string name;      // of a class, a function or another word of the language; empty: everything
    std::string member;    // empty: the whole class
    bool markdown = false; // of everything or a class
    bool json = false;
};
int browse(const Start& start, const BrowseOptions& options);

struct SwatchesOptions {
    std::string picture;           // the file to write; "-": standard output; empty: lines of text on it
    std::string form;              // "svg", "png" or "text"; empty: as the file is named
    std::string list;              // a colour list's file; empty: no list
    std::vector<std::string> keys; // of the list; none: all
    std::string color;             // to show in every space; empty: none
    bool dark = false;             // a page that is dark
};
int swatches(const Start& start, const SwatchesOptions& options);

struct ValidateOptions {
    std::string plugin;            // empty: the bundled one
    std::vector<std::string> only; // names of checks; none: all
    std::vector<std::string> skip; // names of checks
    double timeout = 10;           // seconds for one call
    std::string call;              // a function, "Class.member/0", to call instead; empty: none
    bool inProcess = false;        // calls it in this process
    bool list = false;             // the checks, and none is run
    bool json = false;
    bool junit = false;
};
// Checks a plugin against the contract. Returns failure for a breach, and nothingTested if nothing of its classes was
// tested.
int validate(const Start& start, const ValidateOptions& options);
std::vector<std::string> checkNames();

// An editor's grammar of the language, in the form of TextMate.
int grammar(const Start& start);

// What this program, the plugins and the platform are.
int version(const Start& start);

// The command line as it tells of itself.
struct Word {
    std::string name, text;
    std::vector<std::string> values; // what may follow it; empty: nothing known
    bool takesValue = false;
    std::string form; // as help shows it: "--list FILE"
};
struct CommandWords {
    Word command;
    std::vector<Word> options;          // the common ones too, which stand last
    std::vector<Word> own, positionals; // without the common ones
    std::string examples;               // lines
};
struct CompletedWords {
    std::vector<Word> common; // options before the command
    std::vector<CommandWords> commands;
    std::vector<std::pair<std::string, std::vector<std::string>>> members = {}; // of each class
};

// A script that completes the commands, their options, and the values of these: `shell` is "bash" or "zsh".
int completion(const Start& start, const std::string& shell, CompletedWords words);

// The manual page, for man.
int manual(const Word& program, const std::vector<Word>& options, const std::vector<CommandWords>& commands);

} // namespace host::commands
