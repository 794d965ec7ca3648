// How the prompt shows the value of an expression.
#pragma once

#include "language/presentation.h"
#include "repl/swatch.h"

#include <iosfwd>

namespace host::repl {

// Text as the literal that reads back, objects as they describe themselves, arrays of objects and of colours with a line for
// each element. Colours have a swatch in front where the terminal shows any.
class ValuePresenter final : public language::Presenter {
public:
    ValuePresenter(std::ostream& output, ColorDepth depth) : output_(output), depth_(depth) {}
    void present(const Type& type, Slot value) override;

private:
    std::ostream& output_;
    ColorDepth depth_;
};

} // namespace host::repl
