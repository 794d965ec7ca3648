#include "entries/leaks.h"

#include "model/classes.h"
#include "values/strings.h"

namespace host {

namespace {
void append(std::string& text, std::size_t count, const std::string& what) {
    if (!text.empty()) text += ", ";
    text += std::to_string(count) + " x " + what;
}
} // namespace

std::string describeLeaks() {
    std::string text;
    std::size_t others = liveObjectCount();
    for (const auto& info : registry().classes()) {
        if (info->liveObjects > 0) append(text, info->liveObjects, info->name());
        others -= info->liveObjects;
    }
    if (others > 0) append(text, others, "array or variant");
    if (liveStringCount() > 0) append(text, liveStringCount(), "String");
    return text;
}

} // namespace host
