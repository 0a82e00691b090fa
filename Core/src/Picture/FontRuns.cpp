#include "FontRuns.h"

#include <algorithm>

namespace keo::Picture::detail {

namespace {

// Decodes the character that starts at @p at of valid UTF-8 @p text and its length in bytes.
FcChar32 decode(const std::string& text, std::size_t at, int& length) noexcept {
    FcChar32 character = 0;
    length = FcUtf8ToUcs4(reinterpret_cast<const FcChar8*>(text.data() + at), &character,
                          static_cast<int>(text.size() - at));
    if (length <= 0) {
        // Not expected for valid UTF-8; step over the byte so that splitting always ends.
        length = 1;
        character = static_cast<unsigned char>(text[at]);
    }
    return character;
}

bool isAscii(const std::string& text) noexcept {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

std::vector<FontRuns::Run> FontRuns::split(const std::string& family, const std::string& text) {
    if (isAscii(text)) {
        return {Run{family, text}};
    }
    const FcFontSet* fonts = fontsOf(family);
    std::vector<Run> runs;
    for (std::size_t at = 0; at < text.size();) {
        int length = 0;
        const FcChar32 character = decode(text, at, length);
        // Spaces and other characters every font has stay in the run they are in.
        std::string runFamily = runs.empty() || character > 0x20
                                    ? familyFor(fonts, character, family)
                                    : runs.back().family;
        if (runs.empty() || runs.back().family != runFamily) {
            runs.push_back(Run{std::move(runFamily), {}});
        }
        runs.back().text.append(text, at, static_cast<std::size_t>(length));
        at += static_cast<std::size_t>(length);
    }
    return runs;
}

const FcFontSet* FontRuns::fontsOf(const std::string& family) {
    const auto found = fonts_.find(family);
    if (found != fonts_.end()) {
        return found->second.get();
    }
    FontSetHandle set;
    if (FcPattern* pattern = FcPatternCreate()) {
        FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(family.c_str()));
        FcConfigSubstitute(nullptr, pattern, FcMatchPattern);
        FcDefaultSubstitute(pattern);
        FcResult result = FcResultNoMatch;
        set.reset(FcFontSort(nullptr, pattern, FcFalse, nullptr, &result));
        FcPatternDestroy(pattern);
    }
    return fonts_.emplace(family, std::move(set)).first->second.get();
}

std::string FontRuns::familyFor(const FcFontSet* fonts, FcChar32 character,
                                const std::string& family) {
    if (fonts == nullptr) {
        return family;
    }
    for (int i = 0; i < fonts->nfont; ++i) {
        FcCharSet* characters = nullptr;
        if (FcPatternGetCharSet(fonts->fonts[i], FC_CHARSET, 0, &characters) != FcResultMatch ||
            !FcCharSetHasChar(characters, character)) {
            continue;
        }
        if (i == 0) {
            // The font the family itself stands for: keep the asked name, as cairo would.
            return family;
        }
        FcChar8* name = nullptr;
        if (FcPatternGetString(fonts->fonts[i], FC_FAMILY, 0, &name) == FcResultMatch) {
            return reinterpret_cast<const char*>(name);
        }
    }
    return family;
}

} // namespace keo::Picture::detail
