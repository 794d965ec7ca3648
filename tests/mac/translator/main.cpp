// translate LIBRARY ARCHITECTURE: writes the library's slice as assembly, which goes on reading the library.
#include "assembly.h"

#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>

int main(int argc, char** argv) {
    using namespace translator;
    const std::string architecture = argc == 3 ? argv[2] : "";
    if (architecture != "x86_64" && architecture != "arm64") {
        std::cerr << "usage: translate LIBRARY x86_64|arm64\n";
        return 2;
    }
    const std::string path = argv[1];
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    try {
        if (!file) throw Refusal("it cannot be read");
        std::ostringstream assembly;
        writeAssembly(readImage(Bytes(bytes), architecture == "arm64" ? Architecture::arm64 : Architecture::x86_64), path,
                      assembly);
        std::cout << assembly.str();
        return std::cout.flush() ? 0 : 1;
    } catch (const Refusal& refusal) {
        std::cerr << "translate: " << path << " (" << architecture << ") is not translated: " << refusal.what() << "\n";
        return 1;
    }
}
