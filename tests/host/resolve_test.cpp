#include "model/resolve.h"

#include "host_test.h"

using namespace host;

namespace {

using Resolve = StartedHost;
using Names = std::vector<std::string>;

// Returns arguments of the named types. "&" marks a variable.
std::vector<Argument> argumentsOf(const Names& types) {
    std::vector<Argument> arguments;
    for (const std::string& type : types) {
        const bool variable = type[0] == '&';
        arguments.push_back({type == "Nil" ? Type::nil() : parseType(type.substr(variable ? 1 : 0)), variable});
    }
    return arguments;
}

// Methods that are declared but never called. The declarations must outlive this object.
struct Overloads {
    std::vector<Method> methods;
    OverloadSet set;

    explicit Overloads(const Names& declarations) : methods(declarations.size()) {
        for (std::size_t i = 0; i < methods.size(); ++i) {
            methods[i].declaration = declarations[i].c_str();
            methods[i].signature = parseSignature(declarations[i]);
            set.push_back(&methods[i]);
        }
    }
    Resolution resolve(const Names& types) const { return resolveCall("X.f", set, argumentsOf(types)); }
};

const Names componentForms = {"f(s as NSColorSpaceZRX, paramarray c as double)", "f(s as NSColorSpaceZRX, c() as double)"};
const Names byRefForms = {"f(byref r as double)", "f(byref r as double, byref a as double)"};
const Names alphaForms = {"f(white as double, alpha as double = 1.0)", "f(white as double, paramarray rest as double)"};

} // namespace

TEST_F(Resolve, ChoosesTheBestOverload) {
    // Declarations, and for each list of arguments the index of the chosen declaration, or -1 for none.
    const std::pair<Names, std::vector<std::pair<Names, int>>> cases[] = {
        {byRefForms, {{{"&Double"}, 0}, {{"&Double", "&Double"}, 1}}},
        {{"f(a as integer)", "f(a as double)", "f(a as string)", "f(a as variant)"},
         {{{"Integer"}, 0}, {{"Double"}, 1}, {{"String"}, 2}, {{"Variant"}, 3}, {{"Double()"}, 3}}},
        {{"f(a as variant)", "f(a as double)"}, {{{"Integer"}, 1}}},
        {{"f(a as Object)", "f(a as RuntimeException)"},
         {{{"IOException"}, 1}, {{"runtimeexception"}, 1}, {{"MemoryBlock"}, 0}}},
        {componentForms, {{{"NSColorSpaceZRX", "Double()"}, 1}, {{"NSColorSpaceZRX", "Double", "String"}, -1}}},
        {alphaForms, {{{"Double"}, 0}, {{"Double", "Double", "Double"}, 1}}},
        {{"f(a as integer)"}, {{{"Double"}, -1}}},
        {{"f(a as string)"}, {{{"Integer"}, -1}, {{"Nil"}, -1}}},
        {{"f(a as NilObjectException)"}, {{{"RuntimeException"}, -1}, {{"Nil"}, 0}}},
        {{"f(a() as integer)"}, {{{"Double()"}, -1}, {{"Nil"}, 0}}}};
    for (const auto& [declared, choices] : cases) {
        const Overloads overloads(declared);
        for (const auto& [types, chosen] : choices) {
            const Resolution found = overloads.resolve(types);
            EXPECT_EQ(found.method ? found.method - overloads.methods.data() : -1, chosen) << found.error;
        }
    }
    EXPECT_EQ(conversionTo(parseType("Variant"), Type(), Purpose::argument), std::nullopt);
}

TEST_F(Resolve, FillsDefaultsAndCollectsParamarrays) {
    const Overloads alpha(alphaForms), components(componentForms);
    EXPECT_EQ(alpha.resolve({"Double"}).bindings.at(1).source, Binding::Source::defaultValue);
    const Binding collected = components.resolve({"NSColorSpaceZRX", "Double", "Integer", "Variant"}).bindings.at(1);
    EXPECT_EQ(collected.source, Binding::Source::paramArray);
    EXPECT_EQ(collected.first, 1u);
    const std::vector<Conversion> expected = {Conversion::none, Conversion::integerToReal, Conversion::fromVariant};
    EXPECT_EQ(collected.conversions, expected);
    EXPECT_TRUE(components.resolve({"NSColorSpaceZRX"}).bindings.at(1).conversions.empty());
}

TEST_F(Resolve, ReportsWhyACallIsInvalid) {
    EXPECT_EQ(Overloads(byRefForms).resolve({"&Integer"}).error,
              "X.f cannot be called with (Integer): argument 1 must be a variable of type Double. Declared:\n    " +
                  byRefForms[0] + "\n    " + byRefForms[1]);
    EXPECT_EQ(Overloads(Names{"f(File as Folderitem)", "f(Data as Memoryblock)"}).resolve({"Nil"}).error,
              "X.f called with (Nil) could mean any of:\n    f(File as Folderitem)\n    f(Data as Memoryblock)");
    EXPECT_EQ(Overloads(Names()).resolve({}).error, "X.f does not exist.");
}

TEST_F(Resolve, AllowsConstructionWithoutAConstructor) {
    const ClassInfo& block = *registry().find("MemoryBlock");
    EXPECT_EQ(resolveConstruction(block, {}).method, nullptr);
    EXPECT_EQ(resolveConstruction(block, {}).error, "");
    // Construction without arguments calls a Constructor whose parameters all have defaults.
    EXPECT_NE(resolveConstruction(*registry().find("RuntimeException"), {}).method, nullptr);
}
