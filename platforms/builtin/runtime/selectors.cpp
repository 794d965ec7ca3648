#include "runtime/selectors.h"

#include "runtime/bootstrap.h"
#include "runtime/exhaustion.h"
#include "runtime/export.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <mutex>
#include <string_view>
#include <unordered_map>

namespace chroma::builtin {
namespace {

std::mutex selectorLock;
std::atomic<std::uint32_t> registeredSelectors{0};

// Never destroyed: selectors must outlive every static object that may still send messages while the process exits.
std::unordered_map<std::string_view, SEL>& selectorsByName() {
    static auto* const selectors = new std::unordered_map<std::string_view, SEL>;
    return *selectors;
}

} // namespace

SEL internSelector(const char* name) {
    const std::lock_guard<std::mutex> lock(selectorLock);
    auto& selectors = selectorsByName();
    const auto known = selectors.find(name);
    if (known != selectors.end()) return known->second;

    const std::size_t length = std::strlen(name);
    auto copy = std::make_unique<char[]>(length + 1);
    std::memcpy(copy.get(), name, length + 1);
    auto selector =
        std::make_unique<SelectorEntry>(SelectorEntry{copy.get(), registeredSelectors.load(std::memory_order_relaxed)});
    selectors.emplace(std::string_view(copy.get(), length), selector.get());
    copy.release();
    registeredSelectors.fetch_add(1, std::memory_order_release);
    return selector.release();
}

std::uint32_t selectorCount() { return registeredSelectors.load(std::memory_order_acquire); }

} // namespace chroma::builtin

namespace chroma {

BUILTIN_EXPORT SEL sel_registerName(const char* name) {
    builtin::ensurePlatform();
    return builtin::orNull([&] { return builtin::internSelector(name); });
}

BUILTIN_EXPORT const char* sel_getName(SEL selector) { return selector ? selector->name : "<null selector>"; }

} // namespace chroma
