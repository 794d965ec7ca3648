#include "model/leaks.h"

#include "model/classes.h"
#include "model/strings.h"

namespace host {

std::string describeLeaks() {
    std::string text;
    if (liveObjectCount() > 0) {
        std::size_t others = liveObjectCount(); // arrays and boxed variants
        text = std::to_string(others) + " objects (";
        for (const auto& info : registry().classes()) {
            if (info->liveObjects == 0) continue;
            text += std::to_string(info->liveObjects) + " " + info->name() + ", ";
            others -= info->liveObjects;
        }
        text += std::to_string(others) + " other)";
    }
    if (liveStringCount() > 0) text += (text.empty() ? "" : ", ") + std::to_string(liveStringCount()) + " strings";
    return text;
}

} // namespace host
