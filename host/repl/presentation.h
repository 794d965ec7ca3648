// How the prompt shows the value of an expression.
#pragma once

#include "language/running/frame.h"

#include <iosfwd>

namespace host::repl {

// Objects with a description show it. A colour, and an object with a colorValue, has a swatch in front where swatches are
// wanted.
class ValuePresenter final : public language::Presenter {
public:
    ValuePresenter(std::ostream& output, bool swatches) : output_(output), swatches_(swatches) {}
    void present(const Type& type, Slot value) override;

private:
    std::ostream& output_;
    bool swatches_;
};

// Whether stdout is a terminal with colours, and the user has not forbidden them by NO_COLOR.
bool outputHasColors();

} // namespace host::repl
