#pragma once

#include <string>

namespace keo::Feature::detail {

/**
 * @brief @p value in fixed notation with @p places digits after the point (a negative count
 * means 6, as with a stream), rounded half away from zero on the shortest decimal form of the
 * value: the digits that read back as the same double. So 0.125 with 2 places is "0.13" and
 * 1.2345 with 3 places is "1.235", where rounding the binary value would give "0.12" and "1.234".
 * NaN and infinities are written "nan", "inf" and "-inf".
 */
std::string formatFixed(double value, int places);

/**
 * @brief The shortest decimal text of @p value that reads back as the same double (or, with
 * @p asFloat, as the same float: a float widened to double keeps its own short form).
 */
std::string formatShortest(double value, bool asFloat = false);

} // namespace keo::Feature::detail
