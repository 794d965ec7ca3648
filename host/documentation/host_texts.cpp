// The members of the sibling plugin's classes and of the host's built-in classes.
#include "documentation/texts.h"

namespace host::documentation {

std::vector<ClassText> siblingTexts() {
    return {
        {"NSExceptionZRX",
         "A system exception, raised as an exception of the host; its Message is the reason.",
         {
             {"name", "The exception's name, such as `NSInvalidArgumentException`."},
             {"reason", "A readable explanation of the failure."},
             {"Handle", "The address of the wrapped NSException; 0 in an empty object."},
         }},
        {"NSImageZRX",
         "An image, from which a pattern can be created.",
         {
             {"Constructor", "Creates an image of that size in points. If there is a colour, it fills the image."},
             {"width", "The width in points."},
             {"height", "The height in points."},
             {"Handle", "The address of the wrapped NSImage; 0 in an empty object."},
             {"backgroundColor", "The colour that fills the image, or Nil if there is none."},
         }},
    };
}

std::vector<ClassText> builtInTexts() {
    return {
        {"RuntimeException",
         "The base class of all exceptions, which Catch catches.",
         {
             {"Constructor", "Creates an exception that a Raise statement can raise."},
             {"Message", "A readable explanation of the failure."},
             {"ErrorNumber", "The number of the error, or 0 if it has none."},
             {"Stack", "The place where the exception was raised and the calls around it, one per line; empty until a Catch "
                       "catches the exception."},
         }},
        {"OutOfBoundsException", "A value or an index outside its range.", {}},
        {"NilObjectException", "A member of Nil was used.", {}},
        {"UnsupportedOperationException", "The object does not support the operation.", {}},
        {"OutOfMemoryException", "There is no memory left.", {}},
        {"IllegalCastException", "An object was used as an instance of a class that it does not belong to.", {}},
        {"TypeMismatchException", "A variant or a text was used as a type that it does not contain.", {}},
        {"DivideByZeroException", "An integer was divided by 0.", {}},
        {"StackOverflowException", "Calls were nested too deeply.", {}},
        {"KeyNotFoundException", "The key does not exist.", {}},
        {"IOException", "A file could not be read, written or removed.", {}},
        {"MemoryBlock",
         "A piece of memory, such as an ICC profile.",
         {
             {"Constructor", "Creates a block of that many bytes, all 0."},
             {"Size", "The number of bytes. Setting it truncates the block or appends bytes of 0."},
             {"Byte", "The byte at an offset counted from 0, as a number from 0 to 255."},
             {"LittleEndian", "Whether numbers are stored with the low byte first; True in a new block."},
             {"Int8Value", "The signed number in the byte at an offset."},
             {"UInt8Value", "The unsigned number in the byte at an offset."},
             {"Int16Value", "The signed number in two bytes."},
             {"UInt16Value", "The unsigned number in two bytes."},
             {"Int32Value", "The signed number in four bytes."},
             {"SingleValue", "The single-precision number in four bytes."},
             {"DoubleValue", "The double-precision number in eight bytes."},
             {"StringValue",
              "A number of bytes from an offset as a string. When a shorter string is assigned, bytes of 0 fill the rest; "
              "a longer one raises an OutOfBoundsException."},
         }},
        {"Dictionary",
         "A collection of values with keys. Keys are numbers, text, colours, True or False, and objects; keys that "
         "`=` finds equal are the same key. `For Each` visits the keys in the order in which they were first added.",
         {
             {"Count", "The number of keys."},
             {"Value", "The value of a key; a missing key raises a KeyNotFoundException. Setting the value adds the key."},
             {"Lookup", "Returns the value of a key, or the other value if the key is missing."},
             {"HasKey", "Returns whether the key exists."},
             {"Remove", "Removes a key and its value; a missing key raises a KeyNotFoundException."},
             {"Clear", "Removes all keys."},
             {"Keys", "Returns the keys as a new array."},
             {"Values", "Returns the values as a new array, in the order of the keys."},
         }},
        {"FolderItem",
         "A file or a folder, which does not need to exist.",
         {
             {"Constructor", "Creates an item for a path; a relative path starts from the working folder."},
             {"Name", "The last part of the path."},
             {"URLPath", "The path as a `file:` URL."},
             {"Exists", "Whether the file or the folder exists."},
             {"IsFolder", "Whether the item is a folder."},
             {"Length", "The file's size in bytes."},
             {"Parent", "The folder that contains the item, or Nil for the topmost folder."},
             {"Child", "Returns the item of that name in this folder; it does not need to exist."},
             {"NativePath", "The full path."},
             {"Count", "The number of files and folders in this folder. Raises an IOException if this is not a folder."},
             {"ReadBytes", "Returns the file's bytes. Raises an IOException if the file cannot be read."},
             {"WriteBytes",
              "Replaces the file's contents with these bytes. If that fails, raises an IOException and leaves the file "
              "unchanged."},
             {"ReadText",
              "Returns the file's contents as UTF-8 text, without a byte order mark. Raises an IOException if the file "
              "cannot be read or is not valid UTF-8."},
             {"WriteText",
              "Replaces the file's contents with the text in UTF-8. If that fails or the text is invalid in its encoding, "
              "raises an IOException and leaves the file unchanged."},
             {"Children",
              "Returns the files and folders in this folder, sorted by name. Raises an IOException if this is not a "
              "folder."},
             {"CreateFolder",
              "Creates the folder if it does not exist yet. Its parent must exist. Raises an IOException if that fails."},
             {"Delete", "Removes the file or the empty folder. Raises an IOException if that fails."},
         }},
    };
}

} // namespace host::documentation
