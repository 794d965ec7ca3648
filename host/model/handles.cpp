#include "model/handles.h"

#include "model/classes.h"
#include "model/exceptions.h"

#include <cstring>
#include <unordered_map>

namespace host {

namespace {

struct Account {
    unsigned char* word;
    HostInteger own;      // the plugin's own handle, which the plugin will release
    Owned<Object> lender; // the object whose handle is there now; null while it is the own handle
};

// Never destroyed: a program's last objects may outlive static storage.
auto& accounts = *new std::unordered_map<const Object*, Account>; // by living object whose handle a program has read
auto& owners = *new std::unordered_map<HostInteger, Object*>;     // the last object that returned the handle as its own

HostInteger at(const unsigned char* word) {
    HostInteger handle;
    std::memcpy(&handle, word, sizeof handle);
    return handle;
}

void put(unsigned char* word, HostInteger handle) { std::memcpy(word, &handle, sizeof handle); }

Account& accountOf(const Object* object, unsigned char* word) {
    Account& account = accounts[object];
    if (!account.lender) account = {word, at(word), {}};
    return account;
}

} // namespace

HostInteger readHandle(Object* object, unsigned char* word) {
    const HostInteger handle = at(word);
    if (handle != 0 && !accountOf(object, word).lender) owners[handle] = object;
    return handle;
}

void writeHandle(Object* object, const ClassInfo& info, unsigned char* word, HostInteger handle) {
    Account& account = accountOf(object, word);
    const auto owner = owners.find(handle);
    const bool isOwn = handle == account.own;
    if (!isOwn && (owner == owners.end() || !owner->second->info->isOrDescendsFrom(info))) {
        raise("UnsupportedOperationException", "Handle accepts only the handle of a living " + info.name() + ".");
        return;
    }
    const Owned<Object> before =
        std::exchange(account.lender, isOwn ? Owned<Object>() : Owned<Object>::shared(owner->second));
    put(word, handle); // afterwards the previous lender may be destroyed
}

Owned<Object> settleHandle(const Object* object) {
    const auto found = accounts.find(object);
    if (found == accounts.end()) return {};
    Account account = std::move(found->second);
    accounts.erase(found);
    if (account.lender) put(account.word, account.own);
    const auto owner = owners.find(account.own);
    if (owner != owners.end() && owner->second == object) owners.erase(owner);
    return std::move(account.lender);
}

} // namespace host
