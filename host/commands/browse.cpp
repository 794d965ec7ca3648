#include "commands/browse.h"

#include "documentation/browser.h"

namespace host::commands {

CLI::App* addBrowse(CLI::App& application, BrowseOptions& options) {
    CLI::App* const command =
        application.add_subcommand("browse", "Show the classes, a class or a member, and what it is for");
    command->add_option("CLASS", options.className, "A class; without one all classes, a line each");
    command->add_option("MEMBER", options.member, "A property, method or constant of the class");
    command->add_flag("--markdown", options.markdown, "All classes as one Markdown page");
    return command;
}

int browse(const BrowseOptions& options, std::ostream& out) {
    if (options.markdown) {
        documentation::writeReference(registry(), out);
    } else if (options.className.empty()) {
        documentation::browseClasses(registry(), out);
    } else if (options.member.empty()) {
        documentation::browseClass(registry(), options.className, out);
    } else {
        documentation::browseMember(registry(), options.className, options.member, out);
    }
    return 0;
}

} // namespace host::commands
