#include "model/records.h"

namespace host {

static_assert(offsetof(REALclassDefinition, sharedMethodCount) == offsetof(REALclassDefinitionLegacy, sharedMethodCount));

namespace {

template <class Legacy, class Current>
const Legacy& memberAt(const Legacy* members, bool isLegacy, std::size_t index) {
    if (isLegacy) return members[index];
    return reinterpret_cast<const Legacy&>(reinterpret_cast<const Current*>(members)[index]);
}

std::size_t countOf(const void* members, REALword count) {
    return members && count > 0 ? static_cast<std::size_t>(count) : 0;
}

} // namespace

RecordView::RecordView(const REALclassDefinition& record)
    : head_(reinterpret_cast<const REALclassDefinitionLegacy*>(&record)) {}

bool RecordView::isLegacy() const { return head_->version == REALcontrolVersionLegacy; }

std::size_t RecordView::propertyCount() const { return countOf(head_->properties, head_->propertyCount); }
std::size_t RecordView::methodCount() const { return countOf(head_->methods, head_->methodCount); }
std::size_t RecordView::constantCount() const { return countOf(head_->constants, head_->constantCount); }
std::size_t RecordView::sharedMethodCount() const { return countOf(head_->sharedMethods, head_->sharedMethodCount); }

const REALpropertyLegacy& RecordView::property(std::size_t index) const {
    return memberAt<REALpropertyLegacy, REALproperty>(head_->properties, isLegacy(), index);
}
const REALmethodDefinitionLegacy& RecordView::method(std::size_t index) const {
    return memberAt<REALmethodDefinitionLegacy, REALmethodDefinition>(head_->methods, isLegacy(), index);
}
const REALconstantLegacy& RecordView::constant(std::size_t index) const {
    return memberAt<REALconstantLegacy, REALconstant>(head_->constants, isLegacy(), index);
}
const REALmethodDefinitionLegacy& RecordView::sharedMethod(std::size_t index) const {
    return memberAt<REALmethodDefinitionLegacy, REALmethodDefinition>(head_->sharedMethods, isLegacy(), index);
}

std::vector<const char*> RecordView::unknownMembers() const {
    std::vector<const char*> found;
    const auto note = [&](REALword count, const char* what) {
        if (count != 0) found.push_back(what);
    };
    note(head_->eventCount, "events");
    note(head_->eventInstanceCount, "event instances");
    note(head_->interfaces ? 1 : 0, "interfaces");
    note(head_->bindingCount, "bindings");
    note(head_->sharedPropertyCount, "shared properties");
    if (isLegacy()) return found;
    const auto& current = reinterpret_cast<const REALclassDefinition&>(*head_);
    note(current.delegateCount, "delegates");
    note(current.enumerationCount, "enumerations");
    return found;
}

} // namespace host
