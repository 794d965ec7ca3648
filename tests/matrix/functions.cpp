#include "functions.h"

#include "classes/color/color.h"
#include "classes/colorlist/colorlist.h"
#include "classes/colorspace/colorspace.h"

#include <algorithm>
#include <iterator>

namespace matrix {
namespace {

bool convertsOtherKinds(REALfunction function) {
    using namespace chroma::color;
    const REALfunction converting[] = {reinterpret_cast<REALfunction>(getHueA), reinterpret_cast<REALfunction>(getRedA),
                                       reinterpret_cast<REALfunction>(colorValue)};
    return std::find(std::begin(converting), std::end(converting), function) != std::end(converting);
}

void addLifecycle(std::vector<Function>& functions, const host::ClassInfo& info) {
    const host::Invoker invoke(host::Signature{}, true);
    functions.push_back({info.name() + " constructor", info.record()->constructor, invoke, {}, &info, false, false, false});
    functions.push_back({info.name() + " destructor", info.record()->destructor, invoke, {}, &info, false, false, false});
}

// A colour's numbers and texts are nothing when it does not answer.
void addProperties(std::vector<Function>& functions, const host::ClassInfo& info) {
    for (const host::Property& property : info.properties()) {
        if (property.getter == REALstandardAccessor) continue; // the host's own
        const bool isNumberOrText = property.type.kind == host::Kind::Double || property.type.kind == host::Kind::String;
        const bool isQuiet = isNumberOrText && info.name() == "NSColorZRX";
        functions.push_back({info.name() + "." + property.name,
                             property.getter,
                             property.invokeGetter,
                             {property.name, {}, property.type},
                             &info,
                             true,
                             isQuiet,
                             convertsOtherKinds(property.getter)});
    }
}

void addMethods(std::vector<Function>& functions, const host::ClassInfo& info, const std::vector<host::Method>& methods) {
    for (const host::Method& method : methods)
        functions.push_back({info.name() + "." + method.declaration, method.function, method.invoke, method.signature,
                             method.shared ? nullptr : &info, false, false, convertsOtherKinds(method.function)});
}

} // namespace

std::vector<Function> boundFunctions() {
    std::vector<Function> functions;
    for (REALclassDefinition* record :
         {&chroma::color::NSColorClass, &chroma::colorspace::NSColorSpaceClass, &chroma::colorlist::NSColorListClass}) {
        if (!host::registry().find(record->name)) host::registry().add(*record);
        const host::ClassInfo& info = *host::registry().find(record->name);
        addLifecycle(functions, info);
        addProperties(functions, info);
        addMethods(functions, info, info.methods());
        addMethods(functions, info, info.sharedMethods());
    }
    return functions;
}

} // namespace matrix
