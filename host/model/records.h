// Reads class records in both layouts. Each legacy record contains the leading words of its current form, so the legacy
// types describe the common part; only the strides differ.
#pragma once

#include "chromabridge/host_abi.h"

#include <cstddef>
#include <vector>

namespace host {

// A view of a record that the plugin keeps for the life of the process. A null member array has no members.
class RecordView {
public:
    explicit RecordView(const REALclassDefinition& record);

    bool isLegacy() const;
    const REALclassDefinitionLegacy& head() const { return *head_; }

    // A count of 0 or less means that there are no members.
    std::size_t propertyCount() const;
    std::size_t methodCount() const;
    std::size_t constantCount() const;
    std::size_t sharedMethodCount() const;

    const REALpropertyLegacy& property(std::size_t index) const;
    const REALmethodDefinitionLegacy& method(std::size_t index) const;
    const REALconstantLegacy& constant(std::size_t index) const;
    const REALmethodDefinitionLegacy& sharedMethod(std::size_t index) const;

    // Returns the names of the record's members that this host does not use.
    std::vector<const char*> unknownMembers() const;

private:
    const REALclassDefinitionLegacy* head_;
};

} // namespace host
