#pragma once

// Not part of the API: the compile-time check of the callables given to the kit's events,
// installed only because the event templates use it. It may change without notice.

#include <functional>
#include <list>
#include <memory>
#include <type_traits>
#include <vector>

namespace keo::Feature {

class Feature;
class FeatureCollection;
class Style;

namespace detail {

/**
 * @brief Whether @p Function can listen to an event whose listeners are called as
 * @p Signature (a void(Args...)): callable with those arguments as it will be stored (decayed,
 * called as an lvalue; its result is ignored), or something the event's std::function is made
 * from (a null pointer gives an empty one).
 */
template <typename Function, typename Signature>
struct IsListener;

template <typename Function, typename... Args>
struct IsListener<Function, void(Args...)>
    : std::bool_constant<std::is_invocable_v<std::decay_t<Function>&, Args...> ||
                         std::is_constructible_v<std::function<void(Args...)>, Function>> {};

/**
 * @brief Holds the one error a listener of the wrong signature gets: instantiated with
 * @p IsValid false (by refuseListener), its static_assert fails with a message that names the event
 * of
 * @p Signature. The kit's events are told apart by their signatures, each event's message is a
 * specialisation below; the primary template speaks of any other event.
 */
template <typename Signature, bool IsValid>
struct ListenerRule {
    static_assert(IsValid, "an event listener must be callable with the arguments of the event's "
                           "Callback type (its std::function<void(...)>)");
};

template <bool IsValid>
struct ListenerRule<void(), IsValid> {
    static_assert(IsValid, "a definition-changed listener of a Geometry, Symbol, Material or "
                           "ParticleEmitter must be callable as void()");
};

template <bool IsValid>
struct ListenerRule<void(bool), IsValid> {
    static_assert(IsValid, "a changed-lock listener must be callable as void(bool)");
};

template <bool IsValid>
struct ListenerRule<void(const Style*), IsValid> {
    static_assert(
        IsValid, "a definition-changed listener of a Style must be callable as void(const Style*)");
};

template <bool IsValid>
struct ListenerRule<void(Feature*), IsValid> {
    static_assert(IsValid,
                  "a definition-changed listener of a Feature must be callable as void(Feature*)");
};

template <bool IsValid>
struct ListenerRule<void(const std::vector<std::shared_ptr<Feature>>&,
                         const std::vector<std::shared_ptr<Feature>>&),
                    IsValid> {
    static_assert(IsValid, "an added-or-removed listener of a FeatureGroup must be callable as "
                           "void(const std::vector<std::shared_ptr<Feature>>& added, "
                           "const std::vector<std::shared_ptr<Feature>>& removed)");
};

template <bool IsValid>
struct ListenerRule<void(FeatureCollection*, const std::list<std::shared_ptr<Feature>>&,
                         const std::list<std::shared_ptr<Feature>>&, const std::list<Feature*>&),
                    IsValid> {
    static_assert(IsValid, "a collection-changed listener of a FeatureCollection must be callable "
                           "as void(FeatureCollection*, const FeatureList& added, "
                           "const FeatureList& removed, const ChangedList& changed)");
};

/** @brief Whether @p Function can listen to an event of @p Signature (see IsListener). */
template <typename Signature, typename Function>
inline constexpr bool IS_LISTENER = IsListener<Function, Signature>::value;

/**
 * @brief Stops the compilation with the message of the event of @p Signature. Every templated
 * `addEventListener` / `_add...EventListener` calls it in the branch of an `if constexpr
 * (!IS_LISTENER<...>)` that does nothing else, so a refused callable gets that one message and
 * no further error from the code that would store it; for a valid callable the branch is
 * discarded and nothing of the check is left in the program. The call names the refused
 * @p Function so that it depends on the caller's template argument: a call that did not would be
 * instantiated (and fail) even in the discarded branch by compilers that instantiate constexpr
 * functions eagerly.
 */
template <typename Signature, typename Function>
constexpr void refuseListener() noexcept {
    static_cast<void>(ListenerRule<Signature, IS_LISTENER<Signature, Function>>{});
}

} // namespace detail

} // namespace keo::Feature
