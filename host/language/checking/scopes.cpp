#include "language/checking/scopes.h"

#include <utility>

namespace host::language {

std::vector<ScopeVariable> Scopes::close() {
    std::vector<ScopeVariable> counted = std::move(blocks_.back().counted);
    blocks_.pop_back();
    return counted;
}

void Scopes::beginProcedure() {
    procedureBlock_ = blocks_.size();
    procedureCount_ = 0;
}

std::size_t Scopes::endProcedure() {
    procedureBlock_ = 0;
    return procedureCount_;
}

const Variable* Scopes::findFrom(std::size_t firstBlock, std::string_view name) const {
    for (std::size_t i = blocks_.size(); i-- > firstBlock;) {
        const auto found = blocks_[i].variables.find(name);
        if (found != blocks_[i].variables.end()) return &found->second;
    }
    return nullptr;
}

const Variable* Scopes::find(std::string_view name) const { return findFrom(0, name); }
const Variable* Scopes::findDeclared(std::string_view name) const { return findFrom(procedureBlock_, name); }

const Variable& Scopes::declare(std::string_view name, Type type, Offset offset) {
    const VariablePlace place = declareHidden(type);
    return blocks_.back()
        .variables.insert_or_assign(std::string(name), Variable{place, std::move(type), offset})
        .first->second;
}

const Variable& Scopes::declareByReference(std::string_view name, Type type, Offset offset) {
    VariablePlace place = newPlace();
    place.storage = VariablePlace::Storage::byReference;
    return blocks_.back()
        .variables.insert_or_assign(std::string(name), Variable{place, std::move(type), offset})
        .first->second;
}

void Scopes::declareConstant(std::string_view name, Literal value, Offset offset) {
    Type type = value.type();
    blocks_.back().variables.insert_or_assign(std::string(name), Variable{{}, std::move(type), offset, std::move(value)});
}

VariablePlace Scopes::declareHidden(const Type& type) {
    const VariablePlace place = newPlace();
    const Counting counting = countingOf(type);
    if (counting != Counting::none) blocks_.back().counted.push_back({place, counting});
    return place;
}

VariablePlace Scopes::newPlace() {
    if (inProcedure()) return {VariablePlace::Storage::procedure, procedureCount_++};
    return {VariablePlace::Storage::program, programCount_++};
}

std::vector<std::string> Scopes::names() const {
    std::vector<std::string> names;
    for (const Block& block : blocks_) {
        for (const auto& entry : block.variables)
            names.push_back(entry.first);
    }
    return names;
}

void Scopes::offerNames(NearestName& nearest) const {
    for (const std::string& name : names())
        nearest.offer(name);
}

} // namespace host::language
