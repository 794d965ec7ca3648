// The members of NSColorListZRX.
#include "documentation/texts.h"

namespace host::documentation {

ClassText colorListText() {
    return {
        "NSColorListZRX",
        "An ordered list of colours with keys, which can be saved in a file. A new object is empty until Create or "
        "Load fills it.",
        {
            {"insertColor",
             "Inserts a colour at an index, counted from 0. If the list already has the key, the key moves to that "
             "index."},
            {"setColor", "Sets the colour of a key: replaces the existing colour, or appends a new one."},
            {"colorWithKey", "Returns the colour of a key, or Nil if there is none."},
            {"removeColorWithKey", "Removes a colour; an unknown key changes nothing."},
            {"writeToFile",
             "Writes the list to a file, or to the user's folder of colour lists if the path is empty. Returns False if "
             "that fails."},
            {"removeFile",
             "Removes the file that the list was last read from or written to; the list itself does not change."},
            {"isEditable",
             "Whether the list can be changed. The system's lists and those from write-protected files cannot: changing "
             "one raises an exception."},
            {"name", "The list's name."},
            {"Create",
             "Fills the object with a new list of that name, or with the list in a file. Returns False and leaves the "
             "object empty if the file cannot be read."},
            {"Load",
             "Fills the object with the system's or the user's list of that name, which other objects share. Returns "
             "False if there is none."},
        },
    };
}

} // namespace host::documentation
