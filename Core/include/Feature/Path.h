#pragma once

namespace keo::Feature {

/**
 * @brief An animated path along a line: when enabled, the line's positions are handed to the
 * renderer as a path that moves along the vertices.
 */
struct Path {
    /** @brief Whether the path animation is on (default false). */
    bool enabled = false;
    /** @brief Whether the path runs on from the last vertex back to the first (default false). */
    bool closed = false;
    /** @brief Whether the path runs from the last vertex to the first (default false). */
    bool reversed = false;
    /** @brief Whether the path starts again when it reaches its end (default true). */
    bool loop = true;
    /** @brief The speed along the line, metres per second (default 300). */
    float speed = 300.0f;
    /** @brief A request to start the path over, served by the next update (default false). */
    bool restartRequest = false;

    /**
     * @brief Whether the two paths describe the same animation: enabled, closed, reversed, loop
     * and speed compare equal (speed exactly, so a NaN never equals). The restart request is not
     * part of the comparison.
     */
    bool sameAnimation(const Path& other) const noexcept {
        return enabled == other.enabled && closed == other.closed && reversed == other.reversed &&
               loop == other.loop && speed == other.speed;
    }
};

} // namespace keo::Feature
