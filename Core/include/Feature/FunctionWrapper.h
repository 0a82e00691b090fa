#pragma once

#include "Feature/FeatureExport.h"

namespace keo {

/**
 * @brief One listener of an event: it holds the listener's callback for the event that owns it.
 *
 * Events hand out std::weak_ptr<FunctionWrapper> handles. The holder of a handle disconnects by
 * locking it and, if the wrapper is still alive, calling remove(); a handle whose event is gone
 * has simply expired.
 */
class KEO_FEATURE_API FunctionWrapper {
public:
    virtual ~FunctionWrapper();
    FunctionWrapper(const FunctionWrapper&) = delete;
    FunctionWrapper& operator=(const FunctionWrapper&) = delete;

    /**
     * @brief Removes the listener from its event. While the event is firing, the listener is not
     * called again and is unlinked once that firing has finished; otherwise it is unlinked at
     * once. Does nothing when it was removed already or its event no longer exists.
     */
    virtual void remove() = 0;
    /** @brief Whether the listener is still attached to its event. */
    virtual bool isConnected() const noexcept = 0;

protected:
    FunctionWrapper() = default;
};

} // namespace keo
