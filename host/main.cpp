// The command line of the reference host.
#include "commands/commands.h"
#include "text/nearest_name.h"

#include <CLI/CLI.hpp> // slow to compile, so only here

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <functional>
#include <initializer_list>
#include <iostream>
#include <stdexcept>

namespace {

using namespace host::commands;

constexpr const char* footer = R"(
Exit codes: 0 success, 1 failure (stderr explains it), 2 wrong usage, 3 leaks found, 4 nothing tested by validate.
If interrupted, chromahost is terminated by the signal.

Examples:
  chromahost run -e 'Print NSColorZRX.redColor.redComponent'
  chromahost browse NSColorZRX
  chromahost COMMAND --help)";

void mayRepeat(CLI::Option* option, const char* value) {
    option->type_name(value)
        ->expected(1)
        ->allow_extra_args(false) // the arguments after the value belong to the command
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

// Rejects an empty value. It is a mistake, such as an unset variable of a shell, and not a missing value.
void mustNotBeEmpty(CLI::Option* option) {
    option->check(CLI::Validator([](const std::string& value) { return value.empty() ? "must not be empty" : ""; }, ""));
}

// Parses the command line. The parser fills the options, so they must outlive the application.
class CommandLine {
public:
    CommandLine() {
        app_.footer(footer);
        app_.require_subcommand(0, 1);
        app_.fallthrough();
        app_.set_help_all_flag("--help-all", "Print the help of every command");
        app_.add_flag("--version", showsVersion_, "Print the versions and paths of the host, the platform and the plugins");
        mayRepeat(
            app_.add_option("--plugin", start_.plugins, "A plugin library, by default the bundled one; may be repeated")
                ->default_str("libchromabridge.so"),
            "PATH");
        mayRepeat(app_.add_option("--without", start_.host.without,
                                  "An entry point that the host does not provide; may be repeated"),
                  "NAME");
        app_.add_option("--host-version", start_.host.version,
                        "The version that the host reports, which decides the record layout")
            ->type_name("V")
            ->check(CLI::Validator(CLI::Number).description(""))
            ->capture_default_str();
        addRun();
        addCheck();
        addRepl();
        addRecords();
        addBrowse();
        addSwatches();
        addValidate();
        addGrammar();
        addCompletion();
        add("manual", "Print the manual page", "  chromahost manual | man -l -", [this] {
            refuse("manual", {"--plugin", "--without", "--host-version"});
            return manual({app_.get_name(), app_.get_description(), {}, false, ""}, wordsOf(app_, true), words());
        });
    }

    int perform(int argc, char** argv) {
        try {
            app_.parse(argc, argv);
        } catch (const CLI::ExtrasError&) {
            suggestCommand();
            throw;
        }
        if (showsVersion_) return version(start_);
        if (app_.get_subcommands().empty()) throw CLI::RequiredError("A command (--help lists them)");
        return actions_.at(app_.get_subcommands().front())();
    }

    int help(const CLI::ParseError& request) { return app_.exit(request); }

private:
    // Throws if the first unused argument is a misspelt command.
    void suggestCommand() const {
        const std::string word = app_.remaining().front();
        if (!app_.get_subcommands().empty() || word[0] == '-') return;
        host::NearestName nearest(word);
        for (const CLI::App* const command : app_.get_subcommands(nullptr))
            nearest.offer(command->get_name());
        throw std::invalid_argument("there is no command " + word + nearest.suggestion() + " (--help lists them)");
    }

    // Throws if the user passes an option that the command would ignore.
    void refuse(const char* command, std::initializer_list<const char*> options) const {
        for (const char* const option : options)
            if (app_.count(option) > 0) throw std::invalid_argument(std::string(command) + " does not use " + option);
    }

    CLI::App* add(const char* name, const char* text, const char* examples, std::function<int()> action) {
        CLI::App* const command = app_.add_subcommand(name, text);
        command->footer(std::string("\nExamples:\n") + examples);
        examples_[command] = examples;
        actions_[command] = std::move(action);
        return command;
    }

    void addSibling(CLI::App* command) {
        command->add_flag(
            "--no-sibling", start_.noSibling,
            "Do not load the sibling plugin, which provides NSExceptionZRX, NSImageZRX and the instance registry");
    }

    void addText(CLI::App* command, std::vector<std::string>& lines, const char* description) {
        mayRepeat(command->add_option("-e", lines, description), "TEXT");
    }

    void addRun() {
        CLI::App* const command = add("run", "Run a program",
                                      "  chromahost run tour.bas\n"
                                      "  chromahost run program.bas -- --an-argument another\n"
                                      "  chromahost run -e 'Dim c = NSColorZRX.redColor' -e 'Print c.description'\n"
                                      "  generate | chromahost run - --check-leaks\n"
                                      "  chromahost run tour.bas --host-version 2011.0 --without memoryBlockGetPtr",
                                      [this] { return run(start_, running_); });
        Program& program = running_.program;
        command->add_option("FILE", program.file, "The program; - for standard input");
        addText(command, program.text, "A line of the program, instead of a file; may be repeated");
        command->add_option("ARGUMENTS", program.arguments,
                            "The values that the function Arguments returns; after --, they may look like options");
        addSibling(command);
        command->add_flag("--check-leaks", running_.checkLeaks, "Fail if host objects or strings remain at the end");
    }

    void addCheck() {
        CLI::App* const command = add("check", "Report all errors and warnings in programs without running them",
                                      "  chromahost check program.bas library.bas\n"
                                      "  chromahost check --json - < program.bas",
                                      [this] { return check(start_, checking_, json_); });
        mustNotBeEmpty(command->add_option("FILES", checking_.files, "The programs; - for standard input"));
        addText(command, checking_.text, "A line of an additional program; may be repeated");
        addSibling(command);
        command->add_flag("--json", json_, "Print JSON on standard output");
    }

    void addRepl() {
        addSibling(add("repl", "Run statements as they are typed, and show values",
                       "  chromahost repl\n"
                       "  chromahost repl --host-version 2011.0",
                       [this] { return prompt(start_); }));
    }

    void addRecords() {
        CLI::App* const command = add("records", "List the class records as the host received them",
                                      "  chromahost records --host-version 2011.0\n"
                                      "  chromahost records --plugin ./libmine.so --json",
                                      [this] { return records(start_, json_); });
        command->add_flag("--json", json_, "Print JSON");
    }

    void addBrowse() {
        CLI::App* const command = add("browse", "Describe a class, a member, a function or a keyword, or list everything",
                                      "  chromahost browse\n"
                                      "  chromahost browse NSColorZRX getRGB\n"
                                      "  chromahost browse NSColorZRX --markdown > NSColorZRX.md",
                                      [this] { return browse(start_, browsing_); });
        mustNotBeEmpty(
            command->add_option("NAME", browsing_.name, "A class, a function or another word; lists everything if omitted"));
        CLI::Option* const member =
            command->add_option("MEMBER", browsing_.member, "A property, method or constant of the class");
        mustNotBeEmpty(member);
        CLI::Option* const markdown =
            command->add_flag("--markdown", browsing_.markdown, "Describe everything, or one class, as a Markdown page")
                ->excludes(member);
        command->add_flag("--json", browsing_.json, "Print JSON")->excludes(markdown);
    }

    void addSwatches() {
        CLI::App* const command =
            add("swatches", "Show the system's colours, the colours of a list, or one colour in every space",
                "  chromahost swatches\n"
                "  chromahost swatches --dark system.png\n"
                "  chromahost swatches --list harbour.clr --key sand --key sea harbour.svg\n"
                "  chromahost swatches --spaces 'color(display-p3 1 0.5 0)'\n"
                "  chromahost swatches --format png - | display",
                [this] { return swatches(start_, drawing_); });
        mustNotBeEmpty(command->add_option(
            "PICTURE", drawing_.picture, "The file to write, .svg or .png; - for standard output; prints text if omitted"));
        command->add_option("--format", drawing_.form, "The output format: svg, png or text")
            ->type_name("FORM")
            ->check(CLI::IsMember({"svg", "png", "text"}).description(""));
        CLI::Option* const list =
            command->add_option("--list", drawing_.list, "Show the colours of the list in this file")->type_name("FILE");
        mustNotBeEmpty(list);
        CLI::Option* const key =
            command->add_option("--key", drawing_.keys, "Show only the colour with this key of the list; may be repeated");
        mayRepeat(key, "NAME");
        key->needs(list);
        mustNotBeEmpty(
            command
                ->add_option(
                    "--spaces", drawing_.color,
                    "Show this colour in every space: #F80, orange, rgb(255 128 0 / 50%), color(display-p3 1 0.5 0), oklch(70% "
                    "0.2 50), redColor")
                ->type_name("COLOR")
                ->excludes(list));
        command->add_flag("--dark", drawing_.dark, "Use a dark page");
    }

    void addValidate() {
        CLI::App* const command = add("validate", "Check a plugin against the contract, in child processes",
                                      "  chromahost validate ./libmine.so\n"
                                      "  chromahost validate --list\n"
                                      "  chromahost validate ./libmine.so --only null-receivers --only balance\n"
                                      "  chromahost validate ./libmine.so --skip host-exceptions --junit > report.xml\n"
                                      "  gdb --args chromahost validate ./libmine.so --call Mine.length/1 --in-process",
                                      [this] {
                                          if (validating_.call.empty()) refuse("validate", {"--without", "--host-version"});
                                          if (start_.plugins.size() + (validating_.plugin.empty() ? 0 : 1) > 1)
                                              throw std::invalid_argument("validate takes one plugin");
                                          return validate(start_, validating_);
                                      });
        CLI::Option* const plugin =
            command->add_option("PLUGIN", validating_.plugin, "The plugin library, by default the bundled one");
        mustNotBeEmpty(plugin);
        mayRepeat(command->add_option("--only", validating_.only, "Run only the check with this name; may be repeated"),
                  "NAME");
        mayRepeat(command->add_option("--skip", validating_.skip, "Skip the check with this name; may be repeated"), "NAME");
        command
            ->add_option("--timeout", validating_.timeout,
                         "The time limit of one call; the limit of the complete run is ten minutes")
            ->type_name("SECONDS")
            ->check(CLI::Range(0.001, 600.0).description(""))
            ->capture_default_str();
        CLI::Option* const call =
            command
                ->add_option("--call", validating_.call,
                             "Call only this function, Class.member/COUNT, with every kind of argument")
                ->type_name("FUNCTION");
        command->add_flag("--in-process", validating_.inProcess, "Call the function in this process, for a debugger")
            ->needs(call);
        command->add_flag("--list", validating_.list, "List the checks and their requirements")->excludes(plugin);
        CLI::Option* const json = command->add_flag("--json", validating_.json, "Print JSON")->excludes(call);
        command->add_flag("--junit", validating_.junit, "Print JUnit XML")->excludes(json)->excludes(call);
        addSibling(command);
    }

    void addGrammar() {
        add("grammar", "Print the language's grammar for editors, in TextMate format",
            "  chromahost grammar > chromabridge.tmLanguage.json", [this] { return grammar(start_); });
    }

    void addCompletion() {
        CLI::App* const command = add("completion", "Print a script that completes this command line in a shell",
                                      "  source <(chromahost completion bash)\n"
                                      "  chromahost completion zsh > ~/.zsh/_chromahost",
                                      [this] {
                                          return completion(start_, shell_, {wordsOf(app_, true), words()});
                                      });
        command->add_option("SHELL", shell_, "bash or zsh")->required();
    }

    static Word wordOf(const CLI::Option& option) {
        const bool isNamed = option.nonpositional();
        const std::string name = !isNamed                      ? option.get_name()
                                 : option.get_lnames().empty() ? "-" + option.get_snames().front()
                                                               : "--" + option.get_lnames().front();
        const bool takesValue = option.get_expected_max() > 0;
        Word word = {name, option.get_description(), {}, takesValue, name};
        if (isNamed && takesValue) word.form += " " + option.get_type_name();
        if (name == "--without") word.values = host::entryNames();
        if (name == "--only" || name == "--skip") word.values = checkNames();
        if (name == "--format") word.values = {"svg", "png", "text"};
        return word;
    }

    static std::vector<Word> wordsOf(const CLI::App& app, bool named) {
        std::vector<Word> words;
        for (const CLI::Option* const option : app.get_options())
            if (option->nonpositional() == named) words.push_back(wordOf(*option));
        return words;
    }

    std::vector<CommandWords> words() const {
        std::vector<CommandWords> all;
        const std::vector<Word> common = wordsOf(app_, true);
        for (const CLI::App* const command : app_.get_subcommands(nullptr)) {
            const std::string name = command->get_name();
            CommandWords words = {{name, command->get_description(), {}, false, name},
                                  {},
                                  {},
                                  wordsOf(*command, false),
                                  examples_.at(command)};
            if (name == "completion") words.command.values = {"bash", "zsh"};
            for (const Word& word : wordsOf(*command, true)) {
                words.options.push_back(word);
                if (word.name.rfind("--help", 0) != 0) words.own.push_back(word);
            }
            for (const Word& word : common)
                if (word.takesValue) words.options.push_back(word);
            all.push_back(std::move(words));
        }
        return all;
    }

    CLI::App app_{"Loads a plugin as its host does, and runs programs in the host language with it.", "chromahost"};
    std::map<const CLI::App*, std::function<int()>> actions_;
    std::map<const CLI::App*, std::string> examples_;
    Start start_;
    RunOptions running_;
    CheckOptions checking_;
    BrowseOptions browsing_;
    SwatchesOptions drawing_;
    ValidateOptions validating_;
    std::string shell_;
    bool json_ = false;
    bool showsVersion_ = false;
};

// Flushes the output and returns the exit code. If the output was not written, for example because the disk is full,
// reports it and turns success into failure.
int written(int exitCode) {
    std::cout.flush();
    const bool isWritten = std::cout.good() && std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
    if (isWritten) return exitCode;
    std::cerr << "chromahost: the output cannot be written: " << std::strerror(errno != 0 ? errno : EIO) << "\n";
    return exitCode == success ? failure : exitCode;
}

} // namespace

int main(int argc, char** argv) {
    CommandLine commandLine;
    try {
        return written(commandLine.perform(argc, argv));
    } catch (const CLI::CallForHelp& help) {
        return written(commandLine.help(help));
    } catch (const CLI::CallForAllHelp& help) {
        return written(commandLine.help(help));
    } catch (const CLI::ParseError& error) {
        std::cerr << "chromahost: " << error.what() << "\n";
        return usage;
    } catch (const std::invalid_argument& error) {
        std::cerr << "chromahost: " << error.what() << "\n";
        return usage;
    } catch (const std::exception& error) {
        std::cerr << "chromahost: " << error.what() << "\n";
        return failure;
    }
}
