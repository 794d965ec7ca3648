#include "language/language.h"

#include "language/checker.h"
#include "language/frame.h"
#include "language/parser.h"

#include "model/classes.h"
#include "model/platform.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>

namespace host::language {
namespace {

// None when there are errors. The syntax tree is gone afterwards.
std::optional<Program> compile(const Source& source, Diagnostics& diagnostics) {
    const std::optional<syntax::Block> block = parse(source, diagnostics);
    return block ? check(*block, diagnostics) : std::nullopt;
}

std::string describe(const Raised& raised) {
    const std::string message = exceptionMessage(raised.exception());
    return "uncaught " + raised.exception()->info->name() + (message.empty() ? "" : ": " + message);
}

int run(const Source& source, const Program& program, std::ostream& output, std::ostream& errors) {
    const platform::AutoreleasePool pool;
    Frame frame(program.variableCount, output);
    try {
        program.body->execute(frame);
    } catch (const Raised& raised) {
        output.flush();
        errors << source.report(raised.offset(), describe(raised));
        return 1;
    }
    output.flush();
    return 0;
}

} // namespace

int runText(const std::string& name, std::string text, std::ostream& output, std::ostream& errors) {
    const Source source(name, std::move(text));
    Diagnostics diagnostics;
    const std::optional<Program> program = compile(source, diagnostics);
    if (program) return run(source, *program, output, errors);
    errors << diagnostics.report(source);
    return 1;
}

int runFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string text;
    std::array<char, 1 << 16> chunk;
    while (file.read(chunk.data(), chunk.size()), file.gcount() > 0)
        text.append(chunk.data(), static_cast<std::size_t>(file.gcount()));
    if (!file.is_open() || file.bad()) {
        std::cerr << path << ": error: cannot be read: " << std::strerror(errno) << "\n";
        return 1;
    }
    return runText(path, std::move(text), std::cout, std::cerr);
}

} // namespace host::language
