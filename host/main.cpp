// The command line of the reference host.
#include "commands/browse.h"
#include "commands/swatches.h"
#include "language/language.h"
#include "model/classes.h"
#include "model/entries.h"
#include "model/leaks.h"
#include "model/plugin.h"
#include "model/record_listing.h"
#include "repl/repl.h"

#include <CLI/CLI.hpp> // slow to compile, so only here

#include <iostream>
#include <stdexcept>

namespace {

enum ExitCode { success = 0, failure = 1, usage = 2, leaked = 3 };

constexpr const char* footer = R"(
Exit codes: 0 success, 1 a failure that stderr explains, 2 wrong usage, 3 leaks found.

Example:
  printf 'Dim c As NSColorZRX = NSColorZRX.redColor\nPrint c.redComponent\n' > red.txt
  chromahost run red.txt
  chromahost records --host-version 2011.0
  chromahost run red.txt --without memoryBlockGetPtr --check-leaks)";

struct Options {
    host::HostOptions host;
    std::vector<std::string> plugins;
    std::string program;
    bool noSibling = false;
    bool checkLeaks = false;
    bool json = false;
};

void start(const Options& options, bool sibling) {
    host::startHost(options.host);
    if (sibling) host::loadPlugin(host::bundledPlugin("libchromasibling.so"));
    for (const std::string& path : options.plugins)
        host::loadPlugin(path);
}

int run(const Options& options) {
    start(options, !options.noSibling);
    const int result = host::language::runFile(options.program);
    const std::string leaks = options.checkLeaks ? host::describeLeaks() : "";
    if (leaks.empty()) return result;
    std::cerr << "chromahost: still alive at the end: " << leaks << "\n";
    return leaked;
}

int check(const Options& options) {
    start(options, !options.noSibling);
    return host::language::checkFile(options.program);
}

int prompt(const Options& options) {
    start(options, !options.noSibling);
    host::repl::runPrompt();
    return success;
}

int records(const Options& options) {
    start(options, false); // whose records are another plugin's
    if (options.json) {
        host::listRecordsAsJson(host::registry(), std::cout);
    } else {
        host::listRecords(host::registry(), std::cout);
    }
    return success;
}

// The options, which the parser fills, must outlive the application.
CLI::App* addBrowse(CLI::App& application, host::commands::BrowseOptions& options) {
    CLI::App* const command =
        application.add_subcommand("browse", "Show the classes, a class or a member, and what it is for");
    command->add_option("CLASS", options.className, "A class; without one all classes, a line each");
    command->add_option("MEMBER", options.member, "A property, method or constant of the class");
    command->add_flag("--markdown", options.markdown, "All classes as one Markdown page");
    return command;
}

CLI::App* addSwatches(CLI::App& application, host::commands::SwatchesOptions& options) {
    CLI::App* const command =
        application.add_subcommand("swatches", "Draw the system's colours, or those of a list, as a picture");
    command->add_option("PICTURE", options.picture, "The file to write, .svg or .png")->required();
    CLI::Option* const list =
        command->add_option("--list", options.list, "Draw colours of the list in this file")->type_name("FILE");
    CLI::Option* const key = command->add_option("--key", options.keys, "A colour's key in the list; may be repeated")
                                 ->type_name("NAME")
                                 ->expected(1)
                                 ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    list->needs(key);
    key->needs(list);
    command->add_option("--spaces", options.color, "Draw this colour, #RRGGBB or #RRGGBBAA, in every named space")
        ->type_name("COLOR")
        ->excludes(list);
    return command;
}

} // namespace

int main(int argc, char** argv) {
    Options options;
    CLI::App app("Loads a plugin as its host would and runs programs of the host language with it.", "chromahost");
    app.footer(footer);
    app.require_subcommand(0, 1);
    app.fallthrough();
    app.add_option("--plugin", options.plugins, "A plugin library, by default the one in ../lib; may be repeated")
        ->type_name("PATH")
        ->expected(1)
        ->allow_extra_args(false) // what follows the value is the program
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->default_str("libchromabridge.so");
    app.add_option("--without", options.host.without, "An entry point that the host shall not have; may be repeated")
        ->type_name("NAME")
        ->expected(1)
        ->allow_extra_args(false) // what follows the value is the program
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    app.add_option("--host-version", options.host.version,
                   "The version that the host reports, which decides the record layout")
        ->type_name("V")
        ->capture_default_str();

    CLI::App* const runCommand = app.add_subcommand("run", "Run a program");
    runCommand->add_option("FILE", options.program, "The program")->required();
    runCommand->add_flag("--no-sibling", options.noSibling,
                         "Leave the sibling plugin out, which has NSExceptionZRX, NSImageZRX and the instance registry");
    runCommand->add_flag("--check-leaks", options.checkLeaks, "Fail when host objects or strings are left at the end");
    CLI::App* const checkCommand = app.add_subcommand("check", "Report all errors in a program without running it");
    checkCommand->add_option("FILE", options.program, "The program")->required();
    checkCommand->add_flag("--no-sibling", options.noSibling, "Leave the sibling plugin out");
    CLI::App* const promptCommand = app.add_subcommand("repl", "Run statements as they are typed, and show values");
    promptCommand->add_flag("--no-sibling", options.noSibling, "Leave the sibling plugin out");
    CLI::App* const recordsCommand = app.add_subcommand("records", "List the class records as the host received them");
    recordsCommand->add_flag("--json", options.json, "As JSON");

    host::commands::BrowseOptions browsing;
    CLI::App* const browseCommand = addBrowse(app, browsing);
    host::commands::SwatchesOptions drawing;
    CLI::App* const swatchesCommand = addSwatches(app, drawing);

    try {
        app.parse(argc, argv);
        if (app.get_subcommands().empty()) throw CLI::RequiredError("A command (--help lists them)");
        if (options.plugins.empty()) options.plugins.push_back(host::bundledPlugin("libchromabridge.so"));
        if (browseCommand->parsed()) {
            start(options, true);
            return host::commands::browse(browsing, std::cout);
        }
        if (swatchesCommand->parsed()) {
            start(options, true);
            return host::commands::swatches(drawing);
        }
        if (checkCommand->parsed()) return check(options);
        if (promptCommand->parsed()) return prompt(options);
        return runCommand->parsed() ? run(options) : records(options);
    } catch (const CLI::CallForHelp& help) {
        return app.exit(help);
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
