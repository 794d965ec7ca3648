#include "language/scopes.h"

namespace host::language {

std::vector<ScopeVariable> Scopes::close() {
    std::vector<ScopeVariable> counted = std::move(blocks_.back().counted);
    blocks_.pop_back();
    return counted;
}

const Variable* Scopes::find(std::string_view name) const {
    for (auto block = blocks_.rbegin(); block != blocks_.rend(); ++block) {
        const auto found = block->variables.find(name);
        if (found != block->variables.end()) return &found->second;
    }
    return nullptr;
}

const Variable& Scopes::declare(std::string_view name, Type type, Offset offset) {
    const std::size_t index = declareHidden(type);
    return blocks_.back().variables.emplace(name, Variable{index, std::move(type), offset}).first->second;
}

std::size_t Scopes::declareHidden(const Type& type) {
    const Counting counting = countingOf(type);
    if (counting != Counting::none) blocks_.back().counted.push_back({count_, counting});
    return count_++;
}

void Scopes::offerNames(NearestName& nearest) const {
    for (const Block& block : blocks_)
        for (const auto& [name, variable] : block.variables)
            nearest.offer(name);
}

} // namespace host::language
