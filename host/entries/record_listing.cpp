#include "entries/record_listing.h"

#include "model/records.h"
#include "text/columns.h"
#include "text/json.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <ostream>

namespace host {

namespace {

using Json = nlohmann::ordered_json;

Json textOrNull(const char* text) { return text ? Json(text) : Json(); }

const char* accessorKind(REALfunction function) {
    if (!function) return "none";
    return function == REALstandardAccessor ? "standard" : "function";
}

// Returns one row for each of `count` members.
template <class Row>
Json rows(std::size_t count, Row row) {
    Json result = Json::array();
    for (std::size_t i = 0; i < count; ++i) {
        Json member = {{"index", i}};
        member.update(row(i));
        result.push_back(std::move(member));
    }
    return result;
}

Json describeMethod(const REALmethodDefinitionLegacy& method) {
    return {{"flags", method.flags},
            {"function", accessorKind(method.function)},
            {"setter", accessorKind(method.setter)},
            {"declaration", textOrNull(method.declaration)}};
}

Json describeProperty(const REALpropertyLegacy& property) {
    return {{"name", textOrNull(property.name)},
            {"type", textOrNull(property.type)},
            {"flags", property.flags},
            {"getter", accessorKind(property.getter)},
            {"setter", accessorKind(property.setter)},
            {"parameter", property.parameter}};
}

Json describeConstant(const REALconstantLegacy& constant) {
    return {{"flags", constant.flags}, {"value", constant.value}, {"declaration", textOrNull(constant.declaration)}};
}

Json describe(const REALclassDefinition& record) {
    const RecordView view(record);
    const REALclassDefinitionLegacy& head = view.head();
    return {
        {"class", textOrNull(head.name)},
        {"controlVersion", head.version},
        {"layout", view.isLegacy() ? "legacy" : "current"},
        {"superclass", textOrNull(head.superName)},
        {"instanceDataSize", head.instanceDataSize},
        {"instanceDataOffset", head.instanceDataOffset},
        {"constructor", accessorKind(head.constructor)},
        {"destructor", accessorKind(head.destructor)},
        {"flags", head.flags},
        {"properties", rows(view.propertyCount(), [&](std::size_t i) { return describeProperty(view.property(i)); })},
        {"methods", rows(view.methodCount(), [&](std::size_t i) { return describeMethod(view.method(i)); })},
        {"constants", rows(view.constantCount(), [&](std::size_t i) { return describeConstant(view.constant(i)); })},
        {"sharedMethods",
         rows(view.sharedMethodCount(), [&](std::size_t i) { return describeMethod(view.sharedMethod(i)); })},
    };
}

Json describeAll(const Registry& registry) {
    Json result = Json::array();
    for (const auto& info : registry.classes())
        if (!info->isBuiltIn()) result.push_back(describe(*info->record()));
    return result;
}

std::string plain(const Json& value) {
    if (value.is_null()) return "none";
    return value.is_string() ? value.get<std::string>() : value.dump();
}

// Prints rows below a heading of their keys; each column is as wide as its widest cell. A width of 0 has no limit.
void printTable(const std::string& title, const Json& table, std::size_t width, std::ostream& out) {
    if (table.empty()) return;
    out << "  " << title << " (" << table.size() << ")\n";
    std::vector<std::vector<std::string>> lines(table.size() + 1);
    for (const auto& column : table.front().items())
        lines[0].push_back(column.key());
    for (std::size_t row = 0; row < table.size(); ++row) {
        for (const auto& cell : table[row].items())
            lines[row + 1].push_back(plain(cell.value()));
    }
    std::vector<std::size_t> widths(lines[0].size());
    for (const auto& line : lines) {
        for (std::size_t i = 0; i < line.size(); ++i)
            widths[i] = std::max(widths[i], columnsOf(line[i]));
    }
    for (const auto& line : lines) {
        std::string text = "   ";
        for (std::size_t i = 0; i < line.size(); ++i)
            text += ' ' + (i + 1 < line.size() ? padded(line[i], widths[i] + 1) : line[i]);
        if (width > 0) text = shortened(text, width);
        out << text << '\n';
    }
}

void print(const Json& record, std::size_t width, std::ostream& out) {
    out << "class";
    for (const auto& field : record.items()) {
        if (field.value().is_array()) continue;
        if (field.key() != "class") out << ", " << field.key();
        out << ' ' << plain(field.value());
    }
    out << '\n';
    for (const auto& field : record.items())
        if (field.value().is_array()) printTable(field.key(), field.value(), width, out);
}

} // namespace

void listRecords(const Registry& registry, std::size_t width, std::ostream& out) {
    for (const Json& record : describeAll(registry))
        print(record, width, out);
}

void listRecordsAsJson(const Registry& registry, std::ostream& out) { writeJson(describeAll(registry), out); }

} // namespace host
