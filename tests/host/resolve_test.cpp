#include "model/resolve.h"

#include "entry.h"

using namespace host;

namespace {

const Argument integer = {{Kind::Integer, false, {}}};
const Argument real = {{Kind::Double, false, {}}};
const Argument realVariable = {{Kind::Double, false, {}}, true};
const Argument integerVariable = {{Kind::Integer, false, {}}, true};
const Argument string = {{Kind::String, false, {}}};
const Argument reals = {{Kind::Double, true, {}}};
const Argument variant = {{Kind::Variant, false, {}}};
const Argument nil = {Type::nil()};
const Argument space = {Type::object("NSColorSpaceZRX")};

// Methods that are declared but never called.
class Overloads {
public:
    explicit Overloads(std::initializer_list<const char*> declarations) {
        for (const char* declaration : declarations) {
            Method method = {};
            method.declaration = declaration;
            method.signature = parseSignature(declaration);
            methods_.push_back(method);
        }
        for (const Method& method : methods_)
            set_.push_back(&method);
    }

    Resolution resolve(const std::vector<Argument>& arguments) const { return resolveCall("X.f", set_, arguments); }
    // The place of the chosen overload; -1 with an error.
    std::ptrdiff_t choice(const std::vector<Argument>& arguments) const {
        const Resolution resolution = resolve(arguments);
        EXPECT_EQ(resolution.method == nullptr, !resolution.error.empty());
        return resolution.method ? resolution.method - methods_.data() : -1;
    }

private:
    std::vector<Method> methods_;
    OverloadSet set_;
};

} // namespace

TEST(Resolve, TellsOverloadsApartByCountAndType) {
    startHost();
    const Overloads read(
        {"f(byref r as double, byref g as double)", "f(byref r as double, byref g as double, byref a as double)"});
    EXPECT_EQ(read.choice({realVariable, realVariable}), 0);
    EXPECT_EQ(read.choice({realVariable, realVariable, realVariable}), 1);

    const Overloads kinds({"f(a as integer)", "f(a as double)", "f(a as string)", "f(a as variant)"});
    EXPECT_EQ(kinds.choice({integer}), 0);
    EXPECT_EQ(kinds.choice({real}), 1);
    EXPECT_EQ(kinds.choice({string}), 2);
    EXPECT_EQ(kinds.choice({variant}), 3);
    EXPECT_EQ(kinds.choice({reals}), 3);

    const Overloads classes({"f(a as Object)", "f(a as RuntimeException)"});
    EXPECT_EQ(classes.choice({{Type::object("NilObjectException")}}), 1); // the nearer superclass
    EXPECT_EQ(classes.choice({{Type::object("runtimeexception")}}), 1);
    EXPECT_EQ(classes.choice({{Type::object("MemoryBlock")}}), 0);
}

TEST(Resolve, FillsDefaultsAndCollectsParamarrays) {
    startHost();
    const Overloads components({"f(s as NSColorSpaceZRX, paramarray c as double) as NSColorZRX",
                                "f(s as NSColorSpaceZRX, c() as double) as NSColorZRX"});
    EXPECT_EQ(components.choice({space, reals}), 1);
    const Resolution collected = components.resolve({space, real, integer, real});
    ASSERT_EQ(collected.bindings.size(), 2u);
    EXPECT_EQ(collected.bindings[1].source, Binding::Source::ParamArray);
    EXPECT_EQ(collected.bindings[1].first, 1u);
    EXPECT_EQ(collected.bindings[1].conversions,
              (std::vector<Conversion>{Conversion::None, Conversion::IntegerToDouble, Conversion::None}));
    EXPECT_TRUE(components.resolve({space}).bindings[1].conversions.empty());
    EXPECT_EQ(components.choice({space, real, string}), -1);

    const Overloads alpha({"f(white as double, alpha as double = 1.0)", "f(white as double, paramarray rest as double)"});
    const Resolution filled = alpha.resolve({real});
    ASSERT_NE(filled.method, nullptr);
    EXPECT_EQ(filled.bindings[1].source, Binding::Source::Default);
    EXPECT_EQ(alpha.choice({real, real, real}), 1);
}

TEST(Resolve, ConvertsOnlyWhatTheLanguageConverts) {
    startHost();
    EXPECT_EQ(implicitConversion(integer.type, real.type), Conversion::IntegerToDouble);
    EXPECT_EQ(implicitConversion(real.type, integer.type), std::nullopt);
    EXPECT_EQ(implicitConversion(integer.type, string.type), std::nullopt);
    EXPECT_EQ(implicitConversion(nil.type, space.type), Conversion::None);
    EXPECT_EQ(implicitConversion(nil.type, reals.type), Conversion::None);
    EXPECT_EQ(implicitConversion(nil.type, string.type), std::nullopt);
    EXPECT_EQ(implicitConversion(variant.type, integer.type), Conversion::FromVariant);
    EXPECT_EQ(implicitConversion(reals.type, integer.type.arrayOf()), std::nullopt);
    EXPECT_EQ(implicitConversion(Type::object("RuntimeException"), Type::object("NilObjectException")), std::nullopt);
    EXPECT_EQ(implicitConversion(Type(), variant.type), std::nullopt);
}

TEST(Resolve, SaysWhatIsDeclaredWhenNothingFits) {
    startHost();
    const Overloads read({"f(byref r as double)", "f(byref r as double, byref a as double)"});
    EXPECT_EQ(read.resolve({string}).error, "X.f cannot be called with (String). Declared:\n    f(byref r as double)\n    "
                                            "f(byref r as double, byref a as double)");
    EXPECT_EQ(read.resolve({real}).error.find("X.f cannot be called with (Double): a byref argument must be a variable. "),
              0u);
    EXPECT_EQ(read.resolve({integerVariable}).error.find("X.f cannot be called with (Integer). "), 0u);
    EXPECT_EQ(read.resolve({}).error.find("X.f cannot be called without arguments. "), 0u);

    const Overloads factories({"f(File as Folderitem)", "f(Data as Memoryblock)"});
    EXPECT_EQ(factories.resolve({nil}).error,
              "X.f called with (Nil) could mean any of:\n    f(File as Folderitem)\n    f(Data as Memoryblock)");
    EXPECT_EQ(Overloads({}).resolve({}).error, "X.f does not exist.");
}

TEST(Resolve, ConstructsWithoutArgumentsWithoutAConstructor) {
    startHost();
    const ClassInfo& block = *registry().find("MemoryBlock");
    const Resolution plain = resolveConstruction(block, {});
    EXPECT_EQ(plain.method, nullptr);
    EXPECT_EQ(plain.error, "");
    EXPECT_NE(resolveConstruction(block, {integer}).method, nullptr);
    EXPECT_NE(resolveConstruction(block, {string}).error, "");
    // A Constructor whose parameters all have defaults is called.
    EXPECT_NE(resolveConstruction(*registry().find("RuntimeException"), {}).method, nullptr);
}
