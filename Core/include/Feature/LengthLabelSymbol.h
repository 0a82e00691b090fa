#pragma once

#include "Common/Vector4.h"
#include "Feature/FeatureExport.h"
#include "Feature/Symbol.h"

#include <cstdint>
#include <memory>
#include <string>

namespace keo {
class LabelGraphics;
} // namespace keo

namespace keo::Feature {

struct SymbolContext;

/**
 * @brief The measurement labels of a line or a polygon outline: a label per segment and one for
 * the total length, in metres or kilometres with a fixed number of decimal places.
 */
class KEO_FEATURE_API LengthLabelSymbol final : public Symbol {
public:
    /** @brief The unit in which lengths are written. */
    enum class LengthUnit : std::uint8_t {
        Meter = 0,     ///< Metres, written "米".
        Kilometer = 1, ///< Kilometres, written "千米".
    };

    /** @brief Segments and total shown, metres, 2 decimal places, size 12, padding (4, 2, 4, 2). */
    LengthLabelSymbol() = default;
    /** @brief Copies the values; the copy gets fresh, empty events. */
    LengthLabelSymbol(const LengthLabelSymbol& other) = default;
    ~LengthLabelSymbol() override;

    /** @brief Copies a length label symbol's values by the edit rule; another kind only logs. */
    void assign(const Symbol& other) override;
    /** @brief A copy without listeners. */
    std::shared_ptr<Symbol> clone() const override;
    /** @brief Type::LengthLabel. */
    Type getType() const override;

    /** @brief Whether each segment gets a label with its length (default true). */
    bool isShowSegments() const noexcept { return showSegments_; }
    /** @brief Shows or hides the segment labels (edit rule). */
    void setShowSegments(bool show);
    /** @brief Whether the last vertex gets a label with the total length (default true). */
    bool isShowTotal() const noexcept { return showTotal_; }
    /** @brief Shows or hides the total label (edit rule). */
    void setShowTotal(bool show);
    /** @brief The unit of the texts (default Meter). */
    LengthUnit getUnit() const noexcept { return unit_; }
    /** @brief Sets the unit (edit rule). */
    void setUnit(LengthUnit unit);
    /** @brief The number of decimal places (default 2). */
    int getDecimalPlaces() const noexcept { return decimalPlaces_; }
    /**
     * @brief Sets the number of decimal places (edit rule). Any value is stored; a negative
     * count is formatted as 6 places, as a stream does with a negative precision.
     */
    void setDecimalPlaces(int places);
    /** @brief The text size, pixels (default 12). */
    float getSize() const noexcept { return size_; }
    /** @brief Sets the text size, pixels (edit rule; stored as given). */
    void setSize(float size);
    /** @brief The background padding, pixels: left, top, right, bottom (default (4, 2, 4, 2)). */
    const Vector4<float>& getBackgroundPadding() const noexcept { return backgroundPadding_; }
    /** @brief Sets the background padding, pixels (edit rule). */
    void setBackgroundPadding(const Vector4<float>& padding);

    /**
     * @brief The text of a length of @p meters metres: the value in the unit, written in fixed
     * notation with the decimal places, a space and "米" or "千米". For example 1234.5 gives
     * "1234.50 米", and with kilometres and 3 places "1.235 千米".
     *
     * Rounding is half away from zero on the shortest decimal form of the value (the digits that
     * read back as the same double), so 0.125 with 2 places is "0.13", as a person reading the
     * number expects (the binary value just below 0.125 would print "0.12"). NaN and infinities
     * are written "nan", "inf" or "-inf" before the unit.
     */
    std::string formatLength(double meters) const;

    /**
     * @brief Writes one length label into @p graphics: the text @p text, the symbol's size as
     * the font size, white text (keo::Color::HIGHLIGHTCOLOR while the feature is highlighted)
     * with a black outline on the label's background box with the symbol's padding, the
     * context's height reference and distance display condition. Where the label stands and how
     * it is anchored belong to the geometry that measures.
     */
    void _fill(LabelGraphics& graphics, const SymbolContext& context, std::string text) const;

private:
    bool showSegments_ = true;
    bool showTotal_ = true;
    LengthUnit unit_ = LengthUnit::Meter;
    int decimalPlaces_ = 2;
    float size_ = 12.0f;
    Vector4<float> backgroundPadding_{4.0f, 2.0f, 4.0f, 2.0f};
};

} // namespace keo::Feature
