// The members of NSColorListZRX.
#include "documentation/texts.h"

namespace host::documentation {

ClassText colorListText() {
    return {
        "NSColorListZRX",
        "An ordered list of colours, each under a key, that can be kept in a file. A new object is empty until Create or Load fills it.",
        {
            {"insertColor", "Puts a colour at an index, counted from 0; a key that the list has already moves there."},
            {"setColor", "Puts a colour under a key: in the place of the one there, or at the end."},
            {"colorWithKey", "The colour under a key; Nil when there is none."},
            {"removeColorWithKey", "Takes a colour out; an unknown key changes nothing."},
            {"writeToFile",
             "Writes the list to a file, or for an empty path to the user's folder of lists; False when it cannot be."},
            {"removeFile", "Removes the file that the list was last read from or written to; the list itself stays."},
            {"isEditable",
             "Whether the list can be changed; the system's own and those from write-protected files cannot, and changing one raises."},
            {"name", "The list's name."},
            {"Create",
             "Fills the object with a new list of that name, or with what is in a file; False, and an empty object, when that cannot be read."},
            {"Load",
             "Fills the object with the system's or the user's list of that name, which other objects share; False when there is none."},
        },
    };
}

} // namespace host::documentation
