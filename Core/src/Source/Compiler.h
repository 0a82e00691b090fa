#pragma once

#include "FieldTable.h"
#include "Node.h"
#include "SlotSet.h"

#include "Source/LoadReport.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <string>

namespace keo::Source::detail {

/** @brief What the compiler throws: the path of the offending part and what is wrong with it. */
struct CompileError {
    /** @brief Where, e.g. "rules[2].polygon.fill[1]". */
    std::string path;
    /** @brief What is wrong, e.g. "unknown operator \"gett\"". */
    std::string message;
};

/**
 * @brief Compiles the JSON form of expressions into node trees, checking operator names,
 * argument counts and every type known before evaluation, and giving each attribute name a slot
 * in a field table.
 */
class Compiler final {
public:
    /** @brief The deepest nesting of expressions accepted. */
    static constexpr std::size_t MAX_DEPTH = 64;

    /** @brief A compiler that interns attribute names in @p fields (kept by the caller). */
    explicit Compiler(FieldTable& fields) noexcept
        : fields_(fields) {}

    /**
     * @brief The node of @p json, standing at @p path, whose result must fit @p expected (Any:
     * whatever). For a colour, a constant text is read as a CSS colour now. Throws CompileError.
     */
    Node compile(const nlohmann::json& json, const std::string& path, StaticType expected);

    /** @brief The lower-case name of @p type for messages, with its article ("a number"). */
    static const char* describe(StaticType type) noexcept;
    /** @brief The slots that @p node and its arguments read, added to @p slots. */
    static void collectSlots(const Node& node, SlotSet& slots);

    /**
     * @brief The node of @p json at @p path, @p depth levels deep. @p expected is passed down to
     * the outputs of the branching operators, so that a constant text where a colour is expected
     * is read as a colour once, here. Throws CompileError.
     */
    Node compileAt(const nlohmann::json& json, const std::string& path, std::size_t depth,
                   StaticType expected);
    /** @brief The interned slot of @p name. */
    std::uint32_t slotOf(const std::string& name) { return fields_.intern(name); }

private:
    FieldTable& fields_;
};

/**
 * @brief Runs @p compile; when it throws a CompileError, fails @p report with a StyleInvalid entry
 * "<prefix><path>: <message>" and returns false.
 */
template <typename Compile>
bool compileOrFail(const std::string& prefix, LoadReport& report, Compile&& compile) {
    try {
        compile();
        return true;
    } catch (const CompileError& e) {
        report.fail(LoadReport::Issue::StyleInvalid, prefix + e.path + ": " + e.message);
        return false;
    }
}

/** @brief The path of element @p index of the array at @p path: "path[index]". */
std::string elementPath(const std::string& path, std::size_t index);

/** @brief Throws a CompileError unless @p node's static type fits @p expected. */
void requireType(const Node& node, StaticType expected);

/** @brief A constant node of @p value at @p path. */
Node constantNode(Value value, const std::string& path);

} // namespace keo::Source::detail
