#include "commands/swatches.h"

#include "swatches/pages.h"

namespace host::commands {

CLI::App* addSwatches(CLI::App& application, SwatchesOptions& options) {
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

int swatches(const SwatchesOptions& options) {
    using namespace host::swatches;
    writePicture(!options.list.empty()    ? colorListPage(options.list, options.keys)
                 : !options.color.empty() ? spacesPage(colorOfHex(options.color))
                                          : systemColorPage(),
                 options.picture);
    return 0;
}

} // namespace host::commands
