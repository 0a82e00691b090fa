// Must not compile: a Style's definition-changed listener that takes an int. The test that
// compiles it expects the one message of that event and no other error.
#include "Feature/PointStyle.h"

void listenWithTheWrongSignature(keo::Feature::PointStyle& style) {
    style._addDefinitionChangedEventListener([](int /*value*/) {});
}
