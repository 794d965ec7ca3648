// Colours by their components, on both sides.
#pragma once

#include "support/plugin_test.h"

#include "classes/color/color.h"
#include "runtime/host_values.h"

using Components = std::vector<double>;
using Reference = foreign::Owned<REALobjectStruct>;

// A host colour's components; none for null. A new reference is given up, an owned one is kept.
inline Components componentsOf(const Reference& color) { return foreign::take(chroma::color::getComponents(color)); }

// What a host double is to the platform.
inline chroma::CGFloat single(double value) { return static_cast<float>(value); }

// A bound function's answer equals the platform's own to the message.
template <class... Arguments>
void expectAnswers(chroma::id receiver, const char* message, const Reference& answer, Arguments... arguments) {
    ASSERT_NE(answer, nullptr) << message;
    const chroma::id direct = native::tell(receiver, message, arguments...);
    EXPECT_TRUE(native::tell<chroma::BOOL>(chroma::nativeObject(answer), "isEqual:", direct)) << message;
}
