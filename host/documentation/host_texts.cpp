// The members of the sibling plugin's classes and of the host's built-in classes.
#include "documentation/texts.h"

namespace host::documentation {

std::vector<ClassText> siblingTexts() {
    return {
        {"NSExceptionZRX",
         "A failure of the system, as an exception of the host; its Message is the reason.",
         {
             {"name", "The kind of failure, such as `NSInvalidArgumentException`."},
             {"reason", "What went wrong, in words."},
             {"Handle", "The address of the NSException inside; 0 in an empty object."},
         }},
        {"NSImageZRX",
         "An image, to make a pattern of.",
         {
             {"Constructor", "Makes an image of that size in points, filled with a colour when there is one."},
             {"width", "The width in points."},
             {"height", "The height in points."},
             {"Handle", "The address of the NSImage inside; 0 in an empty object."},
             {"backgroundColor", "The colour that fills the image; Nil when there is none."},
         }},
    };
}

std::vector<ClassText> builtInTexts() {
    return {
        {"RuntimeException",
         "What Catch catches. Every other exception descends from it.",
         {
             {"Constructor", "Makes an exception, to be raised."},
             {"Message", "What went wrong, in words."},
             {"ErrorNumber", "A number for the error, 0 where there is none."},
             {"Stack", "Where it was raised, and the calls around that place, a line each; empty until a Catch takes it."},
         }},
        {"OutOfBoundsException", "A value or an index outside its range.", {}},
        {"NilObjectException", "A member of Nil was used.", {}},
        {"UnsupportedOperationException", "Something that the object does not do.", {}},
        {"OutOfMemoryException", "There is no memory left.", {}},
        {"IllegalCastException", "An object was taken for one of a class that it is not of.", {}},
        {"TypeMismatchException", "A variant or a text was taken for a type that it does not hold.", {}},
        {"DivideByZeroException", "An integer was divided by 0.", {}},
        {"StackOverflowException", "Calls went too deep.", {}},
        {"KeyNotFoundException", "There is nothing under that key.", {}},
        {"IOException", "A file could not be read, written or removed.", {}},
        {"MemoryBlock",
         "A piece of memory, such as an ICC profile.",
         {
             {"Constructor", "Makes a block of so many bytes, all 0."},
             {"Size", "How many bytes the block has. Setting it cuts the block or adds bytes of 0."},
             {"Byte", "The byte at an offset counted from 0, as a number from 0 to 255."},
             {"LittleEndian", "Whether numbers lie in the block with their low byte first, as they do at first."},
             {"Int8Value", "The signed number in the byte at an offset."},
             {"UInt8Value", "The unsigned number in the byte at an offset."},
             {"Int16Value", "The signed number in two bytes."},
             {"UInt16Value", "The unsigned number in two bytes."},
             {"Int32Value", "The signed number in four bytes."},
             {"SingleValue", "The single-precision number in four bytes."},
             {"DoubleValue", "The double-precision number in eight bytes."},
             {"StringValue",
              "So many bytes from an offset as a string. A shorter string that is assigned is filled up with bytes of 0, a longer "
              "one raises an OutOfBoundsException."},
         }},
        {"Dictionary",
         "Values by keys. Keys are numbers, text, colours, True or False, and objects; those that `=` finds equal are one. `For Each` "
         "goes through the keys, in the order in which they were first entered.",
         {
             {"Count", "How many keys there are."},
             {"Value", "The value of a key; what is not there raises a KeyNotFoundException. Setting it enters the key."},
             {"Lookup", "The value of a key, or the other value when it is not there."},
             {"HasKey", "Whether there is such a key."},
             {"Remove", "Takes a key and its value out; what is not there raises a KeyNotFoundException."},
             {"Clear", "Takes all keys out."},
             {"Keys", "The keys as a new array."},
             {"Values", "Their values as a new array, in the order of the keys."},
         }},
        {"FolderItem",
         "A file or a folder, which need not exist.",
         {
             {"Constructor", "Names the file; a relative path starts from the working folder."},
             {"Name", "The last part of the path."},
             {"URLPath", "The path as a `file:` URL."},
             {"Exists", "Whether there is such a file."},
             {"IsFolder", "Whether it is a folder."},
             {"Length", "The file's size in bytes."},
             {"Parent", "The folder that it is in; Nil for the topmost."},
             {"Child", "What has that name in this folder; it need not exist."},
             {"NativePath", "The whole path."},
             {"Count", "How many files and folders are in this folder; of what is none, an IOException."},
             {"ReadBytes", "The file's bytes; a file that cannot be read raises an IOException."},
             {"WriteBytes", "Replaces the file by these bytes, or raises an IOException and leaves the file as it was."},
             {"ReadText",
              "The file as text in UTF-8, without a byte order mark; what is no such text raises an IOException."},
             {"WriteText",
              "Replaces the file by the text in UTF-8. Raises an IOException and leaves the file as it was when that fails, or when the text is "
              "invalid in its encoding."},
             {"Children", "The files and folders in this folder, by name; of what is none, an IOException."},
             {"CreateFolder",
              "Makes the folder, in one that exists, or raises an IOException. That there is one already is no error."},
             {"Delete", "Removes the file or the empty folder, or raises an IOException."},
         }},
    };
}

} // namespace host::documentation
