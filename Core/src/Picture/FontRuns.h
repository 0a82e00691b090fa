#pragma once

#include <fontconfig/fontconfig.h>

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace keo::Picture::detail {

/**
 * @brief Splits text into runs that one font each can draw. Cairo's simple text interface draws
 * a string in a single font, so a label in a Latin font shows empty boxes for Chinese characters;
 * each run here names the family of the first font, in fontconfig's order of preference for the
 * asked family, that has all of the run's characters. Text of ASCII characters alone is one run in
 * the asked family without asking fontconfig anything.
 */
class FontRuns final {
public:
    /** @brief A piece of the text and the font family to draw it in. */
    struct Run {
        std::string family;
        std::string text;
    };

    FontRuns() = default;
    FontRuns(const FontRuns&) = delete;
    FontRuns& operator=(const FontRuns&) = delete;

    /** @brief The runs of the valid UTF-8 @p text for @p family, in their order in the text. */
    std::vector<Run> split(const std::string& family, const std::string& text);

private:
    struct FontSetDeleter {
        void operator()(FcFontSet* set) const noexcept { FcFontSetDestroy(set); }
    };
    using FontSetHandle = std::unique_ptr<FcFontSet, FontSetDeleter>;

    // The family's fonts in order of preference (empty when fontconfig knows none).
    const FcFontSet* fontsOf(const std::string& family);
    // The family of the first of @p fonts that has @p character, or @p family when none has it.
    static std::string familyFor(const FcFontSet* fonts, FcChar32 character,
                                 const std::string& family);

    std::unordered_map<std::string, FontSetHandle> fonts_;
};

} // namespace keo::Picture::detail
