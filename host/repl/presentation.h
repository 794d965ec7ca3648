// Shows the values of expressions at the prompt.
#pragma once

#include "language/presentation.h"
#include "repl/swatch.h"

#include <iosfwd>

namespace host::repl {

// Writes text as a literal that can be read back, and objects as they describe themselves. Arrays of objects and of colours
// have a line for each element. Colours have a swatch before them if the terminal shows colours.
class ValuePresenter final : public language::Presenter {
public:
    ValuePresenter(std::ostream& output, ColorDepth depth) : output_(output), depth_(depth) {}
    void present(const Type& type, Slot value) override;

private:
    std::ostream& output_;
    ColorDepth depth_;
};

} // namespace host::repl
