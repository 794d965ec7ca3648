// The command line of the reference host.
#include "commands/commands.h"

#include <CLI/CLI.hpp> // slow to compile, so only here

#include <iostream>
#include <stdexcept>

namespace {

using namespace host::commands;

constexpr const char* footer = R"(
Exit codes: 0 success, 1 a failure that stderr explains, 2 wrong usage, 3 leaks found.

Example:
  printf 'Dim c As NSColorZRX = NSColorZRX.redColor\nPrint c.redComponent\n' > red.txt
  chromahost run red.txt
  chromahost records --host-version 2011.0
  chromahost run red.txt --without memoryBlockGetPtr --check-leaks)";

// The options, which the parser fills, must outlive the application.
CLI::App* addBrowse(CLI::App& application, BrowseOptions& options) {
    CLI::App* const command = application.add_subcommand(
        "browse", "Show what there is, a class, a member, a function or a keyword, and what it is for");
    command->add_option("NAME", options.name, "A class, a function or another word; without one all that there is");
    command->add_option("MEMBER", options.member, "A property, method or constant of the class");
    command->add_flag("--markdown", options.markdown, "Everything as one Markdown page");
    return command;
}

CLI::App* addSwatches(CLI::App& application, SwatchesOptions& options) {
    CLI::App* const command =
        application.add_subcommand("swatches", "Show the system's colours, those of a list, or one in every space");
    command->add_option("PICTURE", options.picture,
                        "The file to write, .svg or .png; - for standard output; without one, text for the terminal");
    command->add_option("--format", options.form, "What to write: svg, png or text")
        ->type_name("FORM")
        ->check(CLI::IsMember({"svg", "png", "text"}).description(""));
    CLI::Option* const list =
        command->add_option("--list", options.list, "The colours of the list in this file")->type_name("FILE");
    command->add_option("--key", options.keys, "Only the colour under this key of the list; may be repeated")
        ->type_name("NAME")
        ->expected(1)
        ->allow_extra_args(false)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->needs(list);
    command
        ->add_option("--spaces", options.color,
                     "This colour in every space: #F80, orange, rgb(255 128 0 / 50%), color(display-p3 1 0.5 0), redColor")
        ->type_name("COLOR")
        ->excludes(list);
    command->add_flag("--dark", options.dark, "On a dark page");
    return command;
}

} // namespace

int main(int argc, char** argv) {
    Start start;
    std::string program; // to check
    RunOptions running;
    bool json = false;
    BrowseOptions browsing;
    SwatchesOptions drawing;
    CLI::App app("Loads a plugin as its host would and runs programs of the host language with it.", "chromahost");
    app.footer(footer);
    app.require_subcommand(0, 1);
    app.fallthrough();
    app.add_option("--plugin", start.plugins, "A plugin library, by default the one in ../lib; may be repeated")
        ->type_name("PATH")
        ->expected(1)
        ->allow_extra_args(false) // what follows the value is the program
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->default_str("libchromabridge.so");
    app.add_option("--without", start.host.without, "An entry point that the host shall not have; may be repeated")
        ->type_name("NAME")
        ->expected(1)
        ->allow_extra_args(false) // what follows the value is the program
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    app.add_option("--host-version", start.host.version,
                   "The version that the host reports, which decides the record layout")
        ->type_name("V")
        ->capture_default_str();

    CLI::App* const runCommand = app.add_subcommand("run", "Run a program");
    runCommand->add_option("FILE", running.program, "The program")->required();
    runCommand->add_flag("--no-sibling", start.noSibling,
                         "Leave the sibling plugin out, which has NSExceptionZRX, NSImageZRX and the instance registry");
    runCommand->add_flag("--check-leaks", running.checkLeaks, "Fail when host objects or strings are left at the end");
    CLI::App* const checkCommand = app.add_subcommand("check", "Report all errors in a program without running it");
    checkCommand->add_option("FILE", program, "The program")->required();
    checkCommand->add_flag("--no-sibling", start.noSibling, "Leave the sibling plugin out");
    CLI::App* const promptCommand = app.add_subcommand("repl", "Run statements as they are typed, and show values");
    promptCommand->add_flag("--no-sibling", start.noSibling, "Leave the sibling plugin out");
    CLI::App* const recordsCommand = app.add_subcommand("records", "List the class records as the host received them");
    recordsCommand->add_flag("--json", json, "As JSON");

    CLI::App* const browseCommand = addBrowse(app, browsing);
    CLI::App* const swatchesCommand = addSwatches(app, drawing);

    try {
        app.parse(argc, argv);
        if (app.get_subcommands().empty()) throw CLI::RequiredError("A command (--help lists them)");
        if (browseCommand->parsed()) return browse(start, browsing);
        if (swatchesCommand->parsed()) return swatches(start, drawing);
        if (checkCommand->parsed()) return check(start, program);
        if (promptCommand->parsed()) return prompt(start);
        return runCommand->parsed() ? run(start, running) : records(start, json);
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
