// Reading class records in both layouts. Each legacy record holds the leading words of its current form, so the legacy types
// describe what both have; only the strides differ.
#pragma once

#include "chromabridge/host_abi.h"

#include <cstddef>
#include <vector>

namespace host {

// A view of a record that the plugin keeps for the life of the process. Member arrays with a null pointer have no members.
class RecordView {
public:
    explicit RecordView(const REALclassDefinition& record);

    bool isLegacy() const;
    const REALclassDefinitionLegacy& head() const { return *head_; }

    // Members beyond a count of 0, and negative counts, do not exist.
    std::size_t propertyCount() const;
    std::size_t methodCount() const;
    std::size_t constantCount() const;
    std::size_t sharedMethodCount() const;

    const REALpropertyLegacy& property(std::size_t index) const;
    const REALmethodDefinitionLegacy& method(std::size_t index) const;
    const REALconstantLegacy& constant(std::size_t index) const;
    const REALmethodDefinitionLegacy& sharedMethod(std::size_t index) const;

    // What the record has beyond these: the names of members that this host gives no meaning to.
    std::vector<const char*> unknownMembers() const;

private:
    const REALclassDefinitionLegacy* head_;
};

} // namespace host
